// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "Noise.h"
#include "Rope.h"
#include "SwimmerPicture.h"

namespace zumeta::swim {

/// What the camera below the water sees.
class BelowScene {
public:
    BelowScene(const View& view, const WaterTextures& water, RowPool& pool);

    const View& view() const { return m_view; }
    /// Draws the instant on a canvas of the view's size.
    void draw(double swimTime, Canvas& canvas);

private:
    struct Instant;
    void drawDeepRow(const Instant& now, int y, Colour* pixels) const;
    void drawUndersideRow(const Instant& now, int y, Colour* pixels) const;
    void drawFloorRow(const Instant& now, int y, Colour* pixels) const;
    void drawRays(const Instant& now, int y, Colour* pixels, float strength) const;
    void drawRope(const Instant& now, int y, Colour* pixels) const;
    void drawSwimmerMirrored(const Instant& now, int y, Colour* pixels) const;
    void drawSwimmer(const Instant& now, int y, Colour* pixels) const;
    void drawFroth(int y, Colour* pixels) const;
    void drawDust(const Instant& now, Canvas& canvas) const;
    void finishRow(const Instant& now, int y, Colour* pixels) const;

    View m_view;
    const WaterTextures& m_water;
    RowPool& m_pool;
    SwimmerPicture m_swimmer;
    Plane m_froth;
    std::vector<float> m_edge; ///< y of the water's edge in every column, units
};

}
