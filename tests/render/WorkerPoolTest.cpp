// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/WorkerPool.h"

#include <gtest/gtest.h>
#include <set>

namespace zumeta {

TEST(WorkerPool, DoesEveryPieceOnceJobAfterJob)
{
    WorkerPool pool(3);
    ASSERT_EQ(pool.workers(), 3);
    for (int job = 0; job < 200; ++job) {
        const int pieces = job % 17;
        std::vector<std::atomic<int>> done(static_cast<size_t>(pieces));
        pool.run(pieces, [&](int piece, int worker) {
            ASSERT_TRUE(worker >= 0 && worker < 3);
            ++done[size_t(piece)];
        });
        for (const std::atomic<int>& count : done)
            ASSERT_EQ(count, 1);
    }
}

TEST(WorkerPool, OneWorkerIsTheCaller)
{
    WorkerPool pool(1);
    std::set<std::thread::id> threads;
    pool.run(5, [&](int, int) { threads.insert(std::this_thread::get_id()); });
    EXPECT_EQ(threads, std::set<std::thread::id>{std::this_thread::get_id()});
}

TEST(WorkerPool, NoTwoPiecesShareAWorkerAtOnce)
{
    WorkerPool pool(4);
    std::array<std::atomic<int>, 4> inside{};
    std::atomic<bool> collided = false;
    pool.run(2000, [&](int, int worker) {
        if (inside[size_t(worker)]++ != 0)
            collided = true;
        --inside[size_t(worker)];
    });
    EXPECT_FALSE(collided);
}

}
