// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "Canvas.h"
#include "RowPool.h"
#include "View.h"

#include <vector>

namespace zumeta::swim {

// All that flies, floats and rises. Every particle is a closed function of time: its origin is the body at the instant
// when it was born, its way is known from there. So any frame can be drawn alone, and both cameras see the same.

/// A speck of white water, in units of the scene.
struct Speck {
    float x = 0, y = 0;
    float radius = 1;
    float alpha = 1;
    float stretch = 1; ///< width over height
};

struct Bubble {
    float x = 0, y = 0;
    float radius = 1;
    float alpha = 1;
    bool inFront = true; ///< of the swimmer
};

/// Drops in the air and foam on the surface.
std::vector<Speck> splashAt(double swimTime);
/// Clouds of fine air under the surface.
std::vector<Speck> frothBelowAt(double swimTime);
std::vector<Bubble> bubblesAt(double swimTime);

/// Adds the specks to a plane of the view's size, 1 where all is white.
void drawSpecks(Plane& plane, const View& view, float camera, const std::vector<Speck>& specks, RowPool& pool);
void drawBubbles(Canvas& canvas, const View& view, float camera, const std::vector<Bubble>& bubbles, bool inFront,
                 RowPool& pool);

}
