// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/desktop/DesktopNotifier.h"

#include "platform/desktop/DesktopId.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <functional>
#include <memory>
#include <utility>

namespace zumeta {

namespace {

const QString kService = QStringLiteral("org.freedesktop.Notifications");
const QString kPath = QStringLiteral("/org/freedesktop/Notifications");
const QString kDefaultAction = QStringLiteral("default"); // of a click on the notification as a whole

QDBusMessage callOf(const QString& member)
{
    return QDBusMessage::createMethodCall(kService, kPath, kService, member);
}

/// Hands on what is answered, unless that is an error.
template <class T>
void whenAnswered(const QDBusPendingCall& call, QObject* context, const std::function<void(const T&)>& take)
{
    const auto* const watcher = std::make_unique<QDBusPendingCallWatcher>(call, context).release(); // the context's
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, context, [take](QDBusPendingCallWatcher* answered) {
        answered->deleteLater();
        if (const QDBusPendingReply<T> reply = *answered; !reply.isError())
            take(reply.value());
    });
}

}

DesktopNotifier::DesktopNotifier(QDBusConnection bus, QObject* parent)
    : QObject(parent)
    , m_bus(std::move(bus))
{
    const auto listen = [this](const char* signal, const char* slot) {
        m_bus.connect(kService, kPath, kService, QLatin1String(signal), this, slot);
    };
    listen("ActionInvoked", SLOT(takeAction(uint, QString)));
    listen("ActivationToken", SLOT(takeToken(uint, QString)));
    listen("NotificationClosed", SLOT(takeClosed(uint, uint)));
}

void DesktopNotifier::show(const Message& message)
{
    const int number = ++m_newest;
    m_isWithdrawn = false;
    // Some services read the body as markup, where a file's name may look like it; others show it as it is.
    whenAnswered<QStringList>(m_bus.asyncCall(callOf(QStringLiteral("GetCapabilities"))), this,
                              [this, message, number](const QStringList& capabilities) {
                                  if (number == m_newest && !m_isWithdrawn)
                                      send(message, capabilities);
                              });
}

void DesktopNotifier::send(const Message& message, const QStringList& capabilities)
{
    const bool readsMarkup = capabilities.contains(QStringLiteral("body-markup"));
    const QString body = readsMarkup ? message.body.toHtmlEscaped() : message.body;
    QStringList actions;
    if (capabilities.contains(QStringLiteral("actions")))
        actions << kDefaultAction << message.actionLabel;
    constexpr int kServicesOwnTime = -1;
    QDBusMessage call = callOf(QStringLiteral("Notify"));
    call << QStringLiteral("Zumeta") << m_shown.value_or(0) << desktopId() << message.title << body << actions
         << QVariantMap{{QStringLiteral("desktop-entry"), desktopId()}} << kServicesOwnTime;
    whenAnswered<uint>(m_bus.asyncCall(call), this, [this](const uint& id) {
        m_shown = id;
        if (m_isWithdrawn)
            withdraw();
    });
}

void DesktopNotifier::withdraw()
{
    m_isWithdrawn = true;
    if (!m_shown)
        return;
    QDBusMessage call = callOf(QStringLiteral("CloseNotification"));
    call << *std::exchange(m_shown, std::nullopt);
    m_bus.send(call);
}

void DesktopNotifier::takeAction(uint id, const QString& action)
{
    // Everybody hears of everybody's notifications.
    if (m_shown == id && action == kDefaultAction)
        Q_EMIT activated(std::exchange(m_token, {}));
}

void DesktopNotifier::takeToken(uint id, const QString& token)
{
    if (m_shown == id)
        m_token = token;
}

void DesktopNotifier::takeClosed(uint id, uint)
{
    if (m_shown == id)
        m_shown.reset();
}

}
