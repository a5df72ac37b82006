// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/timeline/KeyboardScrub.h"

#include <gtest/gtest.h>

namespace zumeta {
namespace {

constexpr auto kCoarse = ScrubPace::coarse;
constexpr auto kFine = ScrubPace::fine;

TEST(KeyboardScrub, HomeAndEndGoToTheEndsOfTheTimeline)
{
    EXPECT_EQ(scrubTarget(ScrubKey::home, kCoarse, 12, 60), 0);
    EXPECT_EQ(scrubTarget(ScrubKey::end, kCoarse, 12, 60), 60);
    EXPECT_EQ(scrubTarget(ScrubKey::home, kFine, 12, 60), 0);
    EXPECT_EQ(scrubTarget(ScrubKey::end, kFine, 12, 60), 60);
}

TEST(KeyboardScrub, APageIsATwentiethOfTheLength)
{
    EXPECT_EQ(scrubTarget(ScrubKey::pageUp, kCoarse, 12, 60), 15);
    EXPECT_EQ(scrubTarget(ScrubKey::pageDown, kCoarse, 12, 60), 9);
}

TEST(KeyboardScrub, APageIsAtLeastASecond)
{
    EXPECT_EQ(scrubTarget(ScrubKey::pageUp, kCoarse, 2, 10), 3);
}

TEST(KeyboardScrub, WithShiftAPageIsASecond)
{
    EXPECT_EQ(scrubTarget(ScrubKey::pageUp, kFine, 12, 60), 13);
    EXPECT_EQ(scrubTarget(ScrubKey::pageDown, kFine, 12, 60), 11);
}

TEST(KeyboardScrub, StaysOnTheTimeline)
{
    EXPECT_EQ(scrubTarget(ScrubKey::pageUp, kCoarse, 59, 60), 60);
    EXPECT_EQ(scrubTarget(ScrubKey::pageDown, kCoarse, 1, 60), 0);
    EXPECT_EQ(scrubTarget(ScrubKey::pageUp, kCoarse, 0, 0), 0);
    EXPECT_EQ(scrubTarget(ScrubKey::end, kCoarse, 0, -1), 0);
}

}
}
