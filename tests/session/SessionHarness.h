// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/Log.h"
#include "session/CompositorViewModel.h"
#include "session/FakeExporter.h"
#include "support/FakeSleepInhibitor.h"
#include "support/ManualWallClock.h"
#include "support/VirtualPlayer.h"
#include "support/VirtualTime.h"

#include <gmock/gmock.h>
#include <map>
#include <set>

namespace zumeta::test {

using WorkflowStep = CompositorViewModel::WorkflowStep;
using AlignmentState = CompositorViewModel::AlignmentState;
using ViewMode = CompositorViewModel::ViewMode;

/// A recording that exists in the test's mind alone. Times in seconds.
struct FakeVideo {
    double duration = 60;
    MediaTime frameDuration{1, 30};
    Size size{1920, 1080};
    PreferredTransform transform{};
    double assetDelay = 0.05;   ///< of each look at the file
    double metadataDelay = 0.1; ///< of the loading of its metadata
    bool isReadable = true;
    bool hasVideo = true;

    MediaAsset asset(const FileUrl& url) const;
};

/// Knows the fake recordings, and takes virtual time for each look at one.
class FakeMedia final : public AssetLoader {
public:
    explicit FakeMedia(VirtualTime& time)
        : m_time(time)
    {}
    FileUrl add(const char* path, const FakeVideo& video);
    FakeVideo& video(const FileUrl& url) { return m_videos.at(url.path().native()); }
    Task<AssetOutcome> load(FileUrl url) override;
    Task<MetadataOutcome> loadMetadata(std::vector<FileUrl> urls);

    std::vector<FileUrl> assetLoads;

private:
    VirtualTime& m_time;
    std::map<std::string, FakeVideo> m_videos;
};

/// Answers after some time; notes what it was asked.
class ScriptedDialogs final : public Dialogs {
public:
    explicit ScriptedDialogs(VirtualTime& time)
        : m_time(time)
    {}
    Task<int> showAlert(Alert alert) override;
    Task<std::optional<FileUrl>> showSavePanel(SavePanel panel) override;

    int answer = 0;
    std::optional<FileUrl> savePlace; ///< what is chosen in the panels
    double delay = 1;
    std::vector<Alert> alerts;
    std::vector<SavePanel> savePanels;

private:
    VirtualTime& m_time;
};

class FakeFileAccess final : public FileAccess {
public:
    bool startAccessing(const FileUrl& url) override;
    void stopAccessing(const FileUrl& url) override { stopped.push_back(url); }

    std::set<std::string> refused;
    std::vector<FileUrl> started;
    std::vector<FileUrl> stopped;
};

/// Bookmarks are the bytes of a path. What was moved is found at its new place; everything takes time.
class FakeBookmarks final : public Bookmarks {
public:
    explicit FakeBookmarks(VirtualTime& time)
        : m_time(time)
    {}
    static QByteArray of(const char* path) { return QByteArray("bookmark of ") + path; }
    Task<std::vector<std::optional<QByteArray>>> make(std::vector<FileUrl> urls) override;
    Task<std::vector<BookmarkOutcome>> resolve(std::vector<QByteArray> bookmarks,
                                               std::vector<std::filesystem::path> searchFolders) override;

    std::map<std::string, std::string> moved; ///< from, to
    std::set<std::string> gone;               ///< neither made nor resolved
    double delay = 0.05;
    std::vector<std::vector<std::filesystem::path>> searches; ///< the folders of each

private:
    VirtualTime& m_time;
};

/// Project files that exist in the test's mind alone.
class FakeProjectFiles final : public ProjectFiles {
public:
    explicit FakeProjectFiles(VirtualTime& time)
        : m_time(time)
    {}
    Task<ProjectReadOutcome> read(FileUrl url) override;
    Task<ProjectWriteOutcome> write(FileUrl url, ProjectState state) override;

    std::map<std::string, ProjectState> files; ///< by path
    std::map<std::string, double> readDelays;  ///< of files that take longer than `delay`
    double delay = 0.02;
    bool isFull = false; ///< nothing more can be written

private:
    VirtualTime& m_time;
};

/// Makes "/proxies/NAME" of "/NAME" after a while, or fails.
class FakeProxyMaker final : public ProxyMaker {
public:
    explicit FakeProxyMaker(VirtualTime& time)
        : m_time(time)
    {}
    Task<ProxyOutcome> generateProxy(FileUrl url, ProxyConfig config, Progress progress) override;

    double delay = 1e6; ///< by default, no proxy in the time of a test
    std::optional<ProxyError> error;
    std::vector<FileUrl> requests;

private:
    VirtualTime& m_time;
};

/// A session in virtual time, with everything that it asks for.
struct SessionHarness {
    VirtualTime time;
    PlaybackClock clock{time, time};
    NotificationCenter notifications;
    FakeFileAccess fileAccess;
    ScriptedDialogs dialogs{time};
    ManualWallClock wallClock{std::chrono::sys_days(std::chrono::year(2026) / 3 / 14)};
    FakeMedia media{time};
    FakeProxyMaker proxies{time};
    FakeBookmarks bookmarks{time};
    FakeProjectFiles projectFiles{time};
    // Exporting.
    ExportScript exportScript; ///< of exporters that will be made
    std::vector<std::shared_ptr<FakeExporter>> exporters;
    FakeSleepInhibitor sleepInhibitor;
    std::function<QString(const QString&)> localized = [](const QString& key) {
        return QStringLiteral("[%1]").arg(key);
    };
    std::vector<QString> log;
    LogCapture capture{[this](const QString& line) { log.push_back(line); }};
    std::unique_ptr<CompositorViewModel> session;

    SessionHarness();
    ~SessionHarness();

    VirtualPlayer& above() { return static_cast<VirtualPlayer&>(session->abovePlayerService().player()); }
    VirtualPlayer& below() { return static_cast<VirtualPlayer&>(session->belowPlayerService().player()); }
    /// Loads and waits until it is over.
    FileUrl loadAbove(const char* path, const FakeVideo& video = {});
    FileUrl loadBelow(const char* path, const FakeVideo& video = {});
    /// Both in one turn, so that no question is asked.
    void loadBoth(const FakeVideo& above, const FakeVideo& below);
    void loadBoth() { loadBoth({}, {}); }
    /// Locks both sides in their own steps, as a user does, and leaves the session in Step 2.
    void lockBoth(double aboveTime, double belowTime);
    /// Two recordings of these lengths, locked, in this step.
    void enterComposite(WorkflowStep step, SideTiming above, SideTiming below);
    void advance(double seconds) { time.advance(seconds); }
    void edit(const std::function<void(VideoCompositionConfig&)>& edit);
    void post(const QString& notification, const QVariantMap& userInfo = {});
    bool hasLogged(const QString& beginning) const;
};

/// For TEST_F.
struct SessionTest : testing::Test, SessionHarness {};

}
