// SPDX-License-Identifier: GPL-3.0-or-later
#include "zumeta-render/ProgressDisplay.h"

#include <cmath>
#include <cstdio>

namespace zumeta {

namespace {

constexpr int kBarWidth = 40;
/// The first moments say little about the rest.
constexpr double kLeastSeconds = 1;

}

std::string progressBarText(double fraction, std::optional<double> secondsLeft)
{
    const int filled = int(std::lround(fraction * kBarWidth));
    std::string text = "[" + std::string(size_t(filled), '#') + std::string(size_t(kBarWidth - filled), '-') + "] ";
    std::string percent = std::to_string(int(fraction * 100));
    text += std::string(3 - percent.size(), ' ') + percent + " %";
    if (secondsLeft) {
        const int seconds = int(std::ceil(*secondsLeft));
        const std::string rest = std::to_string(seconds % 60);
        text += "  " + std::to_string(seconds / 60) + (rest.size() < 2 ? ":0" : ":") + rest + " left";
    }
    return text;
}

ProgressDisplay::ProgressDisplay(Style style)
    : m_style(style)
{}

std::optional<double> ProgressDisplay::secondsLeft(double fraction) const
{
    const double passed = std::chrono::duration<double>(std::chrono::steady_clock::now() - m_start).count();
    if (passed < kLeastSeconds || fraction <= 0)
        return std::nullopt;
    return passed * (1 - fraction) / fraction;
}

void ProgressDisplay::show(double fraction)
{
    if (m_style == Style::bar) {
        // The end of the line is cleared: the text gets shorter as the time does.
        std::printf("\r%s\x1b[K", progressBarText(fraction, secondsLeft(fraction)).c_str());
        m_barIsShown = true;
    } else if (m_style == Style::lines && int(fraction * 10) > m_lastTenth) {
        m_lastTenth = int(fraction * 10);
        std::printf("%d %%\n", m_lastTenth * 10);
    }
    std::fflush(stdout);
}

void ProgressDisplay::end()
{
    if (m_barIsShown)
        std::printf("\n");
    m_barIsShown = false;
    std::fflush(stdout);
}

}
