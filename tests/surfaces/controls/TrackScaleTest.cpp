// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/controls/TrackScale.h"

#include "surfaces/controls/Rows.h"

#include <gtest/gtest.h>

namespace zumeta {
namespace {

TEST(TrackScale, TheWholeWidthIsTheRange)
{
    const TrackScale scale = TrackScale::of(350, wholeNumberRow());
    EXPECT_EQ(scale.value(0), -100);
    EXPECT_EQ(scale.value(175), 0);
    EXPECT_EQ(scale.value(350), 100);
}

TEST(TrackScale, PlacesOutsideMeanTheBounds)
{
    const TrackScale scale = TrackScale::of(350, wholeNumberRow());
    EXPECT_EQ(scale.value(-40), -100);
    EXPECT_EQ(scale.value(400), 100);
}

TEST(TrackScale, GivesMultiplesOfTheStep)
{
    const TrackScale scale{.width = 100, .lower = 0, .upper = 10, .step = 2.5};
    EXPECT_EQ(scale.value(12), 0);
    EXPECT_EQ(scale.value(13), 2.5);
    EXPECT_EQ(scale.value(60), 5);
}

TEST(TrackScale, HalfAStepCountsAwayFromZero)
{
    const TrackScale scale{.width = 8, .lower = -4, .upper = 4, .step = 1};
    EXPECT_EQ(scale.value(4.5), 1);
    EXPECT_EQ(scale.value(3.5), -1);
    EXPECT_EQ(scale.value(6.5), 3);
}

TEST(TrackScale, FarLeftOfAStepOfAHundredthFromAHundredthIsAHundredth)
{
    EXPECT_EQ((TrackScale{.width = 350, .lower = 0.01, .upper = 2, .step = 0.01}.value(0)), 0.01);
}

TEST(TrackScale, TheGridRunsThroughZeroAlsoWhereTheStepDoesNotDivideTheBound)
{
    const TrackScale scale{.width = 350, .lower = -5, .upper = 5, .step = 3};
    EXPECT_EQ(scale.value(0), -6);
    EXPECT_EQ(scale.value(350), 6);
    EXPECT_EQ(scale.value(175), 0);
}

TEST(TrackScale, WithoutWidthEveryPlaceMeansTheLowerBound)
{
    EXPECT_EQ((TrackScale{.width = 0, .lower = -5, .upper = 5, .step = 1}.value(3)), -5);
}

TEST(TrackScale, TheKnobsMiddleStandsOnTheValue)
{
    const TrackScale scale = TrackScale::of(350, wholeNumberRow());
    EXPECT_EQ(scale.knobCentre(-100), 0);
    EXPECT_EQ(scale.knobCentre(0), 175);
    EXPECT_EQ(scale.knobCentre(100), 350);
}

TEST(TrackScale, TheKnobStaysOnTheTrackWhenTheValueHasPassedABound)
{
    const TrackScale scale = TrackScale::of(350, wholeNumberRow());
    EXPECT_EQ(scale.knobCentre(-101), 0);
    EXPECT_EQ(scale.knobCentre(101), 350);
}

TEST(TrackScale, OfAnEmptyRangeStandsAtItsBeginning)
{
    const TrackScale scale{.width = 350, .lower = 0, .upper = 0, .step = 0.01};
    EXPECT_EQ(scale.knobCentre(0), 0);
    EXPECT_EQ(scale.value(200), 0);
}

TEST(TrackScale, OnlyARangeWithBothSignsHasATickAtZero)
{
    EXPECT_EQ(TrackScale::of(350, scaledRow()).zeroTick(), 175);
    EXPECT_EQ((TrackScale{.width = 350, .lower = 0, .upper = 50, .step = 1}.zeroTick()), std::nullopt);
    EXPECT_EQ((TrackScale{.width = 350, .lower = -50, .upper = 0, .step = 1}.zeroTick()), std::nullopt);
}

TEST(TrackScale, TheKnobGoesToThePointerWithinHalfAStep)
{
    for (const double width : {209.0, 350.0, 1033.5}) {
        for (const ValueRowRules& rules : {wholeNumberRow(), scaledRow(), timecodeRow()}) {
            const TrackScale scale = TrackScale::of(width, rules);
            const double halfAStep = width * rules.step / (rules.upper - rules.lower) / 2;
            for (int i = 0; i <= 700; ++i) {
                const double x = width * i / 700;
                EXPECT_NEAR(scale.knobCentre(scale.value(x)), x, halfAStep + 1e-9) << width;
            }
        }
    }
}

TEST(TrackScale, EveryStepCanBeReachedWhereThereIsRoom)
{
    const TrackScale scale = TrackScale::of(350, wholeNumberRow());
    for (int value = -100; value <= 100; ++value)
        EXPECT_EQ(scale.value(scale.knobCentre(value)), value);
}

}
}
