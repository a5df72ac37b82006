// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <atomic>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace zumeta::swim {

/// Spreads the rows of a picture over the machine's cores. The calling thread works too. What a row holds must not
/// depend on the order of rows, so a picture is the same on every machine.
class RowPool {
public:
    explicit RowPool(unsigned threads = std::thread::hardware_concurrency());
    ~RowPool();
    RowPool(const RowPool&) = delete; // its threads know its address
    RowPool& operator=(const RowPool&) = delete;

    using Work = std::function<void(int fromRow, int toRow)>;
    /// Calls `work` for bands of rows that cover [from, to) and returns when all are done.
    void run(int from, int to, int bandHeight, const Work& work);

private:
    void takeBands();

    // Guarded by m_mutex; while bands are being taken only the counter moves.
    std::mutex m_mutex;
    std::condition_variable m_begin;
    std::condition_variable m_done;
    const Work* m_work = nullptr;
    int m_to = 0;
    int m_bandHeight = 1;
    unsigned m_generation = 0;
    unsigned m_busy = 0;
    bool m_stop = false;
    std::atomic<int> m_next = 0;
    std::vector<std::thread> m_threads;
};

}
