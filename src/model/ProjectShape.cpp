// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/ProjectShape.h"

#include <cmath>

namespace zumeta {

ProjectShape projectShapeForAboveVideo(double displayWidth, double displayHeight)
{
    constexpr double kFourByThree = 1.3333333333333333;
    constexpr double kSixteenByNine = 1.7777777777777777;
    constexpr double kFourByThreeLimit = 0.15;
    constexpr double kSmallWidthLimit = 1200.0;

    const double ratio = displayWidth / displayHeight;
    const double distanceTo43 = std::abs(ratio - kFourByThree);
    const double distanceTo169 = std::abs(ratio - kSixteenByNine);
    if (distanceTo169 <= distanceTo43 || distanceTo43 >= kFourByThreeLimit)
        return {{16, 9}, ExportResolutionType::hd1080};
    return {{4, 3}, displayWidth <= kSmallWidthLimit ? ExportResolutionType::hd960 : ExportResolutionType::hd1440};
}

}
