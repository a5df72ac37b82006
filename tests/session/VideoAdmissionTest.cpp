// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/SessionHarness.h"

namespace zumeta {
namespace {

using namespace test;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr PreferredTransform kQuarterTurn{0, 1, -1, 0};
constexpr Size kWide{1920, 1080};
constexpr Size kFourByThree{1920, 1440};

struct Admission : SessionTest {
    const ProjectState& project() { return session->projectState(); }
    std::vector<FileUrl> filesInAbovePlayer()
    {
        std::vector<FileUrl> files;
        for (const MediaSegment& segment : std::get<MediaComposition>(*above().item()).video())
            files.push_back(segment.asset.url);
        return files;
    }
};

TEST_F(Admission, PutsTheVideoIntoTheProjectAndThePlayer)
{
    const FileUrl url = loadAbove("/above.mp4", {.duration = 42.5});
    EXPECT_EQ(session->aboveVideoURL(), url);
    ASSERT_TRUE(project().aboveVideo);
    EXPECT_EQ(project().aboveVideo->fileURLs, std::vector{url});
    EXPECT_EQ(project().aboveVideo->duration, 42.5);
    EXPECT_THAT(filesInAbovePlayer(), ElementsAre(url));
    EXPECT_EQ(session->duration(), 42.5);
    EXPECT_EQ(session->abovePlayerService().currentAssetID(), project().aboveVideo->id);
    EXPECT_THAT(proxies.requests, ElementsAre(url));
    EXPECT_THAT(fileAccess.started, ElementsAre(url));
    EXPECT_THAT(dialogs.alerts, IsEmpty());
}

TEST_F(Admission, OfTheBelowSideMirrorsTheAboveOne)
{
    const FileUrl url = loadBelow("/below.mp4", {.duration = 33});
    EXPECT_EQ(session->belowVideoURL(), url);
    EXPECT_EQ(project().belowVideo->duration, 33);
    EXPECT_EQ(project().aboveVideo, std::nullopt);
    EXPECT_TRUE(below().hasCurrentItem());
    EXPECT_FALSE(above().hasCurrentItem());
    session->setCurrentStep(WorkflowStep::step2);
    EXPECT_EQ(session->duration(), 33);
}

TEST_F(Admission, JoinsTheChaptersOfARecording)
{
    const FileUrl first = media.add("/1.mp4", {.duration = 10});
    const FileUrl second = media.add("/2.mp4", {.duration = 5});
    session->loadAboveVideo({first, second});
    advance(5);
    EXPECT_EQ(session->aboveVideoURL(), first);
    EXPECT_EQ(session->duration(), 15);
    EXPECT_THAT(filesInAbovePlayer(), ElementsAre(first, second));
    EXPECT_THAT(proxies.requests, ElementsAre(first));
    EXPECT_THAT(fileAccess.started, ElementsAre(first, second));
}

TEST_F(Admission, OfAnEmptyListDoesNothing)
{
    session->loadAboveVideo({});
    advance(1);
    EXPECT_EQ(session->aboveVideoURL(), std::nullopt);
    EXPECT_THAT(media.assetLoads, IsEmpty());
}

TEST_F(Admission, BeginsInALaterTurnAndShowsTheVideoBeforeItsMetadata)
{
    const FileUrl url = media.add("/above.mp4", {.metadataDelay = 3});
    session->loadAboveVideo({url});
    EXPECT_EQ(session->aboveVideoURL(), std::nullopt);
    advance(0.01);
    EXPECT_EQ(session->aboveVideoURL(), url);
    EXPECT_EQ(project().aboveVideo, std::nullopt);
    advance(5);
    EXPECT_TRUE(project().aboveVideo);
}

TEST_F(Admission, DecidesTheProjectsShapeByTheAboveVideo)
{
    struct Case {
        Size size;
        PreferredTransform transform;
        AspectRatio ratio;
        ExportResolutionType resolution;
    };
    const Case cases[] = {
        {{3840, 2160}, {}, {16, 9}, ExportResolutionType::hd1080},
        {kFourByThree, {}, {4, 3}, ExportResolutionType::hd1440},
        {{960, 720}, {}, {4, 3}, ExportResolutionType::hd960},
        {{1200, 900}, {}, {4, 3}, ExportResolutionType::hd960},
        {{1204, 903}, {}, {4, 3}, ExportResolutionType::hd1440},
        {{1080, 1080}, {}, {16, 9}, ExportResolutionType::hd1080},
        {kWide, kQuarterTurn, {16, 9}, ExportResolutionType::hd1080},
        {{1440, 1920}, kQuarterTurn, {4, 3}, ExportResolutionType::hd1440},
    };
    for (const Case& each : cases) {
        session->clearAboveVideo();
        loadAbove("/above.mp4", {.size = each.size, .transform = each.transform});
        EXPECT_EQ(project().projectAspectRatio, each.ratio) << each.size.width << " x " << each.size.height;
        EXPECT_EQ(session->selectedResolution(), each.resolution) << each.size.width << " x " << each.size.height;
    }
    EXPECT_TRUE(hasLogged(QStringLiteral("📊 [Step 1] Ratio diff - 4:3: ")));
    EXPECT_TRUE(hasLogged(QStringLiteral("✅ [Step 1] Project Aspect Ratio set to: 16:9")));
    EXPECT_TRUE(hasLogged(QStringLiteral("✅ [Step 1] Project Aspect Ratio set to: 4:3")));
}

TEST_F(Admission, OfTheBelowVideoFirstLeavesShapeAndSize)
{
    loadBelow("/below.mp4", {.size = kFourByThree});
    EXPECT_THAT(media.assetLoads, SizeIs(2)) << "the player's and the shape's, no check";
    EXPECT_EQ(project().projectAspectRatio, (AspectRatio{16, 9}));
    EXPECT_EQ(session->selectedResolution(), ExportResolutionType::hd720);
    EXPECT_TRUE(hasLogged(QStringLiteral("📊 [Step 2] Check vs Project Ratio: ")));
    loadAbove("/above.mp4", {.size = {960, 720}});
    EXPECT_THAT(dialogs.alerts, IsEmpty());
    EXPECT_TRUE(hasLogged(QStringLiteral("📊 Aspect Ratio Check: ")));
    EXPECT_EQ(project().projectAspectRatio, (AspectRatio{4, 3}));
    EXPECT_EQ(session->selectedResolution(), ExportResolutionType::hd960);
}

TEST_F(Admission, OfAVideoWithoutAPictureLeavesShapeAndSizeAndGoesOn)
{
    loadAbove("/above.mp4", {.hasVideo = false});
    EXPECT_EQ(session->selectedResolution(), ExportResolutionType::hd720);
    EXPECT_TRUE(project().aboveVideo);
    EXPECT_FALSE(hasLogged(QStringLiteral("📊")));
}

TEST_F(Admission, OfAVideoThatVanishesAfterItsMetadataLeavesShapeAndSize)
{
    const FileUrl url = media.add("/above.mp4", {});
    session->loadAboveVideo({url});
    advance(0.12);
    media.video(url).isReadable = false;
    advance(5);
    EXPECT_TRUE(project().aboveVideo);
    EXPECT_EQ(session->selectedResolution(), ExportResolutionType::hd720);
}

TEST_F(Admission, OfAVideoThatVanishesBeforeItIsPlayedGoesOnWithoutALength)
{
    const FileUrl url = media.add("/above.mp4", {});
    session->loadAboveVideo({url});
    advance(0.05);
    media.video(url).isReadable = false;
    advance(5);
    EXPECT_TRUE(project().aboveVideo);
    EXPECT_EQ(session->duration(), 0);
    EXPECT_TRUE(hasLogged(QStringLiteral("Failed to load duration: ")));
}

TEST_F(Admission, OfUnreadableMetadataLeavesTheURLAndALogLine)
{
    const FileUrl url = loadAbove("/above.mp4", {.isReadable = false});
    EXPECT_EQ(session->aboveVideoURL(), url);
    EXPECT_EQ(project().aboveVideo, std::nullopt);
    EXPECT_FALSE(above().hasCurrentItem());
    EXPECT_TRUE(hasLogged(QStringLiteral("Failed to load above video: cannot be read")));
    loadBelow("/below.mp4", {.isReadable = false});
    EXPECT_TRUE(hasLogged(QStringLiteral("Failed to load below video: cannot be read")));
    EXPECT_THAT(dialogs.alerts, IsEmpty());
}

TEST_F(Admission, RefusesAnotherShape)
{
    const FileUrl first = loadAbove("/first.mp4");
    loadBelow("/below.mp4");
    loadAbove("/second.mp4", {.size = kFourByThree});
    ASSERT_THAT(dialogs.alerts, SizeIs(1));
    EXPECT_EQ(dialogs.alerts[0].title, QStringLiteral("[Aspect Ratio Mismatch]"));
    EXPECT_EQ(dialogs.alerts[0].message,
              QStringLiteral("[Please use videos with the same aspect ratio (e.g. both 16:9 or both 4:3).]"));
    EXPECT_EQ(dialogs.alerts[0].buttons, QStringList{QStringLiteral("[OK]")});
    EXPECT_EQ(session->aboveVideoURL(), first);
    EXPECT_THAT(filesInAbovePlayer(), ElementsAre(first));
    EXPECT_EQ(session->selectedResolution(), ExportResolutionType::hd1080);
}

TEST_F(Admission, ComparesTheShapesAsDisplayed)
{
    loadAbove("/above.mp4", {.size = {1080, 1920}, .transform = kQuarterTurn});
    loadBelow("/below.mp4", {.size = kWide});
    EXPECT_THAT(dialogs.alerts, IsEmpty());
    loadBelow("/portrait.mp4", {.size = kWide, .transform = kQuarterTurn});
    EXPECT_THAT(dialogs.alerts, SizeIs(1));
}

TEST_F(Admission, LetsShapesPassThatAreNearEachOther)
{
    loadAbove("/above.mp4", {.size = {1500, 1000}});
    loadBelow("/below.mp4", {.size = {1440, 1000}});
    EXPECT_THAT(dialogs.alerts, IsEmpty());
    loadBelow("/other.mp4", {.size = {1330, 1000}});
    EXPECT_THAT(dialogs.alerts, SizeIs(1));
    EXPECT_EQ(session->belowVideoURL(), FileUrl("/below.mp4"));
}

TEST_F(Admission, ComparesTheFirstFileAlone)
{
    loadAbove("/above.mp4");
    const FileUrl first = media.add("/1.mp4", {});
    const FileUrl second = media.add("/2.mp4", {.frameDuration = {1, 25}, .size = kFourByThree});
    session->loadBelowVideo({first, second});
    advance(5);
    EXPECT_THAT(dialogs.alerts, IsEmpty());
}

TEST_F(Admission, PassesRatesOfOneFamilyWithoutAQuestion)
{
    loadAbove("/above.mp4", {.frameDuration = {1001, 60000}});
    loadBelow("/below.mp4", {.frameDuration = {1, 60}});
    EXPECT_THAT(dialogs.alerts, IsEmpty());
    EXPECT_TRUE(project().belowVideo);
}

TEST_F(Admission, AsksAboutRatesOfTwoFamilies)
{
    loadAbove("/above.mp4", {.frameDuration = {1, 25}});
    loadBelow("/below.mp4", {.frameDuration = {1, 30}});
    ASSERT_THAT(dialogs.alerts, SizeIs(1));
    EXPECT_EQ(dialogs.alerts[0].title, QStringLiteral("[Frame Rate Mismatch]"));
    EXPECT_EQ(dialogs.alerts[0].message,
              QStringLiteral("[The dropped video has a different frame rate. Exporting may cause video or audio sync "
                             "issues. Do you want to continue?]"));
    EXPECT_EQ(dialogs.alerts[0].buttons, (QStringList{QStringLiteral("[OK]"), QStringLiteral("[Cancel]")}));
    EXPECT_TRUE(project().belowVideo) << "the answer was OK";
    EXPECT_TRUE(hasLogged(QStringLiteral("⚠️ Frame Rate Family Mismatch: ")));
}

TEST_F(Admission, PassesARateThatBelongsToNoFamily)
{
    loadAbove("/above.mp4", {.frameDuration = {1, 25}});
    loadBelow("/below.mp4", {.frameDuration = {1, 70}});
    EXPECT_THAT(dialogs.alerts, IsEmpty());
}

TEST_F(Admission, CancelAtTheQuestionLeavesTheEarlierVideo)
{
    loadAbove("/above.mp4", {.frameDuration = {1, 25}});
    const FileUrl earlier = loadBelow("/below.mp4", {.frameDuration = {1, 25}});
    const ProjectState before = project();
    dialogs.answer = 1;
    const FileUrl refused = loadBelow("/other.mp4", {.frameDuration = {1, 30}});
    EXPECT_THAT(dialogs.alerts, SizeIs(1));
    EXPECT_EQ(session->belowVideoURL(), earlier);
    EXPECT_EQ(project(), before);
    EXPECT_THAT(fileAccess.started, testing::Contains(refused));
    EXPECT_THAT(fileAccess.stopped, IsEmpty());
}

TEST_F(Admission, ChecksPassWhenAVideoCannotBeRead)
{
    loadAbove("/above.mp4", {.size = kFourByThree});
    loadBelow("/below.mp4", {.isReadable = false});
    EXPECT_THAT(dialogs.alerts, IsEmpty());
    EXPECT_TRUE(hasLogged(QStringLiteral("Failed to load below video: ")));
}

TEST_F(Admission, ChecksPassWhenAVideoHasNoPicture)
{
    loadAbove("/above.mp4", {.size = kFourByThree});
    loadBelow("/below.mp4", {.frameDuration = {1, 25}, .hasVideo = false});
    EXPECT_THAT(dialogs.alerts, IsEmpty());
    EXPECT_TRUE(project().belowVideo);
}

TEST_F(Admission, OfBothSidesInOneTurnAsksNothing)
{
    loadBoth({.size = kWide}, {.frameDuration = {1, 25}, .size = kFourByThree});
    EXPECT_THAT(dialogs.alerts, IsEmpty());
    EXPECT_TRUE(project().aboveVideo);
    EXPECT_TRUE(project().belowVideo);
}

TEST_F(Admission, ClearsTheLockOfItsSideAlone)
{
    loadBoth();
    lockBoth(10, 4);
    session->onPickWaterline(0.5);
    advance(0.1);
    EXPECT_TRUE(session->projectConfig().isSynced);
    loadBelow("/other.mp4");
    EXPECT_EQ(session->manualSyncTimeBelow(), std::nullopt);
    EXPECT_EQ(session->projectConfig().belowStartTime, 0);
    EXPECT_FALSE(session->projectConfig().isSynced);
    EXPECT_EQ(session->manualSyncTimeAbove(), 10);
    EXPECT_EQ(session->projectConfig().aboveStartTime, 10);
    EXPECT_EQ(session->alignmentPointBelow(), 0.5) << "a new video keeps the earlier point";
}

TEST_F(Admission, EndsWithACoarseSeekToTheBeginning)
{
    loadAbove("/above.mp4");
    session->seek(20, true);
    loadAbove("/other.mp4");
    EXPECT_EQ(session->currentTime(), 0);
    EXPECT_EQ(above().seeks.back().target, MediaTime{});
    EXPECT_EQ(above().seeks.back().tolerance, SeekTolerance::infinite);
}

TEST_F(Admission, TakesTheAccessToAFileOnce)
{
    const FileUrl url = loadAbove("/above.mp4");
    session->loadAboveVideo({url});
    advance(5);
    EXPECT_THAT(fileAccess.started, ElementsAre(url));
    session->resetProject();
    EXPECT_THAT(fileAccess.stopped, ElementsAre(url));
    session->loadAboveVideo({url});
    EXPECT_THAT(fileAccess.started, ElementsAre(url, url));
}

TEST_F(Admission, GoesOnWithoutAccess)
{
    fileAccess.refused = {"/above.mp4"};
    loadAbove("/above.mp4");
    EXPECT_TRUE(project().aboveVideo);
    session->resetProject();
    EXPECT_THAT(fileAccess.stopped, IsEmpty());
}

struct ProxyAdmission : Admission {
    ProxyAdmission() { proxies.delay = 10; }
};

TEST_F(ProxyAdmission, TheStatusFollowsTheService)
{
    loadAbove("/above.mp4");
    EXPECT_EQ(session->aboveProxyStatus(), ProxyStatus::generating(0.5));
    EXPECT_EQ(session->belowProxyStatus(), ProxyStatus());
    advance(10);
    EXPECT_EQ(session->aboveProxyStatus(), ProxyStatus::completed());
    proxies.error = ProxyError{ProxyError::Kind::exportFailed, QStringLiteral("broken")};
    loadBelow("/below.mp4");
    advance(10);
    EXPECT_EQ(session->belowProxyStatus(), ProxyStatus::failed(QStringLiteral("broken")));
}

TEST_F(ProxyAdmission, TheStatusArrivesInATurnOfItsOwn)
{
    loadAbove("/above.mp4");
    session->clearAboveVideo();
    EXPECT_EQ(session->aboveProxyStatus(), ProxyStatus::generating(0.5));
    advance(0.01);
    EXPECT_EQ(session->aboveProxyStatus(), ProxyStatus());
}

TEST_F(ProxyAdmission, AFinishedProxyIsPlayedInPlaceOfItsSource)
{
    loadAbove("/above.mp4");
    session->seek(3, true);
    session->play();
    advance(10);
    EXPECT_EQ(project().aboveVideo->proxyURL, FileUrl("/proxies/above.mp4"));
    EXPECT_EQ(std::get<FileUrl>(*above().item()), FileUrl("/proxies/above.mp4"));
    EXPECT_EQ(above().itemChanges.back(), ItemChange::keepsTime);
    EXPECT_EQ(above().rate(), 1);
    EXPECT_NEAR(session->currentTime(), 13, 0.02);
    EXPECT_EQ(session->duration(), 60);
}

TEST_F(ProxyAdmission, AFailedProxyLeavesTheSource)
{
    proxies.error = ProxyError{ProxyError::Kind::exportFailed, QStringLiteral("broken")};
    loadAbove("/above.mp4");
    advance(10);
    EXPECT_EQ(project().aboveVideo->proxyURL, std::nullopt);
    EXPECT_THAT(filesInAbovePlayer(), ElementsAre(FileUrl("/above.mp4")));
}

TEST_F(ProxyAdmission, ASideOfChaptersStaysOnItsSources)
{
    const FileUrl first = media.add("/1.mp4", {});
    const FileUrl second = media.add("/2.mp4", {});
    session->loadAboveVideo({first, second});
    advance(20);
    EXPECT_EQ(project().aboveVideo->proxyURL, std::nullopt);
    EXPECT_THAT(filesInAbovePlayer(), ElementsAre(first, second));
}

TEST_F(ProxyAdmission, AProxyOfAnEarlierLoadIsNotPlayed)
{
    loadAbove("/first.mp4");
    loadAbove("/second.mp4");
    advance(1);
    EXPECT_EQ(session->proxyService().aboveVideoStatus(), ProxyStatus::generating(0.5)) << "the second one's";
    EXPECT_EQ(project().aboveVideo->proxyURL, std::nullopt);
    EXPECT_THAT(filesInAbovePlayer(), ElementsAre(FileUrl("/second.mp4")));
    advance(10);
    EXPECT_EQ(project().aboveVideo->proxyURL, FileUrl("/proxies/second.mp4"));
}

TEST_F(ProxyAdmission, OfTheSameFileLoadedTwiceTheNewerLoadWaitsForItsOwnProxy)
{
    loadAbove("/above.mp4");
    loadAbove("/above.mp4");
    advance(1);
    EXPECT_EQ(project().aboveVideo->proxyURL, std::nullopt);
    advance(10);
    EXPECT_EQ(project().aboveVideo->proxyURL, FileUrl("/proxies/above.mp4"));
}

TEST_F(ProxyAdmission, AProxyOfAClearedSideIsNotPlayed)
{
    loadAbove("/above.mp4");
    session->clearAboveVideo();
    advance(20);
    EXPECT_EQ(project().aboveVideo, std::nullopt);
    EXPECT_FALSE(above().hasCurrentItem());
}

TEST_F(ProxyAdmission, AProxyThatOutlivesTheSessionTouchesNothing)
{
    loadAbove("/above.mp4");
    session.reset();
    advance(20);
    EXPECT_EQ(proxies.requests.size(), 1u);
}

}
}
