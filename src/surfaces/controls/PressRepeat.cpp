// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/controls/PressRepeat.h"

#include "platform/Clock.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace zumeta {

PressRepeat::PressRepeat(const Clock& clock)
    : m_clock(clock)
{
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    m_timer.callOnTimeout([this] { repeatIfDue(); });
}

void PressRepeat::press(Action action)
{
    if (!m_schedule.press(m_clock.now()))
        return;
    m_action = std::move(action);
    waitForNext();
    m_action();
}

void PressRepeat::release()
{
    m_schedule.release();
    m_timer.stop();
}

void PressRepeat::repeatIfDue()
{
    const bool isDue = m_schedule.takeDue(m_clock.now());
    waitForNext();
    if (isDue)
        m_action();
}

void PressRepeat::waitForNext()
{
    constexpr double kMillisecondsPerSecond = 1000;
    const std::optional<double> due = m_schedule.nextDue();
    if (!due)
        return;
    const double wait = std::max(*due - m_clock.now(), 0.0);
    m_timer.start(int(std::ceil(wait * kMillisecondsPerSecond)));
}

}
