// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/timeline/TimelineModel.h"

#include "session/SessionHarness.h"

#include <QSignalSpy>

namespace zumeta {
namespace {

using namespace test;

/// The strip of a session in virtual time, whose plain slider is 300 wide. Recordings are 60 s long.
struct StripOfASession : SessionTest {
    TimelineModel model{*session, ThumbDragHint::isWanted};
    SimpleSliderModel& slider = *model.slider();

    StripOfASession()
    {
        slider.setWidth(300);
        model.setWindowActive(true);
    }
    bool scrub(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { return model.scrub(key, int(modifiers)); }
};

TEST_F(StripOfASession, EmptySessionHasNothingToPlayAndAQuietSlider)
{
    EXPECT_FALSE(model.hasMedia());
    EXPECT_FALSE(slider.isEnabled());
    EXPECT_FALSE(slider.showsHint());
    EXPECT_EQ(model.height(), 68);
    EXPECT_EQ(model.timeText(), QStringLiteral("00:00.00"));
    EXPECT_EQ(model.lengthText(), QStringLiteral("00:00.00"));
}

TEST_F(StripOfASession, VideoWakesTheSliderAndItsHint)
{
    QSignalSpy changed(&slider, &SimpleSliderModel::changed);
    loadAbove("/above.mp4");
    EXPECT_GT(changed.count(), 0);
    EXPECT_TRUE(model.hasMedia());
    EXPECT_TRUE(slider.isEnabled());
    EXPECT_TRUE(slider.showsHint());
    EXPECT_EQ(model.height(), 104);
    EXPECT_EQ(model.lengthText(), QStringLiteral("01:00.00"));
}

TEST_F(StripOfASession, HintThatIsNotWantedIsNone)
{
    const TimelineModel unwanted(*session, ThumbDragHint::isNotWanted);
    loadAbove("/above.mp4");
    EXPECT_EQ(unwanted.height(), 68);
}

TEST_F(StripOfASession, DragSeeksToTheVeryFrameAndEndsTheHint)
{
    loadAbove("/above.mp4");
    slider.press(100);
    EXPECT_TRUE(session->isTimelineSliderDragging());
    EXPECT_TRUE(slider.isDragging());
    slider.move(150);
    EXPECT_DOUBLE_EQ(session->currentTime(), 30);
    EXPECT_EQ(above().seeks.back().tolerance, SeekTolerance::zero);
    EXPECT_DOUBLE_EQ(slider.filledWidth(), 150);
    EXPECT_DOUBLE_EQ(slider.thumbCentre(), 150);
    EXPECT_TRUE(slider.showsHint());
    slider.release(150);
    EXPECT_FALSE(session->isTimelineSliderDragging());
    EXPECT_TRUE(session->hasSliderBeenMoved());
    EXPECT_FALSE(slider.showsHint());
}

TEST_F(StripOfASession, HintMayFadeAgainBeforeItIsToldToGo)
{
    loadAbove("/above.mp4");
    slider.press(100);
    EXPECT_FALSE(slider.isHintAnimated());
    bool mayFade = false;
    QObject::connect(&slider, &SimpleSliderModel::gestureChanged, &slider,
                     [&] { mayFade = slider.isHintAnimated() && slider.showsHint(); });
    slider.release(100);
    EXPECT_TRUE(mayFade);
}

TEST_F(StripOfASession, PlaybackRestsDuringADragAndGoesOnAfterIt)
{
    loadAbove("/above.mp4");
    session->play();
    slider.press(100);
    EXPECT_FALSE(session->isPlaying());
    slider.release(100);
    EXPECT_TRUE(session->isPlaying());
}

TEST_F(StripOfASession, PlaybackThatStoodStaysStopped)
{
    loadAbove("/above.mp4");
    slider.press(100);
    slider.release(100);
    EXPECT_FALSE(session->isPlaying());
}

TEST_F(StripOfASession, SessionIsInTheDragBeforePlaybackRestsAndOutOfItBeforePlaybackGoesOn)
{
    loadAbove("/above.mp4");
    session->play();
    std::vector<bool> wasDragging;
    QObject::connect(session.get(), &CompositorViewModel::isPlayingChanged, &slider,
                     [&] { wasDragging.push_back(session->isTimelineSliderDragging()); });
    slider.press(100);
    slider.release(100);
    EXPECT_EQ(wasDragging, (std::vector<bool>{true, false}));
}

TEST_F(StripOfASession, LockEndsADragAndTakesTheSliderAway)
{
    loadAbove("/above.mp4");
    slider.press(100);
    session->toggleAboveLock();
    EXPECT_FALSE(slider.isEnabled());
    EXPECT_FALSE(slider.isDragging());
    EXPECT_FALSE(session->isTimelineSliderDragging());
    slider.press(200);
    EXPECT_DOUBLE_EQ(session->currentTime(), 20);
}

TEST_F(StripOfASession, ChangeOfTheStepEndsADrag)
{
    loadBoth();
    session->setCurrentStep(WorkflowStep::step1);
    session->play();
    slider.press(100);
    session->setCurrentStep(WorkflowStep::step2);
    EXPECT_FALSE(slider.isDragging());
    EXPECT_FALSE(session->isTimelineSliderDragging());
    EXPECT_TRUE(session->isPlaying());
}

TEST_F(StripOfASession, LeftWindowEndsADragAndAnActivatedOneDoesNot)
{
    loadAbove("/above.mp4");
    slider.press(100);
    model.setWindowActive(false);
    EXPECT_FALSE(session->isTimelineSliderDragging());
    slider.press(100);
    model.setWindowActive(true);
    EXPECT_TRUE(session->isTimelineSliderDragging());
}

TEST_F(StripOfASession, PlayButtonTogglesPlaybackAndSaysWhatItWillDo)
{
    loadAbove("/above.mp4");
    EXPECT_EQ(model.playIcon(), QStringLiteral("play-fill"));
    EXPECT_EQ(model.playTextKey(), QStringLiteral("Play"));
    model.togglePlayback();
    EXPECT_TRUE(session->isPlaying());
    EXPECT_EQ(model.playIcon(), QStringLiteral("pause-fill"));
    EXPECT_EQ(model.playTextKey(), QStringLiteral("Pause"));
    model.togglePlayback();
    EXPECT_FALSE(session->isPlaying());
}

TEST_F(StripOfASession, FullScreenButtonTogglesFullScreen)
{
    enterComposite(WorkflowStep::step3, {60, 10}, {30, 4});
    EXPECT_TRUE(model.showsFullScreenButton());
    EXPECT_EQ(model.fullScreenTextKey(), QStringLiteral("Enter Full Screen"));
    model.toggleFullScreen();
    EXPECT_TRUE(session->isFullScreen());
    EXPECT_EQ(model.fullScreenIcon(), QStringLiteral("arrow-down-right-and-arrow-up-left"));
    EXPECT_EQ(model.fullScreenTextKey(), QStringLiteral("Exit Full Screen"));
    model.toggleFullScreen();
    EXPECT_FALSE(session->isFullScreen());
}

TEST_F(StripOfASession, RunningTimeIsNewsOfTheTimeAlone)
{
    loadAbove("/above.mp4");
    session->play();
    QSignalSpy times(&model, &TimelineModel::timeChanged);
    QSignalSpy others(&model, &TimelineModel::changed);
    advance(1);
    EXPECT_GT(times.count(), 10);
    EXPECT_EQ(others.count(), 0);
}

TEST_F(StripOfASession, KeysScrubAFocusedSlider)
{
    loadAbove("/above.mp4");
    EXPECT_TRUE(scrub(Qt::Key_PageUp));
    EXPECT_DOUBLE_EQ(session->currentTime(), 3);
    EXPECT_TRUE(scrub(Qt::Key_PageUp, Qt::ShiftModifier));
    EXPECT_DOUBLE_EQ(session->currentTime(), 4);
    EXPECT_TRUE(scrub(Qt::Key_PageDown));
    EXPECT_DOUBLE_EQ(session->currentTime(), 1);
    EXPECT_TRUE(scrub(Qt::Key_End, Qt::KeypadModifier));
    EXPECT_DOUBLE_EQ(session->currentTime(), 60);
    EXPECT_TRUE(scrub(Qt::Key_Home));
    EXPECT_DOUBLE_EQ(session->currentTime(), 0);
    EXPECT_EQ(above().seeks.back().tolerance, SeekTolerance::zero);
}

TEST_F(StripOfASession, KeysThatScrubEndTheHintAsADragDoes)
{
    loadAbove("/above.mp4");
    scrub(Qt::Key_PageUp);
    EXPECT_TRUE(session->hasSliderBeenMoved());
    EXPECT_FALSE(session->isTimelineSliderDragging());
}

TEST_F(StripOfASession, OtherKeysAndThoseOfCommandsAreLeftAlone)
{
    loadAbove("/above.mp4");
    EXPECT_FALSE(scrub(Qt::Key_Left));
    EXPECT_FALSE(scrub(Qt::Key_Space));
    EXPECT_FALSE(scrub(Qt::Key_End, Qt::ControlModifier));
    EXPECT_FALSE(scrub(Qt::Key_End, Qt::AltModifier));
    EXPECT_DOUBLE_EQ(session->currentTime(), 0);
    EXPECT_FALSE(session->hasSliderBeenMoved());
}

TEST_F(StripOfASession, SliderThatIsOffTakesNoKeys)
{
    EXPECT_FALSE(scrub(Qt::Key_End));
    EXPECT_FALSE(session->hasSliderBeenMoved());
}

TEST_F(StripOfASession, KeysOnTheTrimmerSeekAndNothingMore)
{
    enterComposite(WorkflowStep::step4, {60, 10}, {30, 4});
    EXPECT_TRUE(model.hasTrimmer());
    EXPECT_TRUE(scrub(Qt::Key_End));
    EXPECT_DOUBLE_EQ(session->currentTime(), 30);
    EXPECT_FALSE(session->hasSliderBeenMoved());
}

TEST_F(StripOfASession, StepFourTellsTheLengthOfTheExport)
{
    enterComposite(WorkflowStep::step4, {60, 10}, {30, 4});
    QSignalSpy changed(&model, &TimelineModel::changed);
    edit([](VideoCompositionConfig& config) { config.exportTrimStartSeconds = 11.5; });
    EXPECT_GT(changed.count(), 0);
    EXPECT_EQ(model.lengthText(), QStringLiteral("0:18"));
    EXPECT_TRUE(model.lengthHasIcon());
    EXPECT_EQ(model.sliderBoxHeight(), 44);
}

}
}
