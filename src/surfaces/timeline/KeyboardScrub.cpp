// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/timeline/KeyboardScrub.h"

#include <algorithm>

namespace zumeta {

double scrubTarget(ScrubKey key, ScrubPace pace, double time, double duration)
{
    const double length = std::max(duration, 0.0);
    const double page =
        pace == ScrubPace::fine ? kFinePageSeconds : std::max(length * kCoarsePageFraction, kFinePageSeconds);
    switch (key) {
    case ScrubKey::home:
        return 0;
    case ScrubKey::end:
        return length;
    case ScrubKey::pageUp:
        return std::clamp(time + page, 0.0, length);
    case ScrubKey::pageDown:
        return std::clamp(time - page, 0.0, length);
    }
    return time;
}

}
