// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/VirtualTime.h"

#include <algorithm>
#include <limits>

namespace zumeta::test {

VirtualTime::~VirtualTime()
{
    runWhatIsLeft();
}

void VirtualTime::runWhatIsLeft()
{
    // A bound: a player that still runs would tick for ever.
    constexpr int kMostLeftOver = 1000;
    for (int i = 0; i < kMostLeftOver && runNext(std::numeric_limits<double>::infinity()); ++i) {
    }
}

void VirtualTime::post(Work work)
{
    postAfter(0, std::move(work));
}

void VirtualTime::postAfter(double seconds, Work work)
{
    const std::lock_guard lock(m_mutex);
    m_work.emplace(std::pair(m_now + std::max(seconds, 0.0), m_serial++), std::move(work));
}

bool VirtualTime::runNext(double until)
{
    Work work;
    {
        const std::lock_guard lock(m_mutex);
        if (m_work.empty() || m_work.begin()->first.first > until)
            return false;
        m_now = std::max(m_now, m_work.begin()->first.first);
        work = std::move(m_work.begin()->second);
        m_work.erase(m_work.begin());
    }
    work();
    return true;
}

void VirtualTime::runDueWork()
{
    while (runNext(m_now)) {
    }
}

void VirtualTime::advance(double seconds)
{
    const double until = m_now + seconds;
    while (runNext(until)) {
    }
    const std::lock_guard lock(m_mutex); // another thread may be posting
    m_now = std::max(m_now, until);
}

}
