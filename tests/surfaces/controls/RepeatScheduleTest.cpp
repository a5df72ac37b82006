// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/controls/RepeatSchedule.h"

#include <gtest/gtest.h>
#include <vector>

namespace zumeta {
namespace {

/// The times since the press at which a button acts whose timer comes exactly when it is due.
std::vector<double> actsOfAPunctualTimer(double pressedAt, int repetitions)
{
    RepeatSchedule schedule;
    std::vector<double> acts;
    if (schedule.press(pressedAt))
        acts.push_back(0);
    for (int i = 0; i < repetitions; ++i) {
        const double due = *schedule.nextDue();
        if (schedule.takeDue(due))
            acts.push_back(due - pressedAt);
    }
    return acts;
}

TEST(RepeatSchedule, ActsAtThePressThenAfterThreeTenthsThenEveryEightHundredths)
{
    const std::vector<double> acts = actsOfAPunctualTimer(100, 4);
    ASSERT_EQ(acts.size(), 5);
    EXPECT_EQ(acts[0], 0);
    EXPECT_NEAR(acts[1], 0.30, 1e-9);
    EXPECT_NEAR(acts[2], 0.38, 1e-9);
    EXPECT_NEAR(acts[3], 0.46, 1e-9);
    EXPECT_NEAR(acts[4], 0.54, 1e-9);
}

TEST(RepeatSchedule, DoesNotDrift)
{
    const std::vector<double> acts = actsOfAPunctualTimer(86400, 1000);
    ASSERT_EQ(acts.size(), 1001);
    EXPECT_NEAR(acts.back(), 0.3 + 999 * 0.08, 1e-9);
}

TEST(RepeatSchedule, ActsOnceForOnePress)
{
    RepeatSchedule schedule;
    EXPECT_TRUE(schedule.press(1));
    EXPECT_FALSE(schedule.press(1.1));
    EXPECT_NEAR(*schedule.nextDue(), 1.3, 1e-9);
}

TEST(RepeatSchedule, IsNotDueBeforeItsTime)
{
    RepeatSchedule schedule;
    schedule.press(1);
    EXPECT_FALSE(schedule.takeDue(1.29));
    EXPECT_TRUE(schedule.takeDue(1.301));
    EXPECT_FALSE(schedule.takeDue(1.302));
    EXPECT_FALSE(schedule.takeDue(1.379));
    EXPECT_TRUE(schedule.takeDue(1.381));
}

TEST(RepeatSchedule, ALateTimerKeepsTheRhythm)
{
    RepeatSchedule schedule;
    schedule.press(0);
    EXPECT_TRUE(schedule.takeDue(0.35));
    EXPECT_NEAR(*schedule.nextDue(), 0.38, 1e-9);
}

TEST(RepeatSchedule, RepetitionsThatWereMissedAreNotMadeUpFor)
{
    RepeatSchedule schedule;
    schedule.press(0);
    EXPECT_TRUE(schedule.takeDue(2));
    EXPECT_FALSE(schedule.takeDue(2));
    EXPECT_NEAR(*schedule.nextDue(), 0.3 + 22 * 0.08, 1e-9);
}

TEST(RepeatSchedule, IsDueAfterNowWheneverItWasTaken)
{
    for (int i = 0; i < 5000; ++i) {
        RepeatSchedule schedule;
        schedule.press(0);
        const double now = 0.3 + i * 0.01;
        ASSERT_TRUE(schedule.takeDue(now));
        EXPECT_GT(*schedule.nextDue(), now);
        EXPECT_LE(*schedule.nextDue(), now + 0.08 + 1e-9);
    }
}

TEST(RepeatSchedule, StopsAtTheRelease)
{
    RepeatSchedule schedule;
    schedule.press(0);
    schedule.release();
    EXPECT_FALSE(schedule.isPressed());
    EXPECT_EQ(schedule.nextDue(), std::nullopt);
    EXPECT_FALSE(schedule.takeDue(5));
}

TEST(RepeatSchedule, BeginsAnewWithTheNextPress)
{
    RepeatSchedule schedule;
    schedule.press(0);
    schedule.takeDue(0.5);
    schedule.release();
    EXPECT_TRUE(schedule.press(10));
    EXPECT_NEAR(*schedule.nextDue(), 10.3, 1e-9);
}

}
}
