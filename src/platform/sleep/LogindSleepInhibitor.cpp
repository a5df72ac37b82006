// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/sleep/LogindSleepInhibitor.h"

#include "platform/FileDescriptor.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusUnixFileDescriptor>

namespace zumeta {

namespace {

/// Gone before the answer has come, it takes the call with it: the bus's library then closes what still arrives.
class LogindInhibition final : public SleepInhibitor::Inhibition {
public:
    explicit LogindInhibition(const QDBusPendingCall& call)
        : m_call(std::make_unique<QDBusPendingCallWatcher>(call))
    {
        QObject::connect(m_call.get(), &QDBusPendingCallWatcher::finished, m_call.get(), [this] { take(); });
    }

private:
    void take()
    {
        // The answer keeps the file open as well: it must not outlast this turn.
        QDBusPendingCallWatcher* const call = m_call.release();
        call->deleteLater();
        const QDBusPendingReply<QDBusUnixFileDescriptor> reply = *call;
        if (reply.isError())
            return;
        QDBusUnixFileDescriptor right = reply.value();
        m_right = FileDescriptor(right.takeFileDescriptor());
    }

    std::unique_ptr<QDBusPendingCallWatcher> m_call; ///< until it is answered
    FileDescriptor m_right;
};

}

LogindSleepInhibitor::LogindSleepInhibitor(QDBusConnection bus)
    : m_bus(std::move(bus))
{}

std::unique_ptr<SleepInhibitor::Inhibition> LogindSleepInhibitor::inhibit(const QString& reason)
{
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.login1"), QStringLiteral("/org/freedesktop/login1"),
        QStringLiteral("org.freedesktop.login1.Manager"), QStringLiteral("Inhibit"));
    call << QStringLiteral("idle:sleep") << QStringLiteral("Zumeta") << reason << QStringLiteral("block");
    return std::make_unique<LogindInhibition>(m_bus.asyncCall(call));
}

}
