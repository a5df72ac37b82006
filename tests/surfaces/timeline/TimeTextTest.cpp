// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/timeline/TimeText.h"

#include <gtest/gtest.h>

namespace zumeta {
namespace {

TEST(TimeText, NinetyAndAHalfSecondsReadsAsEachFormWritesIt)
{
    EXPECT_EQ(formatTimeWithFrames(90.5), QStringLiteral("01:30.15"));
    EXPECT_EQ(formatDuration(90.5), QStringLiteral("1:30"));
    EXPECT_EQ(formatPaddedDuration(90.5), QStringLiteral("01:30"));
}

TEST(TimeText, OfZeroHasAllItsFields)
{
    EXPECT_EQ(formatTimeWithFrames(0), QStringLiteral("00:00.00"));
    EXPECT_EQ(formatDuration(0), QStringLiteral("0:00"));
    EXPECT_EQ(formatPaddedDuration(0), QStringLiteral("00:00"));
}

TEST(TimeText, CutsAndNeverRounds)
{
    EXPECT_EQ(formatTimeWithFrames(59.999), QStringLiteral("00:59.29"));
    EXPECT_EQ(formatDuration(59.999), QStringLiteral("0:59"));
    EXPECT_EQ(formatPaddedDuration(59.999), QStringLiteral("00:59"));
}

TEST(TimeText, TheLastFieldCountsFramesFromZeroToTwentyNine)
{
    for (int frame = 0; frame < 30; ++frame) {
        const QString expected = QStringLiteral("00:04.") + QString::number(frame).rightJustified(2, u'0');
        EXPECT_EQ(formatTimeWithFrames(4 + (frame + 0.5) / 30), expected);
    }
}

TEST(TimeText, MinutesRunOnPastTheHour)
{
    EXPECT_EQ(formatTimeWithFrames(3600), QStringLiteral("60:00.00"));
    EXPECT_EQ(formatTimeWithFrames(6000.25), QStringLiteral("100:00.07"));
    EXPECT_EQ(formatDuration(7325), QStringLiteral("122:05"));
    EXPECT_EQ(formatPaddedDuration(7325), QStringLiteral("122:05"));
}

TEST(TimeText, SecondsArePaddedAndMinutesOfTheShortFormAreNot)
{
    EXPECT_EQ(formatDuration(65), QStringLiteral("1:05"));
    EXPECT_EQ(formatDuration(600), QStringLiteral("10:00"));
    EXPECT_EQ(formatPaddedDuration(65), QStringLiteral("01:05"));
}

TEST(TimeText, BeforeZeroTheFramesKeepTheSignOfTheTime)
{
    EXPECT_EQ(formatTimeWithFrames(-0.5), QStringLiteral("00:00.-15"));
    EXPECT_EQ(formatTimeWithFrames(-61.5), QStringLiteral("-1:-1.-15"));
}

}
}
