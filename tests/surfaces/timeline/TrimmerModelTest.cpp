// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/timeline/TimelineModel.h"

#include "session/StepFour.h"

#include <QSignalSpy>

namespace zumeta {
namespace {

using namespace test;

/// A trimmer 620 wide over a composite of 30 s: 20 pixels are a second, and the start stands at 10.
struct TrimmerOfASession : StepFour {
    TimelineModel model{*session, ThumbDragHint::isWanted};
    TrimmerModel& trimmer = *model.trimmer();

    TrimmerOfASession() { trimmer.setWidth(620); }
    static double x(double time) { return 10 + 20 * time; }
    void dragOnTrack(double from, double to)
    {
        trimmer.press(x(from), kOnTrack);
        trimmer.move(x(to), kOnTrack);
        trimmer.release(x(to), kOnTrack);
    }
    QVariant marker(int row, TrimMarkerList::Role role)
    {
        return trimmer.markers()->data(trimmer.markers()->index(row, 0), role);
    }

    static constexpr double kOnTrack = 22;
    static constexpr double kOnMarker = -12;
};

TEST_F(TrimmerOfASession, PlacesFollowTheSession)
{
    QSignalSpy places(&trimmer, &TrimmerModel::placesChanged);
    setTrims(6, 3);
    EXPECT_EQ(places.count(), 1);
    EXPECT_DOUBLE_EQ(trimmer.startX(), x(6));
    EXPECT_DOUBLE_EQ(trimmer.endX(), x(27));
    EXPECT_DOUBLE_EQ(trimmer.trackX(), 10);
    EXPECT_DOUBLE_EQ(trimmer.trackWidth(), 600);
    QSignalSpy playhead(&trimmer, &TrimmerModel::playheadChanged);
    session->seek(15, true);
    EXPECT_EQ(playhead.count(), 1);
    EXPECT_DOUBLE_EQ(trimmer.playheadX(), x(15));
}

TEST_F(TrimmerOfASession, PressOnTheTrackSeeksBothSides)
{
    forgetSeeks();
    trimmer.press(x(12), kOnTrack);
    expectPlayersAt(12);
    EXPECT_TRUE(session->isTimelineSliderDragging());
    trimmer.release(x(12), kOnTrack);
    EXPECT_FALSE(session->isTimelineSliderDragging());
    EXPECT_EQ(undoCount(), 0U);
}

TEST_F(TrimmerOfASession, DragOfAHandleIsOneEditThatUndoTakesBack)
{
    trimmer.press(x(0), kOnTrack);
    for (double second = 1; second <= 6; ++second)
        trimmer.move(x(second), kOnTrack);
    EXPECT_FALSE(trimmer.showsPlayhead());
    EXPECT_TRUE(trimmer.isDraggingStart());
    trimmer.release(x(6), kOnTrack);
    EXPECT_TRUE(trimmer.showsPlayhead());
    expectTrims(6, 0);
    EXPECT_DOUBLE_EQ(session->currentTime(), 6);
    EXPECT_EQ(undoCount(), 1U);
    EXPECT_TRUE(session->hasInteractedWithStep4ExportControls());
    session->undoLastStepEdit();
    expectTrims(0, 0);
}

TEST_F(TrimmerOfASession, EndHandleStoresWhatItCutsOff)
{
    dragOnTrack(30, 20);
    expectTrims(0, 10);
    EXPECT_EQ(model.lengthText(), QStringLiteral("0:20"));
}

TEST_F(TrimmerOfASession, HandleMayComeCloserThanTheRowsAllow)
{
    trimmer.setWidth(6020); // 200 pixels a second: a handle's width is a tenth of it
    trimmer.press(10, kOnTrack);
    trimmer.move(6000, kOnTrack);
    trimmer.release(6000, kOnTrack);
    EXPECT_DOUBLE_EQ(session->projectConfig().exportTrimStartSeconds, 29.9);
}

TEST_F(TrimmerOfASession, PlaybackGoesOnAfterTheDragOfAHandle)
{
    session->play();
    trimmer.press(x(0), kOnTrack);
    trimmer.move(x(6), kOnTrack);
    EXPECT_FALSE(session->isPlaying());
    trimmer.release(x(6), kOnTrack);
    EXPECT_TRUE(session->isPlaying());
}

TEST_F(TrimmerOfASession, TapOnAMarkerSelectsItAndAnotherDeselectsIt)
{
    addMarkers({5, 12});
    trimmer.press(x(5), kOnMarker);
    EXPECT_FALSE(session->isTimelineSliderDragging());
    trimmer.release(x(5), kOnMarker);
    EXPECT_EQ(session->selectedTrimMarker(), 5);
    EXPECT_DOUBLE_EQ(session->currentTime(), 5);
    EXPECT_TRUE(marker(0, TrimMarkerList::IsSelected).toBool());
    EXPECT_FALSE(marker(1, TrimMarkerList::IsSelected).toBool());
    trimmer.tapMarker(0);
    EXPECT_FALSE(session->selectedTrimMarker().has_value());
    trimmer.tapMarker(2); // there is none
    trimmer.tapMarker(-1);
    EXPECT_FALSE(session->selectedTrimMarker().has_value());
}

TEST_F(TrimmerOfASession, DraggedMarkerTakesThePlayheadAlongAndItsRowLivesOn)
{
    addMarkers({5, 12});
    QSignalSpy reset(trimmer.markers(), &QAbstractItemModel::modelReset);
    QSignalSpy removed(trimmer.markers(), &QAbstractItemModel::rowsRemoved);
    QSignalSpy inserted(trimmer.markers(), &QAbstractItemModel::rowsInserted);
    trimmer.press(x(5) + 7, kOnMarker);
    trimmer.move(x(6) + 7, kOnMarker);
    trimmer.move(x(8) + 7, kOnMarker);
    EXPECT_EQ(trimmer.cursorShape(), Qt::ClosedHandCursor);
    EXPECT_DOUBLE_EQ(session->trimMarkers().front(), 8);
    EXPECT_DOUBLE_EQ(session->currentTime(), 8);
    EXPECT_DOUBLE_EQ(marker(0, TrimMarkerList::MarkerX).toDouble(), x(8));
    trimmer.release(x(8) + 7, kOnMarker);
    EXPECT_FALSE(session->isTimelineSliderDragging());
    EXPECT_EQ(session->selectedTrimMarker(), 8);
    EXPECT_EQ(reset.count() + removed.count() + inserted.count(), 0);
}

TEST_F(TrimmerOfASession, PlaybackThatRanGoesOnAfterAMarkersDrag)
{
    addMarkers({5});
    session->play();
    trimmer.press(x(5), kOnMarker);
    trimmer.move(x(8), kOnMarker);
    EXPECT_FALSE(session->isPlaying());
    trimmer.release(x(8), kOnMarker);
    EXPECT_TRUE(session->isPlaying());
}

TEST_F(TrimmerOfASession, CancelEndsEveryDragAsARelease)
{
    addMarkers({5});
    for (const QPointF place : {QPointF(x(12), kOnTrack), QPointF(x(0), kOnTrack), QPointF(x(5), kOnMarker)}) {
        trimmer.press(place.x(), place.y());
        trimmer.move(place.x() + 30, place.y());
        ASSERT_TRUE(session->isTimelineSliderDragging());
        trimmer.cancel();
        EXPECT_FALSE(session->isTimelineSliderDragging());
        EXPECT_TRUE(trimmer.showsPlayhead());
        const double before = session->currentTime();
        trimmer.move(x(20), kOnTrack);
        EXPECT_EQ(session->currentTime(), before);
    }
}

TEST_F(TrimmerOfASession, LeavingTheStepInADragLeavesNoneBehind)
{
    trimmer.press(x(0), kOnTrack);
    trimmer.move(x(6), kOnTrack);
    session->setCurrentStep(WorkflowStep::step3);
    EXPECT_FALSE(session->isTimelineSliderDragging());
    EXPECT_TRUE(trimmer.showsPlayhead());
}

TEST_F(TrimmerOfASession, TakesItsBoxAndTheMarkersAboveIt)
{
    addMarkers({5});
    EXPECT_TRUE(trimmer.contains({x(12), 0}));
    EXPECT_TRUE(trimmer.contains({0, 43}));
    EXPECT_TRUE(trimmer.contains({x(5), -30}));
    EXPECT_FALSE(trimmer.contains({x(12), -1}));
    EXPECT_FALSE(trimmer.contains({x(12), 44}));
}

TEST_F(TrimmerOfASession, CursorTellsWhatAPressWouldTake)
{
    addMarkers({5});
    trimmer.move(x(0), kOnTrack);
    EXPECT_EQ(trimmer.cursorShape(), Qt::SizeHorCursor);
    trimmer.move(x(5), kOnMarker);
    EXPECT_EQ(trimmer.cursorShape(), Qt::PointingHandCursor);
    trimmer.press(x(30), kOnTrack);
    trimmer.move(x(20), kOnTrack); // the pointer may run ahead of the handle
    EXPECT_EQ(trimmer.cursorShape(), Qt::SizeHorCursor);
    trimmer.release(x(12), kOnTrack);
    trimmer.move(x(14), kOnTrack);
    EXPECT_EQ(trimmer.cursorShape(), Qt::PointingHandCursor);
}

TEST_F(TrimmerOfASession, MarkersComeAndGoAtTheEndOfTheList)
{
    QSignalSpy inserted(trimmer.markers(), &QAbstractItemModel::rowsInserted);
    addMarkers({12, 5});
    EXPECT_EQ(inserted.count(), 2);
    ASSERT_EQ(trimmer.markers()->rowCount(), 2);
    EXPECT_EQ(marker(0, TrimMarkerList::Label), QStringLiteral("M1"));
    EXPECT_DOUBLE_EQ(marker(0, TrimMarkerList::MarkerX).toDouble(), x(5));
    EXPECT_DOUBLE_EQ(marker(1, TrimMarkerList::MarkerX).toDouble(), x(12));
    trimmer.setWidth(320);
    EXPECT_DOUBLE_EQ(marker(0, TrimMarkerList::MarkerX).toDouble(), 60);
    session->deleteSelectedTrimMarker();
    ASSERT_EQ(trimmer.markers()->rowCount(), 1);
    EXPECT_DOUBLE_EQ(marker(0, TrimMarkerList::MarkerX).toDouble(), 130);
    session->clearTimelineMarkers();
    EXPECT_EQ(trimmer.markers()->rowCount(), 0);
}

}
}
