// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/controls/TypedText.h"

#include <QList>
#include <gtest/gtest.h>
#include <random>

namespace zumeta {
namespace {

constexpr InputLimits kNumber{.acceptsColon = false, .greatestLength = 4};
constexpr InputLimits kTimecode{.acceptsColon = true, .greatestLength = 9};

QString filtered(const QString& text, const InputLimits& limits = {.acceptsColon = false, .greatestLength = 20})
{
    return filterInput(text, limits);
}

TEST(FilterInput, KeepsDigitsPointsAndALeadingMinus)
{
    EXPECT_EQ(filtered(QStringLiteral("-12.5")), QStringLiteral("-12.5"));
}

TEST(FilterInput, TakesOutLettersBlanksAndOtherSigns)
{
    EXPECT_EQ(filtered(QStringLiteral(" 1 2\ta+3%E ")), QStringLiteral("123"));
}

TEST(FilterInput, AMinusBetweenDigitsGoes)
{
    EXPECT_EQ(filtered(QStringLiteral("1-2")), QStringLiteral("12"));
}

TEST(FilterInput, OfTwoMinusSignsOneStays)
{
    EXPECT_EQ(filtered(QStringLiteral("--5")), QStringLiteral("-5"));
    EXPECT_EQ(filtered(QStringLiteral("-5-")), QStringLiteral("-5"));
    EXPECT_EQ(filtered(QStringLiteral("5--")), QStringLiteral("5"));
}

TEST(FilterInput, AMinusBehindWhatGoesStandsFirst)
{
    EXPECT_EQ(filtered(QStringLiteral("x -5")), QStringLiteral("-5"));
}

TEST(FilterInput, PointsAreNotThinnedOut)
{
    EXPECT_EQ(filtered(QStringLiteral("1..2.")), QStringLiteral("1..2."));
}

TEST(FilterInput, KeepsColonsWhereTheyAreAccepted)
{
    EXPECT_EQ(filterInput(QStringLiteral("1:30"), kTimecode), QStringLiteral("1:30"));
    EXPECT_EQ(filterInput(QStringLiteral("1:30"), kNumber), QStringLiteral("130"));
}

TEST(FilterInput, MakesFullWidthFormsPlain)
{
    EXPECT_EQ(filterInput(QStringLiteral("－１：２３．４５"), kTimecode), QStringLiteral("-1:23.45"));
    EXPECT_EQ(filtered(QStringLiteral("１　２")), QStringLiteral("12"));
}

TEST(FilterInput, KeepsDigitsOfAnyScript)
{
    EXPECT_EQ(filtered(QStringLiteral("٣५")), QStringLiteral("٣५"));
}

TEST(FilterInput, CutsAtTheGreatestLength)
{
    EXPECT_EQ(filterInput(QStringLiteral("1234567"), kNumber), QStringLiteral("1234"));
    EXPECT_EQ(filterInput(QStringLiteral("01:23.4567"), kTimecode), QStringLiteral("01:23.456"));
}

TEST(FilterInput, TheLengthCountsWhatStays)
{
    EXPECT_EQ(filterInput(QStringLiteral("ab1c2d3-4e5"), kNumber), QStringLiteral("1234"));
}

TEST(FilterInput, TheLengthCountsCharactersAlsoOfRareScripts)
{
    const QString mathematicalDigits = QStringLiteral("𝟏𝟐𝟑𝟒𝟓");
    ASSERT_EQ(mathematicalDigits.size(), 10);
    EXPECT_EQ(filterInput(mathematicalDigits, kNumber), mathematicalDigits.left(8));
}

TEST(FilterInput, LeavesWhatItHasFilteredBefore)
{
    const QString alphabet = QStringLiteral("0123456789--..::,aZ １－．：。−ー😀");
    const QList<uint> characters = alphabet.toUcs4();
    std::mt19937 random(20);
    std::uniform_int_distribution<qsizetype> anyCharacter(0, characters.size() - 1);
    for (int i = 0; i < 2000; ++i) {
        QString text;
        for (int length = i % 14; length > 0; --length)
            text += QChar::fromUcs4(char32_t(characters[anyCharacter(random)]));
        const QString once = filterInput(text, kTimecode);
        EXPECT_EQ(filterInput(once, kTimecode), once) << text.toStdString();
        EXPECT_LE(once.lastIndexOf(u'-'), 0) << text.toStdString();
        EXPECT_LE(once.size(), 9) << text.toStdString();
    }
}

TEST(PlainSigns, ADecimalCommaBecomesAPoint)
{
    EXPECT_EQ(withPlainSigns(QStringLiteral("1,5")), QStringLiteral("1.5"));
    EXPECT_EQ(withPlainSigns(QStringLiteral("１，５")), QStringLiteral("１.５"));
}

TEST(PlainSigns, WhatJapaneseKeysWriteBecomesPointAndMinus)
{
    EXPECT_EQ(withPlainSigns(QStringLiteral("ー1。5")), QStringLiteral("-1.5"));
    EXPECT_EQ(withPlainSigns(QStringLiteral("−1｡5")), QStringLiteral("-1.5"));
}

TEST(FilterTyped, ReadsACommaAsAPointBeforeItFilters)
{
    EXPECT_EQ(filterTyped({QStringLiteral("1,5"), 3}, kNumber), (TypedText{QStringLiteral("1.5"), 3}));
}

TEST(FilterTyped, LeavesTheCaretWhereItWasTyped)
{
    EXPECT_EQ(filterTyped({QStringLiteral("1a23"), 2}, kNumber), (TypedText{QStringLiteral("123"), 1}));
    EXPECT_EQ(filterTyped({QStringLiteral("-12-3"), 4}, kNumber), (TypedText{QStringLiteral("-123"), 3}));
    EXPECT_EQ(filterTyped({QStringLiteral("12934"), 3}, kNumber), (TypedText{QStringLiteral("1293"), 3}));
}

TEST(FilterTyped, TheCaretStaysInTheText)
{
    EXPECT_EQ(filterTyped({QStringLiteral("1234567"), 7}, kNumber), (TypedText{QStringLiteral("1234"), 4}));
    EXPECT_EQ(filterTyped({QStringLiteral("abc"), 3}, kNumber), (TypedText{QString(), 0}));
}

}
}
