// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/timeline/TimeText.h"

#include "surfaces/timeline/TimelineMetrics.h"

#include <cmath>

namespace zumeta {
namespace {

constexpr long long kSecondsPerMinute = 60;

long long wholeSeconds(double seconds)
{
    Q_ASSERT(std::isfinite(seconds));
    return static_cast<long long>(seconds);
}

}

QString formatTimeWithFrames(double seconds)
{
    const long long whole = wholeSeconds(seconds);
    const double fraction = seconds - double(whole);
    const int frames = static_cast<int>(fraction * kFramesPerSecondOfTimeText);
    return QString::asprintf("%02lld:%02lld.%02d", whole / kSecondsPerMinute, whole % kSecondsPerMinute, frames);
}

QString formatDuration(double seconds)
{
    const long long whole = wholeSeconds(seconds);
    return QString::asprintf("%lld:%02lld", whole / kSecondsPerMinute, whole % kSecondsPerMinute);
}

QString formatPaddedDuration(double seconds)
{
    const long long whole = wholeSeconds(seconds);
    return QString::asprintf("%02lld:%02lld", whole / kSecondsPerMinute, whole % kSecondsPerMinute);
}

}
