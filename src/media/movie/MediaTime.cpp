// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/movie/MediaTime.h"

#include <cmath>
#include <numeric>

namespace zumeta {

namespace {

__extension__ using Wide = __int128;

MediaTime reduced(Wide value, Wide timescale)
{
    Wide a = value < 0 ? -value : value;
    Wide b = timescale;
    while (b != 0) {
        const Wide rest = a % b;
        a = b;
        b = rest;
    }
    const Wide divisor = a == 0 ? 1 : a;
    return {int64_t(value / divisor), int64_t(timescale / divisor)};
}

}

MediaTime MediaTime::nearest(double seconds, int64_t timescale)
{
    return {std::llround(seconds * double(timescale)), timescale};
}

MediaTime operator+(MediaTime a, MediaTime b)
{
    if (a.timescale == b.timescale)
        return {a.value + b.value, a.timescale};
    return reduced(Wide(a.value) * b.timescale + Wide(b.value) * a.timescale, Wide(a.timescale) * b.timescale);
}

MediaTime operator-(MediaTime a, MediaTime b)
{
    return a + MediaTime{-b.value, b.timescale};
}

std::strong_ordering operator<=>(MediaTime a, MediaTime b)
{
    return Wide(a.value) * b.timescale <=> Wide(b.value) * a.timescale;
}

double latestBegin(double seconds)
{
    // At 23.976 frames a second every other frame begins half way between two multiples of 1/60000 s. A target that
    // was rounded down lies exactly the tolerance before it, and what doubles lose must not tip the balance.
    constexpr double kRoundingNoise = 1e-9;
    return seconds + kFrameTimeTolerance + kRoundingNoise;
}

bool frameHasBegun(MediaTime pts, double seconds)
{
    return pts.seconds() <= latestBegin(seconds);
}

}
