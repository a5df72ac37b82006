// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <chrono>
#include <optional>
#include <string>

namespace zumeta {

/// The text of a progress bar "[#####-----]  50 %  0:12 left". The time is left out while it is not known.
std::string progressBarText(double fraction, std::optional<double> secondsLeft);

/// Shows an export's progress on standard output: a bar that is drawn over itself on a terminal, a line for every tenth
/// elsewhere.
class ProgressDisplay {
public:
    enum class Style { bar, lines, silent };
    explicit ProgressDisplay(Style style);

    /// 0 to 1.
    void show(double fraction);
    /// Ends the line that the bar stands in.
    void end();

private:
    std::optional<double> secondsLeft(double fraction) const;

    Style m_style;
    std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
    int m_lastTenth = 0;
    bool m_barIsShown = false;
};

}
