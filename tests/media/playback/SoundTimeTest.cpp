// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/playback/SoundTime.h"

#include <gtest/gtest.h>

namespace zumeta::test {

TEST(SoundTime, IsHeardFromHalfToDoubleSpeedForward)
{
    for (const double rate : {0.5, 1.0, 1.5, 2.0})
        EXPECT_TRUE((SoundTime{0, 0, rate}.isAudible())) << rate;
    for (const double rate : {0.0, 0.25, 0.49, 2.01, 4.0, 32.0, -0.5, -1.0, -2.0})
        EXPECT_FALSE((SoundTime{0, 0, rate}.isAudible())) << rate;
}

TEST(SoundTime, TurnsMomentsOfTheClockIntoTimesOfTheItemAndBack)
{
    const SoundTime time{3, 1000, 0.5};
    EXPECT_DOUBLE_EQ(time.secondsAt(1004), 5);
    EXPECT_DOUBLE_EQ(time.hostTimeOf(5), 1004);
}

TEST(SoundTime, SoundsLikeTheSameLineToldAtALaterMoment)
{
    const SoundTime time{3, 1000, 2};
    EXPECT_TRUE(time.soundsLike({5.0002, 1001, 2}));
    EXPECT_FALSE(time.soundsLike({5.01, 1001, 2}));
    EXPECT_FALSE(time.soundsLike({5, 1001, 1}));
}

}
