// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/movie/VideoPicture.h"
#include "surfaces/preview/VideoLayers.h"

#include <QSize>

namespace zumeta {

/// One picture of the preview, as the worker composes it. Two requests are equal when their pictures are: what cannot
/// be seen (a hidden side, its zoom and place, the times) is left out of it. So a new picture is due when the request
/// at hand differs from the one that was composed last.
struct PictureRequest {
    /// Its picture is the size to compose, whole and even.
    CompositeLayout layout;
    /// Held, so that no later picture comes to lie at the same place in memory and passes for this one. An absent side
    /// is not drawn: without the below picture the preview's background lies under the above one.
    Sides<std::optional<VideoPicture>> pictures;

    friend bool operator==(const PictureRequest& one, const PictureRequest& other);
};

/// None when no side is to be drawn: the preview is its background alone. `surface` is in device pixels.
std::optional<PictureRequest> pictureRequest(QSize surface, const SurfaceValues& values,
                                             const Sides<std::optional<VideoPicture>>& pictures);

/// The surface's own size, or less, in its shape, where no source has that many pixels: composing more would add work
/// and no detail. Whole and even. A source is counted with square pixels.
QSize composedSize(QSize surface, const Sides<std::optional<Size>>& sources);

}
