// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "Canvas.h"
#include "RowPool.h"

namespace zumeta::swim {

/// Softens with nearly a Gaussian of this deviation in pixels; beyond the edge lies 0.
void blur(Plane& plane, float deviation, RowPool& pool);
/// The same with the edge's value beyond the edge above and below; left and right the picture repeats.
void blurWrapped(Canvas& canvas, float deviation, float verticalDeviation);

}
