// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/ByteCount.h"

#include <gtest/gtest.h>
#include <limits>

namespace zumeta {
namespace {

std::string text(int64_t bytes)
{
    return byteCountText(bytes).toStdString();
}

}

TEST(ByteCount, NothingIsZeroKilobytes)
{
    EXPECT_EQ(text(0), "Zero KB");
}

TEST(ByteCount, BelowAThousandBytesAreCounted)
{
    EXPECT_EQ(text(1), "1 byte");
    EXPECT_EQ(text(2), "2 bytes");
    EXPECT_EQ(text(999), "999 bytes");
}

TEST(ByteCount, UnitsAreDecimal)
{
    EXPECT_EQ(text(1'000), "1 KB");
    EXPECT_EQ(text(1'000'000), "1 MB");
    EXPECT_EQ(text(1'000'000'000), "1 GB");
    EXPECT_EQ(text(1'000'000'000'000), "1 TB");
    EXPECT_EQ(text(1'000'000'000'000'000), "1 PB");
    EXPECT_EQ(text(1'000'000'000'000'000'000), "1 EB");
}

TEST(ByteCount, KilobytesAndMegabytesHaveAtMostOnePlace)
{
    EXPECT_EQ(text(268'435'456), "268.4 MB");
    EXPECT_EQ(text(119'133'000), "119.1 MB");
    EXPECT_EQ(text(1'500), "1.5 KB");
    EXPECT_EQ(text(1'449), "1.4 KB");
    EXPECT_EQ(text(1'450), "1.5 KB");
    EXPECT_EQ(text(12'000'000), "12 MB");
}

TEST(ByteCount, FromGigabytesOnThereAreAtMostTwoPlaces)
{
    EXPECT_EQ(text(1'234'567'890), "1.23 GB");
    EXPECT_EQ(text(1'235'000'000), "1.24 GB");
    EXPECT_EQ(text(1'050'000'000), "1.05 GB");
    EXPECT_EQ(text(1'500'000'000), "1.5 GB");
    EXPECT_EQ(text(2'750'400'000'000), "2.75 TB");
}

TEST(ByteCount, WhatRoundsToAThousandOfAUnitIsOneOfTheNext)
{
    EXPECT_EQ(text(999'949), "999.9 KB");
    EXPECT_EQ(text(999'950), "1 MB");
    EXPECT_EQ(text(999'949'999), "999.9 MB");
    EXPECT_EQ(text(999'950'000), "1 GB");
    EXPECT_EQ(text(999'994'999'999), "999.99 GB");
    EXPECT_EQ(text(999'995'000'000), "1 TB");
}

TEST(ByteCount, TheEndsOfTheRangeHaveTexts)
{
    EXPECT_EQ(text(std::numeric_limits<int64_t>::max()), "9.22 EB");
    EXPECT_EQ(text(std::numeric_limits<int64_t>::min()), "-9.22 EB");
    EXPECT_EQ(text(-1), "-1 byte");
    EXPECT_EQ(text(-268'435'456), "-268.4 MB");
}

}
