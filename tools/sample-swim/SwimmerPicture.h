// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "Blur.h"
#include "Noise.h"
#include "SwimmerBody.h"
#include "View.h"

namespace zumeta::swim {

/// The swimmer drawn and lit, on a piece of the picture just large enough.
class SwimmerPicture {
public:
    enum class Light { hall, water };

    /// Draws the body as it is at this time; what lay here before is gone.
    void draw(const View& view, double swimTime, Light light, RowPool& pool);

    /// A pixel of the whole picture in this piece's own columns and rows.
    int left() const { return m_left; }
    int top() const { return m_top; }
    int right() const { return m_left + m_alpha.width(); }
    int bottom() const { return m_top + m_alpha.height(); }

    const Plane& alpha() const { return m_alpha; }
    const Canvas& colour() const { return m_colour; }
    /// How much of the surface faces upward, 0 to 1: where caustics fall.
    const Plane& upward() const { return m_upward; }

    struct Sample {
        Colour colour;
        float alpha = 0;
    };
    /// Between pixels, for mirror images; nothing outside the piece.
    Sample at(float column, float row) const;

private:
    struct LimbRow;
    void layOut(const View& view, const std::vector<Ball>& balls, float camera);
    void raiseHeights(const View& view, const std::vector<Ball>& balls, float camera, RowPool& pool);
    void lay(LimbRow& limb, int y, Material material);
    void smoothHeights(float pixelsPerUnit, RowPool& pool);
    void shade(Light light, RowPool& pool);

    int m_left = 0;
    int m_top = 0;
    Plane m_height;
    Plane m_alpha;
    Plane m_upward;
    Grid<uint8_t> m_material;
    Canvas m_colour;
};

}
