// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "model/ExportSettings.h"
#include "model/VideoCompositionConfig.h"

#include <QPointF>
#include <QRectF>
#include <QSize>
#include <optional>

namespace zumeta {

/// Where the surface of the picture stands among the items of the window.
struct FittedSurface {
    QRectF frame;       ///< in the area's own coordinates, with y downward; edges lie between device pixels
    QSize devicePixels; ///< whole and even, as a composed picture is

    /// In points; geometry on the surface counts from its bottom-left corner, y upward.
    Size bounds() const { return {frame.width(), frame.height()}; }
    /// The project's, but for less than two device pixels. Who maps heights takes this shape, so that they refer to
    /// the very picture that is shown.
    AspectRatio shape() const { return {double(devicePixels.width()), double(devicePixels.height())}; }

    friend bool operator==(const FittedSurface&, const FittedSurface&) = default;
};

/// The largest surface of the project's shape in the middle of an area, whose coordinates count from the window's
/// corner, where device pixels begin. None where not even four pixels fit.
std::optional<FittedSurface> fittedSurface(const QRectF& area, AspectRatio projectAspectRatio, double devicePixelRatio);

/// The rectangle of the picture within a surface of any shape, origin bottom left; empty for an empty surface.
Rect calculateVideoContentRect(Size bounds, AspectRatio projectAspectRatio);

/// A place on a surface: points from its bottom-left corner, y upward.
struct SurfacePoint {
    double x = 0;
    double y = 0;
    friend bool operator==(const SurfacePoint&, const SurfacePoint&) = default;
};

/// From an item's coordinates, with y downward, to its surface's, and a height back to the item's y. y is turned over
/// in these two and nowhere else among the surfaces.
SurfacePoint surfacePoint(QPointF itemPoint, Size bounds);
double itemY(double height, Size bounds);

}
