// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/guides/OnboardingGuide.h"

#include "languages/Translations.h"

#include <gmock/gmock.h>

namespace zumeta {
namespace {

using Step = PublishedFields::WorkflowStep;
using Key = InteractiveOnboardingGuideKey;
using enum InteractiveOnboardingTarget;
using testing::ElementsAre;
using testing::Eq;
using testing::IsEmpty;

/// A newcomer behind the start screen.
OnboardingFacts newcomer(Step step = Step::step1)
{
    OnboardingFacts facts;
    facts.isCameraSelectionConfirmed = true;
    facts.currentStep = step;
    return facts;
}

OnboardingFacts withVideo(Step step = Step::step1)
{
    OnboardingFacts facts = newcomer(step);
    facts.sideHasVideo = true;
    return facts;
}

TEST(OnboardingGuide, BeginsWithTheDropAreaOnBothSides)
{
    EXPECT_THAT(currentOnboardingGuideKey(newcomer(Step::step1)), Eq(Key(aboveDropArea)));
    EXPECT_THAT(currentOnboardingGuideKey(newcomer(Step::step2)), Eq(Key(aboveDropArea)));
}

TEST(OnboardingGuide, TellsNothingOnTheStartScreen)
{
    OnboardingFacts facts = newcomer();
    facts.isCameraSelectionConfirmed = false;
    EXPECT_EQ(currentOnboardingGuideKey(facts), std::nullopt);
}

TEST(OnboardingGuide, TellsNothingOnceItWasSeen)
{
    OnboardingFacts facts = newcomer();
    facts.hasSeenFirstRunOnboarding = true;
    EXPECT_EQ(currentOnboardingGuideKey(facts), std::nullopt);
}

TEST(OnboardingGuide, TellsNothingWhereItIsNotEnabled)
{
    OnboardingFacts facts = newcomer();
    facts.isFirstRunOnboardingEnabled = false;
    EXPECT_EQ(currentOnboardingGuideKey(facts), std::nullopt);
}

TEST(OnboardingGuide, AsksForTheSliderOnceThereIsAVideo)
{
    EXPECT_THAT(currentOnboardingGuideKey(withVideo()), Eq(Key(timeline)));
}

TEST(OnboardingGuide, AsksForTheLockOnceTheSliderWasMoved)
{
    OnboardingFacts facts = withVideo();
    facts.hasSliderBeenMoved = true;
    EXPECT_THAT(currentOnboardingGuideKey(facts), Eq(Key(lockButton)));
}

TEST(OnboardingGuide, AsksForTheLockFromATenthOfASecondOn)
{
    OnboardingFacts facts = withVideo(Step::step2);
    facts.currentTime = 0.099;
    EXPECT_THAT(currentOnboardingGuideKey(facts), Eq(Key(timeline)));
    facts.currentTime = 0.1;
    EXPECT_THAT(currentOnboardingGuideKey(facts), Eq(Key(lockButton)));
}

TEST(OnboardingGuide, StaysWithTheSliderWhileItIsDragged)
{
    OnboardingFacts facts = withVideo();
    facts.hasSliderBeenMoved = true;
    facts.currentTime = 5;
    facts.isTimelineSliderDragging = true;
    EXPECT_THAT(currentOnboardingGuideKey(facts), Eq(Key(timeline)));
}

TEST(OnboardingGuide, SkipsTheSliderForAUserWhoLocksFirst)
{
    OnboardingFacts facts = withVideo();
    facts.sideIsLocked = true;
    EXPECT_THAT(currentOnboardingGuideKey(facts), Eq(Key(preview)));
}

TEST(OnboardingGuide, LeadsOnOnceTheWaterIsPicked)
{
    OnboardingFacts facts = withVideo(Step::step2);
    facts.sideIsLocked = true;
    facts.sideHasAlignmentPoint = true;
    EXPECT_THAT(currentOnboardingGuideKey(facts), Eq(Key(nextStepButton)));
}

TEST(OnboardingGuide, ShowsTwoCardsUntilSomethingIsAdjusted)
{
    EXPECT_THAT(currentOnboardingGuideKey(newcomer(Step::step3)), Eq(Key(SimultaneousGuide{Step::step3})));
    EXPECT_THAT(currentOnboardingGuideKey(newcomer(Step::step4)), Eq(Key(SimultaneousGuide{Step::step4})));
    EXPECT_THAT(cardTargets(SimultaneousGuide{Step::step3}), ElementsAre(step3Adjustments, nextStepButton));
    EXPECT_THAT(cardTargets(SimultaneousGuide{Step::step4}), ElementsAre(step4Adjustments, exportButton));
}

TEST(OnboardingGuide, ShowsTheWayOutOnceSomethingIsAdjusted)
{
    OnboardingFacts facts = newcomer(Step::step3);
    facts.hasInteractedWithStep3Adjustments = true;
    EXPECT_THAT(currentOnboardingGuideKey(facts), Eq(Key(nextStepButton)));
    facts.currentStep = Step::step4; // what was adjusted in the step before does not count here
    EXPECT_THAT(currentOnboardingGuideKey(facts), Eq(Key(SimultaneousGuide{Step::step4})));
    facts.hasInteractedWithStep4ExportControls = true;
    EXPECT_THAT(currentOnboardingGuideKey(facts), Eq(Key(exportButton)));
}

TEST(OnboardingGuide, LeavesTheSliderInReachWhileTheLockIsAskedFor)
{
    EXPECT_THAT(silentTargets(lockButton), ElementsAre(timeline));
    EXPECT_THAT(silentTargets(timeline), ElementsAre(timelineInstruction));
    EXPECT_THAT(silentTargets(preview), IsEmpty());
    EXPECT_THAT(silentTargets(SimultaneousGuide{Step::step3}), IsEmpty());
}

struct CardCase {
    InteractiveOnboardingTarget target;
    Step step;
    const char* title;
    const char* message;
    const char* progress;
};

class OnboardingCardTexts : public testing::TestWithParam<CardCase> {};

TEST_P(OnboardingCardTexts, NameTheControlAndHowFarTheUserIs)
{
    const CardCase& expected = GetParam();
    const OnboardingCardText text = onboardingCardText(expected.target, expected.step);
    EXPECT_EQ(text.titleKey.toStdString(), expected.title);
    EXPECT_EQ(text.messageKey.toStdString(), expected.message);
    EXPECT_EQ(text.progress.toStdString(), expected.progress);
    EXPECT_TRUE(Translations::compiled().contains(text.titleKey));
    EXPECT_TRUE(Translations::compiled().contains(text.messageKey));
}

INSTANTIATE_TEST_SUITE_P(
    Every, OnboardingCardTexts,
    testing::Values(
        CardCase{aboveDropArea, Step::step1, "Tutorial Above Drop Title", "Tutorial Above Drop Message", "1 / 5"},
        CardCase{aboveDropArea, Step::step2, "Tutorial Below Drop Title", "Tutorial Below Drop Message", "1 / 5"},
        CardCase{timeline, Step::step1, "Tutorial Timeline Title", "Tutorial Timeline Message", "2 / 5"},
        CardCase{lockButton, Step::step2, "Tutorial Lock Title", "Tutorial Lock Message", "3 / 5"},
        CardCase{preview, Step::step1, "Tutorial Preview Title", "Tutorial Preview Message", "4 / 5"},
        CardCase{nextStepButton, Step::step1, "Tutorial Next Step Title", "Tutorial Next Step Message", "5 / 5"},
        CardCase{nextStepButton, Step::step2, "Tutorial Step 2 Next Step Title", "Tutorial Step 2 Next Step Message",
                 "5 / 5"},
        CardCase{nextStepButton, Step::step3, "Tutorial Step 3 Next Step Title", "Tutorial Step 3 Next Step Message",
                 "2 / 2"},
        CardCase{step3Adjustments, Step::step3, "Tutorial Step 3 Adjustments Title",
                 "Tutorial Step 3 Adjustments Message", "1 / 2"},
        CardCase{step4Adjustments, Step::step4, "Tutorial Step 4 Trim Title", "Tutorial Step 4 Trim Message", "1 / 2"},
        CardCase{exportButton, Step::step4, "Tutorial Step 4 Export Title", "Tutorial Step 4 Export Message",
                 "2 / 2"}));

}
}
