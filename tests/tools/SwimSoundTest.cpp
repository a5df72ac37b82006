// SPDX-License-Identifier: GPL-3.0-or-later
#include "SwimSound.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <gtest/gtest.h>

namespace zumeta::swim {

namespace {

int loudest(const std::vector<int16_t>& samples, int64_t from, int64_t to)
{
    int loudest = 0;
    for (int64_t i = from * 2; i < to * 2; ++i)
        loudest = std::max(loudest, std::abs(int(samples[size_t(i)])));
    return loudest;
}

}

TEST(SwimSound, TheStartBeepSetsInAtThePrintedTime)
{
    const SwimPlan plan = SwimPlan::make({30000, 1001}, 12);
    SwimSound sound(plan, SwimSound::Place::above);
    const std::vector<int16_t> samples = sound.next(2 * kSampleRate);
    const auto beep = int64_t(std::llround(plan.beepAboveTime() * kSampleRate));
    EXPECT_LT(loudest(samples, 0, beep), 9000) << "before it there is only ambience";
    EXPECT_GT(loudest(samples, beep, beep + 1), 15000) << "its first sample is loud";
    const int64_t end = beep + kSampleRate / 2;
    EXPECT_LT(loudest(samples, end, end + kSampleRate / 4), 9000);
}

TEST(SwimSound, TheBelowCameraHearsTheBeepLaterInItsRecordingAndMuffled)
{
    const SwimPlan plan = SwimPlan::make({30000, 1001}, 12);
    SwimSound above(plan, SwimSound::Place::above);
    SwimSound below(plan, SwimSound::Place::below);
    const double earlier = plan.secondsOf(plan.belowLandmarkFrame - plan.aboveLandmarkFrame);
    EXPECT_NEAR(double(below.beepSample() - above.beepSample()) / kSampleRate, earlier, 1.0 / kSampleRate);
    const std::vector<int16_t> samples = below.next(5 * kSampleRate);
    const int64_t beep = below.beepSample();
    const int heard = loudest(samples, beep + 2000, beep + 12000);
    EXPECT_GT(heard, loudest(samples, beep - 12000, beep - 2000));
    EXPECT_LT(heard, 12000);
}

TEST(SwimSound, IsTheSameInLongAndShortStretches)
{
    const SwimPlan plan = SwimPlan::make({25, 1}, 3);
    SwimSound whole(plan, SwimSound::Place::above);
    SwimSound pieces(plan, SwimSound::Place::above);
    const std::vector<int16_t> expected = whole.next(10000);
    std::vector<int16_t> joined;
    for (const int count : {1, 999, 4000, 5000}) {
        const std::vector<int16_t> piece = pieces.next(count);
        joined.insert(joined.end(), piece.begin(), piece.end());
    }
    EXPECT_EQ(joined, expected);
}

TEST(SwimSound, IsAsLongAsThePicture)
{
    const SwimPlan plan = SwimPlan::make({30000, 1001}, 12);
    const SwimSound sound(plan, SwimSound::Place::below);
    EXPECT_NEAR(double(sound.length()) / kSampleRate, plan.secondsOf(plan.belowFrames), 1.0 / kSampleRate);
}

}
