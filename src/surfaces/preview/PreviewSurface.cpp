// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/preview/PreviewSurface.h"

#include "render/CompositeGeometry.h"

#include <algorithm>
#include <cmath>

namespace zumeta {

namespace {

/// Scaled edges that should be whole are off by rounding alone.
constexpr double kRoundingPixels = 1e-6;

int evenFloor(int pixels)
{
    return pixels & ~1;
}

int nearestEven(double pixels)
{
    return 2 * int(std::lround(pixels / 2));
}

/// Whole pixels within a stretch.
struct PixelSpan {
    int begin = 0;
    int count = 0;
};

PixelSpan wholePixels(double begin, double end, double devicePixelRatio)
{
    const int first = int(std::ceil(begin * devicePixelRatio - kRoundingPixels));
    const int last = int(std::floor(end * devicePixelRatio + kRoundingPixels));
    return {first, std::max(0, last - first)};
}

QSize fittedPixels(int availableWidth, int availableHeight, double ratio)
{
    const int widest = evenFloor(availableWidth);
    const int highest = evenFloor(availableHeight);
    if (double(availableWidth) / availableHeight < ratio)
        return {widest, std::clamp(nearestEven(widest / ratio), 2, highest)};
    return {std::clamp(nearestEven(highest * ratio), 2, widest), highest};
}

}

std::optional<FittedSurface> fittedSurface(const QRectF& area, AspectRatio projectAspectRatio, double devicePixelRatio)
{
    const PixelSpan columns = wholePixels(area.left(), area.right(), devicePixelRatio);
    const PixelSpan rows = wholePixels(area.top(), area.bottom(), devicePixelRatio);
    if (columns.count < 2 || rows.count < 2)
        return std::nullopt;
    const QSize pixels = fittedPixels(columns.count, rows.count, projectAspectRatio.ratio());
    const int left = columns.begin + (columns.count - pixels.width()) / 2;
    const int top = rows.begin + (rows.count - pixels.height()) / 2;
    return FittedSurface{QRectF(left / devicePixelRatio, top / devicePixelRatio, pixels.width() / devicePixelRatio,
                                pixels.height() / devicePixelRatio),
                         pixels};
}

Rect calculateVideoContentRect(Size bounds, AspectRatio projectAspectRatio)
{
    if (!(bounds.width > 0 && bounds.height > 0))
        return {};
    const double boundsRatio = bounds.width / bounds.height;
    const double ratio = projectAspectRatio.ratio();
    if (boundsRatio < ratio) {
        const double height = bounds.width / ratio;
        return {0, (bounds.height - height) * 0.5, bounds.width, height};
    }
    if (ratio < boundsRatio) {
        const double width = ratio * bounds.height;
        return {(bounds.width - width) * 0.5, 0, width, bounds.height};
    }
    return {0, 0, bounds.width, bounds.height};
}

SurfacePoint surfacePoint(QPointF itemPoint, Size bounds)
{
    return {itemPoint.x(), turnedOver(itemPoint.y(), bounds.height)};
}

double itemY(double height, Size bounds)
{
    return turnedOver(height, bounds.height);
}

}
