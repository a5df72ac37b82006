// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/controls/NumberText.h"

#include <gtest/gtest.h>
#include <limits>

namespace zumeta {
namespace {

std::optional<double> parsed(const char* text)
{
    return parsedNumber(QString::fromLatin1(text));
}

TEST(FixedNumber, HasAsManyDecimalsAsAskedFor)
{
    EXPECT_EQ(fixedNumber(12, 0), QStringLiteral("12"));
    EXPECT_EQ(fixedNumber(-5, 2), QStringLiteral("-5.00"));
    EXPECT_EQ(fixedNumber(1.0 / 3, 4), QStringLiteral("0.3333"));
}

TEST(FixedNumber, RoundsTheExactValueAndATieToTheEvenDigit)
{
    EXPECT_EQ(fixedNumber(0.5, 0), QStringLiteral("0"));
    EXPECT_EQ(fixedNumber(1.5, 0), QStringLiteral("2"));
    EXPECT_EQ(fixedNumber(2.5, 0), QStringLiteral("2"));
    EXPECT_EQ(fixedNumber(0.125, 2), QStringLiteral("0.12"));
    EXPECT_EQ(fixedNumber(1.005, 2), QStringLiteral("1.00"));
    EXPECT_EQ(fixedNumber(1.0051, 2), QStringLiteral("1.01"));
}

TEST(FixedNumber, WhatRoundsToZeroHasNoSign)
{
    EXPECT_EQ(fixedNumber(-0.0, 0), QStringLiteral("0"));
    EXPECT_EQ(fixedNumber(-1e-14, 2), QStringLiteral("0.00"));
    EXPECT_EQ(fixedNumber(-0.4, 0), QStringLiteral("0"));
    EXPECT_EQ(fixedNumber(-0.6, 0), QStringLiteral("-1"));
}

TEST(FixedNumber, HasRoomForTheGreatestNumber)
{
    EXPECT_EQ(fixedNumber(std::numeric_limits<double>::lowest(), 20).size(), 1 + 309 + 1 + 20);
}

TEST(ParsedNumber, ReadsWhatPeopleType)
{
    EXPECT_EQ(parsed("12"), 12);
    EXPECT_EQ(parsed("-1.25"), -1.25);
    EXPECT_EQ(parsed(".5"), 0.5);
    EXPECT_EQ(parsed("-.5"), -0.5);
    EXPECT_EQ(parsed("5."), 5);
    EXPECT_EQ(parsed("007"), 7);
}

TEST(ParsedNumber, IsNoneOfATextThatIsNotANumberAsAWhole)
{
    for (const char* text : {"", "-", ".", "-.", "1.2.3", "..5", "1:30", "1 2", " 1", "1a", "inf", "nan"})
        EXPECT_EQ(parsed(text), std::nullopt) << text;
}

TEST(ParsedNumber, DigitsOfOtherScriptsAreNone)
{
    EXPECT_EQ(parsedNumber(u"٣"), std::nullopt);
    EXPECT_EQ(parsedNumber(u"½"), std::nullopt);
}

}
}
