// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QSizeF>

namespace zumeta {

/// Place and time on the plain slider, a scrubber over the whole length. Places are x in its own box.
struct SliderScale {
    double width = 0; ///< of the slider
    double lower = 0; ///< seconds
    double upper = 0; ///< seconds

    /// From 0 to the length, or a little more than 0 in an empty session.
    static SliderScale of(double width, double duration);

    /// How much of the range lies before the time, 0 to 1.
    double progress(double time) const;
    double filledWidth(double time) const;
    /// The thumb's centre. It stays inside at the right end; at the left end it stands on the edge itself.
    double thumbCentre(double time) const;
    /// The time that a press means. It uses the true width, also where the thumb can't follow.
    double time(double x) const;

    friend bool operator==(const SliderScale&, const SliderScale&) = default;
};

enum class ThumbState { resting, hovered, dragged };
QSizeF thumbSize(ThumbState state);

}
