// SPDX-License-Identifier: GPL-3.0-or-later
#include "journeys/wayland/OwnCompositor.h"

#include "journeys/desktop/OwnScreen.h"

#include <QDir>
#include <QElapsedTimer>
#include <QThread>
#include <stdexcept>
#include <unistd.h>

namespace zumeta::test {

namespace {

constexpr char kSettings[] = R"(output HEADLESS-1 resolution 1600x1000
xwayland disable
default_border none
focus_follows_mouse no
for_window [app_id=".*"] floating enable
)";

/// Somebody without any rights: the compositor refuses to run as root.
constexpr unsigned kNobody = 65534;

}

OwnCompositor::OwnCompositor()
{
    start();
    qputenv("WAYLAND_DISPLAY", waitForSocket().toLocal8Bit());
    qputenv("QT_QPA_PLATFORM", "wayland");
    qputenv("LIBGL_ALWAYS_SOFTWARE", "1");
    for (const char* const foreign : {"DISPLAY", "XAUTHORITY", "QT_QPA_PLATFORMTHEME", "DESKTOP_SESSION"})
        qunsetenv(foreign);
    // Programs that type bring a keyboard along and take it away again. One has to stay, or the window has none.
    if (!startBound(m_keyboard, QStringLiteral("wtype"), {QStringLiteral("-s"), QStringLiteral("600000")}))
        throw std::runtime_error("wtype cannot be started");
}

OwnCompositor::~OwnCompositor()
{
    stop(m_keyboard);
    stop(m_compositor);
}

void OwnCompositor::start()
{
    QFile settings(m_folder.filePath(QStringLiteral("settings")));
    if (!settings.open(QFile::WriteOnly) || settings.write(kSettings) < 0)
        throw std::runtime_error("no settings for the compositor");
    settings.close();
    QString program = QStringLiteral("sway");
    QStringList words{QStringLiteral("-c"), settings.fileName()};
    if (geteuid() == 0) {
        words = QStringList{QStringLiteral("--reuid=%1").arg(kNobody), QStringLiteral("--regid=%1").arg(kNobody),
                            QStringLiteral("--clear-groups"), program} +
                words;
        program = QStringLiteral("setpriv");
        for (const QString& path : {m_folder.path(), settings.fileName()}) {
            if (chown(path.toLocal8Bit().constData(), kNobody, kNobody) != 0)
                throw std::runtime_error("the compositor's folder cannot be given away");
        }
    }
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), m_folder.path());
    environment.insert(QStringLiteral("HOME"), m_folder.path());
    environment.insert(QStringLiteral("WLR_BACKENDS"), QStringLiteral("headless"));
    environment.insert(QStringLiteral("WLR_RENDERER"), QStringLiteral("pixman"));
    environment.insert(QStringLiteral("WLR_LIBINPUT_NO_DEVICES"), QStringLiteral("1"));
    environment.remove(QStringLiteral("WAYLAND_DISPLAY"));
    m_compositor.setProcessEnvironment(environment);
    m_compositor.setStandardErrorFile(QProcess::nullDevice());
    if (!startBound(m_compositor, program, words))
        throw std::runtime_error("sway cannot be started");
}

QString OwnCompositor::waitForSocket() const
{
    QElapsedTimer since;
    since.start();
    const QDir folder(m_folder.path());
    while (since.elapsed() < 10000) {
        const QStringList sockets = folder.entryList({QStringLiteral("wayland-?")}, QDir::System);
        if (!sockets.isEmpty())
            return folder.filePath(sockets.front());
        QThread::msleep(50);
    }
    throw std::runtime_error("sway opens no socket");
}

}
