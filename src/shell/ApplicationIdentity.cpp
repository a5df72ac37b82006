// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/ApplicationIdentity.h"

#include "platform/desktop/DesktopId.h"

#include <QGuiApplication>
#include <QIcon>

namespace zumeta {

void nameApplication()
{
    QCoreApplication::setApplicationName(QStringLiteral("Zumeta"));
    QGuiApplication::setDesktopFileName(desktopId());
}

void giveApplicationItsIcon()
{
    QGuiApplication::setWindowIcon(QIcon(QStringLiteral(":/qt/qml/Zumeta/theme/icons/zumeta.svg")));
}

}
