// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <optional>

namespace zumeta {

/// When a button that is held acts: at the press, after a while for the first time again, and then steadily. Times are
/// seconds on one clock. The times of the repetitions all count from the press, so that none drifts.
class RepeatSchedule {
public:
    /// Whether to act now: only the first of several presses without a release does.
    bool press(double now);
    void release();
    bool isPressed() const { return m_pressedAt.has_value(); }

    /// When the next repetition is due.
    std::optional<double> nextDue() const;
    /// Whether to act now. Repetitions that were missed while the program was busy are not made up for: the value would
    /// run on after the eye.
    bool takeDue(double now);

private:
    std::optional<double> m_pressedAt;
    int m_repetition = 0; ///< the next one
};

}
