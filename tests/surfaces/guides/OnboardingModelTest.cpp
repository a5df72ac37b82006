// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/guides/OnboardingModel.h"

#include "session/SessionHarness.h"
#include "support/MemoryUserDefaults.h"

#include <QSignalSpy>

namespace zumeta {
namespace {

using namespace test;
using enum InteractiveOnboardingTarget;
using testing::Eq;

constexpr QSizeF kWindow(1400, 900);
const OnboardingAnchors kAnchors{{aboveDropArea, {275, 300, 460, 340}},     {timeline, {150, 850, 700, 30}},
                                 {lockButton, {1030, 400, 350, 48}},        {preview, {0, 74, 1010, 568}},
                                 {nextStepButton, {1030, 560, 350, 48}},    {step3Adjustments, {1030, 300, 350, 220}},
                                 {step4Adjustments, {1030, 250, 350, 200}}, {exportButton, {1030, 620, 350, 48}}};

/// The guide over a session in virtual time, for a newcomer behind the start screen. All controls are where a window
/// has them.
struct Guide : SessionTest {
    MemoryUserDefaults defaults;
    std::unique_ptr<OnboardingModel> guide;

    Guide()
    {
        session->setCameraSelectionConfirmed(true);
        restart();
    }
    void restart()
    {
        guide = std::make_unique<OnboardingModel>(*session, notifications, defaults);
        showControls();
    }
    void showControls(const OnboardingAnchors& anchors = kAnchors) { guide->setFrames({anchors, anchors}, kWindow); }
    void goTo(WorkflowStep step)
    {
        session->setCurrentStep(step);
        showControls();
    }
    /// What the card says; empty while none is shown.
    std::string title() const
    {
        return guide->isPresented() ? guide->firstCard()->titleKey().toStdString() : std::string();
    }
    std::string secondTitle() const
    {
        return guide->isPresented() && guide->secondCard()->isShown() ? guide->secondCard()->titleKey().toStdString()
                                                                      : std::string();
    }
    bool isStoredAsSeen() const { return defaults.boolean(kHasSeenFirstRunOnboardingKey).value_or(false); }
    void beginExport(const ExportScript& script)
    {
        exportScript = script;
        dialogs.savePlace = FileUrl("/nowhere/swim.mp4");
        session->exportVideo(false);
    }
};

TEST_F(Guide, BeginsWithTheVideo)
{
    EXPECT_EQ(title(), "Tutorial Above Drop Title");
    EXPECT_EQ(guide->firstCard()->messageKey(), QStringLiteral("Tutorial Above Drop Message"));
    EXPECT_EQ(guide->firstCard()->progress(), QStringLiteral("1 / 5"));
    EXPECT_EQ(secondTitle(), "");
}

TEST_F(Guide, FollowsTheSessionFromCardToCard)
{
    loadAbove("/above.mp4");
    EXPECT_EQ(title(), "Tutorial Timeline Title");
    session->setTimelineSliderDragging(true);
    session->seek(3, true);
    EXPECT_EQ(title(), "Tutorial Timeline Title");
    session->setTimelineSliderDragging(false);
    EXPECT_EQ(title(), "Tutorial Lock Title");
    session->toggleAboveLock();
    EXPECT_EQ(title(), "Tutorial Preview Title");
    session->onPickWaterline(0.5);
    advance(0.1);
    EXPECT_EQ(title(), "Tutorial Next Step Title");
    goTo(WorkflowStep::step2);
    EXPECT_EQ(title(), "Tutorial Below Drop Title");
    loadBelow("/below.mp4");
    session->seek(3, true);
    EXPECT_EQ(title(), "Tutorial Lock Title");
    session->toggleBelowLock();
    session->onPickWaterline(0.5);
    advance(0.1);
    EXPECT_EQ(title(), "Tutorial Step 2 Next Step Title");
    goTo(WorkflowStep::step3);
    EXPECT_EQ(title(), "Tutorial Step 3 Adjustments Title");
    EXPECT_EQ(secondTitle(), "Tutorial Step 3 Next Step Title");
    session->beginStep3Adjustment();
    EXPECT_EQ(title(), "Tutorial Step 3 Next Step Title");
    EXPECT_EQ(secondTitle(), "");
    goTo(WorkflowStep::step4);
    EXPECT_EQ(title(), "Tutorial Step 4 Trim Title");
    EXPECT_EQ(secondTitle(), "Tutorial Step 4 Export Title");
    session->markStep4ExportControlsInteracted();
    EXPECT_EQ(title(), "Tutorial Step 4 Export Title");
}

TEST_F(Guide, OfAUserWhoLocksFirstHasNoCardForTheSlider)
{
    loadAbove("/above.mp4");
    session->toggleAboveLock();
    EXPECT_EQ(title(), "Tutorial Preview Title");
}

TEST_F(Guide, WaitsForAVideoThatIsStillBeingLookedAt)
{
    const FileUrl url = media.add("/above.mp4", {});
    session->loadAboveVideo({url});
    showControls({{timeline, {150, 850, 700, 30}}}); // the card that takes videos is gone already
    EXPECT_EQ(title(), "");
    advance(5);
    EXPECT_EQ(title(), "Tutorial Timeline Title");
}

TEST_F(Guide, OnTheStartScreenShowsNothing)
{
    session->setCameraSelectionConfirmed(false);
    EXPECT_EQ(title(), "");
    session->setCameraSelectionConfirmed(true);
    EXPECT_EQ(title(), "Tutorial Above Drop Title");
}

TEST_F(Guide, ThatWasSeenShowsNothingAfterARestart)
{
    guide->skipGuide();
    restart();
    EXPECT_EQ(title(), "");
    EXPECT_FALSE(guide->showFirstRunOnboarding());
}

TEST_F(Guide, ThatIsSkippedEndsForGood)
{
    guide->skipGuide();
    EXPECT_EQ(title(), "");
    EXPECT_TRUE(isStoredAsSeen());
    loadAbove("/above.mp4");
    EXPECT_EQ(title(), "");
}

TEST_F(Guide, ACardThatWasWavedAwayStaysAwayInThisRun)
{
    loadAbove("/above.mp4");
    guide->dismissGuide();
    EXPECT_EQ(title(), "");
    EXPECT_FALSE(isStoredAsSeen());
    session->setHasSliderBeenMoved(true);
    EXPECT_EQ(title(), "Tutorial Lock Title"); // another one comes
    session->setHasSliderBeenMoved(false);
    EXPECT_EQ(title(), "");
    restart();
    EXPECT_EQ(title(), "Tutorial Timeline Title");
}

TEST_F(Guide, BothCardsAreWavedAwayTogether)
{
    goTo(WorkflowStep::step3);
    guide->dismissGuide();
    EXPECT_EQ(title(), "");
    session->beginStep3Adjustment();
    EXPECT_EQ(title(), "Tutorial Step 3 Next Step Title");
}

TEST_F(Guide, WavingAwayTwiceLeavesTheNextCardAlone)
{
    guide->dismissGuide();
    guide->dismissGuide();
    loadAbove("/above.mp4");
    EXPECT_EQ(title(), "Tutorial Timeline Title");
}

TEST_F(Guide, IsShownAgainWhenItIsAskedFor)
{
    guide->dismissGuide();
    guide->skipGuide();
    post(notifications::kShowFirstRunGuide);
    EXPECT_EQ(title(), "Tutorial Above Drop Title");
    EXPECT_FALSE(isStoredAsSeen());
    EXPECT_EQ(defaults.boolean(kHasSeenFirstRunOnboardingKey), false);
}

TEST_F(Guide, AskedForOnTheStartScreenStaysAsItIs)
{
    guide->skipGuide();
    session->setCameraSelectionConfirmed(false);
    post(notifications::kShowFirstRunGuide);
    EXPECT_TRUE(isStoredAsSeen());
    session->setCameraSelectionConfirmed(true);
    EXPECT_EQ(title(), "");
}

TEST_F(Guide, IsOverOnceAMovieIsFinished)
{
    enterComposite(WorkflowStep::step4, {20, 5}, {18, 3});
    showControls();
    ASSERT_EQ(title(), "Tutorial Step 4 Trim Title");
    beginExport({});
    advance(2);
    EXPECT_TRUE(session->isExporting());
    EXPECT_EQ(title(), ""); // rests meanwhile
    EXPECT_FALSE(isStoredAsSeen());
    advance(60);
    ASSERT_FALSE(session->isExporting());
    EXPECT_TRUE(isStoredAsSeen());
    EXPECT_EQ(title(), "");
}

TEST_F(Guide, GoesOnAfterAnExportThatWasGivenUp)
{
    enterComposite(WorkflowStep::step4, {20, 5}, {18, 3});
    showControls();
    beginExport({});
    advance(2);
    session->cancelExport();
    advance(2);
    EXPECT_FALSE(isStoredAsSeen());
    EXPECT_EQ(title(), "Tutorial Step 4 Trim Title");
}

TEST_F(Guide, ShowsNothingWhereItsControlIsNot)
{
    showControls({{lockButton, {1030, 400, 350, 48}}});
    EXPECT_EQ(title(), "");
    EXPECT_TRUE(guide->showFirstRunOnboarding()); // still to come
    showControls();
    EXPECT_EQ(title(), "Tutorial Above Drop Title");
}

TEST_F(Guide, OfTwoCardsOneMayPointAtWhatIsOutOfSight)
{
    OnboardingAnchors seen = kAnchors;
    seen.erase(nextStepButton);
    session->setCurrentStep(WorkflowStep::step3);
    guide->setFrames({kAnchors, seen}, kWindow);
    EXPECT_EQ(secondTitle(), "Tutorial Step 3 Next Step Title");
    EXPECT_EQ(guide->spotlight().targets.size(), 1U);
    EXPECT_EQ(guide->secondCard()->frame().bottom(), 560 - 18); // stays beside its button
}

TEST_F(Guide, WaitsForTheControlsOfANewStep)
{
    session->setCurrentStep(WorkflowStep::step3); // the button to the next step was in the panel before
    EXPECT_EQ(title(), "");
    showControls();
    EXPECT_EQ(title(), "Tutorial Step 3 Adjustments Title");
}

TEST_F(Guide, PlacesItsCardByItsHeight)
{
    loadAbove("/above.mp4");
    session->setHasSliderBeenMoved(true);
    EXPECT_EQ(guide->firstCard()->frame(), QRectF(1400 - 324, 400 - 18 - 190, 300, 190));
    guide->firstCard()->setContentHeight(231.5);
    EXPECT_EQ(guide->firstCard()->frame(), QRectF(1400 - 324, 151, 300, 232)); // whole pixels
}

TEST_F(Guide, HoldsItsHolesToControlsThatMove)
{
    const QSignalSpy moves(guide.get(), &OnboardingModel::spotlightMoved);
    const QSignalSpy cards(guide.get(), &OnboardingModel::cardChanged);
    OnboardingAnchors moved = kAnchors;
    moved[aboveDropArea].translate(0, -20);
    showControls(moved);
    showControls(moved);
    EXPECT_EQ(moves.size(), 1);
    EXPECT_EQ(cards.size(), 0);
    EXPECT_EQ(guide->spotlight().targets.front().rect.top(), 300 - 20 - 4);
}

TEST_F(Guide, AsksOnceThatTheControlsOfANewCardAreInSight)
{
    const QSignalSpy asked(guide.get(), &OnboardingModel::sightWanted);
    loadAbove("/above.mp4");
    EXPECT_EQ(asked.size(), 0); // the slider is always
    session->setHasSliderBeenMoved(true);
    showControls();
    EXPECT_EQ(asked.size(), 1);
    OnboardingAnchors scrolled = kAnchors;
    scrolled[lockButton].translate(0, -100);
    showControls(scrolled);
    EXPECT_EQ(asked.size(), 1);
    EXPECT_EQ(asked.at(0).at(0).toRectF(), kAnchors.at(lockButton));
    session->setCurrentStep(WorkflowStep::step3);
    showControls();
    ASSERT_EQ(asked.size(), 2);
    EXPECT_EQ(asked.at(1).at(0).toRectF(), QRectF(1030, 300, 350, 308));
}

}
}
