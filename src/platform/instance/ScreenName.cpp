// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/instance/ScreenName.h"

#include <QCryptographicHash>

namespace zumeta {

namespace {

/// ":0" and ":0.1" are two monitors of one display.
QString withoutMonitor(const QString& display)
{
    const qsizetype colon = display.lastIndexOf(QLatin1Char(':'));
    const qsizetype point = display.indexOf(QLatin1Char('.'), std::max<qsizetype>(colon, 0));
    return colon < 0 || point < 0 ? display : display.left(point);
}

/// Displays may be called by a host or a whole path, and a socket's path has to be short.
QString named(QLatin1String kind, const QString& display)
{
    constexpr qsizetype kDigits = 12;
    const QByteArray hash = QCryptographicHash::hash(display.toUtf8(), QCryptographicHash::Sha256).toHex();
    return kind + QLatin1Char('-') + QString::fromLatin1(hash.left(kDigits));
}

}

QString screenName(const ScreenFacts& facts)
{
    if (facts.platform.startsWith(QLatin1String("wayland"))) {
        const QString standard = QStringLiteral("wayland-0"); // where the environment names none
        return named(QLatin1String("wayland"), facts.waylandDisplay.isEmpty() ? standard : facts.waylandDisplay);
    }
    if (facts.platform == QLatin1String("xcb"))
        return named(QLatin1String("x11"), withoutMonitor(facts.x11Display));
    return {};
}

}
