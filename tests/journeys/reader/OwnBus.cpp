// SPDX-License-Identifier: GPL-3.0-or-later
#include "journeys/reader/OwnBus.h"

#include "journeys/desktop/OwnScreen.h"

#include <stdexcept>

namespace zumeta::test {

OwnBus::OwnBus()
{
    m_daemon.setStandardErrorFile(QProcess::nullDevice());
    if (!startBound(m_daemon, QStringLiteral("dbus-daemon"),
                    {QStringLiteral("--session"), QStringLiteral("--nofork"), QStringLiteral("--print-address=1")}))
        throw std::runtime_error("dbus-daemon cannot be started");
    QByteArray address;
    while (!address.endsWith('\n')) {
        if (!m_daemon.waitForReadyRead(10000))
            throw std::runtime_error("dbus-daemon tells no address");
        address += m_daemon.readAllStandardOutput();
    }
    qputenv("DBUS_SESSION_BUS_ADDRESS", address.trimmed());
    qunsetenv("AT_SPI_BUS_ADDRESS"); // that of another session
}

OwnBus::~OwnBus()
{
    stop(m_daemon);
}

}
