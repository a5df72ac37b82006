// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/panels/ScrollRange.h"

#include <algorithm>

namespace zumeta {

double ScrollRange::topShowing(double first, double last) const
{
    constexpr double kRoomAbove = 12; // of a focus ring
    constexpr double kRoomBelow = 44; // the same, over what fades at the view's end
    const double lastTop = std::max(contentHeight - viewHeight, 0.0);
    const double lowest = last + kRoomBelow - viewHeight;
    const double highest = first - kRoomAbove;
    return std::clamp(std::min(std::max(top, lowest), highest), 0.0, lastTop);
}

}
