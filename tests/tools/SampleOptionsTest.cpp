// SPDX-License-Identifier: GPL-3.0-or-later
#include "SampleOptions.h"

#include <gtest/gtest.h>

namespace zumeta::swim {

namespace {

std::variant<SampleOptions, QString> read(const QString& line)
{
    return readOptions((QStringLiteral("sample-swim ") + line).split(QLatin1Char(' '), Qt::SkipEmptyParts));
}

SampleOptions fine(const QString& line)
{
    const auto result = read(line);
    if (const auto* const problem = std::get_if<QString>(&result))
        throw std::runtime_error(problem->toStdString());
    return std::get<SampleOptions>(result);
}

bool refused(const QString& line)
{
    return std::holds_alternative<QString>(read(line));
}

}

TEST(SampleOptions, NeedNothingButAFolder)
{
    const SampleOptions options = fine(QStringLiteral("some/folder"));
    EXPECT_EQ(options.folder, "some/folder");
    EXPECT_EQ(options.width, 1280);
    EXPECT_EQ(options.height, 720);
    EXPECT_EQ(options.rate, (FrameRate{30000, 1001}));
    EXPECT_EQ(options.seconds, 12);
    EXPECT_FALSE(options.quiet);
}

TEST(SampleOptions, OneSizeAndTheAspectGiveTheOther)
{
    EXPECT_EQ(fine(QStringLiteral("d --aspect 4:3")).height, 960);
    EXPECT_EQ(fine(QStringLiteral("d --width 640")).height, 360);
    EXPECT_EQ(fine(QStringLiteral("d --height 1440 --aspect 4:3")).width, 1920);
    EXPECT_EQ(fine(QStringLiteral("d --width 854")).height, 480) << "sizes are even";
}

TEST(SampleOptions, RatesAreWholeOrFractions)
{
    EXPECT_EQ(fine(QStringLiteral("d --fps 30")).rate, (FrameRate{30, 1}));
    EXPECT_EQ(fine(QStringLiteral("d --fps 60000/1001")).rate, (FrameRate{60000, 1001}));
    EXPECT_EQ(fine(QStringLiteral("d --fps 50/2")).rate, (FrameRate{25, 1}));
    for (const char* const bad : {"0", "9", "121", "30/0", "a", "30/1001/2", "-30", "29.97"})
        EXPECT_TRUE(refused(QStringLiteral("d --fps ") + QLatin1String(bad))) << bad;
}

TEST(SampleOptions, WhatMakesNoSenseIsRefused)
{
    for (const char* const bad :
         {"", "a b", "d --width 641", "d --width 100", "d --height 4000", "d --seconds 0", "d --seconds nan",
          "d --seconds 601", "d --aspect 3:2", "d --wrong", "d --width 640 --height 720", "d --width"})
        EXPECT_TRUE(refused(QLatin1String(bad))) << bad;
}

TEST(SampleOptions, HelpNeedsNoFolder)
{
    EXPECT_TRUE(fine(QStringLiteral("--help")).help);
    EXPECT_TRUE(helpText().contains(QStringLiteral("--seconds")));
}

}
