// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/WorkerPool.h"

namespace zumeta {

WorkerPool::WorkerPool(int workers)
{
    for (int worker = 1; worker < workers; ++worker)
        m_threads.emplace_back([this, worker] { work(worker); });
}

WorkerPool::~WorkerPool()
{
    const std::lock_guard lock(m_mutex);
    m_stopping = true;
    m_started.notify_all();
}

void WorkerPool::run(int pieces, const std::function<void(int, int)>& task)
{
    if (m_threads.empty() || pieces <= 1) {
        for (int piece = 0; piece < pieces; ++piece)
            task(piece, 0);
        return;
    }
    {
        const std::lock_guard lock(m_mutex);
        m_task = &task;
        m_pieces = pieces;
        m_next = 0;
        m_busy = int(m_threads.size());
        ++m_job;
        m_started.notify_all();
    }
    takePieces(0);
    std::unique_lock lock(m_mutex);
    m_finished.wait(lock, [this] { return m_busy == 0; });
    m_task = nullptr;
}

void WorkerPool::work(int worker)
{
    uint64_t lastJob = 0;
    std::unique_lock lock(m_mutex);
    for (;;) {
        m_started.wait(lock, [&] { return m_stopping || m_job != lastJob; });
        if (m_stopping)
            return;
        lastJob = m_job;
        lock.unlock();
        takePieces(worker);
        lock.lock();
        if (--m_busy == 0)
            m_finished.notify_one();
    }
}

void WorkerPool::takePieces(int worker)
{
    // Task and count stay as they are until every worker has come back from here.
    for (int piece = m_next++; piece < m_pieces; piece = m_next++)
        (*m_task)(piece, worker);
}

}
