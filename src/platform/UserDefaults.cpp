// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/UserDefaults.h"

namespace zumeta {
namespace {
const QLatin1String kTrue("true");
const QLatin1String kFalse("false");
}

std::optional<bool> UserDefaults::boolean(const QString& key) const
{
    const std::optional<QString> text = string(key);
    if (text == kTrue)
        return true;
    if (text == kFalse)
        return false;
    return std::nullopt;
}

void UserDefaults::setBoolean(const QString& key, bool value)
{
    setString(key, value ? kTrue : kFalse);
}

}
