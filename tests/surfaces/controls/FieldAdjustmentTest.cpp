// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/controls/FieldAdjustment.h"

#include <gtest/gtest.h>

namespace zumeta {
namespace {

QVariantMap request(const QVariant& direction, const QVariant& isLargeStep)
{
    return {{QStringLiteral("direction"), direction}, {QStringLiteral("isLargeStep"), isLargeStep}};
}

TEST(FieldAdjustment, TakesDirectionAndSizeFromTheRequest)
{
    EXPECT_EQ(FieldAdjustment::of(request(1, true)), (FieldAdjustment{1, true}));
    EXPECT_EQ(FieldAdjustment::of(request(-1, false)), (FieldAdjustment{-1, false}));
}

TEST(FieldAdjustment, IsNoneWithoutADirection)
{
    EXPECT_EQ(FieldAdjustment::of({}), std::nullopt);
    EXPECT_EQ(FieldAdjustment::of({{QStringLiteral("isLargeStep"), true}}), std::nullopt);
}

TEST(FieldAdjustment, IsNoneWithADirectionOfAnotherType)
{
    EXPECT_EQ(FieldAdjustment::of(request(QStringLiteral("1"), true)), std::nullopt);
    EXPECT_EQ(FieldAdjustment::of(request(1.0, true)), std::nullopt);
    EXPECT_EQ(FieldAdjustment::of(request(true, true)), std::nullopt);
}

TEST(FieldAdjustment, WithoutASizeIsSmall)
{
    EXPECT_EQ(FieldAdjustment::of({{QStringLiteral("direction"), 1}}), (FieldAdjustment{1, false}));
    EXPECT_EQ(FieldAdjustment::of(request(1, QStringLiteral("true"))), (FieldAdjustment{1, false}));
    EXPECT_EQ(FieldAdjustment::of(request(1, 1)), (FieldAdjustment{1, false}));
}

}
}
