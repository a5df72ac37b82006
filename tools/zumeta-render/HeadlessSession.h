// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/VideoMetadataLoader.h"
#include "platform/sleep/LogindSleepInhibitor.h"
#include "session/CompositorViewModel.h"
#include "zumeta-render/KnownAssets.h"

namespace zumeta {

/// Answers for a user who has said all on the command line: the movie's place is known and what lies there is replaced.
class CommandLineAnswers final : public Dialogs {
public:
    explicit CommandLineAnswers(FileUrl output)
        : m_output(std::move(output))
    {}
    Task<int> showAlert(Alert alert) override;
    Task<std::optional<FileUrl>> showSavePanel(SavePanel panel) override;

    /// The first message that left no choice.
    const std::optional<QString>& refusal() const { return m_refusal; }

private:
    FileUrl m_output;
    std::optional<QString> m_refusal;
};

/// The application's session without its window: players that show no picture, no proxies, nobody who is asked. Needs
/// the event loop. Main thread.
class HeadlessSession {
public:
    explicit HeadlessSession(FileUrl output);
    ~HeadlessSession();
    HeadlessSession(const HeadlessSession&) = delete; // its parts hold each other's addresses
    HeadlessSession& operator=(const HeadlessSession&) = delete;

    CompositorViewModel& session() { return *m_session; }
    const std::optional<QString>& refusal() const { return m_answers.refusal(); }
    /// Runs the event loop until `isOver`, which is asked whenever something may have happened.
    void runUntil(const std::function<bool()>& isOver);

private:
    class NoProxies final : public ProxyMaker {
    public:
        Task<ProxyOutcome> generateProxy(FileUrl url, ProxyConfig config, Progress progress) override;
    };

    MonotonicClock m_monotonic;
    OpenFileAccess m_fileAccess; // before the queue, whose work may still hold a file when it goes
    EventLoopQueue m_queue;
    PlaybackClock m_clock{m_monotonic, m_queue};
    NotificationCenter m_notifications;
    ThreadedBookmarks m_bookmarks;
    ThreadedProjectFiles m_projectFiles;
    CommandLineAnswers m_answers;
    SystemWallClock m_wallClock;
    std::shared_ptr<KnownAssets> m_knownAssets = std::make_shared<KnownAssets>();
    ThreadedAssetLoader m_assets;
    VideoMetadataLoader m_metadata;
    NoProxies m_proxies;
    LogindSleepInhibitor m_sleepInhibitor{QDBusConnection::systemBus()};
    std::unique_ptr<CompositorViewModel> m_session;
};

}
