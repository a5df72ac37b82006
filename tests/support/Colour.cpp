// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Colour.h"

#include <utility>

namespace zumeta::test {

namespace {

/// Weights of red and blue in luma.
std::pair<double, double> weights(ColourMatrix matrix)
{
    switch (matrix) {
    case ColourMatrix::bt601:
        return {0.299, 0.114};
    case ColourMatrix::bt709:
        return {0.2126, 0.0722};
    case ColourMatrix::bt2020:
        return {0.2627, 0.0593};
    }
    return {};
}

}

Ycc toYcc(const Rgb& colour, ColourMatrix matrix)
{
    const auto [kr, kb] = weights(matrix);
    const double y = kr * colour.r + (1 - kr - kb) * colour.g + kb * colour.b;
    return {y, (colour.b - y) / (2 * (1 - kb)), (colour.r - y) / (2 * (1 - kr))};
}

Rgb toRgb(const Ycc& colour, ColourMatrix matrix)
{
    const auto [kr, kb] = weights(matrix);
    const double r = colour.y + 2 * (1 - kr) * colour.cr;
    const double b = colour.y + 2 * (1 - kb) * colour.cb;
    return {r, (colour.y - kr * r - kb * b) / (1 - kr - kb), b};
}

double codeOf(double value, int plane, ColourRange range, int bitDepth)
{
    const double unit = 1 << (bitDepth - 8);
    const double peak = (1 << bitDepth) - 1;
    const double middle = 128 * unit;
    if (range == ColourRange::full)
        return plane == 0 ? value * peak : middle + value * peak;
    return plane == 0 ? (16 + 219 * value) * unit : middle + 224 * unit * value;
}

double valueOf(double code, int plane, ColourRange range, int bitDepth)
{
    const double unit = 1 << (bitDepth - 8);
    const double peak = (1 << bitDepth) - 1;
    const double middle = 128 * unit;
    if (range == ColourRange::full)
        return plane == 0 ? code / peak : (code - middle) / peak;
    return plane == 0 ? (code / unit - 16) / 219 : (code - middle) / (224 * unit);
}

}
