// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/TrimRange.h"

#include "model/VideoCompositionConfig.h"

#include <cmath>
#include <gtest/gtest.h>

namespace zumeta {
namespace {

VideoCompositionConfig trimmed(double start, double end)
{
    VideoCompositionConfig config;
    config.exportTrimStartSeconds = start;
    config.exportTrimEndSeconds = end;
    return config;
}

TEST(TrimRange, RunsFromTheStartTrimToTheEndTrim)
{
    EXPECT_EQ(TrimRange::of(trimmed(2, 3.5), 30), (TrimRange{2, 26.5}));
}

TEST(TrimRange, ThatIsEmptyEndsWhereItStarts)
{
    EXPECT_EQ(TrimRange::of(trimmed(20, 15), 30), (TrimRange{20, 20}));
}

TEST(TrimClamp, LeavesTrimsThatFit)
{
    VideoCompositionConfig config = trimmed(2, 3);
    clampExportTrim(config, 30);
    EXPECT_EQ(config, trimmed(2, 3));
}

TEST(TrimClamp, TheStartTakesThePrecedence)
{
    VideoCompositionConfig config = trimmed(25, 20);
    clampExportTrim(config, 30);
    EXPECT_EQ(config, trimmed(25, 5));
}

TEST(TrimClamp, ATimelineWithoutLengthTakesBoth)
{
    VideoCompositionConfig config = trimmed(4, 5);
    clampExportTrim(config, 0);
    EXPECT_EQ(config, trimmed(0, 0));
    config = trimmed(4, 5);
    clampExportTrim(config, -1);
    EXPECT_EQ(config, trimmed(0, 0));
}

TEST(TrimClamp, NegativeTrimsBecomeZero)
{
    VideoCompositionConfig config = trimmed(-1, -2);
    clampExportTrim(config, 30);
    EXPECT_EQ(config, trimmed(0, 0));
}

TEST(TrimRange, IsHeldWithinATimelineThatHasBecomeShorter)
{
    EXPECT_EQ((TrimRange{2, 26}.within(30)), (TrimRange{2, 26}));
    EXPECT_EQ((TrimRange{2, 26}.within(20)), (TrimRange{2, 20}));
    EXPECT_EQ((TrimRange{25, 26}.within(20)), (TrimRange{20, 20}));
    EXPECT_EQ((TrimRange{-3, -1}.within(20)), (TrimRange{0, 0}));
}

TEST(TrimEndPosition, IsATimeOnTheTimeline)
{
    EXPECT_EQ(trimEndPosition(trimmed(2, 3.5), 30), 26.5);
    EXPECT_EQ(trimEndPosition(trimmed(2, 40), 30), 0);
}

TEST(TrimAtPlayhead, GoesWhereThePlayheadStands)
{
    VideoCompositionConfig config = trimmed(0, 0);
    EXPECT_EQ(setTrimStart(config, 4, 30, kShortestRangeAtPlayhead), 4);
    EXPECT_EQ(setTrimEnd(config, 20, 30, kShortestRangeAtPlayhead), 20);
    EXPECT_EQ(config, trimmed(4, 10));
}

TEST(TrimAtPlayhead, PastTheEndPointTheStartStopsOnIt)
{
    VideoCompositionConfig config = trimmed(2, 10);
    EXPECT_EQ(setTrimStart(config, 25, 30, kShortestRangeAtPlayhead), 20);
    EXPECT_EQ(config, trimmed(20, 10));
}

TEST(TrimAtPlayhead, BeforeTheStartPointTheEndStopsOnIt)
{
    VideoCompositionConfig config = trimmed(5, 2);
    EXPECT_EQ(setTrimEnd(config, 1, 30, kShortestRangeAtPlayhead), 5);
    EXPECT_EQ(config, trimmed(5, 25));
}

TEST(TrimAtPlayhead, StaysOnTheTimeline)
{
    VideoCompositionConfig config = trimmed(1, 2);
    EXPECT_EQ(setTrimStart(config, -4, 30, kShortestRangeAtPlayhead), 0);
    EXPECT_EQ(setTrimEnd(config, 34, 30, kShortestRangeAtPlayhead), 30);
    EXPECT_EQ(config, trimmed(0, 0));
}

TEST(TrimRows, KeepHalfASecondBeforeTheEndPoint)
{
    VideoCompositionConfig config = trimmed(0, 10);
    EXPECT_EQ(setTrimStart(config, 19.4, 30, kShortestRangeOfRows), 19.4);
    EXPECT_EQ(setTrimStart(config, 29, 30, kShortestRangeOfRows), 19.5);
    EXPECT_EQ(config, trimmed(19.5, 10));
}

TEST(TrimRows, AnEndOfZeroLandsHalfASecondAfterTheStart)
{
    VideoCompositionConfig config = trimmed(5, 0);
    EXPECT_EQ(setTrimEnd(config, 0, 30, kShortestRangeOfRows), 5.5);
    EXPECT_EQ(config, trimmed(5, 24.5));
}

TEST(TrimRows, AnEndPastTheTimelineCutsNothing)
{
    VideoCompositionConfig config = trimmed(5, 3);
    EXPECT_EQ(setTrimEnd(config, 31, 30, kShortestRangeOfRows), 30);
    EXPECT_EQ(config, trimmed(5, 0));
}

TEST(TrimRows, AnEndHalfASecondFromTheTimelinesEndStopsThere)
{
    VideoCompositionConfig config = trimmed(29.8, 0.2);
    EXPECT_EQ(setTrimEnd(config, 1, 30, kShortestRangeOfRows), 30);
    EXPECT_EQ(config, trimmed(29.8, 0));
}

TEST(TrimRows, OfATimelineUnderHalfASecondGiveZeroAndItsLength)
{
    VideoCompositionConfig config = trimmed(0, 0);
    EXPECT_EQ(setTrimStart(config, 0.3, 0.4, kShortestRangeOfRows), 0);
    EXPECT_EQ(setTrimEnd(config, 0.1, 0.4, kShortestRangeOfRows), 0.4);
    EXPECT_EQ(config, trimmed(0, 0));
}

TEST(TrimPoints, AreTheSameWithinOneHundredthThatIsCutAndNotRounded)
{
    EXPECT_TRUE(isSameTrimPoint(3.999, 3.991));
    EXPECT_TRUE(isSameTrimPoint(3.999, 3.99));
    EXPECT_FALSE(isSameTrimPoint(3.999, 4));
    EXPECT_FALSE(isSameTrimPoint(3.989, 3.991));
    EXPECT_TRUE(isSameTrimPoint(0, 0.009));
}

// The end trim is stored as what it cuts off, so the end point is computed back: that is not quite where it was set.
TEST(TrimPoints, AreTheSameAfterTheWayThroughWhatIsCutOff)
{
    constexpr int kHundredths = 6000;
    for (const double duration : {60.0, 61.35, 72.033333333333331, 199.99, 3600.01}) {
        int plainCutsThatDiffer = 0;
        for (int i = 0; i <= kHundredths; ++i) {
            VideoCompositionConfig config;
            const double position = setTrimEnd(config, i / 100.0, duration, kShortestRangeAtPlayhead);
            const double computed = trimEndPosition(config, duration);
            EXPECT_TRUE(isSameTrimPoint(position, computed)) << position << " of " << duration;
            plainCutsThatDiffer += std::trunc(position * 100) != std::trunc(computed * 100);
        }
        EXPECT_GT(plainCutsThatDiffer, kHundredths / 50) << "these positions would not show it";
    }
}

TEST(TrimPoints, OfFramesAreTheSameAfterTheWayThroughWhatIsCutOff)
{
    constexpr double kDuration = 61.35;
    for (const double frame : {1 / 30.0, 1001 / 30000.0, 1 / 25.0, 1001 / 60000.0, 1 / 240.0}) {
        for (int i = 0; i * frame < kDuration; ++i) {
            VideoCompositionConfig config;
            const double position = setTrimEnd(config, i * frame, kDuration, kShortestRangeAtPlayhead);
            EXPECT_TRUE(isSameTrimPoint(position, trimEndPosition(config, kDuration))) << i << " x " << frame;
        }
    }
}

}
}
