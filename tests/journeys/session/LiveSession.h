// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/ProxyGenerator.h"
#include "render/export/ExportService.h"
#include "session/CompositorViewModel.h"
#include "support/BarCode.h"
#include "support/FakeSleepInhibitor.h"
#include "support/TemporaryFolder.h"

#include <deque>
#include <filesystem>
#include <functional>

namespace zumeta::test {

/// Answers alerts in the order in which the test gave the answers, after a while; the last button when none is left.
class AnsweringDialogs final : public Dialogs {
public:
    explicit AnsweringDialogs(MainQueue& queue)
        : m_queue(queue)
    {}
    Task<int> showAlert(Alert alert) override;
    Task<std::optional<FileUrl>> showSavePanel(SavePanel panel) override;

    std::deque<int> answers;
    std::vector<Alert> shown;
    std::deque<FileUrl> savePlaces; ///< what is chosen in the panels; nothing when none is left
    std::vector<SavePanel> savePanels;

private:
    MainQueue& m_queue;
};

/// Looks at files like the real loader, and knows how many looks are under way.
class CountedAssets final : public AssetLoader {
public:
    Task<AssetOutcome> load(FileUrl url) override;
    int underWay = 0;

private:
    ThreadedAssetLoader m_loader;
};

/// Reads and writes like the real one, and knows how many projects were written.
class CountedProjectFiles final : public ProjectFiles {
public:
    Task<ProjectReadOutcome> read(FileUrl url) override;
    Task<ProjectWriteOutcome> write(FileUrl url, ProjectState state) override;
    int written = 0;

private:
    ThreadedProjectFiles m_files;
};

/// The whole session with real players, real proxies, real files and real time; only the window is missing.
class LiveSession {
public:
    /// Proxies lie in `folder`, which several sessions may share one after the other.
    explicit LiveSession(const std::filesystem::path& folder);
    ~LiveSession();
    LiveSession(const LiveSession&) = delete; // its parts hold each other's addresses
    LiveSession& operator=(const LiveSession&) = delete;

    CompositorViewModel& session() { return *m_session; }
    /// As when the application ends; nothing else is asked of the session after it.
    void endSession() { m_session.reset(); }
    PlaybackClock& clock() { return m_clock; }
    Player& player(Side side) { return service(side).player(); }
    VideoPlayerService& service(Side side);
    AnsweringDialogs& dialogs() { return m_dialogs; }
    /// Surroundings of exports that will begin.
    ExportEnvironment& exportEnvironment() { return m_exportEnvironment; }
    const FakeSleepInhibitor& sleepInhibitor() const { return m_sleepInhibitor; }
    /// From now on it takes so long to find out what a file holds, as on a disk that has to wake up first.
    void setDiskDelay(double seconds) { m_diskDelay = seconds; }

    /// Runs the event loop until `condition` holds. False when it does not within `seconds`.
    bool waitFor(const std::function<bool()>& condition, double seconds = 30);
    /// Runs the event loop for so long, calling `sample`, when there is one, as often as the display would.
    void run(double seconds, const std::function<void()>& sample = {});

    /// Loads files into a side and waits until the load is through and its first picture is there.
    bool load(Side side, const std::vector<std::filesystem::path>& files);
    /// Prepares the project, answers the panel with this place and waits until the file is written.
    bool keep(const std::filesystem::path& project);
    /// Opens a project like a user and waits until it is in force, with pictures of the videos that were found.
    bool restore(const std::filesystem::path& project);
    /// Exports to a place where nothing is, and waits for the end. False when it failed.
    bool exportTo(const std::filesystem::path& movie);

    bool waitForProxy(Side side);
    /// Waits for the exact picture of the moment at which the side stands.
    bool waitForPicture(Side side);
    /// The bar code in that picture; nothing when there is none.
    std::optional<BarCode> shownCode(Side side);
    /// Both at once: the numbers of the frames that the two sides stand on, -1 where there is none.
    std::pair<int, int> shownNumbers();

private:
    bool isExact(Side side);
    Task<MetadataOutcome> loadMetadata(std::vector<FileUrl> urls);

    MonotonicClock m_monotonic;
    OpenFileAccess m_fileAccess; // before the queue, whose work may still hold a file when it goes
    EventLoopQueue m_queue;
    PlaybackClock m_clock{m_monotonic, m_queue};
    NotificationCenter m_notifications;
    ThreadedBookmarks m_bookmarks;
    CountedProjectFiles m_projectFiles;
    AnsweringDialogs m_dialogs{m_queue};
    SystemWallClock m_wallClock;
    CountedAssets m_assets;
    VideoMetadataLoader m_metadata;
    ProxyGenerator m_proxies;
    ExportEnvironment m_exportEnvironment;
    FakeSleepInhibitor m_sleepInhibitor;
    double m_diskDelay = 0;
    std::unique_ptr<CompositorViewModel> m_session;
};

}
