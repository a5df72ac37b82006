// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/preview/PictureRequest.h"

#include "render/preview/PreviewRequest.h"

namespace zumeta {

namespace {

bool isSamePicture(const std::optional<VideoPicture>& one, const std::optional<VideoPicture>& other)
{
    if (!one || !other)
        return one.has_value() == other.has_value();
    // Both are held and never written to, so the same place in memory is the same picture.
    return one->planes[0].data == other->planes[0].data;
}

std::optional<Size> squaredSize(const std::optional<VideoPicture>& picture)
{
    if (!picture)
        return std::nullopt;
    return Size{picture->format.squaredWidth(), double(picture->format.height)};
}

/// Geometry of the above layer that nobody sees must not tell two pictures apart.
VideoCompositionConfig visibleGeometry(const SurfaceValues& values, bool showsAbove)
{
    return showsAbove ? values.geometry() : VideoCompositionConfig{};
}

void takeMaskOff(CompositeLayout& layout)
{
    layout.waterY = 0;
    layout.half = 0;
    layout.bandBottom = 0;
    layout.bandTop = 0;
}

}

bool operator==(const PictureRequest& one, const PictureRequest& other)
{
    return one.layout == other.layout && isSamePicture(one.pictures.above, other.pictures.above) &&
           isSamePicture(one.pictures.below, other.pictures.below);
}

QSize composedSize(QSize surface, const Sides<std::optional<Size>>& sources)
{
    const PixelSize size = composedSize(PixelSize{surface.width(), surface.height()}, sources.below, sources.above);
    return {size.width, size.height};
}

std::optional<PictureRequest> pictureRequest(QSize surface, const SurfaceValues& values,
                                             const Sides<std::optional<VideoPicture>>& pictures)
{
    const std::optional<VideoLayers> layers = videoLayers({double(surface.width()), double(surface.height())}, values,
                                                          {pictures.above.has_value(), pictures.below.has_value()});
    if (!layers)
        return std::nullopt;
    PictureRequest request;
    for (const Side side : {Side::above, Side::below}) {
        if (layers->shows(side))
            request.pictures[side] = pictures[side];
    }
    const bool showsAbove = request.pictures.above.has_value();
    if (!showsAbove && !request.pictures.below)
        return std::nullopt;
    const QSize size =
        composedSize(surface, {squaredSize(request.pictures.above), squaredSize(request.pictures.below)});
    request.layout =
        previewLayout({double(size.width()), double(size.height())}, visibleGeometry(values, showsAbove))->layout;
    if (showsAbove && !layers->above->mask)
        takeMaskOff(request.layout);
    return request;
}

}
