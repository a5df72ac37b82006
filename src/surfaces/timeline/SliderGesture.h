// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "surfaces/timeline/SliderScale.h"
#include "surfaces/timeline/TimelineIntent.h"

namespace zumeta {

enum class SliderAvailability { enabled, disabled };

/// The one gesture of the plain slider: a press seeks, and so does every movement until the release. A press without
/// movement counts as a use of the slider too.
class SliderGesture {
public:
    TimelineIntents press(double x, const SliderScale& scale, SliderAvailability availability);
    /// A slider that is disabled meanwhile seeks no more.
    TimelineIntents move(double x, const SliderScale& scale, SliderAvailability availability);
    /// A place that no movement has told of yet is sought first.
    TimelineIntents release(double x, const SliderScale& scale, SliderAvailability availability);
    /// The pointer was taken away: the drag is over as after a release.
    TimelineIntents cancel();

    bool isDragging() const { return m_isDragging; }

private:
    bool m_isDragging = false;
    double m_lastX = 0;
};

}
