// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "support/RawPicture.h"

#include <optional>

namespace zumeta::test {

enum class Side { above = 1, below = 2, other = 3 };

/// What a picture says of itself: whose it is and which frame.
struct BarCode {
    Side side = Side::above;
    int number = 0; ///< 0 to 16383

    friend bool operator==(const BarCode&, const BarCode&) = default;
};

/// Two copies, so that one is left whichever half of a picture a composite shows. Both stand far enough inside to
/// survive the camera zooms and the crop between 16:9 and 4:3.
enum class CodeStrip { upper, lower };

/// Where the picture that carries the code lies in the picture that is read, in pixels from the top left corner.
struct Placement {
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;
};

/// Height of the strip in the picture that carries it, as a part of its height from the top: {top, bottom}.
std::pair<double, double> stripExtent(CodeStrip strip);

/// The code's brightness at a point of the carrying picture (0..1 from the top left), nothing outside both strips.
std::optional<double> barCodeLuma(const BarCode& code, double x, double y);

/// Reads a code back; nothing when a block is neither dark nor bright or the check bits disagree.
std::optional<BarCode> readBarCode(const RawPicture& picture, CodeStrip strip, const Placement& placement);
/// The same for a picture that carries the code itself.
std::optional<BarCode> readBarCode(const RawPicture& picture, CodeStrip strip = CodeStrip::upper);

}
