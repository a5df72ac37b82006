// SPDX-License-Identifier: GPL-3.0-or-later
#include "zumeta-render/ProgressDisplay.h"

#include <gtest/gtest.h>

namespace zumeta {

TEST(ProgressDisplay, ShowsThePartDoneAndTheTimeLeft)
{
    EXPECT_EQ(progressBarText(0.5, 72.2), "[####################--------------------]  50 %  1:13 left");
    EXPECT_EQ(progressBarText(1, 0), "[########################################] 100 %  0:00 left");
}

TEST(ProgressDisplay, LeavesTheTimeOutWhileItIsNotKnown)
{
    EXPECT_EQ(progressBarText(0, std::nullopt), "[----------------------------------------]   0 %");
}

}
