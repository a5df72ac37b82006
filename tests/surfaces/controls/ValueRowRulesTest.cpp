// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/controls/ValueRowRules.h"

#include "surfaces/controls/NumberText.h"
#include "surfaces/controls/Rows.h"

#include <gtest/gtest.h>

namespace zumeta {
namespace {

QString typed(const ValueRowRules& rules, const QString& text)
{
    return filterTyped({text, 0}, rules.inputLimits()).text;
}

TEST(DisplayValue, OfAnUnscaledRowIsAWholeNumber)
{
    EXPECT_EQ(wholeNumberRow().displayValue(6), QStringLiteral("6"));
    EXPECT_EQ(wholeNumberRow().displayValue(-99.6), QStringLiteral("-100"));
}

TEST(DisplayValue, OfAScaledRowHasTwoDecimals)
{
    EXPECT_EQ(scaledRow().displayValue(-500), QStringLiteral("-5.00"));
    EXPECT_EQ(scaledRow().displayValue(500), QStringLiteral("5.00"));
    EXPECT_EQ(scaledRow().displayValue(-125), QStringLiteral("-1.25"));
}

TEST(DisplayValue, HasTheDecimalPlacesThatTheRowAsksFor)
{
    ValueRowRules rules = wholeNumberRow();
    rules.decimalPlaces = 3;
    EXPECT_EQ(rules.displayValue(1.5), QStringLiteral("1.500"));
    rules = scaledRow();
    rules.decimalPlaces = 0;
    EXPECT_EQ(rules.displayValue(-125), QStringLiteral("-1"));
}

TEST(DisplayValue, OfATimecodeRowIsATimecodeOfTheScaledValue)
{
    EXPECT_EQ(timecodeRow().displayValue(75.5), QStringLiteral("01:15.50"));
    ValueRowRules rules = timecodeRow();
    rules.displayScale = 60;
    EXPECT_EQ(rules.displayValue(1.5), QStringLiteral("01:30.00"));
}

TEST(InputLimits, DependOnTheKindOfTheRow)
{
    EXPECT_EQ(wholeNumberRow().inputLimits().greatestLength, 4);
    EXPECT_EQ(timecodeRow().inputLimits().greatestLength, 9);
    ValueRowRules decimals = wholeNumberRow();
    decimals.decimalPlaces = 1;
    EXPECT_EQ(decimals.inputLimits().greatestLength, 8);
    EXPECT_TRUE(timecodeRow().inputLimits().acceptsColon);
    EXPECT_FALSE(decimals.inputLimits().acceptsColon);
}

TEST(InputLimits, ALongNumberIsCutToFourCharacters)
{
    EXPECT_EQ(typed(wholeNumberRow(), QStringLiteral("1234567")), QStringLiteral("1234"));
}

TEST(InputLimits, EveryTextOfTheRangeMayBeTyped)
{
    EXPECT_EQ(typed(scaledRow(), QStringLiteral("-1.25")), QStringLiteral("-1.25"));
    ValueRowRules hours = timecodeRow();
    hours.upper = 90000;
    EXPECT_EQ(typed(hours, QStringLiteral("1500:00.00")), QStringLiteral("1500:00.00"));
    ValueRowRules decimals{.lower = -12345, .upper = 1, .decimalPlaces = 4};
    EXPECT_EQ(typed(decimals, QStringLiteral("-12345.0000")), QStringLiteral("-12345.0000"));
}

TEST(InputLimits, NoTextThatARowShowsIsCutByTypingInIt)
{
    for (const ValueRowRules& rules : {wholeNumberRow(), scaledRow(), timecodeRow()}) {
        for (int i = 0; i <= 1000; ++i) {
            const QString shown = rules.displayValue(rules.lower + (rules.upper - rules.lower) * i / 1000);
            EXPECT_EQ(typed(rules, shown), shown);
        }
    }
}

TEST(AppliedText, OneAndAHalfOfAScaledRowStoresAHundredAndFifty)
{
    EXPECT_EQ(scaledRow().appliedText(QStringLiteral("1.5"), 0), 150);
}

TEST(AppliedText, IsHeldInTheRange)
{
    EXPECT_EQ(wholeNumberRow().appliedText(QStringLiteral("250"), 0), 100);
    EXPECT_EQ(wholeNumberRow().appliedText(QStringLiteral("-250"), 0), -100);
    EXPECT_EQ(scaledRow().appliedText(QStringLiteral("9"), 0), 500);
}

TEST(AppliedText, IsNoneWhenItIsEmptyOrNoNumber)
{
    for (const char* text : {"", "-", ".", "1.2.", "..", "abc"})
        EXPECT_EQ(wholeNumberRow().appliedText(QLatin1String(text), 7), std::nullopt) << text;
}

TEST(AppliedText, IsFilteredBeforeItIsRead)
{
    EXPECT_EQ(wholeNumberRow().appliedText(QStringLiteral("1-2"), 0), 12);
    EXPECT_EQ(wholeNumberRow().appliedText(QStringLiteral("--5"), 0), -5);
    EXPECT_EQ(scaledRow().appliedText(QStringLiteral("1,5"), 0), 150);
}

TEST(AppliedText, NinetyAndOneThirtyAreBothNinetySecondsOfATimecodeRow)
{
    EXPECT_EQ(timecodeRow().appliedText(QStringLiteral("90"), 0), 90);
    EXPECT_EQ(timecodeRow().appliedText(QStringLiteral("1:30"), 0), 90);
}

TEST(AppliedText, NegativeMinutesEndAtTheLowerBound)
{
    EXPECT_EQ(timecodeRow().appliedText(QStringLiteral("-1:30"), 5), 0);
}

TEST(AppliedText, AsItWasShownIsNotApplied)
{
    EXPECT_EQ(wholeNumberRow().appliedText(QStringLiteral("7"), 6.6), std::nullopt);
    EXPECT_EQ(scaledRow().appliedText(QStringLiteral("-1.25"), -125.3), std::nullopt);
    EXPECT_EQ(timecodeRow().appliedText(QStringLiteral("01:40.00"), 99.9999), std::nullopt);
}

TEST(AppliedText, ThatMeansTheSameButIsWrittenOtherwiseIsApplied)
{
    EXPECT_EQ(wholeNumberRow().appliedText(QStringLiteral("7."), 6.6), 7);
}

TEST(AppliedText, NoVisitOfAFieldChangesAValue)
{
    for (const ValueRowRules& rules : {wholeNumberRow(), scaledRow(), timecodeRow()}) {
        for (int i = 0; i <= 1000; ++i) {
            const double value = rules.lower + (rules.upper - rules.lower) * i / 997.3;
            EXPECT_EQ(rules.appliedText(rules.displayValue(value), value), std::nullopt) << value;
        }
    }
}

TEST(AppliedText, WhatARowShowsIsReadBackToThePrecisionOfTheDisplay)
{
    for (const ValueRowRules& rules : {wholeNumberRow(), scaledRow(), timecodeRow()}) {
        const double precision = rules.displaysAsTimecode ? 0.005 : 0.5;
        const double elsewhere = rules.upper * 2;
        for (int i = 0; i <= 1000; ++i) {
            const double value = rules.lower + (rules.upper - rules.lower) * i / 1000;
            const std::optional<double> read = rules.appliedText(rules.displayValue(value), elsewhere);
            ASSERT_TRUE(read.has_value()) << value;
            EXPECT_NEAR(*read, value, precision + 1e-9);
        }
    }
}

TEST(Clamp, TheLowerBoundWinsOfARangeThatHasCrossed)
{
    EXPECT_EQ((ValueRowRules{.lower = 5, .upper = 3}.clamped(4)), 5);
}

TEST(Steps, GoByOneStep)
{
    EXPECT_EQ(wholeNumberRow().steppedUp(6), 7);
    EXPECT_EQ(wholeNumberRow().steppedDown(6), 5);
    EXPECT_EQ(timecodeRow().steppedUp(2), 2.01);
}

TEST(Steps, EndAtTheBounds)
{
    EXPECT_EQ(wholeNumberRow().steppedUp(100), std::nullopt);
    EXPECT_EQ(wholeNumberRow().steppedDown(-100), std::nullopt);
    EXPECT_FALSE(wholeNumberRow().canStepUp(100));
    EXPECT_FALSE(wholeNumberRow().canStepDown(-100));
}

TEST(Steps, MayPassABoundThatTheStepDoesNotDivideOnce)
{
    const ValueRowRules rules{.lower = -5, .upper = 5, .step = 2};
    EXPECT_EQ(rules.steppedUp(4), 6);
    EXPECT_EQ(rules.steppedUp(6), std::nullopt);
    EXPECT_EQ(rules.steppedDown(-4), -6);
    EXPECT_EQ(rules.steppedDown(-6), std::nullopt);
}

TEST(Steps, FromBeyondTheOtherBoundComeBack)
{
    EXPECT_EQ(wholeNumberRow().steppedDown(130), 129);
    EXPECT_EQ(wholeNumberRow().steppedUp(-130), -129);
}

TEST(ArrowKeys, GoByOneStepAndByTenWithALargeOne)
{
    EXPECT_EQ(wholeNumberRow().adjusted(6, 1, false), 7);
    EXPECT_EQ(wholeNumberRow().adjusted(6, -1, false), 5);
    EXPECT_EQ(wholeNumberRow().adjusted(6, 1, true), 16);
    EXPECT_EQ(wholeNumberRow().adjusted(6, -1, true), -4);
}

TEST(ArrowKeys, StopAtTheBounds)
{
    EXPECT_EQ(wholeNumberRow().adjusted(95, 1, true), 100);
    EXPECT_EQ(wholeNumberRow().adjusted(-95, -1, true), -100);
    EXPECT_EQ(wholeNumberRow().adjusted(130, 1, false), 100);
}

TEST(FieldWidth, IsGreaterForATimecode)
{
    EXPECT_EQ(wholeNumberRow().fieldWidth(), 75);
    EXPECT_EQ(timecodeRow().fieldWidth(), 92);
}

}
}
