// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <optional>

namespace zumeta {

/// A view over content that is higher than the view. Lengths in logical pixels, downward.
struct ScrollRange {
    double top = 0; ///< of the content that the view shows first
    double viewHeight = 0;
    double contentHeight = 0;

    /// Where the view has to begin so that this stretch of the content is seen, with some room around it; the least
    /// movement that does, and the beginning of a stretch that is too high.
    double topShowing(double first, double last) const;
    /// Where this key of a reader leads: arrows go by lines, pages keep a line in sight, Home and End go to the ends.
    /// Nothing for other keys.
    std::optional<double> topByKey(int key) const;

private:
    double lastTop() const;
};

}
