// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/StepEditHistory.h"

#include <functional>
#include <gtest/gtest.h>

namespace zumeta {
namespace {

StepEditSnapshot at(double time)
{
    StepEditSnapshot snapshot;
    snapshot.currentTime = time;
    return snapshot;
}

TEST(StepEditSnapshot, DiffersInEachFieldAlone)
{
    const std::vector<std::function<void(StepEditSnapshot&)>> edits{
        [](StepEditSnapshot& snapshot) { snapshot.waterlineHeight = 1; },
        [](StepEditSnapshot& snapshot) { snapshot.aboveOffset = 1; },
        [](StepEditSnapshot& snapshot) { snapshot.aboveHorizontalOffset = 1; },
        [](StepEditSnapshot& snapshot) { snapshot.aboveZoom = 1; },
        [](StepEditSnapshot& snapshot) { snapshot.timingOffset = 1; },
        [](StepEditSnapshot& snapshot) { snapshot.blendAmount = 1; },
        [](StepEditSnapshot& snapshot) { snapshot.isStep3LoopEnabled = true; },
        [](StepEditSnapshot& snapshot) { snapshot.isStep3SlowPlaybackEnabled = true; },
        [](StepEditSnapshot& snapshot) { snapshot.exportTrimStartSeconds = 1; },
        [](StepEditSnapshot& snapshot) { snapshot.exportTrimEndSeconds = 1; },
        [](StepEditSnapshot& snapshot) { snapshot.trimMarkers = {1}; },
        [](StepEditSnapshot& snapshot) { snapshot.selectedTrimMarker = 0; },
        [](StepEditSnapshot& snapshot) { snapshot.currentTime = 1; },
    };
    for (std::size_t i = 0; i < edits.size(); ++i) {
        StepEditSnapshot snapshot;
        edits[i](snapshot);
        EXPECT_NE(snapshot, StepEditSnapshot()) << i;
    }
}

TEST(StepEditSnapshot, WithoutASelectionEqualsAnotherWhateverWasSelectedBefore)
{
    StepEditSnapshot snapshot;
    snapshot.selectedTrimMarker = 7;
    snapshot.selectedTrimMarker.reset();
    EXPECT_EQ(snapshot, StepEditSnapshot());
}

struct StepEditHistoryTest : testing::Test {
    StepEditHistory history;
};

TEST_F(StepEditHistoryTest, GivesBackTheNewestFirst)
{
    EXPECT_TRUE(history.record(at(1)));
    EXPECT_TRUE(history.record(at(2)));
    EXPECT_EQ(history.undo(at(3)), at(2));
    EXPECT_EQ(history.undo(at(2)), at(1));
    EXPECT_EQ(history.undo(at(1)), std::nullopt);
}

TEST_F(StepEditHistoryTest, RedoGoesForwardToWhatWasLeft)
{
    history.record(at(1));
    history.record(at(2));
    history.undo(at(3));
    history.undo(at(2));
    EXPECT_EQ(history.redo(at(1)), at(2));
    EXPECT_EQ(history.redo(at(2)), at(3));
    EXPECT_EQ(history.redo(at(3)), std::nullopt);
}

TEST_F(StepEditHistoryTest, RedoKeepsTheStateOfThatMomentForUndo)
{
    history.record(at(1));
    history.undo(at(2));
    EXPECT_EQ(history.redo(at(1.5)), at(2));
    EXPECT_EQ(history.undo(at(2)), at(1.5));
}

TEST_F(StepEditHistoryTest, AnEmptyUndoLeavesTheRedosAsTheyAre)
{
    history.record(at(1));
    history.undo(at(2));
    EXPECT_EQ(history.undo(at(1)), std::nullopt);
    EXPECT_EQ(history.redoCount(), 1u);
    EXPECT_EQ(history.undoCount(), 0u);
}

TEST_F(StepEditHistoryTest, TheSameStateTwiceIsOneEntry)
{
    EXPECT_TRUE(history.record(at(1)));
    EXPECT_FALSE(history.record(at(1)));
    EXPECT_EQ(history.undoCount(), 1u);
}

TEST_F(StepEditHistoryTest, OnlyTheTopIsComparedWith)
{
    history.record(at(1));
    history.record(at(2));
    EXPECT_TRUE(history.record(at(1)));
    EXPECT_EQ(history.undoCount(), 3u);
}

TEST_F(StepEditHistoryTest, ARecordAfterAChangeEndsTheRedos)
{
    history.record(at(1));
    history.record(at(2));
    history.undo(at(3));
    history.record(at(4));
    EXPECT_EQ(history.redoCount(), 0u);
    EXPECT_EQ(history.undo(at(5)), at(4));
}

TEST_F(StepEditHistoryTest, ARecordWithoutAChangeLeavesTheRedos)
{
    history.record(at(1));
    history.record(at(2));
    history.undo(at(3));
    EXPECT_FALSE(history.record(at(1)));
    EXPECT_EQ(history.redoCount(), 1u);
}

TEST_F(StepEditHistoryTest, TheEightyFirstRecordDropsTheOldest)
{
    for (int i = 1; i <= 80; ++i)
        history.record(at(i));
    EXPECT_EQ(history.undoCount(), 80u);
    history.record(at(81));
    EXPECT_EQ(history.undoCount(), 80u);
    StepEditSnapshot state = at(82);
    while (const std::optional<StepEditSnapshot> earlier = history.undo(state))
        state = *earlier;
    EXPECT_EQ(state, at(2));
}

TEST_F(StepEditHistoryTest, ARepeatAtTheGreatestDepthDropsNothing)
{
    for (int i = 1; i <= 80; ++i)
        history.record(at(i));
    EXPECT_FALSE(history.record(at(80)));
    StepEditSnapshot state = at(81);
    while (const std::optional<StepEditSnapshot> earlier = history.undo(state))
        state = *earlier;
    EXPECT_EQ(state, at(1));
}

TEST_F(StepEditHistoryTest, AllEntriesCanBeUndoneAndRedone)
{
    for (int i = 1; i <= 80; ++i)
        history.record(at(i));
    StepEditSnapshot state = at(81);
    while (const std::optional<StepEditSnapshot> earlier = history.undo(state))
        state = *earlier;
    EXPECT_EQ(history.redoCount(), 80u);
    while (const std::optional<StepEditSnapshot> later = history.redo(state))
        state = *later;
    EXPECT_EQ(state, at(81));
    EXPECT_EQ(history.undoCount(), 80u);
}

}
}
