// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/portal/PortalDialogs.h"

#include <QDBusConnection>
#include <QDBusMessage>

namespace zumeta {

namespace {

constexpr char kThemeVariable[] = "QT_QPA_PLATFORMTHEME";
constexpr std::chrono::milliseconds kPatience{500};

}

bool borrowsDialogs(const PortalDialogFacts& facts)
{
    return !facts.isThemeChosenByUser && facts.isOffered();
}

bool portalOffersFileDialogs(std::chrono::milliseconds patience)
{
    // Of its own: the shared one must not be made before the application.
    const QString name = QStringLiteral("zumeta-portal-dialogs");
    bool isOffered = false;
    {
        const QDBusConnection bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, name);
        // A portal without anybody behind it that draws has no such interface, hence no version of it.
        QDBusMessage question = QDBusMessage::createMethodCall(
            QStringLiteral("org.freedesktop.portal.Desktop"), QStringLiteral("/org/freedesktop/portal/desktop"),
            QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
        question << QStringLiteral("org.freedesktop.portal.FileChooser") << QStringLiteral("version");
        isOffered = bus.isConnected() &&
                    bus.call(question, QDBus::Block, int(patience.count())).type() == QDBusMessage::ReplyMessage;
    }
    QDBusConnection::disconnectFromBus(name);
    return isOffered;
}

void borrowDialogsOfPortal()
{
    const PortalDialogFacts facts{.isThemeChosenByUser = !qEnvironmentVariableIsEmpty(kThemeVariable),
                                  .isOffered = [] { return portalOffersFileDialogs(kPatience); }};
    if (borrowsDialogs(facts))
        qputenv(kThemeVariable, "xdgdesktopportal");
}

}
