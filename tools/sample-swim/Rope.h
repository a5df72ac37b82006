// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "Canvas.h"

#include <array>

namespace zumeta::swim {

inline constexpr Colour kRopeRed = Colour::hex(0xe2382e);
inline constexpr Colour kRopeWhite = Colour::hex(0xf1f4f6);
inline constexpr Colour kRopeBlue = Colour::hex(0x1f62d6);
inline constexpr Colour kRopeYellow = Colour::hex(0xffc928);

/// A lane rope: floats on a line, of one colour up to the mark at x = 0 and in alternating groups from there on.
struct Rope {
    float y = 0;            ///< middle of the floats as it is seen, in units
    float radius = 15;      ///< as it is seen, in units
    float floatLength = 30; ///< along the rope, in units of the rope's own lane
    Colour before;
    std::array<Colour, 2> after;
    int group = 4; ///< floats of one colour in a row after the mark
    float brightness = 1;
    float swing = 2;
    float seed = 1;

    struct Sample {
        Colour colour;
        float alpha = 0;
    };
    /// Middle of the floats at `x` of the rope's own lane: it rides on the waves.
    float centreAt(float x, float seconds) const;
    /// The rope at `x` and at a height above or below its middle. `pixel` is the size of a pixel across the rope,
    /// `pixelAlong` along it, both in the units of the other arguments.
    Sample at(float x, float fromCentre, float pixel, float pixelAlong) const;
};

}
