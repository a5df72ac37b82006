// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/controls/RepeatSchedule.h"

#include "surfaces/controls/ControlMetrics.h"

namespace zumeta {

bool RepeatSchedule::press(double now)
{
    if (m_pressedAt)
        return false;
    m_pressedAt = now;
    m_repetition = 0;
    return true;
}

void RepeatSchedule::release()
{
    m_pressedAt.reset();
}

std::optional<double> RepeatSchedule::nextDue() const
{
    return m_pressedAt ? std::optional(*m_pressedAt + kRepeatDelay + m_repetition * kRepeatInterval) : std::nullopt;
}

bool RepeatSchedule::takeDue(double now)
{
    if (!m_pressedAt || now < *nextDue())
        return false;
    // The division skips what was missed; the loop makes good what it loses by rounding.
    m_repetition += int((now - *nextDue()) / kRepeatInterval);
    while (*nextDue() <= now)
        ++m_repetition;
    return true;
}

}
