// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/timeline/SliderScale.h"

#include <gtest/gtest.h>

namespace zumeta {
namespace {

TEST(SliderScale, RunsFromZeroToTheLength)
{
    EXPECT_EQ(SliderScale::of(400, 30), (SliderScale{400, 0, 30}));
}

TEST(SliderScale, OfAnEmptySessionIsATenthOfASecondLong)
{
    EXPECT_EQ(SliderScale::of(400, 0), (SliderScale{400, 0, 0.1}));
    EXPECT_EQ(SliderScale::of(400, -1), (SliderScale{400, 0, 0.1}));
    EXPECT_EQ(SliderScale::of(400, 0.05), (SliderScale{400, 0, 0.1}));
}

TEST(SliderScale, FillsInProportionToTheTime)
{
    const SliderScale scale{400, 0, 20};
    EXPECT_EQ(scale.progress(5), 0.25);
    EXPECT_EQ(scale.filledWidth(5), 100);
    EXPECT_EQ(scale.filledWidth(20), 400);
}

TEST(SliderScale, CountsFromItsLowerBound)
{
    const SliderScale scale{400, 10, 20};
    EXPECT_EQ(scale.progress(12.5), 0.25);
    EXPECT_EQ(scale.time(100), 12.5);
}

TEST(SliderScale, TimesBeyondTheRangeAreShownAtItsEnds)
{
    const SliderScale scale{400, 0, 20};
    EXPECT_EQ(scale.progress(-3), 0);
    EXPECT_EQ(scale.progress(23), 1);
}

TEST(SliderScale, ARangeUnderATenthOfASecondIsDrawnAsATenth)
{
    const SliderScale scale{400, 0, 0.05};
    EXPECT_EQ(scale.progress(0.05), 0.5);
}

TEST(SliderScale, AnEmptyRangeFillsNothing)
{
    EXPECT_EQ((SliderScale{400, 5, 5}.filledWidth(5)), 0);
}

TEST(SliderScale, IsNeverFilledByLessThanNothing)
{
    EXPECT_EQ((SliderScale{-8, 0, 20}.filledWidth(20)), 0);
}

TEST(SliderScale, TheThumbStandsOnTheLeftEdgeItselfAtTheLowEnd)
{
    EXPECT_EQ(SliderScale::of(400, 20).thumbCentre(0), 0);
    EXPECT_EQ(SliderScale::of(400, 20).thumbCentre(0.1), 2);
}

TEST(SliderScale, TheThumbStaysInsideAtTheHighEnd)
{
    const SliderScale scale = SliderScale::of(400, 20);
    EXPECT_EQ(scale.thumbCentre(20), 389.5);
    EXPECT_EQ(scale.thumbCentre(19.5), 389.5);
    EXPECT_EQ(scale.thumbCentre(19), 380);
}

TEST(SliderScale, APressBeyondTheThumbsReachStillMeansALaterTime)
{
    const SliderScale scale = SliderScale::of(400, 20);
    EXPECT_EQ(scale.time(395), 19.75);
    EXPECT_EQ(scale.time(400), 20);
}

TEST(SliderScale, APressOutsideMeansTheNearestEnd)
{
    const SliderScale scale = SliderScale::of(400, 20);
    EXPECT_EQ(scale.time(-50), 0);
    EXPECT_EQ(scale.time(450), 20);
}

TEST(SliderScale, WithoutWidthEveryPlaceMeansTheStart)
{
    EXPECT_EQ((SliderScale{0, 3, 20}.time(0)), 3);
    EXPECT_EQ((SliderScale{0, 3, 20}.time(7)), 3);
    EXPECT_EQ((SliderScale{-5, 3, 20}.time(-7)), 3);
}

TEST(SliderScale, ATimeIsFilledUpToThePlaceThatMeansIt)
{
    for (const double duration : {0.1, 1.0, 61.35, 599.9, 7200.0}) {
        for (const double width : {1.0, 37.5, 634.0, 1009.0, 3500.0}) {
            const SliderScale scale = SliderScale::of(width, duration);
            for (int i = 0; i <= 500; ++i) {
                const double x = width * i / 500;
                EXPECT_NEAR(scale.filledWidth(scale.time(x)), x, 1e-9 * width) << duration << " s in " << width;
                const double time = duration * i / 500;
                EXPECT_NEAR(scale.time(scale.filledWidth(time)), time, 1e-9 * duration)
                    << duration << " s in " << width;
            }
        }
    }
}

TEST(SliderScale, FurtherRightIsNeverEarlier)
{
    const SliderScale scale = SliderScale::of(733, 61.35);
    for (int i = -20; i < 760; ++i) {
        EXPECT_LE(scale.time(i), scale.time(i + 1));
        EXPECT_LE(scale.thumbCentre(i / 12.0), scale.thumbCentre((i + 1) / 12.0));
    }
}

TEST(Thumb, GrowsUnderThePointerAndInADrag)
{
    EXPECT_EQ(thumbSize(ThumbState::resting), QSizeF(21, 20));
    EXPECT_EQ(thumbSize(ThumbState::hovered), QSizeF(25, 22));
    EXPECT_EQ(thumbSize(ThumbState::dragged), QSizeF(25, 22));
}

}
}
