// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "languages/LanguageManager.h"
#include "media/ProxyGenerator.h"
#include "media/VideoMetadataLoader.h"
#include "media/playback/AudioThread.h"
#include "platform/BundleInfo.h"
#include "platform/SettingsFile.h"
#include "platform/desktop/DesktopNotifier.h"
#include "platform/desktop/LauncherProgress.h"
#include "platform/portal/DesktopMotion.h"
#include "platform/sleep/LogindSleepInhibitor.h"
#include "session/CompositorViewModel.h"
#include "shell/AppDelegate.h"
#include "shell/ExportOnDesktop.h"
#include "shell/WindowDialogs.h"
#include "surfaces/theme/SurfaceContext.h"
#include "surfaces/window/CheckForUpdatesViewModel.h"
#include "surfaces/window/ProjectDialogs.h"

#include <QQmlApplicationEngine>
#include <QQuickWindow>
#include <functional>

namespace zumeta {

/// What decides whether and how updates can be asked for.
struct UpdateSetup {
    BundleInfo bundle = BundleInfo::main();
    FetchLimits limits{};
};

/// The application: one session, one window, and all that they ask of the desktop.
class ZumetaApp {
public:
    /// What measurements put around each player; it owns the one that it is given.
    using WrapPlayer = std::function<std::unique_ptr<Player>(std::unique_ptr<Player>)>;

    explicit ZumetaApp(WrapPlayer wrapPlayer = {}, const UpdateSetup& updates = {});
    ~ZumetaApp();
    ZumetaApp(const ZumetaApp&) = delete; // its parts hold each other's addresses
    ZumetaApp& operator=(const ZumetaApp&) = delete;

    /// Nothing when the window could not be made; why is on standard error.
    QQuickWindow* window();
    void showWindow() { m_delegate->showWindow(); }
    /// Brings the window back to whoever has started the application once more, with what the desktop gave to that
    /// start so that a window may come to the front.
    void showAgain(const QByteArray& activationToken);
    /// As closing the window, without a question.
    void terminate() { m_delegate->terminate(); }
    CompositorViewModel& session() { return *m_session; }
    LanguageManager& languages() { return m_languages; }
    Dialogs& dialogs() { return m_dialogs; }
    NotificationCenter& notifications() { return m_notifications; }
    ModalState& modality() { return m_modality; }
    AppDelegate& delegate() { return *m_delegate; }

private:
    /// The session gives its export up when it goes; what that has begun is tidied up before the application has gone.
    struct EndOfExports {
        EndOfExports() = default;
        ~EndOfExports();
        EndOfExports(const EndOfExports&) = delete; // it stands for one moment
        EndOfExports& operator=(const EndOfExports&) = delete;
    };

    SessionEnvironment environment();
    std::unique_ptr<Player> makePlayer();
    void followDesktop();

    WrapPlayer m_wrapPlayer;
    MonotonicClock m_monotonic;
    OpenFileAccess m_fileAccess; // before the queue, whose work may still hold a file when it goes
    EventLoopQueue m_queue;
    PlaybackClock m_clock{m_monotonic, m_queue};
    NotificationCenter m_notifications;
    SettingsFile m_settings;
    LanguageManager m_languages;
    ThreadedBookmarks m_bookmarks;
    ThreadedProjectFiles m_projectFiles;
    AlertQueue m_alerts{nullptr};
    ModalState m_modality{nullptr};
    WindowDialogs m_dialogs{m_alerts, m_modality, m_settings, m_languages};
    SystemWallClock m_wallClock;
    ThreadedAssetLoader m_assets;
    VideoMetadataLoader m_metadata;
    ProxyGenerator m_proxies;
    LogindSleepInhibitor m_sleepInhibitor;
    DesktopMotion m_desktopMotion;
    DesktopNotifier m_notifier;
    LauncherProgress m_launcher;
    // Both or neither: nobody can be asked unless the build is configured for it.
    std::unique_ptr<UpdateService> m_updates;
    std::unique_ptr<CheckForUpdatesViewModel> m_checkForUpdates;
    AudioThread m_audioThread;
    EndOfExports m_endOfExports; // after the session
    std::unique_ptr<CompositorViewModel> m_session;
    std::unique_ptr<ExportOnDesktop> m_exportOnDesktop;
    std::unique_ptr<SurfaceContext> m_surfaces;
    std::unique_ptr<ProjectDialogs> m_projectDialogs;
    std::unique_ptr<AppDelegate> m_delegate;
    QQmlApplicationEngine m_engine;
};

}
