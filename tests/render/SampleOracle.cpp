// SPDX-License-Identifier: GPL-3.0-or-later
#include "SampleOracle.h"

#include "TestPictures.h"

#include <algorithm>
#include <cmath>

namespace zumeta {

namespace {

double cubic(double t)
{
    t = std::abs(t);
    if (t < 1)
        return 1.5 * t * t * t - 2.5 * t * t + 1;
    return t < 2 ? -0.5 * t * t * t + 2.5 * t * t - 4 * t + 2 : 0;
}

/// Value of a plane at a position in its own samples, sample 0 at 0; `stepX`, `stepY` are how far apart the results
/// lie, which widens the kernel.
double planeValue(const VideoPicture& picture, int plane, double x, double y, double stepX, double stepY)
{
    const double wideX = std::max(1.0, stepX);
    const double wideY = std::max(1.0, stepY);
    double sum = 0;
    double weights = 0;
    for (int row = int(std::floor(y - 2 * wideY)); row <= y + 2 * wideY + 1; ++row) {
        for (int column = int(std::floor(x - 2 * wideX)); column <= x + 2 * wideX + 1; ++column) {
            const double weight = cubic((column - x) / wideX) * cubic((row - y) / wideY);
            const int value = sampleOf(picture, plane, std::clamp(column, 0, planeWidth(picture.format, plane) - 1),
                                       std::clamp(row, 0, planeHeight(picture.format, plane) - 1));
            sum += weight * value;
            weights += weight;
        }
    }
    return sum / weights;
}

double limitedValue(const PictureFormat& format, int plane, double value)
{
    const double scale = 1 << (format.bitDepth - 8);
    if (format.range == ColourRange::limited)
        return value / scale;
    const double peak = (1 << format.bitDepth) - 1;
    return plane == 0 ? 16 + 219 * value / peak : 128 + 224 * (value - 128 * scale) / peak;
}

/// The layer's value at a site (from the bottom left), and whether the site lies in its picture.
double layerValue(const VideoPicture& picture, const Placement& placement, int plane, double siteX, double siteY,
                  bool& isInside)
{
    const PictureFormat& format = picture.format;
    const double sampleWidth = placement.scale * format.pixelAspect;
    const double lumaX = (siteX - placement.x) / sampleWidth;
    const double lumaY = format.height - (siteY - placement.y) / placement.scale;
    isInside = lumaX >= 0 && lumaX < format.width && lumaY > 0 && lumaY <= format.height;
    if (plane == 0)
        return limitedValue(format, 0,
                            planeValue(picture, 0, lumaX - 0.5, lumaY - 0.5, 1 / sampleWidth, 1 / placement.scale));
    const double spacingX = 1 << format.chromaShiftX;
    const double spacingY = 1 << format.chromaShiftY;
    const double siteZeroX = format.siting == ChromaSiting::centre ? spacingX / 2 : 0.5;
    const double siteZeroY = format.siting == ChromaSiting::topLeft ? 0.5 : spacingY / 2;
    return limitedValue(format, plane,
                        planeValue(picture, plane, (lumaX - siteZeroX) / spacingX, (lumaY - siteZeroY) / spacingY,
                                   2 / (sampleWidth * spacingX), 2 / (placement.scale * spacingY)));
}

}

double expectedSample(const CompositeLayout& layout, const VideoPicture& below, const VideoPicture* above, int plane,
                      int x, int y)
{
    const double siteX = plane == 0 ? x + 0.5 : 2 * x + 0.5;
    const double siteY = layout.picture.height - (plane == 0 ? y + 0.5 : 2 * y + 1);
    bool isInside = false;
    const double under =
        layerValue(below, layout.placeBelow({below.format.squaredWidth(), double(below.format.height)}), plane, siteX,
                   siteY, isInside);
    if (!above)
        return under;
    const double over =
        layerValue(*above, layout.placeAbove({above->format.squaredWidth(), double(above->format.height)}), plane,
                   siteX, siteY, isInside);
    const double opacity = isInside ? layout.opacityAt(siteY) : 0;
    return under + (over - under) * opacity;
}

}
