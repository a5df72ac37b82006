// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/FakeDesktop.h"

#include <QDBusArgument>
#include <stdexcept>

namespace zumeta::test {

namespace {

const QString kService = QStringLiteral("org.freedesktop.Notifications");
const QString kPath = QStringLiteral("/org/freedesktop/Notifications");

}

FakeNotifications::FakeNotifications(QDBusConnection bus)
    : m_bus(std::move(bus))
{
    m_bus.registerVirtualObject(kPath, this);
    if (!m_bus.registerService(kService))
        throw std::runtime_error("the private bus does not answer");
}

uint FakeNotifications::take(const QVariantList& arguments)
{
    const uint replaced = arguments[1].toUInt();
    const uint id = replaced != 0 ? replaced : ++m_lastId;
    shown.push_back({id, replaced, arguments[0].toString(), arguments[2].toString(), arguments[3].toString(),
                     arguments[4].toString(), arguments[5].toStringList(), qdbus_cast<QVariantMap>(arguments[6]),
                     arguments[7].toInt()});
    return id;
}

bool FakeNotifications::handleMessage(const QDBusMessage& message, const QDBusConnection& connection)
{
    if (message.member() == QLatin1String("GetCapabilities"))
        return connection.send(message.createReply(capabilities));
    if (message.member() == QLatin1String("CloseNotification")) {
        closed.push_back(message.arguments().value(0).toUInt());
        return connection.send(message.createReply());
    }
    // Its types are what services go by.
    if (message.member() != QLatin1String("Notify") || message.signature() != QLatin1String("susssasa{sv}i"))
        return false;
    const QDBusMessage reply = message.createReply(take(message.arguments()));
    if (!isHesitant)
        return connection.send(reply);
    m_waiting.push_back(reply);
    return true;
}

void FakeNotifications::answer()
{
    for (const QDBusMessage& reply : std::exchange(m_waiting, {}))
        m_bus.send(reply);
}

void FakeNotifications::tell(const char* signal, const QVariantList& arguments)
{
    QDBusMessage message = QDBusMessage::createSignal(kPath, kService, QLatin1String(signal));
    message.setArguments(arguments);
    m_bus.send(message);
}

void FakeNotifications::click(uint id, const QString& action)
{
    tell("ActionInvoked", {id, action});
}

void FakeNotifications::giveToken(uint id, const QString& token)
{
    tell("ActivationToken", {id, token});
}

void FakeNotifications::dismiss(uint id)
{
    constexpr uint kByTheUser = 2;
    tell("NotificationClosed", {id, kByTheUser});
}

FakeDock::FakeDock(QDBusConnection bus)
{
    bus.connect({}, {}, QStringLiteral("com.canonical.Unity.LauncherEntry"), QStringLiteral("Update"), this,
                SLOT(take(QString, QVariantMap)));
}

void FakeDock::take(const QString& application, const QVariantMap& properties)
{
    updates.push_back({application, properties.value(QStringLiteral("progress"), -1).toDouble(),
                       properties.value(QStringLiteral("progress-visible")).toBool()});
}

}
