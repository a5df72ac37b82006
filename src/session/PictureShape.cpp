// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/PictureShape.h"

#include <cmath>

namespace zumeta {

bool isRotated(const PreferredTransform& transform)
{
    constexpr double kQuarter = 0.7853981633974483;
    constexpr double kThreeQuarters = 2.356194490192345;
    const double angle = std::abs(std::atan2(transform.b, transform.a));
    return angle > kQuarter && angle < kThreeQuarters;
}

Size displaySize(const VideoTrack& track)
{
    if (isRotated(track.preferredTransform))
        return {track.naturalHeight, track.naturalWidth};
    return {track.naturalWidth, track.naturalHeight};
}

std::optional<double> aspectRatio(const VideoTrack& track)
{
    const Size size = displaySize(track);
    if (size.height <= 0)
        return std::nullopt;
    return size.width / size.height;
}

}
