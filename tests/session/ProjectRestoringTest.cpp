// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/ProjectTest.h"

namespace zumeta {
namespace {

using namespace test;
using testing::ElementsAre;
using testing::IsEmpty;

struct ProjectRestoring : ProjectTest {
    ProjectRestoring()
    {
        QObject::connect(session.get(), &CompositorViewModel::projectRestored, [this] { ends.push_back("restored"); });
        QObject::connect(session.get(), &CompositorViewModel::projectLoadFailed,
                         [this](const QString& error) { ends.push_back("failed: " + error.toStdString()); });
    }
    std::vector<std::string> ends; ///< of openings
};

TEST_F(ProjectRestoring, BringsBackValuesVideosLocksAndStep)
{
    const ProjectState state = project();
    open(state);
    EXPECT_EQ(session->currentStep(), WorkflowStep::step3);
    EXPECT_EQ(session->projectConfig(), state.projectConfig);
    EXPECT_EQ(session->projectState(), [&] {
        ProjectState expected = state;
        expected.aboveVideo = session->projectState().aboveVideo;
        expected.belowVideo = session->projectState().belowVideo;
        return expected;
    }());
    expectLocks(14, 10);
    EXPECT_THAT(filesIn(above()), ElementsAre("/above.mp4"));
    EXPECT_THAT(filesIn(below()), ElementsAre("/below.mp4"));
    EXPECT_EQ(session->duration(), 56);
    EXPECT_EQ(session->currentTime(), 0);
    EXPECT_EQ(above().currentTime().seconds(), 4);
    EXPECT_EQ(below().currentTime().seconds(), 0);
    EXPECT_EQ(session->relativeWaterlineHeight(), 10);
    EXPECT_EQ(session->relativeAboveOffset(), 10);
    EXPECT_EQ(session->relativeAboveHorizontalOffset(), 5);
    EXPECT_TRUE(hasLogged(QStringLiteral("Project loaded from /swims/swim.zumetaproj")));
}

TEST_F(ProjectRestoring, IsInForceHalfASecondAfterTheLoadsBegan)
{
    open(project(), projectFiles.delay + bookmarks.delay + 0.49);
    EXPECT_EQ(session->currentStep(), WorkflowStep::step1);
    advance(0.02);
    EXPECT_EQ(session->currentStep(), WorkflowStep::step3);
}

TEST_F(ProjectRestoring, AFileWithNeitherVideoGivesItsValuesAndNothingElse)
{
    open(projectOf(std::nullopt, std::nullopt));
    EXPECT_EQ(session->projectConfig().waterlineHeight, 310);
    EXPECT_FALSE(session->showMissingFileAlert());
    EXPECT_EQ(session->currentStep(), WorkflowStep::step1);
    EXPECT_EQ(session->viewMode(), ViewMode::split); // no change of step has run
}

TEST_F(ProjectRestoring, AFileWithOnlyAnAboveVideoOpensInStepOneWhateverItsLocks)
{
    open(projectOf(assetOf({"/above.mp4"}), std::nullopt));
    EXPECT_TRUE(session->projectConfig().isSynced);
    EXPECT_EQ(session->currentStep(), WorkflowStep::step1);
    EXPECT_EQ(session->viewMode(), ViewMode::aboveOnly);
    EXPECT_EQ(session->currentTime(), 14);
    EXPECT_EQ(above().currentTime().seconds(), 14);
    EXPECT_FALSE(session->isBelowMissing());
}

TEST_F(ProjectRestoring, AFileWithBothVideosThatAreNotSyncedOpensInStepTwo)
{
    ProjectState state = project();
    state.projectConfig.isSynced = false;
    open(state);
    EXPECT_EQ(session->currentStep(), WorkflowStep::step2);
    EXPECT_EQ(session->manualSyncTimeAbove(), std::nullopt);
    EXPECT_EQ(session->manualSyncTimeBelow(), std::nullopt);
    EXPECT_EQ(session->projectConfig(), state.projectConfig);
}

TEST_F(ProjectRestoring, AMissingAboveVideoLeavesTheBelowOneAndShowsTheDialog)
{
    bookmarks.gone = {"/above.mp4"};
    open(project(), projectFiles.delay + bookmarks.delay + 0.001);
    EXPECT_TRUE(session->showMissingFileAlert()); // before anything is loaded
    EXPECT_EQ(session->belowVideoURL(), FileUrl("/below.mp4"));
    advance(5);
    EXPECT_TRUE(session->isAboveMissing());
    EXPECT_FALSE(session->isBelowMissing());
    EXPECT_TRUE(session->showMissingFileAlert());
    EXPECT_EQ(session->aboveVideoURL(), std::nullopt);
    EXPECT_EQ(session->currentStep(), WorkflowStep::step3);
    EXPECT_TRUE(hasLogged(QStringLiteral("❌ Failed to resolve bookmark: Not found: /above.mp4")));
    EXPECT_TRUE(hasLogged(QStringLiteral("❌ Failed to resolve bookmark for Above Video")));
    EXPECT_FALSE(hasLogged(QStringLiteral("❌ Failed to resolve bookmark for Below Video")));
}

TEST_F(ProjectRestoring, AMissingBelowVideoOfAnUnsyncedProjectLeavesStepOne)
{
    bookmarks.gone = {"/below.mp4"};
    ProjectState state = project();
    state.projectConfig.isSynced = false;
    open(state);
    EXPECT_TRUE(session->isBelowMissing());
    EXPECT_EQ(session->currentStep(), WorkflowStep::step1);
    EXPECT_TRUE(hasLogged(QStringLiteral("❌ Failed to resolve bookmark for Below Video")));
}

TEST_F(ProjectRestoring, AMissingAboveVideoOfAnUnsyncedProjectOpensInStepTwo)
{
    bookmarks.gone = {"/above.mp4"};
    ProjectState state = project();
    state.projectConfig.isSynced = false;
    open(state);
    EXPECT_TRUE(session->isAboveMissing());
    EXPECT_EQ(session->currentStep(), WorkflowStep::step2);
}

TEST_F(ProjectRestoring, AnEmptyListOfBookmarksFallsBackToTheSingleOne)
{
    ProjectState state = project();
    state.aboveVideo->bookmarkDataList->clear();
    open(state);
    EXPECT_EQ(session->aboveVideoURL(), FileUrl("/above.mp4"));
    EXPECT_FALSE(session->isAboveMissing());
}

TEST_F(ProjectRestoring, ASideWithoutAnyBookmarkIsMissing)
{
    ProjectState state = project();
    state.aboveVideo->bookmarkDataList.reset();
    state.aboveVideo->bookmarkData.reset();
    open(state);
    EXPECT_TRUE(session->isAboveMissing());
    EXPECT_EQ(session->belowVideoURL(), FileUrl("/below.mp4"));
}

TEST_F(ProjectRestoring, OfThreeChaptersTheTwoThatAreFoundOpenWithoutAWord)
{
    media.add("/1.mp4", {.duration = 10});
    media.add("/3.mp4", {.duration = 30});
    bookmarks.gone = {"/2.mp4"};
    open(projectOf(assetOf({"/1.mp4", "/2.mp4", "/3.mp4"}), assetOf({"/below.mp4"})));
    EXPECT_THAT(filesIn(above()), ElementsAre("/1.mp4", "/3.mp4"));
    EXPECT_THAT(session->projectState().aboveVideo->fileURLs, ElementsAre(FileUrl("/1.mp4"), FileUrl("/3.mp4")));
    EXPECT_FALSE(session->showMissingFileAlert());
    EXPECT_THAT(dialogs.alerts, IsEmpty());
}

TEST_F(ProjectRestoring, AFileThatCannotBeReadIsLeftOutSilently)
{
    media.add("/1.mp4", {});
    media.add("/2.mp4", {});
    fileAccess.refused = {"/1.mp4"};
    open(projectOf(assetOf({"/1.mp4", "/2.mp4"}), assetOf({"/below.mp4"})));
    EXPECT_THAT(filesIn(above()), ElementsAre("/2.mp4"));
    EXPECT_FALSE(hasLogged(QStringLiteral("❌")));
}

TEST_F(ProjectRestoring, MovedMediaPlaysAndExportsFromItsNewPlace)
{
    media.add("/moved/above.mp4", {});
    bookmarks.moved = {{"/above.mp4", "/moved/above.mp4"}};
    const ProjectState state = project();
    open(state);
    const VideoAsset& asset = *session->projectState().aboveVideo;
    EXPECT_THAT(filesIn(above()), ElementsAre("/moved/above.mp4"));
    EXPECT_THAT(asset.fileURLs, ElementsAre(FileUrl("/moved/above.mp4")));
    EXPECT_EQ(asset.id, state.aboveVideo->id);
    EXPECT_TRUE(hasLogged(QStringLiteral("⚠️ Stale bookmark for: above.mp4 — will refresh on next save")));
    EXPECT_FALSE(hasLogged(QStringLiteral("⚠️ Stale bookmark for: below.mp4")));
}

TEST_F(ProjectRestoring, LooksForMovedMediaInTheProjectsFolderInOneSearch)
{
    open(project());
    EXPECT_THAT(bookmarks.searches, ElementsAre(ElementsAre(std::filesystem::path("/swims"))));
}

TEST_F(ProjectRestoring, HoldsTheProjectFileUntilItIsInForce)
{
    open(project(), 0.3);
    EXPECT_THAT(fileAccess.started, testing::Contains(kProject));
    EXPECT_THAT(fileAccess.stopped, testing::Not(testing::Contains(kProject)));
    advance(1);
    EXPECT_THAT(fileAccess.stopped, ElementsAre(kProject));
}

TEST_F(ProjectRestoring, AFileThatCannotBeReadLeavesTheSessionAsItWas)
{
    enterComposite(WorkflowStep::step4, {60, 14}, {60, 10});
    const ProjectState before = session->projectState();
    session->loadProject(FileUrl("/swims/none.zumetaproj"));
    advance(5);
    EXPECT_EQ(session->projectState(), before);
    EXPECT_EQ(session->currentStep(), WorkflowStep::step4);
    EXPECT_TRUE(hasLogged(QStringLiteral("Failed to load project: no such file")));
    EXPECT_THAT(fileAccess.stopped, ElementsAre(FileUrl("/swims/none.zumetaproj")));
    EXPECT_THAT(dialogs.alerts, IsEmpty());
    EXPECT_THAT(ends, ElementsAre("failed: no such file"));
}

TEST_F(ProjectRestoring, AFileThatCannotBeReadOvertakesNoOther)
{
    projectFiles.files[kProject.path().native()] = project();
    session->loadProject(kProject);
    session->loadProject(FileUrl("/swims/none.zumetaproj"));
    advance(5);
    EXPECT_EQ(session->currentStep(), WorkflowStep::step3);
}

TEST_F(ProjectRestoring, FilesWithoutBasesGiveBasesOfZero)
{
    ProjectState state = project();
    state.step3BaseWaterlineHeight.reset();
    state.step3BaseAboveOffset.reset();
    state.step3BaseAboveHorizontalOffset.reset();
    open(state);
    EXPECT_EQ(session->relativeWaterlineHeight(), 310);
    EXPECT_EQ(session->relativeAboveOffset(), 40);
    EXPECT_EQ(session->projectConfig(), state.projectConfig);
}

TEST_F(ProjectRestoring, KeepsTheFilesOwnVersionAndExportSettings)
{
    ProjectState state = project();
    state.version = 7;
    state.exportSettings.quality = 0.25;
    open(state);
    session->prepareProjectForSave();
    advance(1);
    EXPECT_EQ(session->projectState().version, 7);
    EXPECT_EQ(session->projectState().exportSettings, state.exportSettings);
}

TEST_F(ProjectRestoring, LeavesMarkersAndHistoryAlone)
{
    enterComposite(WorkflowStep::step4, {60, 14}, {60, 10});
    session->seek(20, true);
    session->addTrimMarkerAtCurrentTime();
    const size_t history = session->stepEditHistory().undoCount();
    open(project());
    EXPECT_THAT(session->trimMarkers(), ElementsAre(20));
    EXPECT_EQ(session->selectedTrimMarker(), 20);
    EXPECT_EQ(session->stepEditHistory().undoCount(), history);
}

TEST_F(ProjectRestoring, LeavesTheChosenCameraAlone)
{
    session->setSelectedCamera(CameraType::insta360);
    open(project());
    EXPECT_EQ(session->selectedCamera(), CameraType::insta360);
}

TEST_F(ProjectRestoring, AProjectOfFourToThreeOpensOverOneOfSixteenToNine)
{
    enterComposite(WorkflowStep::step3, {60, 14}, {60, 10});
    media.add("/above43.mp4", {.size = {1440, 1080}});
    media.add("/below43.mp4", {.size = {1440, 1080}});
    open(projectOf(assetOf({"/above43.mp4"}), assetOf({"/below43.mp4"})));
    EXPECT_THAT(dialogs.alerts, IsEmpty());
    EXPECT_THAT(filesIn(above()), ElementsAre("/above43.mp4"));
    EXPECT_THAT(filesIn(below()), ElementsAre("/below43.mp4"));
}

TEST_F(ProjectRestoring, ASideThatStaysIsStillAskedWhetherItFits)
{
    enterComposite(WorkflowStep::step3, {60, 14}, {60, 10});
    media.add("/above43.mp4", {.size = {1440, 1080}});
    open(projectOf(assetOf({"/above43.mp4"}), std::nullopt));
    ASSERT_EQ(dialogs.alerts.size(), 1);
    EXPECT_EQ(dialogs.alerts[0].title, QStringLiteral("[Aspect Ratio Mismatch]"));
}

TEST_F(ProjectRestoring, ASideThatTheFileDoesNotMentionStaysLoaded)
{
    enterComposite(WorkflowStep::step3, {60, 14}, {60, 10});
    media.add("/other.mp4", {});
    open(projectOf(assetOf({"/other.mp4"}), std::nullopt));
    EXPECT_THAT(filesIn(above()), ElementsAre("/other.mp4"));
    EXPECT_THAT(filesIn(below()), ElementsAre("/below.mp4"));
    EXPECT_EQ(session->belowVideoURL(), FileUrl("/below.mp4"));
}

TEST_F(ProjectRestoring, AMissingSideDoesNotGoOnShowingTheProjectBefore)
{
    enterComposite(WorkflowStep::step3, {60, 14}, {60, 10});
    media.add("/other.mp4", {});
    bookmarks.gone = {"/lost.mp4"};
    open(projectOf(assetOf({"/other.mp4"}), assetOf({"/lost.mp4"})));
    EXPECT_TRUE(session->isBelowMissing());
    EXPECT_EQ(session->belowVideoURL(), std::nullopt);
    EXPECT_THAT(filesIn(below()), IsEmpty());
    EXPECT_EQ(session->projectState().belowVideo->fileURL(), FileUrl("/lost.mp4"));
}

TEST_F(ProjectRestoring, OpeningAnotherProjectEndsTheMissingMediaOfTheOneBefore)
{
    bookmarks.gone = {"/lost.mp4"};
    open(projectOf(assetOf({"/lost.mp4"}), assetOf({"/below.mp4"})));
    ASSERT_TRUE(session->showMissingFileAlert());
    open(project(), projectFiles.delay + 0.001);
    EXPECT_FALSE(session->isAboveMissing());
    EXPECT_FALSE(session->showMissingFileAlert());
    advance(5);
    EXPECT_FALSE(session->isAboveMissing());
    EXPECT_FALSE(session->showMissingFileAlert());
}

TEST_F(ProjectRestoring, LoadsThatTakeTwoSecondsLoseNeitherLocksNorTrims)
{
    const double delays[][2] = {{2, 0.1}, {0.1, 2}, {2, 2}, {1.4, 2}, {3, 0.7}};
    for (const auto& [aboveDelay, belowDelay] : delays) {
        media.add("/above.mp4", {.metadataDelay = aboveDelay});
        media.add("/below.mp4", {.metadataDelay = belowDelay});
        const ProjectState state = project();
        open(state);
        EXPECT_EQ(session->projectConfig(), state.projectConfig) << aboveDelay << ' ' << belowDelay;
        expectLocks(14, 10);
        EXPECT_EQ(session->currentStep(), WorkflowStep::step3);
        EXPECT_EQ(session->duration(), 56);
        EXPECT_EQ(above().currentTime().seconds(), 4);
        EXPECT_EQ(below().currentTime().seconds(), 0);
        EXPECT_EQ(session->projectState().aboveVideo->id, state.aboveVideo->id);
        EXPECT_EQ(session->projectState().belowVideo->id, state.belowVideo->id);
        session->resetProject();
    }
}

TEST_F(ProjectRestoring, ALateLoadStandsAtTheLockOfItsOwnStep)
{
    media.add("/above.mp4", {.metadataDelay = 2});
    open(projectOf(assetOf({"/above.mp4"}), std::nullopt));
    EXPECT_EQ(session->currentStep(), WorkflowStep::step1);
    EXPECT_EQ(session->currentTime(), 14);
    EXPECT_EQ(above().currentTime().seconds(), 14);
}

TEST_F(ProjectRestoring, IsOverWhenTheLastLoadIs)
{
    media.add("/above.mp4", {.metadataDelay = 2});
    open(project(), 2);
    EXPECT_EQ(session->currentStep(), WorkflowStep::step3);
    EXPECT_THAT(ends, IsEmpty());
    advance(1);
    EXPECT_THAT(ends, ElementsAre("restored"));
}

TEST_F(ProjectRestoring, IsOverAlsoWhenAVideoCannotBeLoaded)
{
    media.add("/above.mp4", {.isReadable = false});
    open(project());
    EXPECT_THAT(ends, ElementsAre("restored"));
    EXPECT_THAT(filesIn(above()), IsEmpty());
}

TEST_F(ProjectRestoring, TheProjectThatIsOpenedLastWins)
{
    media.add("/second.mp4", {.duration = 40});
    ProjectState second = projectOf(assetOf({"/second.mp4"}), assetOf({"/below.mp4"}));
    second.projectConfig.waterlineHeight = 222;
    second.projectConfig.isSynced = false;
    for (double moment = 0; moment < 0.8; moment += 0.005) {
        projectFiles.files["/second.zumetaproj"] = second;
        open(project(), moment);
        session->loadProject(FileUrl("/second.zumetaproj"));
        advance(5);
        EXPECT_EQ(session->projectConfig(), second.projectConfig) << moment;
        EXPECT_EQ(session->currentStep(), WorkflowStep::step2) << moment;
        EXPECT_THAT(filesIn(above()), ElementsAre("/second.mp4")) << moment;
        EXPECT_EQ(session->projectState().aboveVideo->fileURL(), FileUrl("/second.mp4")) << moment;
        session->resetProject();
    }
}

TEST_F(ProjectRestoring, AFileThatIsReadForLongDoesNotComeAfterOneThatWasOpenedLater)
{
    projectFiles.readDelays[kProject.path().native()] = 3;
    projectFiles.files["/second.zumetaproj"] = projectOf(std::nullopt, assetOf({"/below.mp4"}));
    open(project(), 0.1);
    session->loadProject(FileUrl("/second.zumetaproj"));
    advance(8);
    EXPECT_EQ(session->aboveVideoURL(), std::nullopt);
}

TEST_F(ProjectRestoring, AResetEndsAnOpeningAtAnyMoment)
{
    for (double moment = 0; moment < 0.8; moment += 0.005) {
        open(project(), moment);
        session->resetProject();
        const ProjectState fresh = session->projectState();
        advance(5);
        EXPECT_EQ(session->projectState(), fresh) << moment;
        EXPECT_EQ(session->currentStep(), WorkflowStep::step1) << moment;
        EXPECT_EQ(session->aboveVideoURL(), std::nullopt) << moment;
        EXPECT_EQ(session->belowVideoURL(), std::nullopt) << moment;
        EXPECT_THAT(filesIn(above()), IsEmpty()) << moment;
    }
}

TEST_F(ProjectRestoring, AVideoThatIsChosenMeanwhileIsShownAndExported)
{
    const FileUrl chosen = media.add("/chosen.mp4", {.duration = 50});
    open(project(), 0.2);
    session->loadAboveVideo({chosen});
    advance(5);
    EXPECT_THAT(filesIn(above()), ElementsAre("/chosen.mp4"));
    EXPECT_EQ(session->projectState().aboveVideo->fileURL(), chosen);
}

TEST_F(ProjectRestoring, AVideoThatIsClearedMeanwhileStaysAway)
{
    open(project(), 0.2);
    session->clearAboveVideo();
    advance(5);
    EXPECT_EQ(session->projectState().aboveVideo, std::nullopt);
    EXPECT_THAT(filesIn(above()), IsEmpty());
}

TEST_F(ProjectRestoring, ASessionThatEndsAtAnyMomentLeavesNothingBehind)
{
    for (double moment = 0; moment < 3; moment += 0.05) {
        SessionHarness other;
        other.media.add("/above.mp4", {.metadataDelay = 2});
        other.media.add("/below.mp4", {});
        other.projectFiles.files[kProject.path().native()] = project();
        other.session->loadProject(kProject);
        other.advance(moment);
        other.session.reset();
        other.advance(5);
        EXPECT_EQ(std::ranges::count(other.fileAccess.started, kProject),
                  std::ranges::count(other.fileAccess.stopped, kProject));
    }
}

TEST_F(ProjectRestoring, TheOpenPanelReleasesWhatWasHeldAndOpensTheFirstFile)
{
    loadAbove("/old.mp4");
    projectFiles.files[kProject.path().native()] = project();
    session->importProject({kProject, FileUrl("/other.zumetaproj")});
    EXPECT_THAT(fileAccess.stopped, ElementsAre(FileUrl("/old.mp4")));
    advance(5);
    EXPECT_EQ(session->currentStep(), WorkflowStep::step3);
}

TEST_F(ProjectRestoring, AnOpenPanelWithoutAFileDoesNothing)
{
    loadAbove("/old.mp4");
    session->importProject({});
    advance(5);
    EXPECT_THAT(fileAccess.stopped, IsEmpty());
    EXPECT_EQ(session->aboveVideoURL(), FileUrl("/old.mp4"));
}

TEST_F(ProjectRestoring, AnOpenPanelThatFailsIsALogLine)
{
    session->projectImportFailed(QStringLiteral("no permission"));
    EXPECT_THAT(log, ElementsAre(QStringLiteral("Failed to import project: no permission")));
}

TEST_F(ProjectRestoring, WhatIsKeptAndRestoredIsTheSame)
{
    open(project());
    session->setRelativeWaterlineHeight(25);
    session->setTimingOffset(12);
    edit([](VideoCompositionConfig& config) { config.exportTrimStartSeconds = 8; });
    session->prepareProjectForSave();
    advance(1);
    session->saveProject(kProject);
    advance(1);
    const ProjectState kept = session->projectState();
    SessionHarness other;
    other.media.add("/above.mp4", {});
    other.media.add("/below.mp4", {});
    other.projectFiles.files = projectFiles.files;
    other.session->loadProject(kProject);
    other.advance(5);
    EXPECT_EQ(other.session->projectConfig(), kept.projectConfig);
    EXPECT_EQ(other.session->relativeWaterlineHeight(), 25);
    EXPECT_EQ(other.session->manualSyncTimeAbove(), 14);
    EXPECT_EQ(other.session->currentStep(), WorkflowStep::step3);
}

}
}
