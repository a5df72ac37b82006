// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/CompositeTimeline.h"

#include <gtest/gtest.h>

namespace zumeta {
namespace {

TEST(CompositeTimeline, ALandmarkLaterInTheAboveVideoCutsItsBeginning)
{
    const CompositeTimeline timeline = CompositeTimeline::of({60, 10}, {30, 4}, 0);
    EXPECT_EQ(timeline, (CompositeTimeline{6, 0, 30}));
}

TEST(CompositeTimeline, ALandmarkLaterInTheBelowVideoCutsItsBeginning)
{
    const CompositeTimeline timeline = CompositeTimeline::of({60, 4}, {30, 10}, 0);
    EXPECT_EQ(timeline, (CompositeTimeline{0, 6, 24}));
}

TEST(CompositeTimeline, ThePositiveOffsetLetsTheAboveVideoRunAhead)
{
    const CompositeTimeline timeline = CompositeTimeline::of({60, 7}, {60, 7}, 100);
    EXPECT_DOUBLE_EQ(timeline.aboveMediaTime(5) - timeline.belowMediaTime(5), 1);
    EXPECT_DOUBLE_EQ(timeline.duration, 59);
}

TEST(CompositeTimeline, TheNegativeOffsetLetsTheBelowVideoRunAhead)
{
    const CompositeTimeline timeline = CompositeTimeline::of({60, 0}, {60, 0}, -37.5);
    EXPECT_DOUBLE_EQ(timeline.belowMediaTime(5) - timeline.aboveMediaTime(5), 0.375);
    EXPECT_DOUBLE_EQ(timeline.duration, 59.625);
}

TEST(CompositeTimeline, WithoutLandmarksAndOffsetBothBeginTogether)
{
    EXPECT_EQ(CompositeTimeline::of({60, 0}, {45.5, 0}, 0), (CompositeTimeline{0, 0, 45.5}));
}

TEST(CompositeTimeline, VideosThatDoNotOverlapHaveNoDuration)
{
    EXPECT_EQ(CompositeTimeline::of({10, 0}, {60, 20}, 0).duration, 10);
    EXPECT_EQ(CompositeTimeline::of({60, 50}, {10, 0}, 0).duration, 10);
    EXPECT_EQ(CompositeTimeline::of({10, 0}, {15, 20}, 0).duration, 0);
    EXPECT_EQ(CompositeTimeline::of({10, 30}, {60, 0}, 0).duration, 0);
}

TEST(CompositeTimeline, AMissingVideoMakesEverythingZero)
{
    EXPECT_EQ(CompositeTimeline::of({0, 10}, {60, 4}, 50), (CompositeTimeline{}));
    EXPECT_EQ(CompositeTimeline::of({60, 10}, {0, 4}, 50), (CompositeTimeline{}));
    EXPECT_EQ(CompositeTimeline::of({60, 10}, {-1, 4}, 50), (CompositeTimeline{}));
}

TEST(CompositeTimeline, NeitherSideRunsOutInsideIt)
{
    for (const double offset : {-250.0, -33.3, 0.0, 0.7, 480.0}) {
        for (const double syncAbove : {0.0, 3.217, 21.5}) {
            const CompositeTimeline timeline = CompositeTimeline::of({47.3, syncAbove}, {39.9, 11.04}, offset);
            EXPECT_GE(timeline.aboveMediaTime(0), 0);
            EXPECT_GE(timeline.belowMediaTime(0), 0);
            EXPECT_LE(timeline.aboveMediaTime(timeline.duration), 47.3 + 1e-9);
            EXPECT_LE(timeline.belowMediaTime(timeline.duration), 39.9 + 1e-9);
        }
    }
}

}
}
