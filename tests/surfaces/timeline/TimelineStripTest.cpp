// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/timeline/TimelineStrip.h"

#include <gtest/gtest.h>

namespace zumeta {
namespace {

using WorkflowStep = PublishedFields::WorkflowStep;
constexpr WorkflowStep kAllSteps[] = {WorkflowStep::step1, WorkflowStep::step2, WorkflowStep::step3,
                                      WorkflowStep::step4};
constexpr WorkflowStep kSideSteps[] = {WorkflowStep::step1, WorkflowStep::step2};

TimelineFacts loaded(WorkflowStep step)
{
    return {.step = step, .sideHasVideo = true};
}

TEST(TimelineStrip, OnlyStepFourHasTheTrimmer)
{
    for (const WorkflowStep step : kAllSteps) {
        const bool isStep4 = step == WorkflowStep::step4;
        EXPECT_EQ(timelineSlider(step), isStep4 ? TimelineSlider::trimmer : TimelineSlider::simple);
        EXPECT_EQ(sliderBoxHeight(step), isStep4 ? 44 : 30);
    }
}

TEST(TimelineStrip, TheSliderIsOffOnceItsSideIsLocked)
{
    for (const WorkflowStep step : kSideSteps) {
        TimelineFacts facts = loaded(step);
        EXPECT_EQ(sliderAvailability(facts), SliderAvailability::enabled);
        facts.sideIsLocked = true;
        EXPECT_EQ(sliderAvailability(facts), SliderAvailability::disabled);
    }
}

TEST(TimelineStrip, TheSliderIsOffWithoutAVideo)
{
    for (const WorkflowStep step : kSideSteps)
        EXPECT_EQ(sliderAvailability({.step = step}), SliderAvailability::disabled);
}

TEST(TimelineStrip, StepThreeNeverDisablesTheSlider)
{
    EXPECT_EQ(sliderAvailability({.step = WorkflowStep::step3, .sideHasVideo = false, .sideIsLocked = true}),
              SliderAvailability::enabled);
}

TEST(ThumbDragHint, ShowsWhileTheLandmarkIsToBeFound)
{
    for (const WorkflowStep step : kSideSteps)
        EXPECT_TRUE(showsThumbDragHint(loaded(step), ThumbDragHint::isWanted));
}

TEST(ThumbDragHint, NeedsEveryOneOfItsConditions)
{
    for (const WorkflowStep step : kSideSteps) {
        EXPECT_FALSE(showsThumbDragHint(loaded(step), ThumbDragHint::isNotWanted));
        TimelineFacts locked = loaded(step);
        locked.sideIsLocked = true;
        EXPECT_FALSE(showsThumbDragHint(locked, ThumbDragHint::isWanted));
        TimelineFacts moved = loaded(step);
        moved.hasSliderBeenMoved = true;
        EXPECT_FALSE(showsThumbDragHint(moved, ThumbDragHint::isWanted));
        EXPECT_FALSE(showsThumbDragHint({.step = step}, ThumbDragHint::isWanted));
    }
}

TEST(ThumbDragHint, IsNoneOfTheLaterSteps)
{
    EXPECT_FALSE(showsThumbDragHint(loaded(WorkflowStep::step3), ThumbDragHint::isWanted));
    EXPECT_FALSE(showsThumbDragHint(loaded(WorkflowStep::step4), ThumbDragHint::isWanted));
}

TEST(ThumbDragHint, StandsUnderTheThumbFortyBelowTheMiddle)
{
    const SliderScale scale = SliderScale::of(400, 20);
    EXPECT_EQ(hintCentre(scale, 5), QPointF(100, 55));
    EXPECT_EQ(hintCentre(scale, 20), QPointF(389.5, 55));
}

TEST(ThumbDragHint, IsNotAnimatedDuringADrag)
{
    SliderGesture gesture;
    EXPECT_TRUE(hintIsAnimated(gesture));
    gesture.press(10, SliderScale::of(400, 20), SliderAvailability::enabled);
    EXPECT_FALSE(hintIsAnimated(gesture));
    gesture.cancel();
    EXPECT_TRUE(hintIsAnimated(gesture));
}

TEST(ThumbDragHint, HasRoomInTheStrip)
{
    EXPECT_EQ(stripHeight(false), 68);
    EXPECT_EQ(stripHeight(true), 104);
    constexpr double kHalfOfTheHint = 13;
    const double sliderTop = (stripHeight(false) - sliderBoxHeight(WorkflowStep::step1)) / 2;
    EXPECT_LE(sliderTop + hintCentre(SliderScale::of(400, 20), 0).y() + kHalfOfTheHint, stripHeight(true));
}

TEST(TimelineStrip, TheLengthIsTheSourcesAndInStepFourTheExports)
{
    for (const WorkflowStep step : {WorkflowStep::step1, WorkflowStep::step2, WorkflowStep::step3})
        EXPECT_EQ(lengthText(step, 90.5, 18), QStringLiteral("01:30.15"));
    EXPECT_EQ(lengthText(WorkflowStep::step4, 90.5, 18.6), QStringLiteral("0:18"));
}

TEST(TimelineStrip, OnlyTheExportsLengthHasAnIcon)
{
    for (const WorkflowStep step : kAllSteps)
        EXPECT_EQ(lengthHasIcon(step), step == WorkflowStep::step4);
}

TEST(TimelineStrip, FullScreenIsOfferedInTheLastTwoSteps)
{
    for (const WorkflowStep step : kAllSteps)
        EXPECT_EQ(showsFullScreenButton(step), step >= WorkflowStep::step3);
}

TEST(TimelineStrip, ButtonsShowWhatTheyDo)
{
    EXPECT_EQ(playButtonIcon(true), QStringLiteral("pause.fill"));
    EXPECT_EQ(playButtonIcon(false), QStringLiteral("play.fill"));
    EXPECT_EQ(fullScreenIcon(true), QStringLiteral("arrow.down.right.and.arrow.up.left"));
    EXPECT_EQ(fullScreenIcon(false), QStringLiteral("arrow.up.left.and.arrow.down.right"));
    EXPECT_EQ(fullScreenTooltip(true), QStringLiteral("Exit Full Screen"));
    EXPECT_EQ(fullScreenTooltip(false), QStringLiteral("Enter Full Screen"));
}

}
}
