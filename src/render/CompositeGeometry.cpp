// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/CompositeGeometry.h"

#include <algorithm>

namespace zumeta {

namespace {

bool isEmpty(Size size)
{
    return !(size.width > 0 && size.height > 0);
}

CompositeLayout layoutOf(Size picture, double contentHeight, double margin, double horizontalOffset, double offset,
                         const VideoCompositionConfig& config)
{
    CompositeLayout layout;
    layout.picture = picture;
    layout.contentHeight = contentHeight;
    layout.margin = margin;
    layout.unit = contentHeight / kReferenceHeight;
    layout.scale = config.scaleFactor();
    layout.shiftX = layout.unit * horizontalOffset;
    layout.shiftY = layout.unit * offset;
    layout.above.width = layout.scale * picture.width;
    layout.above.height = layout.scale * picture.height;
    layout.above.x = layout.shiftX + (picture.width - layout.above.width) * 0.5;
    layout.above.y = layout.shiftY + (picture.height - layout.above.height) * 0.5;
    // The zoom scales the waterline, so that a line laid at a landmark of the above picture stays on it.
    layout.waterY = layout.scale * layout.unit * config.waterlineHeight + margin;
    layout.half = layout.scale * layout.unit * config.blendAmount * 0.5;
    layout.bandBottom = layout.waterY - layout.half;
    layout.bandTop = layout.waterY + layout.half;
    return layout;
}

}

Placement aspectFill(Size source, Size target)
{
    const double scale = std::max(target.width / source.width, target.height / source.height);
    return {scale, (target.width - scale * source.width) * 0.5, (target.height - scale * source.height) * 0.5};
}

double CompositeLayout::opacityAt(double y) const
{
    if (bandTop == bandBottom)
        return y < bandBottom ? 0.0 : 1.0;
    return std::clamp((y - bandBottom) / (bandTop - bandBottom), 0.0, 1.0);
}

Placement CompositeLayout::placeAbove(Size source) const
{
    const double factor = std::max(scale * picture.width / source.width, scale * picture.height / source.height);
    return {factor, shiftX + (picture.width - factor * source.width) * 0.5,
            shiftY + (picture.height - factor * source.height) * 0.5};
}

std::optional<CompositeLayout> exportLayout(Size renderSize, AspectRatio projectAspectRatio,
                                            const VideoCompositionConfig& config)
{
    if (isEmpty(renderSize))
        return std::nullopt;
    const double contentHeight = renderSize.width * (projectAspectRatio.height / projectAspectRatio.width);
    const double margin = (renderSize.height - contentHeight) * 0.5;
    return layoutOf(renderSize, contentHeight, margin, config.aboveHorizontalOffset, config.aboveOffset, config);
}

std::optional<PreviewLayout> previewLayout(Size surface, const VideoCompositionConfig& config, PreviewOffsets offsets)
{
    if (isEmpty(surface))
        return std::nullopt;
    const bool centred = offsets == PreviewOffsets::centred;
    const CompositeLayout layout = layoutOf(surface, surface.height, 0, centred ? 0 : config.aboveHorizontalOffset,
                                            centred ? 0 : config.aboveOffset, config);
    const double yLocal = layout.waterY - layout.above.y;
    MaskStops mask{1, 1}; // a layer that has shrunk to nothing has no gradient either
    if (layout.above.height != 0) {
        mask.l0 = std::clamp((yLocal - layout.half) / layout.above.height, 0.0, 1.0);
        mask.l1 = std::clamp((yLocal + layout.half) / layout.above.height, 0.0, 1.0);
    }
    return PreviewLayout{layout, mask};
}

double waterlineHeightAt(double height, double scale)
{
    return height * kReferenceHeight / scale;
}

double heightOfWaterline(double waterlineHeight, double scale)
{
    return scale * waterlineHeight / kReferenceHeight;
}

double aboveOffsetBetween(double heightAbove, double heightBelow)
{
    return (heightBelow - heightAbove) * kReferenceHeight;
}

double heightOfAboveOffset(double aboveOffset)
{
    return aboveOffset / kReferenceHeight;
}

}
