// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/movie/VideoPicture.h"

namespace zumeta::test {

/// Gamma-coded, black 0, white 1.
struct Rgb {
    double r = 0;
    double g = 0;
    double b = 0;
};

/// Luma 0 to 1, colour differences -0.5 to 0.5, before they are coded as integers.
struct Ycc {
    double y = 0;
    double cb = 0;
    double cr = 0;
};

Ycc toYcc(const Rgb& colour, ColourMatrix matrix);
Rgb toRgb(const Ycc& colour, ColourMatrix matrix);

/// The code value of plane 0 (luma) or 1, 2 (colour difference) before rounding.
double codeOf(double value, int plane, ColourRange range, int bitDepth);
double valueOf(double code, int plane, ColourRange range, int bitDepth);

}
