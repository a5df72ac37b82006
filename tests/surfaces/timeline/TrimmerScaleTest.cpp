// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/timeline/TrimmerScale.h"

#include <gtest/gtest.h>

namespace zumeta {
namespace {

constexpr double kWidths[] = {21, 100, 483, 634, 1010.5, 3400};
constexpr double kDurations[] = {0.1, 2, 61.35, 1800, 7200.01};

TEST(TrimmerScale, KeepsHalfAHandleFreeAtEachEnd)
{
    const TrimmerScale scale{420, 40};
    EXPECT_EQ(scale.inset(), 10);
    EXPECT_EQ(scale.usable(), 400);
    EXPECT_EQ(scale.xPosition(0), 10);
    EXPECT_EQ(scale.xPosition(40), 410);
    EXPECT_EQ(scale.xPosition(10), 110);
}

TEST(TrimmerScale, PlacesMeanTimes)
{
    const TrimmerScale scale{420, 40};
    EXPECT_EQ(scale.time(10), 0);
    EXPECT_EQ(scale.time(110), 10);
    EXPECT_EQ(scale.time(410), 40);
}

TEST(TrimmerScale, PlacesInTheInsetsMeanTheEnds)
{
    const TrimmerScale scale{420, 40};
    EXPECT_EQ(scale.time(0), 0);
    EXPECT_EQ(scale.time(-100), 0);
    EXPECT_EQ(scale.time(420), 40);
    EXPECT_EQ(scale.time(1000), 40);
}

TEST(TrimmerScale, TimesBeyondTheEndsStandOnThem)
{
    const TrimmerScale scale{420, 40};
    EXPECT_EQ(scale.xPosition(-1), 10);
    EXPECT_EQ(scale.xPosition(41), 410);
}

TEST(TrimmerScale, ThatIsNarrowGivesItsHalvesToTheInsets)
{
    const TrimmerScale narrow{12, 40};
    EXPECT_EQ(narrow.inset(), 6);
    EXPECT_EQ(narrow.usable(), 1);
    EXPECT_EQ(narrow.xPosition(40), 7);
}

TEST(TrimmerScale, WithoutWidthHasNoInsets)
{
    for (const double width : {0.0, -30.0}) {
        const TrimmerScale none{width, 40};
        EXPECT_EQ(none.inset(), 0);
        EXPECT_GE(none.usable(), 1);
    }
    EXPECT_EQ((TrimmerScale{0, 40}.usable()), 1);
}

TEST(TrimmerScale, OfACompositeWithoutLengthIsATenthOfASecondLong)
{
    const TrimmerScale scale{420, 0};
    EXPECT_EQ(scale.safeDuration(), 0.1);
    EXPECT_EQ(scale.time(410), 0.1);
    EXPECT_EQ((TrimmerScale{420, -5}.safeDuration()), 0.1);
    EXPECT_EQ((TrimmerScale{420, 0.2}.safeDuration()), 0.2);
}

TEST(TrimmerScale, ThePlayheadStaysOnTheComposite)
{
    EXPECT_EQ((TrimmerScale{420, 0}.playheadTime(0.1)), 0);
    EXPECT_EQ((TrimmerScale{420, 40}.playheadTime(-1)), 0);
    EXPECT_EQ((TrimmerScale{420, 40}.playheadTime(39)), 39);
    EXPECT_EQ((TrimmerScale{420, 40}.playheadTime(41)), 40);
}

TEST(TrimmerScale, ATimeStandsAtThePlaceThatMeansIt)
{
    for (const double width : kWidths) {
        for (const double duration : kDurations) {
            const TrimmerScale scale{width, duration};
            for (int i = 0; i <= 500; ++i) {
                const double x = scale.inset() + scale.usable() * i / 500;
                EXPECT_NEAR(scale.xPosition(scale.time(x)), x, 1e-9 * width) << duration << " s in " << width;
                const double time = duration * i / 500;
                EXPECT_NEAR(scale.time(scale.xPosition(time)), time, 1e-9 * duration) << duration << " s in " << width;
            }
        }
    }
}

TEST(TrimmerScale, FurtherRightIsNeverEarlierAndNeverOffTheTimeline)
{
    for (const double width : kWidths) {
        const TrimmerScale scale{width, 61.35};
        for (double x = -30; x < width + 30; x += 0.75) {
            EXPECT_LE(scale.time(x), scale.time(x + 0.75));
            EXPECT_GE(scale.time(x), 0);
            EXPECT_LE(scale.time(x), 61.35);
        }
    }
}

}
}
