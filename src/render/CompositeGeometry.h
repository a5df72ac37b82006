// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "model/ExportSettings.h"
#include "model/VideoCompositionConfig.h"

#include <optional>

namespace zumeta {

/// Stored geometry describes a picture this many units high, whatever its real size.
inline constexpr double kReferenceHeight = 600;

/// Where a picture lies: scaled uniformly about its bottom-left corner, then moved. Origin bottom left, y upward.
struct Placement {
    double scale = 1;
    double x = 0;
    double y = 0;
    friend bool operator==(const Placement&, const Placement&) = default;
};

/// The smallest uniform scale at which `source` covers `target`, centred on it.
Placement aspectFill(Size source, Size target);

/// The layout of one composite picture, in real units (pixels of an export, points of a preview), origin bottom left.
/// The below layer fills the picture; the above layer is seen above the waterline and fades in over the band.
struct CompositeLayout {
    Size picture;
    double contentHeight = 0; ///< height that the stored values describe
    double margin = 0;        ///< lifts the waterline where the picture's shape is not the project's
    double unit = 0;          ///< `k`: real units of one reference unit
    double scale = 0;         ///< `s`: size of the above layer over that of the picture
    double shiftX = 0;        ///< of the above layer from its centred position
    double shiftY = 0;
    Rect above; ///< the above layer, which may reach past the picture
    double waterY = 0;
    double half = 0;       ///< of the band's height
    double bandBottom = 0; ///< opacity of the above layer is 0 from here downward
    double bandTop = 0;    ///< and 1 from here upward

    /// Opacity of the above layer at a height; the edge of a band without height is hard.
    double opacityAt(double y) const;

    Placement placeBelow(Size source) const { return aspectFill(source, picture); }
    /// Scale not above 0 when nothing of the above picture shows.
    Placement placeAbove(Size source) const;

    friend bool operator==(const CompositeLayout&, const CompositeLayout&) = default;
};

/// The export's layout. `config.aboveZoom` holds the camera's base zoom already. None for an empty size.
std::optional<CompositeLayout> exportLayout(Size renderSize, AspectRatio projectAspectRatio,
                                            const VideoCompositionConfig& config);

/// While the first step is worked on, the preview shows the above picture centred.
enum class PreviewOffsets { stored, centred };

/// The mask in the above layer's own coordinates: clear up to `l0`, white from `l1`, as fractions of its height.
struct MaskStops {
    double l0 = 0;
    double l1 = 0;
    friend bool operator==(const MaskStops&, const MaskStops&) = default;
};

struct PreviewLayout {
    CompositeLayout layout;
    MaskStops mask;
};

/// The preview's layout on a surface that has the project's shape. None for an empty size.
std::optional<PreviewLayout> previewLayout(Size surface, const VideoCompositionConfig& config,
                                           PreviewOffsets offsets = PreviewOffsets::stored);

/// A click at `height` (0 bottom to 1 top of the preview) to the waterline that runs through it, and back.
/// `scale` is that of the layout that was shown.
double waterlineHeightAt(double height, double scale);
double heightOfWaterline(double waterlineHeight, double scale);

/// The shift that brings a landmark seen at `heightAbove` onto the same landmark seen at `heightBelow`, and the
/// distance in normalised height that a shift stands for.
double aboveOffsetBetween(double heightAbove, double heightBelow);
double heightOfAboveOffset(double aboveOffset);

/// From heights above the picture's bottom to distances below its top, as rows of samples count, and back: the one
/// place where y is turned over.
inline double turnedOver(double y, double pictureHeight)
{
    return pictureHeight - y;
}

}
