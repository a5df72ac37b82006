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

int nearestEven(double length)
{
    return std::max(2, int(std::lround(length / 2)) * 2);
}

/// Width of the widest picture of this shape that a source fills without being enlarged.
double fillableWidth(const PictureFormat& source, PixelSize shape)
{
    return std::min(source.squaredWidth(), double(source.height) * shape.width / shape.height);
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

PixelSize composedSize(PixelSize shown, const PictureFormat* below, const PictureFormat* above)
{
    double widest = 0;
    for (const PictureFormat* const source : {below, above}) {
        if (source != nullptr)
            widest = std::max(widest, fillableWidth(*source, shown));
    }
    if (widest >= shown.width)
        return shown;
    return {nearestEven(widest), nearestEven(widest * shown.height / shown.width)};
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
