// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/playback/DecodePlan.h"

#include <gtest/gtest.h>

namespace zumeta::test {

namespace {

constexpr double kFrame = 0.04;

DecodeSituation at(double playhead, double rate)
{
    DecodeSituation situation;
    situation.playhead = playhead;
    situation.rate = rate;
    situation.frameLength = kFrame;
    situation.framesInBudget = 36;
    situation.itemEnd = 100;
    return situation;
}

DecodeSituation covered(double playhead, double rate, double begin, double end)
{
    DecodeSituation situation = at(playhead, rate);
    situation.covered = FrameCache::Stretch{begin, end};
    const double wanted = rate < 0 ? playhead - begin : end - playhead;
    situation.framesWanted = int(wanted / kFrame) + 1;
    return situation;
}

}

TEST(DecodePlan, TheFrameAtThePlayheadComesFirst)
{
    for (const double rate : {-1.0, 0.0, 1.0}) {
        const auto need = nextNeed(at(5, rate));
        ASSERT_TRUE(need);
        EXPECT_TRUE(need->isUrgent);
        EXPECT_DOUBLE_EQ(need->target, 5);
    }
}

TEST(DecodePlan, StandingReadsAheadToBothSidesAndThenRests)
{
    const auto ahead = nextNeed(covered(5, 0, 4.9, 5.1));
    ASSERT_TRUE(ahead);
    EXPECT_FALSE(ahead->isUrgent);
    EXPECT_DOUBLE_EQ(ahead->target, 5.1);
    const auto behind = nextNeed(covered(5, 0, 4.9, 6));
    ASSERT_TRUE(behind);
    EXPECT_LT(behind->target, 4.9);
    EXPECT_FALSE(frameHasBegun(MediaTime{49, 10}, behind->target));
    EXPECT_FALSE(nextNeed(covered(5, 0, 4.4, 5.6)));
}

TEST(DecodePlan, StandingAtEitherEndWantsNothingBeyondIt)
{
    EXPECT_FALSE(nextNeed(covered(0, 0, 0, 1)));
    EXPECT_FALSE(nextNeed(covered(100, 0, 99, 1000)));
}

TEST(DecodePlan, ForwardDecodesOnUntilThreeQuartersOfTheCacheLieAhead)
{
    const auto need = nextNeed(covered(5, 1, 4, 5 + 20 * kFrame));
    ASSERT_TRUE(need);
    EXPECT_DOUBLE_EQ(need->target, 5 + 20 * kFrame);
    EXPECT_FALSE(nextNeed(covered(5, 1, 4, 5 + 28 * kFrame)));
}

TEST(DecodePlan, ForwardWantsNothingBehindTheEnd)
{
    EXPECT_FALSE(nextNeed(covered(99.9, 1, 99, 1000)));
}

TEST(DecodePlan, BackwardWantsTheFramesBeforeWhatIsCovered)
{
    const auto need = nextNeed(covered(5, -1, 4.5, 5.2));
    ASSERT_TRUE(need);
    EXPECT_FALSE(frameHasBegun(MediaTime{45, 10}, need->target));
    EXPECT_NEAR(need->target, 4.5, 0.001);
    EXPECT_NEAR(need->keepFrom, 4.5 - 33 * kFrame, 0.001); // as many as the cache holds, less what the decoder holds
}

TEST(DecodePlan, BackwardWaitsForRoomAndNeverRunsDry)
{
    DecodeSituation full = covered(5, -1, 4, 5.2);
    full.framesWanted = full.framesInBudget;
    EXPECT_FALSE(nextNeed(full));
    DecodeSituation dry = covered(4 + kFrame, -1, 4, 5.2);
    dry.framesWanted = dry.framesInBudget;
    EXPECT_TRUE(nextNeed(dry));
}

TEST(DecodePlan, BackwardWantsNothingBeforeTheBeginning)
{
    EXPECT_FALSE(nextNeed(covered(0.2, -1, 0, 1)));
}

TEST(DecodePlan, EveryFrameIsDecodedAsLongAsThatCanBeDone)
{
    EXPECT_EQ(paceFor(1, 1.0 / 60, 1, 0.5), Pace::everyFrame); // there is nothing better at the usual rate
    EXPECT_EQ(paceFor(2, 1.0 / 30, 0.01, 0.5), Pace::everyFrame);
    EXPECT_EQ(paceFor(-2, 1.0 / 30, 0.01, 0.5), Pace::everyFrame);
    EXPECT_EQ(paceFor(-0.5, 1.0 / 60, 0.1, 0.5), Pace::everyFrame);
}

TEST(DecodePlan, FastRatesGoByKeyFramesWhereThoseComeOftenEnough)
{
    EXPECT_EQ(paceFor(16, 1.0 / 30, 0.01, 0.5), Pace::keyFrames);
    EXPECT_EQ(paceFor(-16, 1.0 / 30, 0.01, 0.5), Pace::keyFrames);
    EXPECT_EQ(paceFor(16, 1.0 / 30, 0.01, 8), Pace::passingOver);
    EXPECT_EQ(paceFor(16, 1.0 / 30, 0.01, std::nullopt), Pace::passingOver);
}

TEST(DecodePlan, HopsAreAsLongAsADisplayNeedsThem)
{
    const auto first = nextHop(10, 8, 1.0 / 60, std::nullopt);
    ASSERT_TRUE(first);
    EXPECT_NEAR(*first, 10 + 8.0 / 60, 1e-9);
    const auto second = nextHop(10, 8, 1.0 / 60, first);
    ASSERT_TRUE(second);
    EXPECT_NEAR(*second, 10 + 16.0 / 60, 1e-9);
    const auto backward = nextHop(10, -8, 1.0 / 60, std::nullopt);
    ASSERT_TRUE(backward);
    EXPECT_NEAR(*backward, 10 - 8.0 / 60, 1e-9);
}

TEST(DecodePlan, HopsStayAboutASixthOfASecondAhead)
{
    std::optional<double> last;
    int hops = 0;
    while (const auto next = nextHop(10, 8, 1.0 / 60, last)) {
        last = next;
        ASSERT_LT(++hops, 20);
    }
    EXPECT_NEAR(*last, 10 + 8 * 0.15, 8.0 / 60);
}

TEST(DecodePlan, HopsCatchUpWithAPlayheadThatWasFaster)
{
    EXPECT_NEAR(*nextHop(20, 8, 1.0 / 60, 12), 20 + 8.0 / 60, 1e-9);
    EXPECT_NEAR(*nextHop(3, 8, 1.0 / 60, 40), 3 + 8.0 / 60, 1e-9); // it was sought elsewhere
}

}
