// SPDX-License-Identifier: GPL-3.0-or-later
#include "PlayingReport.h"

#include "platform/Clock.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <ctime>

namespace zumeta::bench {

double cpuSeconds()
{
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return double(now.tv_sec) + double(now.tv_nsec) * 1e-9;
}

double wallSeconds()
{
    return MonotonicClock().now();
}

double percentile(std::vector<double> values, double share)
{
    if (values.empty())
        return 0;
    std::sort(values.begin(), values.end());
    return values[std::min(values.size() - 1, size_t(share * double(values.size())))];
}

PlayingReport::PlayingReport()
{
    m_timer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&m_timer, &QTimer::timeout, [this] {
        const double now = wallSeconds();
        m_turns.push_back(now - m_lastTurn - 0.001);
        m_lastTurn = now;
    });
}

void PlayingReport::begin(double mediaTime)
{
    m_timeOf.clear();
    m_lateness.clear();
    m_turns.clear();
    m_cpuStart = cpuSeconds();
    m_wallStart = m_lastTurn = wallSeconds();
    m_mediaStart = mediaTime;
    m_timer.start(1);
}

void PlayingReport::shown(uint64_t request, double mediaTime)
{
    const auto found = m_timeOf.find(request);
    if (found != m_timeOf.end())
        m_lateness.try_emplace(found->second, mediaTime - found->second);
}

void PlayingReport::print(double mediaTime, double sourceFrame)
{
    m_timer.stop();
    const double wall = wallSeconds() - m_wallStart;
    const double cpu = cpuSeconds() - m_cpuStart;
    const double due = (mediaTime - m_mediaStart) / sourceFrame;
    std::vector<double> lateness;
    size_t inTime = 0;
    for (const auto& [time, late] : m_lateness) {
        lateness.push_back(late * 1e3);
        inTime += std::abs(late) <= sourceFrame / 2 ? 1U : 0U;
    }
    const auto stalls = std::count_if(m_turns.begin(), m_turns.end(), [](double s) { return s > 0.030; });
    std::printf(
        "| frames due | on screen | within half a frame | late ms, median, p1, p99 | event loop ms, p99, longest "
        "| over 30 ms | CPU of one core |\n|---|---|---|---|---|---|---|\n");
    std::printf("| %.0f | %zu | %.1f %% | %.1f, %.1f, %.1f | %.1f, %.1f | %td | %.0f %% |\n", due, lateness.size(),
                100.0 * double(inTime) / due, percentile(lateness, 0.5), percentile(lateness, 0.01),
                percentile(lateness, 0.99), percentile(m_turns, 0.99) * 1e3, percentile(m_turns, 1) * 1e3, stalls,
                100 * cpu / wall);
}

}
