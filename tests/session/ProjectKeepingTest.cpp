// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/ProjectTest.h"

namespace zumeta {
namespace {

using namespace test;
using testing::ElementsAre;

struct ProjectKeeping : ProjectTest {
    ProjectKeeping() { qputenv("TZ", "Asia/Tokyo"); }
    ~ProjectKeeping() override { qunsetenv("TZ"); }

    /// The state that the save panel is handed.
    const ProjectState& prepared()
    {
        session->prepareProjectForSave();
        advance(1);
        return session->projectState();
    }
};

TEST_F(ProjectKeeping, DoesNothingInStepsOneAndTwo)
{
    loadBoth();
    for (const WorkflowStep step : {WorkflowStep::step1, WorkflowStep::step2}) {
        session->setCurrentStep(step);
        const ProjectState before = session->projectState();
        session->prepareProjectForSave();
        advance(1);
        EXPECT_FALSE(session->showSaveProjectPanel());
        EXPECT_EQ(session->projectState(), before);
        EXPECT_EQ(session->projectSaveDefaultFilename(), QStringLiteral("Zumeta"));
    }
}

TEST_F(ProjectKeeping, ProposesANameWithTheLocalTime)
{
    wallClock.time =
        std::chrono::sys_days(std::chrono::year(2026) / 11 / 15) + std::chrono::hours(9) + std::chrono::minutes(52);
    enterComposite(WorkflowStep::step3, {}, {});
    prepared();
    EXPECT_EQ(session->projectSaveDefaultFilename(), QStringLiteral("Zumeta_2026_1115_1852"));
}

TEST_F(ProjectKeeping, ShowsThePanelOnceTheBookmarksAreMade)
{
    enterComposite(WorkflowStep::step4, {60, 14}, {60, 10});
    session->prepareProjectForSave();
    EXPECT_FALSE(session->showSaveProjectPanel());
    advance(1);
    EXPECT_TRUE(session->showSaveProjectPanel());
    EXPECT_EQ(session->projectState().aboveVideo->bookmarkData, FakeBookmarks::of("/above.mp4"));
    EXPECT_THAT(*session->projectState().aboveVideo->bookmarkDataList, ElementsAre(FakeBookmarks::of("/above.mp4")));
    EXPECT_EQ(session->projectState().belowVideo->bookmarkData, FakeBookmarks::of("/below.mp4"));
}

TEST_F(ProjectKeeping, MakesABookmarkForEachChapterInOrder)
{
    session->loadAboveVideo({media.add("/GX010001.MP4", {}), media.add("/GX020001.MP4", {})});
    advance(5);
    session->setCurrentStep(WorkflowStep::step3);
    EXPECT_THAT(*prepared().aboveVideo->bookmarkDataList,
                ElementsAre(FakeBookmarks::of("/GX010001.MP4"), FakeBookmarks::of("/GX020001.MP4")));
}

TEST_F(ProjectKeeping, LeavesOutAFileThatCannotBeBookmarkedAndNeverWas)
{
    session->loadAboveVideo({media.add("/GX010001.MP4", {}), media.add("/GX020001.MP4", {})});
    advance(5);
    session->setCurrentStep(WorkflowStep::step3);
    bookmarks.gone = {"/GX010001.MP4"};
    const VideoAsset& asset = *prepared().aboveVideo;
    EXPECT_THAT(*asset.bookmarkDataList, ElementsAre(FakeBookmarks::of("/GX020001.MP4")));
    EXPECT_EQ(asset.bookmarkData, FakeBookmarks::of("/GX020001.MP4"));
}

TEST_F(ProjectKeeping, StraightAfterEnteringStepThreeTheRelativeValuesAreZero)
{
    loadBoth();
    edit([](VideoCompositionConfig& config) { config.waterlineHeight = 300, config.aboveOffset = 25; });
    session->setCurrentStep(WorkflowStep::step3);
    const ProjectState& state = prepared();
    EXPECT_EQ(state.step3BaseWaterlineHeight, 300);
    EXPECT_EQ(state.step3BaseAboveOffset, 25);
    EXPECT_EQ(state.step3BaseAboveHorizontalOffset, 0);
    EXPECT_EQ(state.step3RelativeWaterlineHeight, 0);
    EXPECT_EQ(state.step3RelativeAboveOffset, 0);
    EXPECT_EQ(state.step3RelativeAboveHorizontalOffset, 0);
}

TEST_F(ProjectKeeping, AnEditBetweenTwoSavesShowsInTheRelativeValuesAndNotInTheBases)
{
    loadBoth();
    edit([](VideoCompositionConfig& config) { config.waterlineHeight = 300; });
    session->setCurrentStep(WorkflowStep::step3);
    const ProjectState first = prepared();
    session->setRelativeWaterlineHeight(12);
    session->setRelativeAboveHorizontalOffset(-4);
    const ProjectState second = prepared();
    EXPECT_EQ(first.step3RelativeWaterlineHeight, 0);
    EXPECT_EQ(second.step3RelativeWaterlineHeight, 12);
    EXPECT_EQ(second.step3RelativeAboveHorizontalOffset, -4);
    EXPECT_EQ(second.step3BaseWaterlineHeight, 300);
    EXPECT_EQ(second.step3BaseAboveHorizontalOffset, 0);
    EXPECT_EQ(second.projectConfig.waterlineHeight, 312);
}

TEST_F(ProjectKeeping, LeavesNameDatesAndVersionAlone)
{
    ProjectState state = project();
    state.version = 3;
    state.createdAt = wallClock.time - std::chrono::hours(48);
    state.modifiedAt = wallClock.time - std::chrono::hours(24);
    open(state);
    const ProjectState& kept = prepared();
    EXPECT_EQ(kept.version, 3);
    EXPECT_EQ(kept.name, QStringLiteral("Freestyle"));
    EXPECT_EQ(kept.createdAt, state.createdAt);
    EXPECT_EQ(kept.modifiedAt, state.modifiedAt);
}

TEST_F(ProjectKeeping, KeepsTheEarlierBookmarkOfAFileWhoseDiskIsAway)
{
    open(projectOf(assetOf({"/above.mp4"}), assetOf({"/below.mp4"})));
    bookmarks.gone = {"/above.mp4"};
    EXPECT_THAT(*prepared().aboveVideo->bookmarkDataList, ElementsAre(FakeBookmarks::of("/above.mp4")));
}

TEST_F(ProjectKeeping, KeepsTheBookmarksOfASideThatWasMissingAllAlong)
{
    bookmarks.gone = {"/above.mp4"};
    open(project());
    ASSERT_TRUE(session->isAboveMissing());
    EXPECT_THAT(*prepared().aboveVideo->bookmarkDataList, ElementsAre(FakeBookmarks::of("/above.mp4")));
}

TEST_F(ProjectKeeping, MovedMediaGetsABookmarkOfItsNewPlace)
{
    media.add("/moved/above.mp4", {});
    bookmarks.moved = {{"/above.mp4", "/moved/above.mp4"}};
    open(project());
    EXPECT_THAT(*prepared().aboveVideo->bookmarkDataList, ElementsAre(FakeBookmarks::of("/moved/above.mp4")));
}

TEST_F(ProjectKeeping, AVideoThatComesWhileBookmarksAreMadeIsNotGivenThoseOfTheOldOne)
{
    enterComposite(WorkflowStep::step3, {60, 14}, {60, 10});
    bookmarks.delay = 2;
    session->prepareProjectForSave();
    loadAbove("/other.mp4");
    EXPECT_EQ(session->projectState().aboveVideo->fileURL(), FileUrl("/other.mp4"));
    EXPECT_EQ(session->projectState().aboveVideo->bookmarkData, std::nullopt);
}

TEST_F(ProjectKeeping, APreparationThatAResetOvertakesShowsNoPanel)
{
    enterComposite(WorkflowStep::step3, {60, 14}, {60, 10});
    session->prepareProjectForSave();
    session->resetProject();
    advance(1);
    EXPECT_FALSE(session->showSaveProjectPanel());
}

TEST_F(ProjectKeeping, WritesThePreparedStateAndSaysWhere)
{
    enterComposite(WorkflowStep::step3, {60, 14}, {60, 10});
    const ProjectState state = prepared();
    session->saveProject(kProject);
    advance(1);
    EXPECT_EQ(projectFiles.files.at(kProject.path().native()), state);
    EXPECT_TRUE(hasLogged(QStringLiteral("Project exported to: /swims/swim.zumetaproj")));
}

TEST_F(ProjectKeeping, EverySaveAsksForAPlaceAnew)
{
    enterComposite(WorkflowStep::step3, {60, 14}, {60, 10});
    prepared();
    session->setShowSaveProjectPanel(false);
    session->saveProject(kProject);
    advance(1);
    prepared();
    EXPECT_TRUE(session->showSaveProjectPanel());
}

TEST_F(ProjectKeeping, AFailedWriteIsSilentAndChangesNothing)
{
    enterComposite(WorkflowStep::step3, {60, 14}, {60, 10});
    const ProjectState state = prepared();
    log.clear();
    projectFiles.isFull = true;
    session->saveProject(kProject);
    advance(1);
    EXPECT_TRUE(projectFiles.files.empty());
    EXPECT_TRUE(log.empty());
    EXPECT_TRUE(dialogs.alerts.empty());
    EXPECT_EQ(session->projectState(), state);
}

TEST_F(ProjectKeeping, ASessionThatEndsMeanwhileLeavesTheWriteToItsEnd)
{
    enterComposite(WorkflowStep::step3, {60, 14}, {60, 10});
    prepared();
    session->saveProject(kProject);
    session->prepareProjectForSave();
    session.reset();
    advance(1);
    EXPECT_EQ(projectFiles.files.size(), 1);
}

}
}
