// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "Skeleton.h"

#include <cstdint>
#include <vector>

namespace zumeta::swim {

enum class Material : uint8_t { nothing, skin, suit, cap, goggles };

/// A ball of the swimmer's flesh, in units of the scene.
struct Ball {
    Point centre;
    float radius = 0;
    Material material = Material::skin;
    int limb = 0; ///< balls of one limb follow each other and are drawn as one piece
};

/// Clothes the bones: balls close enough to each other to look like one smooth body.
std::vector<Ball> bodyAround(const Skeleton& skeleton);

}
