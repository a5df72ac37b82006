// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/StepFour.h"

namespace zumeta {
namespace {

using namespace test;
using testing::ElementsAre;
using testing::IsEmpty;

struct Markers : StepFour {};

TEST_F(Markers, AreAddedAtThePlayheadAndSelected)
{
    addMarkers({8, 5});
    EXPECT_THAT(session->trimMarkers(), ElementsAre(5, 8));
    EXPECT_EQ(session->selectedTrimMarker(), 5);
    EXPECT_EQ(undoCount(), 2u);
}

TEST_F(Markers, AreAddedWithoutStoppingOrSeeking)
{
    session->play();
    advance(1);
    forgetSeeks();
    session->addTrimMarkerAtCurrentTime();
    EXPECT_TRUE(session->isPlaying());
    EXPECT_THAT(above().seeks, IsEmpty());
    EXPECT_THAT(session->trimMarkers(), ElementsAre(session->currentTime()));
}

TEST_F(Markers, AddedFourHundredthsBesideAnotherAreOnlySelected)
{
    addMarkers({5, 5.04});
    EXPECT_THAT(session->trimMarkers(), ElementsAre(5));
    EXPECT_EQ(session->selectedTrimMarker(), 5.04);
}

TEST_F(Markers, WithoutATimelineAreNeitherAddedNorMovedNorReached)
{
    addMarkers({5, 8});
    session->clearAboveVideo();
    ASSERT_EQ(session->duration(), 0);
    const std::size_t recorded = undoCount();
    forgetSeeks();
    session->addTrimMarkerAtCurrentTime();
    session->updateSelectedTrimMarker(3);
    session->navigateTrimMarker(1);
    EXPECT_THAT(session->trimMarkers(), ElementsAre(5, 8));
    EXPECT_EQ(session->selectedTrimMarker(), 8);
    EXPECT_EQ(undoCount(), recorded);
    EXPECT_THAT(below().seeks, IsEmpty());
}

TEST_F(Markers, AClickSelectsStopsAndGoesThere)
{
    addMarkers({5, 8});
    session->play();
    session->selectTrimMarker(5.03);
    EXPECT_EQ(session->selectedTrimMarker(), 5);
    EXPECT_FALSE(session->isPlaying());
    expectPlayersAt(5);
    EXPECT_EQ(undoCount(), 3u);
}

TEST_F(Markers, AClickBetweenTwoThatAreEquallyFarTakesTheEarlier)
{
    addMarkers({10, 10.0625});
    session->seek(20, true);
    session->selectTrimMarkerForEditing(10.03125);
    EXPECT_EQ(session->selectedTrimMarker(), 10);
}

TEST_F(Markers, AClickBesideAllSelectsItsOwnTime)
{
    addMarkers({5});
    session->selectTrimMarker(7);
    EXPECT_EQ(session->selectedTrimMarker(), 7);
    EXPECT_THAT(session->trimMarkers(), ElementsAre(5));
    expectPlayersAt(7);
}

TEST_F(Markers, AClickBeyondTheTimelineMeansItsEnd)
{
    session->selectTrimMarker(35);
    EXPECT_EQ(session->selectedTrimMarker(), 30);
    session->selectTrimMarker(-2);
    EXPECT_EQ(session->selectedTrimMarker(), 0);
}

TEST_F(Markers, AClickOnTheSelectedOneDeselectsItAndLeavesPlaybackAsItIs)
{
    addMarkers({5});
    session->play();
    advance(1);
    forgetSeeks();
    session->selectTrimMarker(5);
    EXPECT_EQ(session->selectedTrimMarker(), std::nullopt);
    EXPECT_THAT(session->trimMarkers(), ElementsAre(5));
    EXPECT_TRUE(session->isPlaying());
    EXPECT_EQ(above().rate(), 1);
    EXPECT_THAT(above().seeks, IsEmpty());
}

TEST_F(Markers, AClickOnTheOneBesideWhichIsSelectedDeselectsToo)
{
    addMarkers({5, 5.04});
    session->selectTrimMarker(5);
    EXPECT_EQ(session->selectedTrimMarker(), std::nullopt);
}

TEST_F(Markers, ADragThatBeginsOnTheSelectedOneKeepsItSelectedAndStops)
{
    addMarkers({5});
    session->play();
    advance(1);
    session->selectTrimMarkerForEditing(5.02);
    EXPECT_EQ(session->selectedTrimMarker(), 5);
    EXPECT_FALSE(session->isPlaying());
    expectPlayersAt(5);
    EXPECT_EQ(undoCount(), 2u);
}

TEST_F(Markers, ADraggedOneTakesThePlayheadAlong)
{
    addMarkers({5, 8});
    session->updateSelectedTrimMarker(9.5);
    EXPECT_THAT(session->trimMarkers(), ElementsAre(5, 9.5));
    EXPECT_EQ(session->selectedTrimMarker(), 9.5);
    expectPlayersAt(9.5);
}

TEST_F(Markers, ADraggedOneStaysOnTheTimeline)
{
    addMarkers({5});
    session->updateSelectedTrimMarker(-3);
    EXPECT_THAT(session->trimMarkers(), ElementsAre(0));
    session->updateSelectedTrimMarker(33);
    EXPECT_THAT(session->trimMarkers(), ElementsAre(30));
    EXPECT_EQ(session->currentTime(), 30);
}

TEST_F(Markers, ADragOverAnotherSwallowsItUntilItIsUndone)
{
    addMarkers({5, 6});
    session->selectTrimMarkerForEditing(5);
    for (const double position : {5.5, 5.98, 6.5})
        session->updateSelectedTrimMarker(position);
    EXPECT_THAT(session->trimMarkers(), ElementsAre(6.5));
    session->undoLastStepEdit();
    EXPECT_THAT(session->trimMarkers(), ElementsAre(5.98));
    session->undoLastStepEdit();
    EXPECT_THAT(session->trimMarkers(), ElementsAre(5.5, 6));
    session->undoLastStepEdit();
    EXPECT_THAT(session->trimMarkers(), ElementsAre(5, 6));
}

TEST_F(Markers, WithoutASelectionNoneIsMoved)
{
    addMarkers({5});
    session->selectTrimMarker(5);
    const std::size_t recorded = undoCount();
    session->updateSelectedTrimMarker(7);
    EXPECT_THAT(session->trimMarkers(), ElementsAre(5));
    EXPECT_EQ(undoCount(), recorded);
}

TEST_F(Markers, TheSelectedOneIsDeletedAndThePlayheadStays)
{
    addMarkers({5, 8});
    session->seek(20, true);
    forgetSeeks();
    session->deleteSelectedTrimMarker();
    EXPECT_THAT(session->trimMarkers(), ElementsAre(5));
    EXPECT_EQ(session->selectedTrimMarker(), std::nullopt);
    EXPECT_EQ(session->currentTime(), 20);
    EXPECT_THAT(above().seeks, IsEmpty());
    EXPECT_EQ(undoCount(), 3u);
}

TEST_F(Markers, WithoutASelectionNoneIsDeletedAndNothingRecorded)
{
    addMarkers({5});
    session->selectTrimMarker(5);
    const std::size_t recorded = undoCount();
    session->deleteSelectedTrimMarker();
    EXPECT_THAT(session->trimMarkers(), ElementsAre(5));
    EXPECT_EQ(undoCount(), recorded);
}

TEST_F(Markers, AreClearedTogetherAndComeBackByUndo)
{
    addMarkers({5, 8});
    session->clearTimelineMarkers();
    EXPECT_THAT(session->trimMarkers(), IsEmpty());
    EXPECT_EQ(session->selectedTrimMarker(), std::nullopt);
    session->undoLastStepEdit();
    EXPECT_THAT(session->trimMarkers(), ElementsAre(5, 8));
    EXPECT_EQ(session->selectedTrimMarker(), 8);
}

TEST_F(Markers, StayWhenAVideoIsClearedOrLoaded)
{
    addMarkers({5, 8});
    session->clearAboveVideo();
    EXPECT_THAT(session->trimMarkers(), ElementsAre(5, 8));
    EXPECT_EQ(session->selectedTrimMarker(), 8);
    loadAbove("/other.mp4");
    EXPECT_THAT(session->trimMarkers(), ElementsAre(5, 8));
}

TEST_F(Markers, EndWithTheProject)
{
    addMarkers({5, 8});
    session->resetProject();
    EXPECT_THAT(session->trimMarkers(), IsEmpty());
    EXPECT_EQ(session->selectedTrimMarker(), std::nullopt);
}

struct PlayheadBeyondTheEnd : SessionTest {};

TEST_F(PlayheadBeyondTheEnd, AddsItsMarkerAtTheEnd)
{
    loadBoth({.duration = 30}, {.duration = 60});
    session->setCurrentStep(WorkflowStep::step2);
    session->seek(50, true);
    session->setCurrentStep(WorkflowStep::step1);
    ASSERT_GT(session->currentTime(), session->duration());
    session->addTrimMarkerAtCurrentTime();
    EXPECT_THAT(session->trimMarkers(), ElementsAre(30));
}

struct Navigation : StepFour {};

TEST_F(Navigation, WithoutMarkersAndTrimsJumpsBetweenTheEndsOfTheTimeline)
{
    for (const double target : {30.0, 0.0, 30.0}) {
        session->navigateTrimMarker(1);
        expectPlayersAt(target);
    }
    for (const double target : {0.0, 30.0, 0.0}) {
        session->navigateTrimMarker(-1);
        expectPlayersAt(target);
    }
}

TEST_F(Navigation, GoesThroughTheMarkersInTheRangeAndItsEnds)
{
    addMarkers({1, 6, 12, 28});
    setTrims(4, 5);
    session->selectTrimMarkerForEditing(6);
    for (const double target : {12.0, 25.0, 4.0, 6.0}) {
        session->navigateTrimMarker(1);
        EXPECT_EQ(session->currentTime(), target);
    }
}

TEST_F(Navigation, StopsPlayback)
{
    session->play();
    advance(1);
    session->navigateTrimMarker(1);
    EXPECT_FALSE(session->isPlaying());
    expectPlayersAt(30);
}

TEST_F(Navigation, SelectsTheMarkerAtAnEndOfTheRange)
{
    addMarkers({4.03});
    setTrims(4, 5);
    session->selectTrimMarker(4.03);
    session->seek(25, true);
    session->navigateTrimMarker(1);
    EXPECT_EQ(session->currentTime(), 4);
    EXPECT_EQ(session->selectedTrimMarker(), 4.03);
}

TEST_F(Navigation, AtAnEndOfTheRangeAloneSelectsNone)
{
    addMarkers({6});
    session->navigateTrimMarker(1);
    EXPECT_EQ(session->currentTime(), 30);
    EXPECT_EQ(session->selectedTrimMarker(), std::nullopt);
}

TEST_F(Navigation, RecordsEvenWhenItEndsWhereItBegan)
{
    setTrims(12, 18);
    session->seek(12, true);
    session->navigateTrimMarker(1);
    EXPECT_EQ(session->currentTime(), 12);
    EXPECT_EQ(undoCount(), 1u);
}

TEST_F(Navigation, OfTrimsThatReachBeyondTheTimelineStaysOnIt)
{
    setTrims(-3, -4);
    session->navigateTrimMarker(1);
    EXPECT_EQ(session->currentTime(), 30);
    session->navigateTrimMarker(1);
    EXPECT_EQ(session->currentTime(), 0);
}

TEST_F(Navigation, IsForStepFourAlone)
{
    session->setCurrentStep(WorkflowStep::step3);
    session->play();
    session->navigateTrimMarker(1);
    EXPECT_TRUE(session->isPlaying());
    EXPECT_EQ(session->currentTime(), 0);
    EXPECT_EQ(undoCount(), 0u);
}

}
}
