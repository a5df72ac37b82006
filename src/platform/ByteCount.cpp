// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/ByteCount.h"

#include <array>

namespace zumeta {

namespace {

struct Unit {
    uint64_t bytes;
    int places;
    const char* name;
};
constexpr std::array<Unit, 6> kUnits{{
    {1'000, 1, "KB"},
    {1'000'000, 1, "MB"},
    {1'000'000'000, 2, "GB"},
    {1'000'000'000'000, 2, "TB"},
    {1'000'000'000'000'000, 2, "PB"},
    {1'000'000'000'000'000'000, 2, "EB"},
}};

uint64_t scaleOf(const Unit& unit)
{
    return unit.places == 1 ? 10 : 100;
}

/// The value in tenths or hundredths of the unit. Whole numbers throughout: a double would round 999 949 999 999 up.
uint64_t roundedParts(uint64_t bytes, const Unit& unit)
{
    const uint64_t part = unit.bytes / scaleOf(unit);
    return bytes / part + (bytes % part * 2 >= part ? 1 : 0);
}

QString partsText(uint64_t parts, const Unit& unit)
{
    QString text = QString::number(parts / scaleOf(unit));
    if (uint64_t fraction = parts % scaleOf(unit); fraction != 0) {
        QString digits = QString::number(fraction).rightJustified(unit.places, QLatin1Char('0'));
        while (digits.endsWith(QLatin1Char('0')))
            digits.chop(1);
        text += QLatin1Char('.') + digits;
    }
    return text + QLatin1Char(' ') + QLatin1String(unit.name);
}

QString magnitudeText(uint64_t bytes)
{
    if (bytes == 1)
        return QStringLiteral("1 byte");
    if (bytes < 1000)
        return QStringLiteral("%1 bytes").arg(bytes);
    for (const Unit& unit : kUnits) {
        const uint64_t parts = roundedParts(bytes, unit);
        if (parts < 1000 * scaleOf(unit) || &unit == &kUnits.back())
            return partsText(parts, unit);
    }
    Q_UNREACHABLE();
}

}

QString byteCountText(int64_t bytes)
{
    if (bytes == 0)
        return QStringLiteral("Zero KB");
    // Negated as unsigned: the smallest int64 has no positive counterpart.
    return bytes > 0 ? magnitudeText(uint64_t(bytes)) : QLatin1Char('-') + magnitudeText(0 - uint64_t(bytes));
}

}
