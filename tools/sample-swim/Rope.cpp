// SPDX-License-Identifier: GPL-3.0-or-later
#include "Rope.h"

namespace zumeta::swim {

float Rope::centreAt(float x, float seconds) const
{
    return y + swing * std::sin(x / 170 + seed - 1.9f * seconds) +
           swing * .6f * std::sin(x / 61 + seed * 2 + 2.6f * seconds);
}

Rope::Sample Rope::at(float x, float fromCentre, float pixel, float pixelAlong) const
{
    const float v = fromCentre / radius;
    const float floats = x / floatLength;
    const int index = floorInt(floats);
    // Distance from the gap between two floats, in units along the rope; the ends are a little rounded.
    const float inFloat = floats - float(index);
    const float fromEnd = std::min(inFloat, 1 - inFloat) * floatLength;
    const float rounding = 1 - .16f * smooth(4, 0, fromEnd);
    const float across = clamp01((radius * rounding - std::abs(fromCentre)) / pixel + .5f);
    const float along = clamp01((fromEnd - 1) / std::max(pixelAlong, .5f) + .5f);
    const float line = clamp01((radius * .34f - std::abs(fromCentre)) / pixel + .5f) * .9f;

    const Colour colour = index < 0 ? before : after[size_t((index / group) % 2)];
    const float rim = std::abs(v) * v * v;
    const float lit = std::clamp(.98f - .55f * v - .25f * std::abs(rim) + .25f * bell(v + .5f, .16f), .18f, 1.35f) *
                      (1 - .22f * smooth(7, 0, fromEnd));
    const Colour lineColour{.25f, .27f, .30f};
    Sample sample;
    sample.alpha = std::max(across * along, line);
    sample.colour = mix(lineColour, colour * lit, along) * brightness;
    return sample;
}

}
