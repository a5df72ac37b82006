// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/ProjectTest.h"

namespace zumeta {
namespace {

using namespace test;
using testing::ElementsAre;

/// A project of which one side or both are missing.
struct Reconnecting : ProjectTest {
    const FileUrl replacement = media.add("/found/above.mp4", {});
    const FileUrl belowReplacement = media.add("/found/below.mp4", {});

    void openWithout(std::set<std::string> gone)
    {
        bookmarks.gone = std::move(gone);
        open(project());
    }
};

TEST_F(Reconnecting, KeepsAllWork)
{
    openWithout({"/above.mp4"});
    session->reconnectAboveVideo({replacement});
    advance(5);
    EXPECT_EQ(session->projectConfig(), project().projectConfig);
    EXPECT_EQ(session->projectState().projectConfig, project().projectConfig);
    expectLocks(14, 10);
    EXPECT_EQ(session->relativeWaterlineHeight(), 10);
    EXPECT_FALSE(session->isAboveMissing());
    EXPECT_FALSE(session->showMissingFileAlert());
    EXPECT_EQ(session->currentStep(), WorkflowStep::step3);
    EXPECT_EQ(session->duration(), 56);
    EXPECT_THAT(filesIn(above()), ElementsAre("/found/above.mp4"));
    EXPECT_EQ(session->projectState().aboveVideo->fileURL(), replacement);
}

TEST_F(Reconnecting, KeepsWhatWasAdjustedWhileTheVideoWasMissing)
{
    openWithout({"/below.mp4"});
    session->setBlendAmount(33);
    session->reconnectBelowVideo({belowReplacement});
    advance(5);
    EXPECT_EQ(session->blendAmount(), 33);
    EXPECT_EQ(session->projectConfig().exportTrimStartSeconds, 3);
    EXPECT_EQ(session->projectConfig().exportTrimEndSeconds, 5);
    EXPECT_EQ(session->currentStep(), WorkflowStep::step3);
}

TEST_F(Reconnecting, KeepsTheBasesWhateverStepsAreTakenMeanwhile)
{
    openWithout({"/above.mp4"});
    session->reconnectAboveVideo({replacement});
    session->setCurrentStep(WorkflowStep::step2);
    session->setCurrentStep(WorkflowStep::step3);
    ASSERT_EQ(session->relativeWaterlineHeight(), 0);
    advance(5);
    EXPECT_EQ(session->relativeWaterlineHeight(), 10);
}

TEST_F(Reconnecting, OneSideLeavesTheDialogWhileTheOtherIsMissing)
{
    openWithout({"/above.mp4", "/below.mp4"});
    session->reconnectAboveVideo({replacement});
    advance(5);
    EXPECT_FALSE(session->isAboveMissing());
    EXPECT_TRUE(session->isBelowMissing());
    EXPECT_TRUE(session->showMissingFileAlert());
    EXPECT_EQ(session->currentStep(), WorkflowStep::step1); // there is no below video
}

TEST_F(Reconnecting, BothSidesOneAfterTheOtherBringBackTheWhole)
{
    for (const bool aboveFirst : {true, false}) {
        openWithout({"/above.mp4", "/below.mp4"});
        if (aboveFirst) {
            session->reconnectAboveVideo({replacement});
            advance(5);
            session->reconnectBelowVideo({belowReplacement});
        } else {
            session->reconnectBelowVideo({belowReplacement});
            advance(5);
            EXPECT_EQ(session->currentStep(), WorkflowStep::step1); // there is no above video
            session->reconnectAboveVideo({replacement});
        }
        advance(5);
        EXPECT_EQ(session->projectConfig(), project().projectConfig);
        expectLocks(14, 10);
        EXPECT_FALSE(session->showMissingFileAlert());
        EXPECT_EQ(session->currentStep(), WorkflowStep::step3);
        session->resetProject();
    }
}

TEST_F(Reconnecting, AnUnsyncedProjectGoesToStepTwo)
{
    bookmarks.gone = {"/above.mp4"};
    ProjectState state = project();
    state.projectConfig.isSynced = false;
    open(state);
    session->reconnectAboveVideo({replacement});
    advance(5);
    EXPECT_EQ(session->currentStep(), WorkflowStep::step2);
    EXPECT_EQ(session->manualSyncTimeAbove(), std::nullopt);
}

TEST_F(Reconnecting, WithoutFilesDoesNothing)
{
    openWithout({"/above.mp4"});
    session->reconnectAboveVideo({});
    advance(5);
    EXPECT_TRUE(session->isAboveMissing());
}

TEST_F(Reconnecting, IsNotAskedForAnyMoreAfterAReset)
{
    openWithout({"/above.mp4", "/below.mp4"});
    session->resetProject();
    EXPECT_FALSE(session->isAboveMissing());
    EXPECT_FALSE(session->isBelowMissing());
    EXPECT_FALSE(session->showMissingFileAlert());
}

TEST_F(Reconnecting, IsNotOverBeforeHalfASecondAfterTheLoad)
{
    media.add("/found/above.mp4", {.assetDelay = 0.05, .metadataDelay = 0.1});
    openWithout({"/above.mp4"});
    session->reconnectAboveVideo({replacement});
    advance(0.6);
    EXPECT_TRUE(session->isAboveMissing());
    advance(0.3);
    EXPECT_FALSE(session->isAboveMissing());
}

TEST_F(Reconnecting, ASecondOneForTheSameSideTakesOver)
{
    const FileUrl second = media.add("/found/second.mp4", {});
    for (double moment = 0; moment < 1; moment += 0.01) {
        openWithout({"/above.mp4"});
        session->reconnectAboveVideo({replacement});
        advance(moment);
        const bool isOver = !session->isAboveMissing();
        session->reconnectAboveVideo({second});
        if (!isOver) {
            advance(0.5);
            EXPECT_TRUE(session->isAboveMissing()) << moment; // the first one has changed nothing
        }
        advance(5);
        EXPECT_THAT(filesIn(above()), ElementsAre("/found/second.mp4")) << moment;
        EXPECT_EQ(session->projectConfig(), project().projectConfig) << moment;
        expectLocks(14, 10);
        session->resetProject();
    }
}

TEST_F(Reconnecting, BothSidesAtOnceBringBackTheWhole)
{
    for (double moment = 0; moment < 1; moment += 0.01) {
        openWithout({"/above.mp4", "/below.mp4"});
        session->reconnectAboveVideo({replacement});
        advance(moment);
        session->reconnectBelowVideo({belowReplacement});
        advance(5);
        EXPECT_EQ(session->projectConfig(), project().projectConfig) << moment;
        expectLocks(14, 10);
        EXPECT_EQ(session->currentStep(), WorkflowStep::step3) << moment;
        EXPECT_FALSE(session->showMissingFileAlert()) << moment;
        session->resetProject();
    }
}

TEST_F(Reconnecting, AVideoThatIsLoadedMeanwhileTakesOver)
{
    const FileUrl other = media.add("/other.mp4", {});
    openWithout({"/above.mp4"});
    session->reconnectAboveVideo({replacement});
    advance(0.3);
    session->loadAboveVideo({other});
    advance(5);
    EXPECT_THAT(filesIn(above()), ElementsAre("/other.mp4"));
    EXPECT_FALSE(session->projectConfig().isSynced); // as after any load
}

TEST_F(Reconnecting, TakesSeveralChapters)
{
    const FileUrl second = media.add("/found/above2.mp4", {});
    openWithout({"/above.mp4"});
    session->reconnectAboveVideo({replacement, second});
    advance(5);
    EXPECT_THAT(filesIn(above()), ElementsAre("/found/above.mp4", "/found/above2.mp4"));
    EXPECT_THAT(fileAccess.started, testing::IsSupersetOf({replacement, second}));
}

TEST_F(Reconnecting, TheNextSaveMakesItsBookmarksAnew)
{
    openWithout({"/above.mp4"});
    session->reconnectAboveVideo({replacement});
    advance(5);
    session->prepareProjectForSave();
    advance(1);
    EXPECT_THAT(*session->projectState().aboveVideo->bookmarkDataList,
                ElementsAre(FakeBookmarks::of("/found/above.mp4")));
}

TEST_F(Reconnecting, ASessionThatEndsMeanwhileIsLeftInPeace)
{
    for (double moment = 0; moment < 1; moment += 0.05) {
        SessionHarness other;
        const FileUrl file = other.media.add("/above.mp4", {});
        other.session->reconnectAboveVideo({file});
        other.advance(moment);
        other.session.reset();
        other.advance(5);
        EXPECT_TRUE(other.dialogs.alerts.empty());
    }
}

}
}
