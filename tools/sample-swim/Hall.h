// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "Canvas.h"
#include "View.h"

namespace zumeta::swim {

/// Height of the far edge of the pool in the above picture, in units above the surface in the swimmer's lane.
inline constexpr float kFarEdge = -179;
/// A thing at the far edge moves this much of what a thing in the swimmer's lane moves when the cameras travel.
inline constexpr float kHallDrift = .22f;

/// The far side of the swimming hall, out of focus: windows, stands, officials on the deck. Painted once; it repeats
/// endlessly to both sides.
class Hall {
public:
    explicit Hall(const View& view);

    /// First column of the hall, which is not whole, for a camera at this place.
    float firstColumn(float camera) const;
    Colour at(float column, int row) const;
    /// The hall as the water mirrors it: drawn out downward.
    Colour mirroredAt(float column, float row) const;
    int rows() const { return m_sharp.height(); }

private:
    int m_viewWidth;
    float m_pixelsPerUnit;
    Canvas m_sharp;
    Canvas m_mirrored;
};

}
