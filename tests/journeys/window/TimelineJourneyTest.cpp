// SPDX-License-Identifier: GPL-3.0-or-later
#include "journeys/window/TimelineJourney.h"

#include <QAccessible>

namespace zumeta {
namespace {

using namespace test;
using WorkflowStep = CompositorViewModel::WorkflowStep;

struct Timeline : TimelineJourney {};

/// A place means a time up to the pixel that the pointer stands on.
constexpr double kPixelOfTime = 0.01; // seconds, with three of them over some hundred pixels

TEST_F(Timeline, IsScrubbedByADragAndItsHintGoesAtTheEnd)
{
    openUnlocked();
    ASSERT_TRUE(waitFor([&] { return item("thumbDragHint") != nullptr; }));
    const QPoint to = placeIn("simpleSlider", 300, 15);
    hold(placeIn("simpleSlider", 100, 15));
    EXPECT_TRUE(session().isTimelineSliderDragging());
    EXPECT_NEAR(session().currentTime(), sliderTime(100), kPixelOfTime);
    QTest::mouseMove(&window(), to);
    EXPECT_NEAR(session().currentTime(), sliderTime(300), kPixelOfTime);
    ASSERT_TRUE(item("thumbDragHint"));
    EXPECT_EQ(item("thumbDragHint")->opacity(), 1);
    EXPECT_NEAR(middleOf(item("thumbDragHint")).x(), to.x(), 1);
    EXPECT_NEAR(middleOf(item("sliderThumb")).x(), to.x(), 1);
    EXPECT_NEAR(item("sliderFill")->width(), 300, 1);
    letGo(to);
    EXPECT_FALSE(session().isTimelineSliderDragging());
    EXPECT_TRUE(session().hasSliderBeenMoved());
    EXPECT_TRUE(waitFor([&] { return !item("thumbDragHint"); }));
    waitForHeight(68);
}

TEST_F(Timeline, HintStandsFortyBelowTheSlidersMiddleAndInsideTheWindow)
{
    openUnlocked();
    EXPECT_NEAR(middleOf(item("thumbDragHint")).y() - middleOf(item("simpleSlider")).y(), kHintBelowMiddle, 1);
    EXPECT_NEAR(middleOf(item("thumbDragHint")).x(), placeIn("simpleSlider", 0, 0).x(), 1);
    EXPECT_LE(placeIn("thumbDragHint", 0, item("thumbDragHint")->height()).y(), window().height());
}

TEST_F(Timeline, ThumbIsTakenByTheHalfThatHangsOutToo)
{
    openUnlocked();
    session().setHasSliderBeenMoved(false);
    hold(placeIn("simpleSlider", -8, 15));
    EXPECT_TRUE(session().isTimelineSliderDragging());
    EXPECT_EQ(session().currentTime(), 0);
    letGo(placeIn("simpleSlider", -8, 15));
    EXPECT_TRUE(session().hasSliderBeenMoved());
}

TEST_F(Timeline, ThumbGrowsUnderThePointerAroundItsPlace)
{
    openUnlocked();
    movePointer({5, 5});
    ASSERT_TRUE(waitFor([&] { return item("sliderThumb")->size() == thumbSize(ThumbState::resting); }));
    movePointer(placeIn("simpleSlider", 200, 15));
    EXPECT_TRUE(waitFor([&] { return item("sliderThumb")->size() == thumbSize(ThumbState::hovered); }));
    EXPECT_EQ(item("sliderThumb")->x() + item("sliderThumb")->width() / 2, 0);
}

TEST_F(Timeline, LockedSliderIsFaintAndTakesNothing)
{
    openStep(1);
    session().seek(1, true);
    ASSERT_TRUE(waitFor([&] { return item("simpleSlider") && !item("simpleSlider")->isEnabled(); }));
    EXPECT_EQ(item("sliderFill")->opacity(), kSliderDisabledOpacity);
    EXPECT_TRUE(waitFor([&] { return !item("thumbDragHint"); }));
    const bool wasMoved = session().hasSliderBeenMoved();
    hold(placeIn("simpleSlider", 300, 15));
    EXPECT_FALSE(session().isTimelineSliderDragging());
    letGo(placeIn("simpleSlider", 300, 15));
    EXPECT_EQ(session().currentTime(), 1);
    EXPECT_EQ(session().hasSliderBeenMoved(), wasMoved);
    EXPECT_FALSE(tabTo("simpleSlider"));
}

TEST_F(Timeline, LockInTheMiddleOfADragEndsIt)
{
    openUnlocked();
    hold(placeIn("simpleSlider", 300, 15));
    session().toggleAboveLock();
    EXPECT_TRUE(waitFor([&] { return !session().isTimelineSliderDragging(); }));
    const double locked = session().currentTime();
    QTest::mouseMove(&window(), placeIn("simpleSlider", 500, 15));
    letGo(placeIn("simpleSlider", 500, 15));
    EXPECT_EQ(session().currentTime(), locked);
}

TEST_F(Timeline, DragEndsWhenTheStripIsHidden)
{
    openUnlocked();
    hold(placeIn("simpleSlider", 300, 15));
    ASSERT_TRUE(session().isTimelineSliderDragging());
    session().setCameraSelectionConfirmed(false);
    EXPECT_TRUE(waitFor([&] { return !session().isTimelineSliderDragging(); }));
    letGo({400, 400});
    EXPECT_FALSE(session().isTimelineSliderDragging());
}

TEST_F(Timeline, DragEndsWhenTheWindowIsLeft)
{
    openUnlocked();
    hold(placeIn("simpleSlider", 300, 15));
    ASSERT_TRUE(session().isTimelineSliderDragging());
    QWindow other;
    other.resize(200, 100);
    other.show();
    other.requestActivate();
    EXPECT_TRUE(waitFor([&] { return !session().isTimelineSliderDragging(); }));
    letGo(placeIn("simpleSlider", 300, 15));
    EXPECT_FALSE(session().isTimelineSliderDragging());
}

TEST_F(Timeline, DragEndsWhenTheStepChanges)
{
    openTrimmer();
    hold(onTrimmer(1));
    ASSERT_TRUE(session().isTimelineSliderDragging());
    session().setCurrentStep(WorkflowStep::step3);
    EXPECT_FALSE(session().isTimelineSliderDragging());
    ASSERT_TRUE(waitFor([&] { return item("simpleSlider") != nullptr; }));
    letGo(placeIn("simpleSlider", 100, 15));
    EXPECT_FALSE(session().isTimelineSliderDragging());
}

TEST_F(Timeline, PlayButtonPlaysAndPauses)
{
    openUnlocked();
    click(item("playButton"));
    EXPECT_TRUE(session().isPlaying());
    EXPECT_EQ(item("playButton")->property("icon").toString(), QStringLiteral("pause-fill"));
    EXPECT_EQ(item("playButton")->property("text").toString(), QStringLiteral("Pause"));
    EXPECT_TRUE(waitFor([&] { return session().currentTime() > 0.1; }));
    click(item("playButton"));
    EXPECT_FALSE(session().isPlaying());
    EXPECT_EQ(item("playButton")->property("icon").toString(), QStringLiteral("play-fill"));
}

TEST_F(Timeline, PlaybackRestsDuringADragAndGoesOnAfterIt)
{
    openUnlocked();
    session().play();
    hold(placeIn("simpleSlider", 100, 15));
    EXPECT_FALSE(session().isPlaying());
    letGo(placeIn("simpleSlider", 100, 15));
    EXPECT_TRUE(session().isPlaying());
    session().pause();
    drag(placeIn("simpleSlider", 100, 15), placeIn("simpleSlider", 200, 15));
    EXPECT_FALSE(session().isPlaying());
}

TEST_F(Timeline, TimesStandInTheirFormats)
{
    openUnlocked();
    session().seek(1.5, true);
    EXPECT_EQ(item("timeDisplay")->property("text").toString(), QStringLiteral("00:01.15"));
    EXPECT_EQ(item("lengthDisplay")->property("text").toString(), QStringLiteral("00:03.00"));
    EXPECT_EQ(item("timeDisplay")->width(), kTimeDisplayWidth);
    EXPECT_EQ(item("lengthDisplay")->width(), kTimeDisplayWidth);
}

TEST_F(Timeline, FocusedSliderIsScrubbedByKeys)
{
    openUnlocked();
    ASSERT_TRUE(tabTo("simpleSlider"));
    press(Qt::Key_End);
    EXPECT_EQ(session().currentTime(), session().duration());
    press(Qt::Key_PageDown);
    EXPECT_NEAR(session().currentTime(), session().duration() - 1, 1e-9);
    press(Qt::Key_Home);
    EXPECT_EQ(session().currentTime(), 0);
    press(Qt::Key_PageUp, Qt::ShiftModifier);
    EXPECT_NEAR(session().currentTime(), 1, 1e-9);
    EXPECT_TRUE(session().hasSliderBeenMoved());
    press(Qt::Key_Home, Qt::ControlModifier); // another command, if any
    EXPECT_NEAR(session().currentTime(), 1, 1e-9);
}

TEST_F(Timeline, FocusedTrimmerIsScrubbedByKeys)
{
    openTrimmer();
    ASSERT_TRUE(tabTo("trimmer"));
    press(Qt::Key_End);
    EXPECT_EQ(session().currentTime(), session().duration());
    press(Qt::Key_Home);
    EXPECT_EQ(session().currentTime(), 0);
}

TEST_F(Timeline, StepFourIsTrimmedByItsHandles)
{
    openTrimmer();
    EXPECT_FALSE(item("simpleSlider"));
    const std::size_t editsBefore = undoCount();
    const QPoint start = middleOf(item("startHandle"));

    QTest::mouseMove(&window(), start);
    EXPECT_EQ(window().cursor().shape(), Qt::SizeHorCursor);
    hold(start);
    QTest::mouseMove(&window(), start + QPoint(9, 0));
    EXPECT_EQ(session().projectConfig().exportTrimStartSeconds, 0);
    EXPECT_TRUE(item("playhead"));
    QTest::mouseMove(&window(), onTrimmer(0.6));
    QTest::mouseMove(&window(), onTrimmer(0.9));
    EXPECT_NEAR(session().projectConfig().exportTrimStartSeconds, 0.9, kPixelOfTime);
    EXPECT_NEAR(session().currentTime(), 0.9, kPixelOfTime);
    EXPECT_FALSE(item("playhead"));
    EXPECT_FALSE(item("playheadShadow"));
    letGo(onTrimmer(0.9));
    EXPECT_TRUE(item("playhead"));
    EXPECT_EQ(undoCount(), editsBefore + 1);
    EXPECT_TRUE(session().hasInteractedWithStep4ExportControls());
    EXPECT_NEAR(middleOf(item("startHandle")).x(), onTrimmer(0.9).x(), 1);

    drag(middleOf(item("endHandle")), onTrimmer(2));
    EXPECT_NEAR(session().projectConfig().exportTrimEndSeconds, session().duration() - 2, kPixelOfTime);
    EXPECT_EQ(undoCount(), editsBefore + 2);
    EXPECT_TRUE(itemWithText(QStringLiteral("0:01")));
    session().undoLastStepEdit();
    EXPECT_EQ(session().projectConfig().exportTrimEndSeconds, 0);
}

TEST_F(Timeline, PressOnTheTrimmersTrackSeeks)
{
    openTrimmer();
    hold(onTrimmer(1.2));
    EXPECT_NEAR(session().currentTime(), 1.2, kPixelOfTime);
    EXPECT_TRUE(session().isTimelineSliderDragging());
    letGo(onTrimmer(1.2));
    EXPECT_FALSE(session().isTimelineSliderDragging());
    EXPECT_NEAR(middleOf(item("playhead")).x(), onTrimmer(1.2).x(), 1);
}

TEST_F(Timeline, MarkersAreTappedAboveTheStrip)
{
    openTrimmer();
    addMarkers({0.5, 1.5});
    session().seek(0, true);
    ASSERT_TRUE(waitFor([&] { return item("markerM2") != nullptr; }));
    const QPoint first = onMarker(0.5) - QPoint(0, 8);
    EXPECT_LT(first.y(), placeIn("timelineStrip", 0, 0).y());
    QTest::mouseMove(&window(), first);
    QTest::mouseClick(&window(), Qt::LeftButton, {}, first);
    EXPECT_EQ(session().selectedTrimMarker(), 0.5);
    EXPECT_EQ(session().currentTime(), 0.5);
    EXPECT_TRUE(item("markerM1")->property("isSelected").toBool());
    EXPECT_FALSE(item("markerM2")->property("isSelected").toBool());
    QTest::mouseClick(&window(), Qt::LeftButton, {}, first);
    EXPECT_FALSE(session().selectedTrimMarker().has_value());
}

TEST_F(Timeline, PlaceBetweenTheMarkersBelongsToThePicture)
{
    openTrimmer();
    addMarkers({0.5, 1.5});
    session().seek(0, true);
    const QPoint beside = onMarker(1) - QPoint(0, 8);
    QTest::mouseClick(&window(), Qt::LeftButton, {}, beside);
    EXPECT_EQ(session().currentTime(), 0);
}

TEST_F(Timeline, MarkerIsDraggedAndWhatStandsForItLivesOn)
{
    openTrimmer();
    addMarkers({0.5, 1.5});
    ASSERT_TRUE(waitFor([&] { return item("markerM2") != nullptr; }));
    QQuickItem* const dragged = item("markerM1");
    const QPoint from = onMarker(0.5) + QPoint(6, 0);
    hold(from);
    EXPECT_FALSE(session().isTimelineSliderDragging());
    QTest::mouseMove(&window(), from + QPoint(3, 0));
    EXPECT_TRUE(session().isTimelineSliderDragging());
    EXPECT_EQ(window().cursor().shape(), Qt::ClosedHandCursor);
    QTest::mouseMove(&window(), onMarker(1) + QPoint(6, 0));
    EXPECT_NEAR(session().trimMarkers().front(), 1, kPixelOfTime);
    EXPECT_NEAR(session().currentTime(), 1, kPixelOfTime);
    EXPECT_EQ(item("markerM1"), dragged);
    EXPECT_NEAR(middleOf(dragged).x(), onMarker(1).x(), 1);
    letGo(onMarker(1) + QPoint(6, 0));
    EXPECT_FALSE(session().isTimelineSliderDragging());
    EXPECT_EQ(session().trimMarkers().size(), 2U);
}

TEST_F(Timeline, FullScreenIsEnteredAndLeftByTheButtonOfStepsThreeAndFour)
{
    openStep(2);
    EXPECT_FALSE(item("fullScreenButton"));
    session().setCurrentStep(WorkflowStep::step3);
    ASSERT_TRUE(waitFor([&] { return item("fullScreenButton") != nullptr; }));
    EXPECT_EQ(item("fullScreenButton")->property("text").toString(), QStringLiteral("Enter Full Screen"));
    const double width = item("timelineStrip")->width();
    click(item("fullScreenButton"));
    EXPECT_TRUE(session().isFullScreen());
    EXPECT_TRUE(waitFor([&] { return item("timelineStrip")->width() > width; }));
    EXPECT_EQ(item("fullScreenButton")->property("text").toString(), QStringLiteral("Exit Full Screen"));
    click(item("fullScreenButton"));
    EXPECT_FALSE(session().isFullScreen());
}

TEST_F(Timeline, RowKeepsItsMeasures)
{
    openTrimmer({1024, 680});
    const QRectF strip = placeOf("timelineStrip");
    EXPECT_EQ(strip.height(), 68);
    EXPECT_EQ(placeOf("playButton"),
              QRectF(kStripSidePadding, kStripVerticalPadding, kPlayButtonRingSize, kPlayButtonRingSize));
    EXPECT_EQ(placeOf("playButtonFace").size(), QSizeF(kPlayButtonFaceSize, kPlayButtonFaceSize));
    EXPECT_EQ(placeOf("timeDisplay").left() - placeOf("playButton").right(), kStripRowSpacing);
    EXPECT_EQ(placeOf("trimmer").left() - placeOf("timeDisplay").right(), kStripRowSpacing);
    EXPECT_EQ(placeOf("trimmer").height(), kTrimmerFrameHeight);
    EXPECT_EQ(placeOf("trimmer").top(), kStripVerticalPadding);
    EXPECT_NEAR(placeOf("exportLength").left() - placeOf("trimmer").right(), kStripRowSpacing, 1);
    EXPECT_EQ(placeOf("fullScreenButton").size(), QSizeF(kFullScreenButtonSize, kFullScreenButtonSize));
    EXPECT_EQ(strip.right() - placeOf("fullScreenButton").right(), kStripSidePadding);
    EXPECT_EQ(placeOf("startHandle").size(), QSizeF(kVisualHandleWidth, kTrimmerFrameHeight));
    EXPECT_EQ(placeOf("playhead").size(), QSizeF(kPlayheadWidth, kPlayheadHeight));
    EXPECT_EQ(placeOf("trimmerTrack").height(), kTrimmerTrackHeight);
    EXPECT_EQ(placeOf("trimmerTrack").width(), trimmerScale().usable());
    session().setCurrentStep(WorkflowStep::step3);
    ASSERT_TRUE(waitFor([&] { return item("simpleSlider") && item("simpleSlider")->height() == kSliderHeight; }));
    EXPECT_EQ(placeOf("sliderFill").height(), kSliderTrackHeight);
}

TEST_F(Timeline, MarkersHaveTheirMeasures)
{
    openTrimmer();
    addMarkers({0.5, 1.5});
    ASSERT_TRUE(waitFor([&] { return item("markerM2") != nullptr; }));
    EXPECT_EQ(item("markerM1")->size(), QSizeF(kMarkerWidth, kMarkerHeight));
    EXPECT_EQ(item("markerM1")->mapToItem(item("trimmer"), {0, kMarkerHeight / 2}).y(), -kMarkerAboveTop);
    const auto textSize = [&](const char* marker) {
        return item(marker)
            ->findChild<QQuickItem*>(QStringLiteral("markerLabel"))
            ->property("font")
            .value<QFont>()
            .pixelSize();
    };
    EXPECT_EQ(textSize("markerM1"), kMarkerTextSize);
    EXPECT_EQ(textSize("markerM2"), kSelectedMarkerTextSize);
}

TEST_F(Timeline, SlidersTellAScreenReaderWhereThePlayheadStands)
{
    openTrimmer();
    session().seek(1.5, true);
    for (const char* const name : {"trimmer", "simpleSlider"}) {
        ASSERT_TRUE(waitFor([&] { return item(name) != nullptr; }));
        QAccessibleInterface* const slider = QAccessible::queryAccessibleInterface(item(name));
        ASSERT_TRUE(slider && slider->valueInterface());
        EXPECT_EQ(slider->role(), QAccessible::Slider);
        EXPECT_EQ(slider->text(QAccessible::Name), QStringLiteral("Playhead"));
        EXPECT_DOUBLE_EQ(slider->valueInterface()->currentValue().toDouble(), session().currentTime());
        EXPECT_DOUBLE_EQ(slider->valueInterface()->maximumValue().toDouble(), session().duration());
        session().setCurrentStep(WorkflowStep::step3);
    }
}

}
}
