// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/panels/Checklist.h"

#include "surfaces/panels/ScrollRange.h"
#include "surfaces/panels/StepBar.h"

#include <QStringList>
#include <gmock/gmock.h>

namespace zumeta {
namespace {

using testing::ElementsAre;

constexpr ChecklistFacts kEmpty{};
constexpr ChecklistFacts kLoaded{.hasVideo = true};
constexpr ChecklistFacts kSought{.hasVideo = true, .currentTime = 0.1};
constexpr ChecklistFacts kLocked{.hasVideo = true, .currentTime = 4, .isLocked = true};
constexpr ChecklistFacts kPicked{.hasVideo = true, .currentTime = 4, .isLocked = true, .hasAlignmentPoint = true};

/// One sign for each item: done, next, or neither.
QString looks(const ChecklistFacts& facts)
{
    QString signs;
    for (const ChecklistEntry& entry : checklist(Side::above, facts)) {
        EXPECT_FALSE(entry.isComplete && entry.isActive) << entry.number;
        signs += entry.isComplete ? u'x' : entry.isActive ? u'>' : u'.';
    }
    return signs;
}

TEST(Checklist, GoesFromOneItemToTheNext)
{
    EXPECT_EQ(looks(kEmpty), QStringLiteral(">..."));
    EXPECT_EQ(looks(kLoaded), QStringLiteral("x>.."));
    EXPECT_EQ(looks(kSought), QStringLiteral("xx>."));
    EXPECT_EQ(looks(kLocked), QStringLiteral("xxx>"));
    EXPECT_EQ(looks(kPicked), QStringLiteral("xxxx"));
}

TEST(Checklist, ATenthOfASecondIsSoughtAndLessIsNot)
{
    EXPECT_EQ(looks({.hasVideo = true, .currentTime = 0.099}), QStringLiteral("x>.."));
    EXPECT_EQ(looks({.hasVideo = true, .currentTime = 0.1}), QStringLiteral("xx>."));
}

TEST(Checklist, ALockAtTheVeryBeginningCountsAsSought)
{
    EXPECT_EQ(looks({.hasVideo = true, .currentTime = 0, .isLocked = true}), QStringLiteral("xxx>"));
}

TEST(Checklist, APlayheadWithoutAVideoAsksForBothTheVideoAndTheLock)
{
    EXPECT_EQ(looks({.hasVideo = false, .currentTime = 3}), QStringLiteral(">x>."));
}

TEST(Checklist, APointThatIsThereStaysDoneAfterTheUnlock)
{
    EXPECT_EQ(looks({.hasVideo = true, .currentTime = 4, .isLocked = false, .hasAlignmentPoint = true}),
              QStringLiteral("xx>x"));
}

TEST(Checklist, BothStepsShareAllItemsButTheFirst)
{
    const auto keys = [](Side side) {
        QStringList all;
        for (const ChecklistEntry& entry : checklist(side, {}))
            all.append(QString::number(entry.number) + u' ' + entry.textKey);
        return all;
    };
    EXPECT_THAT(keys(Side::above), ElementsAre(QStringLiteral("1 Check 1-1"), QStringLiteral("2 Check 1-2"),
                                               QStringLiteral("3 Check 1-3"), QStringLiteral("4 Check 1-4")));
    EXPECT_THAT(keys(Side::below), ElementsAre(QStringLiteral("1 Check 2-1"), QStringLiteral("2 Check 1-2"),
                                               QStringLiteral("3 Check 1-3"), QStringLiteral("4 Check 1-4")));
}

TEST(StepBar, APillIsCurrentDoneVisitedOrAhead)
{
    EXPECT_EQ(stepPillLook(1, 1, 3), StepPillLook::current);
    EXPECT_EQ(stepPillLook(2, 1, 3), StepPillLook::done);
    EXPECT_EQ(stepPillLook(3, 1, 3), StepPillLook::visited);
    EXPECT_EQ(stepPillLook(4, 1, 3), StepPillLook::ahead);
    EXPECT_EQ(stepPillLook(4, 4, 4), StepPillLook::current);
}

TEST(StepBar, AConnectorIsCompletedOnceAStepBeyondTheOneBeforeItIsReached)
{
    EXPECT_FALSE(isConnectorCompleted(1, 1));
    EXPECT_TRUE(isConnectorCompleted(1, 2));
    EXPECT_FALSE(isConnectorCompleted(2, 2));
    EXPECT_TRUE(isConnectorCompleted(3, 4));
}

TEST(ScrollRange, WhatIsSeenMovesNothing)
{
    EXPECT_EQ((ScrollRange{.top = 100, .viewHeight = 600, .contentHeight = 1000}.topShowing(200, 300)), 100);
}

TEST(ScrollRange, WhatLiesBelowComesUpClearOfTheFadingEnd)
{
    EXPECT_EQ((ScrollRange{.top = 0, .viewHeight = 600, .contentHeight = 1000}.topShowing(620, 668)), 112);
    EXPECT_EQ((ScrollRange{.top = 0, .viewHeight = 600, .contentHeight = 1000}.topShowing(560, 590)), 34);
}

TEST(ScrollRange, WhatLiesAboveComesDownWithRoomForItsRing)
{
    EXPECT_EQ((ScrollRange{.top = 300, .viewHeight = 600, .contentHeight = 1000}.topShowing(200, 248)), 188);
}

TEST(ScrollRange, NeverPassesTheEndsOfTheContent)
{
    EXPECT_EQ((ScrollRange{.top = 0, .viewHeight = 600, .contentHeight = 1000}.topShowing(950, 990)), 400);
    EXPECT_EQ((ScrollRange{.top = 300, .viewHeight = 600, .contentHeight = 1000}.topShowing(5, 40)), 0);
    EXPECT_EQ((ScrollRange{.top = 0, .viewHeight = 600, .contentHeight = 500}.topShowing(450, 490)), 0);
}

TEST(ScrollRange, OfWhatIsTooHighTheBeginningIsSeen)
{
    EXPECT_EQ((ScrollRange{.top = 0, .viewHeight = 300, .contentHeight = 2000}.topShowing(500, 1200)), 488);
}

}
}
