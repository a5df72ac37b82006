// SPDX-License-Identifier: GPL-3.0-or-later
#include "languages/Format.h"

#include <gtest/gtest.h>

namespace zumeta {

TEST(Format, FillsTextsInTheirOrder)
{
    EXPECT_EQ(formatted(QStringLiteral("needs %@, has %@."), {QStringLiteral("2 GB"), QStringLiteral("1 GB")}),
              QStringLiteral("needs 2 GB, has 1 GB."));
}

TEST(Format, AnArgumentIsNeverSearchedForPlaceholders)
{
    EXPECT_EQ(formatted(QStringLiteral("%@ and %@"), {QStringLiteral("100 %@ %d %% %1"), QStringLiteral("b")}),
              QStringLiteral("100 %@ %d %% %1 and b"));
}

TEST(Format, AnArgumentThatEndsInAPercentSignJoinsNothing)
{
    EXPECT_EQ(formatted(QStringLiteral("%@d %@"), {QStringLiteral("50%"), QStringLiteral("x")}),
              QStringLiteral("50%d x"));
}

TEST(Format, WritesWholeNumbersAndDecimalsWithAPoint)
{
    EXPECT_EQ(formatted(QStringLiteral("%d frames, %.2f s, %.0f"), {-12, 1.005, 2.75}),
              QStringLiteral("-12 frames, 1.00 s, 3"));
    EXPECT_EQ(formatted(QStringLiteral("%.2f"), {-0.126}), QStringLiteral("-0.13"));
}

TEST(Format, WritesNumbersWithoutGroups)
{
    EXPECT_EQ(formatted(QStringLiteral("%d %.2f"), {1234567, 1234567.891}), QStringLiteral("1234567 1234567.89"));
}

TEST(Format, APlaceholderOfAnotherTypeStillShowsItsArgument)
{
    EXPECT_EQ(formatted(QStringLiteral("%@ %@ %d %.2f"), {3, 0.5, QStringLiteral("three"), 4}),
              QStringLiteral("3 0.5 three 4.00"));
}

TEST(Format, APlaceholderWithoutArgumentStaysAsItStands)
{
    EXPECT_EQ(formatted(QStringLiteral("Error: %@ (%d, %.2f)"), {QStringLiteral("disk")}),
              QStringLiteral("Error: disk (%d, %.2f)"));
    EXPECT_EQ(formatted(QStringLiteral("%@"), {}), QStringLiteral("%@"));
}

TEST(Format, AnArgumentTooManyIsPassedOver)
{
    EXPECT_EQ(formatted(QStringLiteral("only %@"), {QStringLiteral("a"), QStringLiteral("b")}),
              QStringLiteral("only a"));
}

TEST(Format, OtherPercentSignsStayAndDoubledOnesBecomeOne)
{
    EXPECT_EQ(formatted(QStringLiteral("%s 5 % 100%% %.f %.2 %1 %"), {QStringLiteral("unused")}),
              QStringLiteral("%s 5 % 100% %.f %.2 %1 %"));
}

TEST(Format, AnEmptyTextStaysEmpty)
{
    EXPECT_EQ(formatted(QString(), {QStringLiteral("a")}), QString());
    EXPECT_EQ(formatted(QStringLiteral("<%@>"), {QString()}), QStringLiteral("<>"));
}

}
