// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/movie/VideoPicture.h"
#include "render/CompositeGeometry.h"

#include <optional>

namespace zumeta {

/// Which of the two pictures the preview is about.
enum class PreviewMode {
    split,     ///< both, as the export joins them
    aboveOnly, ///< the whole above picture, placed as in split
    belowOnly
};

/// Whole pixels.
struct PixelSize {
    int width = 0;
    int height = 0;
    bool isEmpty() const { return width <= 0 || height <= 0; }
    friend bool operator==(const PixelSize&, const PixelSize&) = default;
};

/// The whole device pixels of a surface that was laid out on them, in points.
PixelSize devicePixels(Size points, double devicePixelRatio);

/// The largest even size of that shape on a surface; empty when the surface is too small for any.
PixelSize pictureSizeOn(PixelSize surface, AspectRatio projectAspectRatio);

/// The size at which to compose a picture of `shown` pixels: no larger than the finer source can fill with pixels of
/// its own, since what is enlarged twice only costs twice. Whole and even, in the shape of `shown` but for a pixel.
/// Sources count with square pixels; absent ones do not count.
PixelSize composedSize(PixelSize shown, std::optional<Size> below, std::optional<Size> above);
PixelSize composedSize(PixelSize shown, const PictureFormat* below, const PictureFormat* above);

/// Everything that decides what the preview shows at one moment.
struct PreviewSituation {
    std::optional<VideoPicture> below;
    std::optional<VideoPicture> above;
    VideoCompositionConfig values; ///< `aboveZoom` holds the camera's base zoom already
    PreviewMode mode = PreviewMode::split;
    bool isBelowHidden = false; ///< in split alone
    bool isAboveHidden = false; ///< in split alone
    PixelSize shownSize;        ///< of the picture on the screen, even
};

/// One picture to be composed. A side without a picture is not seen; where neither side is, the backdrop shows.
struct PreviewRequest {
    std::optional<VideoPicture> below;
    std::optional<VideoPicture> above;
    CompositeLayout layout;
};

/// Nothing when no side is seen or the size is empty. Values that cannot be seen are left out of the request.
std::optional<PreviewRequest> previewRequest(const PreviewSituation& situation);

/// Whether both come to the same picture, as far as that can be told without composing.
bool asksForTheSame(const PreviewRequest& a, const PreviewRequest& b);

}
