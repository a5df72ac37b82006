// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace zumeta {

/// One of the two recordings of a swim: from over the water or from under it.
enum class Side { above, below };

constexpr Side otherSide(Side side)
{
    return side == Side::above ? Side::below : Side::above;
}

/// What exists once for each side.
template <typename T> struct Sides {
    T above{};
    T below{};

    T& operator[](Side side) { return side == Side::above ? above : below; }
    const T& operator[](Side side) const { return side == Side::above ? above : below; }
    friend bool operator==(const Sides&, const Sides&) = default;
};

}
