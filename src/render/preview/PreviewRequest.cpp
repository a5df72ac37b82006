// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/preview/PreviewRequest.h"

#include <algorithm>
#include <cmath>

namespace zumeta {

namespace {

int evenBelow(double length)
{
    constexpr double kSlack = 1e-6; // a quotient that should be whole may fall short of it
    return int(std::floor((length + kSlack) / 2)) * 2;
}

int evenWithin(double length, double limit)
{
    const int highest = int(std::floor(limit / 2)) * 2;
    return std::max(2, std::min(2 * int(std::lround(length / 2)), highest));
}

std::optional<Size> squaredSize(const PictureFormat* format)
{
    return format != nullptr ? std::optional(Size{format->squaredWidth(), double(format->height)}) : std::nullopt;
}

bool isSamePicture(const std::optional<VideoPicture>& a, const std::optional<VideoPicture>& b)
{
    if (!a || !b)
        return a.has_value() == b.has_value();
    // Pictures are never written to, and both are held: the same samples are the same picture.
    return a->format == b->format && a->owner == b->owner && a->planes[0].data == b->planes[0].data;
}

/// A layout that says no more than the size: what is enough for the below picture alone.
CompositeLayout sizeAlone(Size size)
{
    CompositeLayout layout;
    layout.picture = size;
    return layout;
}

}

PixelSize devicePixels(Size points, double devicePixelRatio)
{
    constexpr double kSlack = 1e-6; // 230 pixels at a ratio of 1.75 come back as a little less
    return {int(points.width * devicePixelRatio + kSlack), int(points.height * devicePixelRatio + kSlack)};
}

PixelSize pictureSizeOn(PixelSize surface, AspectRatio projectAspectRatio)
{
    if (surface.isEmpty())
        return {};
    const double width =
        std::min(double(surface.width), surface.height * projectAspectRatio.width / projectAspectRatio.height);
    const double height =
        std::min(double(surface.height), surface.width * projectAspectRatio.height / projectAspectRatio.width);
    return {evenBelow(width), evenBelow(height)};
}

PixelSize composedSize(PixelSize shown, std::optional<Size> below, std::optional<Size> above)
{
    Size limit;
    double best = 0;
    for (const std::optional<Size>& source : {above, below}) {
        const double share = source ? std::min(source->width / shown.width, source->height / shown.height) : 0;
        if (share > best) {
            best = share;
            limit = *source;
        }
    }
    const double share = std::min(best, 1.0);
    return {evenWithin(shown.width * share, std::min(limit.width, double(shown.width))),
            evenWithin(shown.height * share, std::min(limit.height, double(shown.height)))};
}

PixelSize composedSize(PixelSize shown, const PictureFormat* below, const PictureFormat* above)
{
    return composedSize(shown, squaredSize(below), squaredSize(above));
}

std::optional<PreviewRequest> previewRequest(const PreviewSituation& situation)
{
    const bool isSplit = situation.mode == PreviewMode::split;
    const bool isBelowSeen = situation.mode != PreviewMode::aboveOnly && !(isSplit && situation.isBelowHidden);
    const bool isAboveSeen = situation.mode != PreviewMode::belowOnly && !(isSplit && situation.isAboveHidden);
    PreviewRequest request;
    if (isBelowSeen)
        request.below = situation.below;
    if (isAboveSeen)
        request.above = situation.above;
    if (situation.shownSize.isEmpty() || (!request.below && !request.above))
        return std::nullopt;
    const PixelSize size = composedSize(situation.shownSize, request.below ? &request.below->format : nullptr,
                                        request.above ? &request.above->format : nullptr);
    const Size picture{double(size.width), double(size.height)};
    if (!request.above) {
        request.layout = sizeAlone(picture);
        return request;
    }
    VideoCompositionConfig values = situation.values;
    if (!isSplit) {
        // No mask: the water's line lies at the picture's bottom edge.
        values.waterlineHeight = 0;
        values.blendAmount = 0;
    }
    request.layout = previewLayout(picture, values)->layout;
    return request;
}

bool asksForTheSame(const PreviewRequest& a, const PreviewRequest& b)
{
    return a.layout == b.layout && isSamePicture(a.below, b.below) && isSamePicture(a.above, b.above);
}

}
