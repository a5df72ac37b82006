// SPDX-License-Identifier: GPL-3.0-or-later
// keep-awake ADDRESS: keeps the machine awake, says "awake" when the answer has come, and lives until it is killed.
#include "platform/sleep/LogindSleepInhibitor.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <cstdio>

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QString address = QCoreApplication::arguments().value(1);
    const QDBusConnection bus = QDBusConnection::connectToBus(address, QStringLiteral("keep-awake"));
    zumeta::LogindSleepInhibitor inhibitor(bus);
    const auto inhibition = inhibitor.inhibit(QStringLiteral("Until it is killed"));
    // Answers come in the order of the questions: behind this one's, the first one's has come.
    const QDBusMessage question = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.login1"), QStringLiteral("/org/freedesktop/login1"),
        QStringLiteral("org.freedesktop.login1.Manager"), QStringLiteral("ListInhibitors"));
    const QDBusPendingCallWatcher answer(bus.asyncCall(question));
    QObject::connect(&answer, &QDBusPendingCallWatcher::finished, [] {
        std::puts("awake");
        std::fflush(stdout);
    });
    return QCoreApplication::exec();
}
