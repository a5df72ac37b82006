// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <chrono>

namespace zumeta::swim {

/// Tells a person on standard error how far the work is: one line that is rewritten on a terminal, a plain line every
/// tenth elsewhere.
class Progress {
public:
    enum class Style { silent, terminal, lines };
    static Style styleFor(bool quiet);

    Progress(Style style, int total);
    ~Progress();
    Progress(const Progress&) = delete; // one owner of the line on the screen
    Progress& operator=(const Progress&) = delete;

    void advance();

private:
    Style m_style;
    int m_total;
    int m_done = 0;
    int m_told = -1;
    std::chrono::steady_clock::time_point m_begin = std::chrono::steady_clock::now();
};

}
