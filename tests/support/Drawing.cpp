// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Drawing.h"

#include "support/Colour.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace zumeta::test {

namespace {

/// Evenly spread 0..1 from integers; the usual avalanche of multiplications and shifts.
double grain(int x, int y, int n)
{
    uint32_t bits = uint32_t(x) * 0x9e3779b1u ^ uint32_t(y) * 0x85ebca77u ^ uint32_t(n) * 0xc2b2ae3du;
    bits ^= bits >> 15;
    bits *= 0x2c1b3c6du;
    bits ^= bits >> 12;
    return (bits & 0xffff) / 65535.0;
}

Rgb patch(int which)
{
    constexpr std::array<Rgb, 6> kColours{Rgb{0.85, 0.1, 0.1}, Rgb{0.1, 0.75, 0.15}, Rgb{0.1, 0.15, 0.85},
                                          Rgb{0.9, 0.85, 0.1}, Rgb{0.1, 0.8, 0.85},  Rgb{0.8, 0.1, 0.8}};
    return kColours[size_t(which) % kColours.size()];
}

Rgb textureAt(const BarCode& code, int x, int y)
{
    // The two sides differ everywhere, so that showing the wrong one is never close.
    const int n = code.number;
    const double phase = code.side == Side::above ? 0 : 2.1;
    const int column = (x + 3 * n) / (code.side == Side::above ? 17 : 23);
    const int row = (y + 2 * n) / (code.side == Side::above ? 13 : 19);
    const double noise = 0.06 * (grain(x, y, n) - 0.5);
    if ((column + row) % 3 == 0) {
        const Rgb colour = patch(column * 5 + row * 3 + int(code.side));
        return {colour.r + noise, colour.g + noise, colour.b + noise};
    }
    return {0.5 + 0.35 * std::sin(0.11 * x + 0.07 * y + 0.20 * n + phase) + noise,
            0.5 + 0.35 * std::sin(0.13 * y - 0.05 * x - 0.15 * n + 1 + phase) + noise,
            0.5 + 0.35 * std::sin(0.09 * x - 0.10 * y + 0.10 * n + 2 + phase) + noise};
}

Rgb colourAt(const Drawing& drawing, const PictureFormat& format, int x, int y)
{
    const auto bar = barCodeLuma(drawing.code, (x + 0.5) / format.width, (y + 0.5) / format.height);
    if (bar)
        return {*bar, *bar, *bar};
    if (drawing.flash)
        return {1, 1, 1};
    if (drawing.scene == Scene::plain)
        return drawing.code.side == Side::above ? Rgb{0.65, 0.65, 0.65} : Rgb{0.3, 0.3, 0.3};
    const Rgb colour = textureAt(drawing.code, x, y);
    if (drawing.scene == Scene::texture)
        return colour;
    const int n = drawing.code.number;
    return {0.5 * colour.r + 0.5 * grain(x, y, n + 7), 0.5 * colour.g + 0.5 * grain(x, y, n + 13),
            0.5 * colour.b + 0.5 * grain(x, y, n + 23)};
}

double component(const Ycc& colour, int plane)
{
    return plane == 0 ? colour.y : plane == 1 ? colour.cb : colour.cr;
}

}

RawPicture draw(const Drawing& drawing, const PictureFormat& format)
{
    RawPicture picture(format);
    const int peak = (1 << format.bitDepth) - 1;
    for (int plane = 0; plane < 3; ++plane) {
        const int shiftX = plane == 0 ? 0 : format.chromaShiftX;
        const int shiftY = plane == 0 ? 0 : format.chromaShiftY;
        for (int y = 0; y < picture.planeHeight(plane); ++y) {
            for (int x = 0; x < picture.planeWidth(plane); ++x) {
                const Ycc colour = toYcc(colourAt(drawing, format, x << shiftX, y << shiftY), format.matrix);
                const double code = codeOf(component(colour, plane), plane, format.range, format.bitDepth);
                picture.setSample(plane, x, y, std::clamp(int(std::lround(code)), 0, peak));
            }
        }
    }
    return picture;
}

}
