// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/playback/SoundTime.h"

#include <cmath>

namespace zumeta {

bool SoundTime::soundsLike(const SoundTime& other) const
{
    // A player may say again where it is, on the grid of its reports: nothing that an ear would notice.
    constexpr double kUnheard = 0.001; // seconds
    return rate == other.rate && std::abs(secondsAt(other.hostTime) - other.seconds) < kUnheard;
}

}
