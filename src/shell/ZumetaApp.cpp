// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/ZumetaApp.h"

#include "media/playback/AudioDeviceOutput.h"
#include "media/playback/MoviePlayer.h"
#include "media/playback/SoundPlayer.h"
#include "render/CompositorScaling.h"
#include "render/export/ExportService.h"

#include <QGuiApplication>
#include <QSessionManager>
#include <QtQml/qqmlextensionplugin.h>

Q_IMPORT_QML_PLUGIN(ZumetaPlugin)

namespace zumeta {

ZumetaApp::ZumetaApp(WrapPlayer wrapPlayer)
    : m_wrapPlayer(std::move(wrapPlayer))
    , m_settings(SettingsFile::defaultPath())
    , m_languages(m_settings)
    , m_proxies(m_queue, ProxyGenerator::defaultProxyDirectory(), transcodingExports(compositorScaling()))
    , m_sleepInhibitor(QDBusConnection::systemBus())
    , m_desktopMotion(QDBusConnection::sessionBus())
    , m_session(std::make_unique<CompositorViewModel>(environment()))
    , m_surfaces(std::make_unique<SurfaceContext>(SurfaceEnvironment{
          m_languages, *m_session, m_notifications, m_monotonic, m_dialogs, m_dialogs, m_alerts, m_modality}))
{
    m_projectDialogs = std::make_unique<ProjectDialogs>(
        *m_session, m_dialogs, m_dialogs, [this](const QString& key) { return m_languages.localized(key); });
    m_delegate = std::make_unique<AppDelegate>(*m_surfaces);
    m_surfaces->installOn(m_engine);
    m_engine.load(QUrl(QStringLiteral("qrc:/qt/qml/Zumeta/window/Main.qml")));
    if (QQuickWindow* const made = window()) {
        m_delegate->applicationDidFinishLaunching(*made);
        m_dialogs.setWindow(*made);
    }
    followDesktop();
}

ZumetaApp::~ZumetaApp()
{
    m_delegate->applicationWillTerminate();
}

ZumetaApp::EndOfExports::~EndOfExports()
{
    ExportService::waitUntilAllHaveEnded();
}

void ZumetaApp::followDesktop()
{
    QObject::connect(&m_desktopMotion, &DesktopMotion::isReducedChanged, &m_surfaces->motion(),
                     [this] { m_surfaces->motion().setReduced(m_desktopMotion.isReduced()); });
    const auto commitSession = [this](QSessionManager& desktop) {
        m_delegate->commitSession({[&desktop] { return desktop.allowsInteraction(); },
                                   [&desktop] { desktop.release(); }, [&desktop] { desktop.cancel(); }});
    };
    QObject::connect(qGuiApp, &QGuiApplication::commitDataRequest, m_delegate.get(), commitSession,
                     Qt::DirectConnection); // the desktop takes the return for the answer
}

void ZumetaApp::showAgain(const QByteArray& activationToken)
{
    constexpr char kVariable[] = "XDG_ACTIVATION_TOKEN"; // where Qt looks for it
    if (!activationToken.isEmpty())
        qputenv(kVariable, activationToken);
    const QQuickWindow* const shown = window();
    m_delegate->applicationShouldHandleReopen(shown && shown->isVisible());
    m_delegate->applicationDidBecomeActive();
    qunsetenv(kVariable); // of no use to programs that this one starts
}

SessionEnvironment ZumetaApp::environment()
{
    return {
        .playbackClock = m_clock,
        .queue = m_queue,
        .notifications = m_notifications,
        .fileAccess = m_fileAccess,
        .bookmarks = m_bookmarks,
        .projectFiles = m_projectFiles,
        .dialogs = m_dialogs,
        .localized = [this](const QString& key) { return m_languages.localized(key); },
        .wallClock = m_wallClock,
        .assets = m_assets,
        .loadMetadata = [this](std::vector<FileUrl> urls) { return m_metadata.load(std::move(urls)); },
        .proxyGenerator = m_proxies,
        .makePlayer = [this] { return makePlayer(); },
        .makeExporter = [] { return std::make_shared<ExportService>(); },
        .sleepInhibitor = m_sleepInhibitor,
    };
}

std::unique_ptr<Player> ZumetaApp::makePlayer()
{
    auto device = std::make_unique<AudioDeviceOutput>(m_audioThread, m_monotonic);
    auto sound = std::make_unique<SoundPlayer>(m_monotonic, std::move(device));
    std::unique_ptr<Player> player = std::make_unique<MoviePlayer>(m_clock, m_queue, std::move(sound));
    return m_wrapPlayer ? m_wrapPlayer(std::move(player)) : std::move(player);
}

QQuickWindow* ZumetaApp::window()
{
    const QObjectList roots = m_engine.rootObjects();
    return roots.isEmpty() ? nullptr : qobject_cast<QQuickWindow*>(roots.constFirst());
}

}
