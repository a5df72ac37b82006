// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/timeline/SliderGesture.h"

namespace zumeta {

TimelineIntents SliderGesture::press(double x, const SliderScale& scale, SliderAvailability availability)
{
    // A release that never came must not leave the session in a drag.
    TimelineIntents intents = cancel();
    if (availability == SliderAvailability::disabled)
        return intents;
    m_isDragging = true;
    m_lastX = x;
    intents.insert(intents.end(), {DraggingChanged{true}, Seek{scale.time(x)}});
    return intents;
}

TimelineIntents SliderGesture::move(double x, const SliderScale& scale, SliderAvailability availability)
{
    if (!m_isDragging || availability == SliderAvailability::disabled)
        return {};
    m_lastX = x;
    return {Seek{scale.time(x)}};
}

TimelineIntents SliderGesture::release(double x, const SliderScale& scale, SliderAvailability availability)
{
    TimelineIntents intents = x == m_lastX ? TimelineIntents{} : move(x, scale, availability);
    const TimelineIntents end = cancel();
    intents.insert(intents.end(), end.begin(), end.end());
    return intents;
}

TimelineIntents SliderGesture::cancel()
{
    if (!m_isDragging)
        return {};
    m_isDragging = false;
    return {DraggingChanged{false}, SliderMoved{}};
}

}
