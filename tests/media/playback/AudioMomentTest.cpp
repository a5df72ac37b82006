// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/playback/AudioMoment.h"

#include <cmath>
#include <gtest/gtest.h>

namespace zumeta::test {

namespace {

constexpr double kBlock = 0.02;

}

TEST(AudioMoment, StartsWithWhatTheDeviceSays)
{
    AudioMoment moment;
    EXPECT_EQ(moment.next(1000.05, 0), 1000.05);
}

TEST(AudioMoment, RunsOnWithTheSamplesUnderCoarseMeasurements)
{
    AudioMoment moment;
    moment.next(1000, 0);
    for (int block = 1; block < 500; ++block) {
        const double coarse = block % 2 == 0 ? 0.015 : -0.015;
        EXPECT_NEAR(moment.next(1000 + block * kBlock + coarse, kBlock), 1000 + block * kBlock, 0.002) << block;
    }
}

TEST(AudioMoment, FollowsADeviceThatRunsSlow)
{
    AudioMoment moment;
    moment.next(1000, 0);
    double last = 0;
    constexpr double kSlow = 1.0005;
    for (int block = 1; block < 5000; ++block)
        last = moment.next(1000 + block * kBlock * kSlow, kBlock);
    EXPECT_NEAR(last, 1000 + 4999 * kBlock * kSlow, 0.001);
}

TEST(AudioMoment, TakesTheNewMomentAfterAStandstill)
{
    AudioMoment moment;
    moment.next(1000, 0);
    EXPECT_EQ(moment.next(1003, kBlock), 1003);
}

TEST(AudioMoment, StartsAnewAfterAReset)
{
    AudioMoment moment;
    moment.next(1000, 0);
    moment.reset();
    EXPECT_EQ(moment.next(1000.01, kBlock), 1000.01);
}

}
