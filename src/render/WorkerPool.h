// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <atomic>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace zumeta {

/// A few threads that share out the pieces of one job and are kept for the next. The caller works too.
class WorkerPool {
public:
    /// `workers` counts the caller: 1 starts no thread.
    explicit WorkerPool(int workers);
    ~WorkerPool();
    WorkerPool(const WorkerPool&) = delete; // its threads know it by address
    WorkerPool& operator=(const WorkerPool&) = delete;

    int workers() const { return int(m_threads.size()) + 1; }
    /// Calls task(piece, worker) once for each piece below `pieces`, in any order, and returns when all are done.
    /// The task throws nothing. Not to be called from two threads at once.
    void run(int pieces, const std::function<void(int piece, int worker)>& task);

private:
    void work(int worker);
    void takePieces(int worker);

    std::mutex m_mutex;
    std::condition_variable m_started;
    std::condition_variable m_finished;
    // Guarded by the mutex.
    const std::function<void(int, int)>* m_task = nullptr;
    int m_pieces = 0;
    uint64_t m_job = 0;
    int m_busy = 0;
    bool m_stopping = false;
    // Any worker.
    std::atomic<int> m_next = 0;

    std::vector<std::jthread> m_threads; // last: they end before what they use
};

}
