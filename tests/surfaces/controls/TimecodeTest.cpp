// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/controls/Timecode.h"

#include <gtest/gtest.h>

namespace zumeta {
namespace {

TEST(Timecode, HasMinutesAndSecondsWithHundredths)
{
    EXPECT_EQ(formatTimecode(75.5), QStringLiteral("01:15.50"));
    EXPECT_EQ(formatTimecode(0), QStringLiteral("00:00.00"));
    EXPECT_EQ(formatTimecode(3.2), QStringLiteral("00:03.20"));
    EXPECT_EQ(formatTimecode(6000), QStringLiteral("100:00.00"));
}

TEST(Timecode, BeforeZeroCountsAsZero)
{
    EXPECT_EQ(formatTimecode(-12.5), QStringLiteral("00:00.00"));
    EXPECT_EQ(formatTimecode(-0.001), QStringLiteral("00:00.00"));
}

TEST(Timecode, SecondsCanRoundUpToSixty)
{
    EXPECT_EQ(formatTimecode(59.999), QStringLiteral("00:60.00"));
    EXPECT_EQ(formatTimecode(119.996), QStringLiteral("01:60.00"));
}

TEST(Timecode, IsReadWithAColonOrAsSeconds)
{
    EXPECT_EQ(parseTimecode(QStringLiteral("1:30")), 90);
    EXPECT_EQ(parseTimecode(QStringLiteral("90")), 90);
    EXPECT_EQ(parseTimecode(QStringLiteral("01:15.50")), 75.5);
    EXPECT_EQ(parseTimecode(QStringLiteral("0.5:1")), 31);
}

TEST(Timecode, TheSecondsMayBeMoreThanAMinute)
{
    EXPECT_EQ(parseTimecode(QStringLiteral("1:75")), 135);
}

TEST(Timecode, NegativeMinutesGiveANegativeSum)
{
    EXPECT_EQ(parseTimecode(QStringLiteral("-1:30")), -30);
}

TEST(Timecode, WithAPieceMissingIsNone)
{
    for (const char* text : {":30", "1:", ":", "1::30", ":1:30"})
        EXPECT_EQ(parseTimecode(QLatin1String(text)), std::nullopt) << text;
}

TEST(Timecode, IsSplitAtTheFirstColonOnly)
{
    EXPECT_EQ(parseTimecode(QStringLiteral("1:2:3")), std::nullopt);
}

TEST(Timecode, ThatIsNoNumberIsNone)
{
    for (const char* text : {"", "-", "1.2.3", "1:2.3.4", "x:1", "1:x"})
        EXPECT_EQ(parseTimecode(QLatin1String(text)), std::nullopt) << text;
}

TEST(Timecode, IsReadAsItIsWrittenToAHundredth)
{
    for (int hundredths = 0; hundredths < 200000; hundredths += 37) {
        const double seconds = hundredths / 100.0;
        const std::optional<double> read = parseTimecode(formatTimecode(seconds));
        ASSERT_TRUE(read.has_value());
        EXPECT_NEAR(*read, seconds, 1e-9);
    }
}

}
}
