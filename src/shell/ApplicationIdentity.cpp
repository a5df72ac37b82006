// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/ApplicationIdentity.h"

#include <QGuiApplication>
#include <QIcon>

namespace zumeta {

void nameApplication()
{
    QCoreApplication::setApplicationName(QStringLiteral("Zumeta"));
    QGuiApplication::setDesktopFileName(QStringLiteral("com.zumetaapp.Zumeta"));
}

void giveApplicationItsIcon()
{
    QGuiApplication::setWindowIcon(QIcon(QStringLiteral(":/qt/qml/Zumeta/theme/icons/zumeta.svg")));
}

}
