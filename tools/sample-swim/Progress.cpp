// SPDX-License-Identifier: GPL-3.0-or-later
#include "Progress.h"

#include <cmath>
#include <cstdio>
#include <string>
#include <unistd.h>

namespace zumeta::swim {

Progress::Style Progress::styleFor(bool quiet)
{
    if (quiet)
        return Style::silent;
    return isatty(STDERR_FILENO) ? Style::terminal : Style::lines;
}

Progress::Progress(Style style, int total)
    : m_style(style)
    , m_total(total)
{}

Progress::~Progress()
{
    if (m_style == Style::terminal)
        std::fputs("\r\x1b[K", stderr);
}

void Progress::advance()
{
    ++m_done;
    const int percent = 100 * m_done / m_total;
    if (m_style == Style::lines && percent / 10 > m_told) {
        m_told = percent / 10;
        std::fprintf(stderr, "drawing the swim: %d %%\n", percent);
    }
    if (m_style != Style::terminal || percent == m_told)
        return;
    m_told = percent;
    const double spent = std::chrono::duration<double>(std::chrono::steady_clock::now() - m_begin).count();
    const long left = std::lround(spent * (m_total - m_done) / m_done);
    constexpr int kCells = 32;
    const auto filled = size_t(kCells * m_done / m_total);
    const std::string bar = std::string(filled, '#') + std::string(size_t(kCells) - filled, '.');
    std::fprintf(stderr, "\rdrawing the swim  %s %3d %%  %ld s left\x1b[K", bar.c_str(), percent, left);
    std::fflush(stderr);
}

}
