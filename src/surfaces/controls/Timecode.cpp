// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/controls/Timecode.h"

#include "surfaces/controls/NumberText.h"

#include <algorithm>
#include <cmath>

namespace zumeta {

namespace {

constexpr double kSecondsPerMinute = 60;

}

QString formatTimecode(double seconds)
{
    const double shown = std::max(seconds, 0.0);
    const QString minutes = fixedNumber(std::trunc(shown / kSecondsPerMinute), 0).rightJustified(2, u'0');
    const QString rest = fixedNumber(std::fmod(shown, kSecondsPerMinute), 2).rightJustified(5, u'0');
    return minutes + u':' + rest;
}

std::optional<double> parseTimecode(const QString& text)
{
    const qsizetype colon = text.indexOf(u':');
    if (colon >= 0) {
        const std::optional<double> minutes = parsedNumber(QStringView(text).first(colon));
        const std::optional<double> seconds = parsedNumber(QStringView(text).sliced(colon + 1));
        if (minutes && seconds)
            return *minutes * kSecondsPerMinute + *seconds;
    }
    return parsedNumber(text);
}

}
