// SPDX-License-Identifier: GPL-3.0-or-later
#include "journeys/desktop/OwnScreen.h"

#include <csignal>
#include <stdexcept>
#include <sys/prctl.h>

namespace zumeta::test {

namespace {

constexpr int kPatience = 10000; // milliseconds

}

OwnScreen::OwnScreen()
{
    // The server takes a number that is free and tells it.
    m_server.setStandardErrorFile(QProcess::nullDevice());
    if (!startBound(m_server, QStringLiteral("Xvfb"),
                    {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"), QStringLiteral("0"),
                     QStringLiteral("1600x1000x24"), QStringLiteral("-nolisten"), QStringLiteral("tcp")}))
        throw std::runtime_error("Xvfb cannot be started");
    QByteArray number;
    while (!number.endsWith('\n')) {
        if (!m_server.waitForReadyRead(kPatience))
            throw std::runtime_error("Xvfb tells no display");
        number += m_server.readAllStandardOutput();
    }
    qputenv("DISPLAY", ':' + number.trimmed());
    qputenv("QT_QPA_PLATFORM", "xcb");
    qputenv("LIBGL_ALWAYS_SOFTWARE", "1");
    qputenv("MESA_SHADER_CACHE_DISABLE", "true"); // its folder would be that of a test, and go with it
    for (const char* const foreign : {"WAYLAND_DISPLAY", "XAUTHORITY", "QT_QPA_PLATFORMTHEME", "DESKTOP_SESSION"})
        qunsetenv(foreign);
    // It gives new windows the focus, as a desktop does.
    m_windowManager.setStandardErrorFile(QProcess::nullDevice());
    if (!startBound(m_windowManager, QStringLiteral("openbox"), {}))
        throw std::runtime_error("openbox cannot be started");
}

OwnScreen::~OwnScreen()
{
    stop(m_windowManager);
    stop(m_server);
}

bool startBound(QProcess& process, const QString& program, const QStringList& arguments)
{
    process.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
    process.start(program, arguments);
    return process.waitForStarted(kPatience);
}

void stop(QProcess& process)
{
    process.kill();
    process.waitForFinished(kPatience);
}

}
