// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "Hall.h"
#include "Noise.h"
#include "Rope.h"
#include "SwimmerPicture.h"

namespace zumeta::swim {

/// What the camera above the water sees.
class AboveScene {
public:
    AboveScene(const View& view, const WaterTextures& water, RowPool& pool);

    const View& view() const { return m_view; }
    /// Draws the instant on a canvas of the view's size.
    void draw(double swimTime, Canvas& canvas);

private:
    struct Instant;
    struct WaterRow;
    void drawHallRow(const Instant& now, int y, Colour* pixels) const;
    void drawWaterRow(const Instant& now, int y, Colour* pixels, std::vector<float>& slopes) const;
    void drawRope(const Rope& rope, float lane, const Instant& now, int y, Colour* pixels,
                  const std::vector<float>& slopes) const;
    void drawRopeMirrored(const Instant& now, int y, Colour* pixels, const std::vector<float>& slopes) const;
    void drawSwimmerInWater(int y, Colour* pixels, const std::vector<float>& slopes) const;
    void drawSwimmerInAir(int y, Colour* pixels) const;
    void drawFoam(const Instant& now, int y, Colour* pixels) const;
    void finishRow(int y, Colour* pixels) const;

    View m_view;
    const WaterTextures& m_water;
    RowPool& m_pool;
    Hall m_hall;
    SwimmerPicture m_swimmer;
    Plane m_splash;
    Plane m_splashShade;
    std::vector<float> m_edge; ///< y of the water's edge in every column, units
};

}
