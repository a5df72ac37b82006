// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "surfaces/controls/RepeatSchedule.h"

#include <QTimer>
#include <functional>

namespace zumeta {
class Clock;

/// A button that acts at the press and, while it is held, again and again. One press at a time. Main thread.
class PressRepeat {
public:
    using Action = std::function<void()>;

    explicit PressRepeat(const Clock& clock);

    /// Acts at once. While another press lasts it is none.
    void press(Action action);
    /// Also when the press is taken away or can no longer be seen.
    void release();
    bool isPressed() const { return m_schedule.isPressed(); }

    /// Acts if a repetition is due by the clock. The timer calls it.
    void repeatIfDue();

private:
    void waitForNext();

    const Clock& m_clock;
    RepeatSchedule m_schedule;
    Action m_action;
    QTimer m_timer;
};

}
