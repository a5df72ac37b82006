// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/movie/MediaTime.h"

#include <gtest/gtest.h>

namespace zumeta {

TEST(MediaTime, AddsTimesOfDifferentTimescalesExactly)
{
    EXPECT_EQ((MediaTime{1001, 30000} + MediaTime{1, 600}), (MediaTime{1051, 30000}));
    EXPECT_EQ((MediaTime{1, 3} - MediaTime{1, 3}), (MediaTime{0, 7}));
}

TEST(MediaTime, ComparesWithoutOverflowAtHugeValues)
{
    EXPECT_LT((MediaTime{INT64_C(9'000'000'000'000'000'000), 90001}),
              (MediaTime{INT64_C(9'000'000'000'000'000'000), 90000}));
}

TEST(MediaTime, RoundsHalvesAwayFromZeroWhenMadeFromSeconds)
{
    EXPECT_EQ(MediaTime::nearest(0.5, 1).value, 1);
    EXPECT_EQ(MediaTime::nearest(-0.5, 1).value, -1);
}

TEST(MediaTime, EveryFrameOfNtscRatesIsFoundAtTheTimeComputedFromItsNumber)
{
    for (const int64_t rate : {24000, 30000, 60000, 120000}) {
        for (int64_t n = 1; n < 50'000; ++n) {
            const MediaTime pts{n * 1001, rate};
            const double target = double(n) * (1001.0 / double(rate));
            ASSERT_TRUE(frameHasBegun(pts, target)) << rate << ' ' << n;
            ASSERT_FALSE(frameHasBegun(pts + MediaTime{1001, rate}, target)) << rate << ' ' << n;
        }
    }
}

TEST(MediaTime, EveryFrameOfNtscRatesIsFoundOnTheGridOfSeeksFromAnyStart)
{
    for (const int64_t rate : {24000, 30000, 60000, 120000}) {
        for (const int64_t first : {0, 16, 19, 10'007}) {
            for (int64_t n = 0; n < 5'000; ++n) {
                const double start = double(first) * (1001.0 / double(rate));
                const MediaTime target = MediaTime::nearest(start + double(n) * (1001.0 / double(rate)), 60000);
                ASSERT_TRUE(frameHasBegun({(first + n) * 1001, rate}, target.seconds())) << rate << ' ' << n;
                ASSERT_FALSE(frameHasBegun({(first + n + 1) * 1001, rate}, target.seconds())) << rate << ' ' << n;
            }
        }
    }
}

}
