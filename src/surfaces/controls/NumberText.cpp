// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/controls/NumberText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace zumeta {

QString fixedNumber(double value, int decimals)
{
    constexpr int kMostDecimals = 20;
    // Room for the greatest double with its sign and point.
    std::array<char, std::numeric_limits<double>::max_exponent10 + kMostDecimals + 3> buffer{};
    Q_ASSERT(std::isfinite(value) && decimals >= 0 && decimals <= kMostDecimals);
    const auto written =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::fixed, decimals);
    QString text = QString::fromLatin1(buffer.data(), written.ptr - buffer.data());
    const bool isZero = std::ranges::all_of(text, [](QChar c) { return c == u'-' || c == u'0' || c == u'.'; });
    return isZero && text.startsWith(u'-') ? text.mid(1) : text;
}

std::optional<double> parsedNumber(QStringView text)
{
    const QByteArray characters = text.toLatin1();
    const char* end = characters.constData() + characters.size();
    double number = 0;
    const auto read = std::from_chars(characters.constData(), end, number);
    if (read.ec != std::errc() || read.ptr != end || !std::isfinite(number))
        return std::nullopt;
    return number;
}

}
