// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/playback/FrameCache.h"

#include <gtest/gtest.h>

namespace zumeta::test {

namespace {

constexpr size_t kFrameBytes = 150; // 10 rows of 10, and twice 5 of 5

VideoPicture picture()
{
    VideoPicture result;
    result.format.width = 10;
    result.format.height = 10;
    result.planes = {PlaneView{nullptr, 10}, PlaneView{nullptr, 5}, PlaneView{nullptr, 5}};
    return result;
}

MediaTime frameTime(int index)
{
    return {index, 30};
}

double secondsOf(int index)
{
    return frameTime(index).seconds();
}

FrameCache::Frame frame(int index, std::optional<int> end)
{
    return {frameTime(index), end ? std::optional(frameTime(*end)) : std::nullopt, frameTime(index), picture()};
}

/// Frames without a hole; when the last one ends is known too.
FrameCache cacheOf(int first, int last)
{
    FrameCache cache;
    for (int i = first; i <= last; ++i)
        cache.put(frame(i, i + 1));
    return cache;
}

std::optional<int> shownAt(const FrameCache& cache, double seconds)
{
    const FrameCache::Pick pick = cache.pick(seconds);
    return pick.frame ? std::optional(int(pick.frame->begin.value)) : std::nullopt;
}

}

TEST(FrameCache, IsExactOnlyWhereTheNextFramesBeginIsKnown)
{
    FrameCache cache;
    cache.put(frame(4, std::nullopt));
    EXPECT_EQ(shownAt(cache, secondsOf(4)), 4);
    EXPECT_FALSE(cache.pick(secondsOf(4)).isExact);
    cache.setEnd(frameTime(4), frameTime(5));
    EXPECT_TRUE(cache.pick(secondsOf(4)).isExact);
    EXPECT_TRUE(cache.pick(secondsOf(5) - 0.001).isExact);
    EXPECT_FALSE(cache.pick(secondsOf(5)).isExact);
}

TEST(FrameCache, FindsAFrameByTheRuleOfHowATimeBecomesAFrame)
{
    const FrameCache cache = cacheOf(0, 9);
    EXPECT_EQ(shownAt(cache, secondsOf(5) - kFrameTimeTolerance / 2), 5);
    EXPECT_EQ(shownAt(cache, secondsOf(5) - kFrameTimeTolerance * 2), 4);
}

TEST(FrameCache, GivesTheNearestFrameWhereNoneIsKnownToBelong)
{
    FrameCache cache = cacheOf(0, 3);
    cache.put(frame(20, 21));
    EXPECT_EQ(shownAt(cache, secondsOf(6)), 3);
    EXPECT_EQ(shownAt(cache, secondsOf(18)), 20);
    EXPECT_EQ(shownAt(cache, secondsOf(90)), 20);
    EXPECT_FALSE(cache.pick(secondsOf(6)).isExact);
    EXPECT_FALSE(cache.pick(secondsOf(90)).isExact);
}

TEST(FrameCache, HasNothingToShowWhileItIsEmpty)
{
    const FrameCache cache;
    EXPECT_EQ(cache.pick(1).frame, nullptr);
    EXPECT_FALSE(cache.stretchAround(1));
}

TEST(FrameCache, HoldsThePictureFromBeforeWhereNothingCanBeDecoded)
{
    FrameCache cache = cacheOf(0, 3);
    cache.put({frameTime(4), frameTime(9), frameTime(4), std::nullopt});
    EXPECT_EQ(shownAt(cache, secondsOf(6)), 3);
    EXPECT_TRUE(cache.pick(secondsOf(6)).isExact);
}

TEST(FrameCache, AFrameEndsWhereOneBeginsThatWasNotExpected)
{
    FrameCache cache;
    cache.put(frame(4, 8));
    cache.put(frame(6, 7));
    EXPECT_EQ(shownAt(cache, secondsOf(5)), 4);
    EXPECT_EQ(shownAt(cache, secondsOf(6)), 6);
    EXPECT_FALSE(cache.pick(secondsOf(7)).isExact);
}

TEST(FrameCache, AFrameThatIsDecodedAgainKeepsWhatWasKnownOfIt)
{
    FrameCache cache = cacheOf(0, 3);
    cache.put(frame(2, std::nullopt));
    EXPECT_TRUE(cache.pick(secondsOf(2)).isExact);
    EXPECT_EQ(cache.bytes(), 4 * kFrameBytes);
}

TEST(FrameCache, KnowsTheStretchThatIsCoveredWithoutAHole)
{
    FrameCache cache = cacheOf(0, 5);
    for (int i = 8; i < 12; ++i)
        cache.put(frame(i, i + 1));
    cache.put(frame(12, std::nullopt));
    const auto first = cache.stretchAround(secondsOf(3));
    ASSERT_TRUE(first);
    EXPECT_DOUBLE_EQ(first->begin, secondsOf(0));
    EXPECT_DOUBLE_EQ(first->end, secondsOf(6));
    EXPECT_FALSE(cache.stretchAround(secondsOf(7)));
    const auto second = cache.stretchAround(secondsOf(9));
    ASSERT_TRUE(second);
    EXPECT_DOUBLE_EQ(second->begin, secondsOf(8));
    EXPECT_DOUBLE_EQ(second->end, secondsOf(12));
}

TEST(FrameCache, StandingLetsGoOfWhatIsFarthestAway)
{
    FrameCache cache = cacheOf(0, 20);
    cache.shrink(5 * kFrameBytes, secondsOf(15), 0);
    EXPECT_EQ(cache.bytes(), 5 * kFrameBytes);
    for (int i = 13; i <= 17; ++i)
        EXPECT_TRUE(cache.pick(secondsOf(i)).isExact) << i;
}

TEST(FrameCache, ForwardLetsGoOfWhatHasBeenShownButForAQuarter)
{
    FrameCache cache = cacheOf(0, 20);
    cache.shrink(8 * kFrameBytes, secondsOf(12), 1);
    EXPECT_TRUE(cache.pick(secondsOf(11)).isExact);
    EXPECT_FALSE(cache.pick(secondsOf(9)).isExact);
    EXPECT_TRUE(cache.pick(secondsOf(17)).isExact);
}

TEST(FrameCache, BackwardLetsGoOfWhatHasBeenShown)
{
    FrameCache cache = cacheOf(0, 20);
    cache.shrink(10 * kFrameBytes, secondsOf(9), -1);
    EXPECT_TRUE(cache.pick(secondsOf(9)).isExact);
    EXPECT_TRUE(cache.pick(secondsOf(1)).isExact);
    EXPECT_FALSE(cache.pick(secondsOf(11)).isExact);
}

TEST(FrameCache, TheFrameAtThePlayheadStaysHoweverSmallTheBudget)
{
    for (const double rate : {-1.0, 0.0, 1.0}) {
        FrameCache cache = cacheOf(0, 20);
        cache.shrink(1, secondsOf(7), rate);
        EXPECT_TRUE(cache.pick(secondsOf(7)).isExact) << rate;
        EXPECT_EQ(cache.bytes(), kFrameBytes) << rate;
    }
}

TEST(FrameCache, CountsTheBytesOfDeepPictures)
{
    VideoPicture deep = picture();
    deep.planes = {PlaneView{nullptr, 20}, PlaneView{nullptr, 10}, PlaneView{nullptr, 10}};
    deep.format.bitDepth = 10;
    EXPECT_EQ(FrameCache::bytesOf(deep), 2 * kFrameBytes);
}

}
