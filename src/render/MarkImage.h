// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <cstddef>
#include <cstdint>
#include <vector>

namespace zumeta {

/// A picture to lay over the composite: sRGB values premultiplied by alpha, 8 bit, R G B A, rows from the top down
/// without gaps. Of the composite's size.
struct MarkImage {
    int width = 0;
    int height = 0;
    std::vector<uint8_t> rgba;

    const uint8_t* pixel(int x, int y) const { return rgba.data() + 4 * (size_t(y) * size_t(width) + size_t(x)); }
};

}
