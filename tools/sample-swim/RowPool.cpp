// SPDX-License-Identifier: GPL-3.0-or-later
#include "RowPool.h"

#include <algorithm>

namespace zumeta::swim {

RowPool::RowPool(unsigned threads)
{
    for (unsigned i = 1; i < std::max(1u, threads); ++i) {
        m_threads.emplace_back([this] {
            unsigned seen = 0;
            std::unique_lock lock(m_mutex);
            for (;;) {
                m_begin.wait(lock, [&] { return m_stop || m_generation != seen; });
                if (m_stop)
                    return;
                seen = m_generation;
                lock.unlock();
                takeBands();
                lock.lock();
                if (--m_busy == 0)
                    m_done.notify_one();
            }
        });
    }
}

RowPool::~RowPool()
{
    {
        const std::lock_guard lock(m_mutex);
        m_stop = true;
    }
    m_begin.notify_all();
    for (std::thread& thread : m_threads)
        thread.join();
}

void RowPool::run(int from, int to, int bandHeight, const Work& work)
{
    {
        const std::lock_guard lock(m_mutex);
        m_work = &work;
        m_next = from;
        m_to = to;
        m_bandHeight = bandHeight;
        m_busy = unsigned(m_threads.size());
        ++m_generation;
    }
    m_begin.notify_all();
    takeBands();
    std::unique_lock lock(m_mutex);
    m_done.wait(lock, [&] { return m_busy == 0; });
}

void RowPool::takeBands()
{
    for (;;) {
        const int from = m_next.fetch_add(m_bandHeight);
        if (from >= m_to)
            return;
        (*m_work)(from, std::min(m_to, from + m_bandHeight));
    }
}

}
