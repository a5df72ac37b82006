// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QString>

namespace zumeta {

/// By which desktops know this program: its desktop entry is the file of this name with ".desktop".
inline QString desktopId()
{
    return QStringLiteral("com.zumetaapp.Zumeta");
}

}
