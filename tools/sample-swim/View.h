// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "SwimPlan.h"

namespace zumeta::swim {

/// How one camera's picture lies over the scene.
struct View {
    int width = 0;  ///< pixels
    int height = 0; ///< pixels
    float pixelsPerUnit = 1;
    float surfaceRow = 0; ///< pixel row of the calm surface, from the top

    float column(float x, float camera) const { return (x - camera) * pixelsPerUnit + float(width) * .5f; }
    float row(float y) const { return surfaceRow + y * pixelsPerUnit; }
    float x(float pixelColumn, float camera) const
    {
        return (pixelColumn - float(width) * .5f) / pixelsPerUnit + camera;
    }
    float y(float pixelRow) const { return (pixelRow - surfaceRow) / pixelsPerUnit; }
    /// Height of the surface in the picture, 0 bottom to 1 top.
    double surfaceHeight() const { return 1 - double(surfaceRow) / double(height); }
};

/// Heights of the surface that the two cameras are set up with. They differ, as two cameras' heights do: joining the
/// pictures is what the program is for.
inline constexpr double kBelowSurfaceHeight = .54;
inline constexpr double kAboveSurfaceHeightShown = .45;

/// A height in the above picture, and where it is seen once that picture is enlarged about its middle.
constexpr double shownHeight(double height)
{
    return .5 + (height - .5) * kCameraZoom;
}

inline View aboveView(int width, int height)
{
    constexpr double surface = .5 + (kAboveSurfaceHeightShown - .5) / kCameraZoom;
    return {width, height, float(width / (double(kViewWidth) * kCameraZoom)), float(height * (1 - surface))};
}
inline View belowView(int width, int height)
{
    return {width, height, float(width) / kViewWidth, float(height * (1 - kBelowSurfaceHeight))};
}

}
