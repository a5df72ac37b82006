// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "languages/LanguageManager.h"
#include "media/ProxyGenerator.h"
#include "media/VideoMetadataLoader.h"
#include "media/playback/AudioThread.h"
#include "platform/SettingsFile.h"
#include "platform/portal/DesktopMotion.h"
#include "platform/sleep/LogindSleepInhibitor.h"
#include "session/CompositorViewModel.h"
#include "shell/WindowDialogs.h"
#include "surfaces/theme/SurfaceContext.h"

#include <QQmlApplicationEngine>
#include <QQuickWindow>
#include <functional>

namespace zumeta {

/// The application: one session, one window, and all that they ask of the desktop.
class ZumetaApp {
public:
    /// What measurements put around each player; it owns the one that it is given.
    using WrapPlayer = std::function<std::unique_ptr<Player>(std::unique_ptr<Player>)>;

    explicit ZumetaApp(WrapPlayer wrapPlayer = {});
    ~ZumetaApp();
    ZumetaApp(const ZumetaApp&) = delete; // its parts hold each other's addresses
    ZumetaApp& operator=(const ZumetaApp&) = delete;

    /// Nothing when the window could not be made; why is on standard error.
    QQuickWindow* window();
    /// Fills the screen's usable area. There must be a window.
    void showWindow() { window()->showMaximized(); }
    CompositorViewModel& session() { return *m_session; }
    LanguageManager& languages() { return m_languages; }
    Dialogs& dialogs() { return m_dialogs; }

private:
    SessionEnvironment environment();
    std::unique_ptr<Player> makePlayer();

    WrapPlayer m_wrapPlayer;
    MonotonicClock m_monotonic;
    OpenFileAccess m_fileAccess; ///< before the queue: work that never ran lets go of files when it goes
    EventLoopQueue m_queue;
    PlaybackClock m_clock{m_monotonic, m_queue};
    NotificationCenter m_notifications;
    SettingsFile m_settings;
    LanguageManager m_languages;
    ThreadedBookmarks m_bookmarks;
    ThreadedProjectFiles m_projectFiles;
    AlertQueue m_alerts{nullptr};
    ModalState m_modality{nullptr};
    WindowDialogs m_dialogs{m_alerts, m_modality};
    SystemWallClock m_wallClock;
    ThreadedAssetLoader m_assets;
    VideoMetadataLoader m_metadata;
    ProxyGenerator m_proxies;
    LogindSleepInhibitor m_sleepInhibitor;
    DesktopMotion m_desktopMotion;
    AudioThread m_audioThread;
    std::unique_ptr<CompositorViewModel> m_session;
    std::unique_ptr<SurfaceContext> m_surfaces;
    QQmlApplicationEngine m_engine;
};

}
