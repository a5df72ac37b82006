// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/FrameRateFamily.h"

#include <cmath>

namespace zumeta {

FrameRateFamily getFrameRateFamily(double rate)
{
    constexpr double kFoldLimit = 35.0;
    constexpr double kTolerance = 0.1;
    if (rate <= 0)
        return FrameRateFamily::unknown;
    double folded = rate;
    while (folded > kFoldLimit && std::isfinite(folded))
        folded *= 0.5;
    const auto isNear = [&](double nominal) { return std::abs(folded - nominal) < kTolerance; };
    if (isNear(23.976) || isNear(29.97))
        return FrameRateFamily::ntsc;
    if (isNear(25.0))
        return FrameRateFamily::pal;
    if (isNear(24.0) || isNear(30.0))
        return FrameRateFamily::integer;
    return FrameRateFamily::unknown;
}

QString rawValue(FrameRateFamily family)
{
    switch (family) {
    case FrameRateFamily::ntsc:
        return QStringLiteral("ntsc");
    case FrameRateFamily::integer:
        return QStringLiteral("integer");
    case FrameRateFamily::pal:
        return QStringLiteral("pal");
    case FrameRateFamily::unknown:
        break;
    }
    return QStringLiteral("unknown");
}

}
