// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/SessionHarness.h"

namespace zumeta {
namespace {

using namespace test;
using testing::ElementsAre;
using testing::IsEmpty;

/// A load takes 0.1 s for its metadata and 0.05 s for each look at the file. With the other side there, four looks come
/// first, and the question where the rates differ. Whatever else happens, happens at every twentieth of a wait: before
/// each, in each, and after the last.
constexpr double kGrain = 0.005;
constexpr double kLongest = 1.5;

struct Supersession : SessionTest {
    std::vector<std::string> filesInAbovePlayer()
    {
        std::vector<std::string> files;
        if (above().item()) {
            for (const MediaSegment& segment : std::get<MediaComposition>(*above().item()).video())
                files.push_back(segment.asset.url.path().native());
        }
        return files;
    }
    /// As it is when one load alone has ended.
    void expectOnly(const char* path, double duration, ExportResolutionType resolution, double moment)
    {
        EXPECT_EQ(session->aboveVideoURL(), FileUrl(path)) << moment;
        ASSERT_TRUE(session->projectState().aboveVideo) << moment;
        EXPECT_EQ(session->projectState().aboveVideo->fileURL(), FileUrl(path)) << moment;
        EXPECT_THAT(filesInAbovePlayer(), ElementsAre(path)) << moment;
        EXPECT_EQ(session->abovePlayerService().duration(), duration) << moment;
        EXPECT_EQ(session->duration(), duration) << moment;
        EXPECT_EQ(session->selectedResolution(), resolution) << moment;
    }
    void expectEmpty(double moment)
    {
        EXPECT_EQ(session->aboveVideoURL(), std::nullopt) << moment;
        EXPECT_EQ(session->projectState().aboveVideo, std::nullopt) << moment;
        EXPECT_THAT(filesInAbovePlayer(), IsEmpty()) << moment;
        EXPECT_EQ(session->abovePlayerService().duration(), 0) << moment;
        EXPECT_EQ(session->duration(), 0) << moment;
    }
};

TEST_F(Supersession, ALaterLoadIsTheOnlyOneThatRemains)
{
    for (double moment = 0; moment < kLongest; moment += kGrain) {
        const FileUrl first = media.add("/first.mp4", {.duration = 20, .size = {960, 720}});
        const FileUrl second = media.add("/second.mp4", {.duration = 40});
        session->loadAboveVideo({first});
        advance(moment);
        session->loadAboveVideo({second});
        advance(5);
        expectOnly("/second.mp4", 40, ExportResolutionType::hd1080, moment);
        session->clearAboveVideo();
    }
}

TEST_F(Supersession, ALaterLoadOvertakesASlowOne)
{
    for (double moment = 0; moment < kLongest; moment += kGrain) {
        const FileUrl first =
            media.add("/first.mp4", {.duration = 20, .size = {960, 720}, .assetDelay = 0.5, .metadataDelay = 0.4});
        const FileUrl second = media.add("/second.mp4", {.duration = 40, .assetDelay = 0.01, .metadataDelay = 0.01});
        session->loadAboveVideo({first});
        advance(moment);
        session->loadAboveVideo({second});
        advance(5);
        expectOnly("/second.mp4", 40, ExportResolutionType::hd1080, moment);
        session->clearAboveVideo();
    }
}

TEST_F(Supersession, ALaterLoadEndsOneThatIsStillBeingChecked)
{
    loadBelow("/below.mp4", {.frameDuration = {1, 25}});
    for (double moment = 0; moment < kLongest; moment += kGrain) {
        dialogs.alerts.clear();
        const FileUrl first = media.add("/first.mp4", {.duration = 20, .frameDuration = {1, 30}});
        const FileUrl second = media.add("/second.mp4", {.duration = 40, .frameDuration = {1, 25}});
        session->loadAboveVideo({first});
        advance(moment);
        session->loadAboveVideo({second});
        advance(5);
        expectOnly("/second.mp4", 40, ExportResolutionType::hd1080, moment);
        EXPECT_EQ(dialogs.alerts.size(), moment > 0.2 ? 1u : 0u) << moment;
        session->clearAboveVideo();
    }
}

TEST_F(Supersession, ALoadThatWasOvertakenInThePlayerStartsNoProxy)
{
    session->loadAboveVideo({media.add("/first.mp4", {})});
    advance(0.12);
    session->loadAboveVideo({media.add("/second.mp4", {})});
    advance(5);
    EXPECT_THAT(proxies.requests, ElementsAre(FileUrl("/second.mp4")));
}

TEST_F(Supersession, AClearEndsALoadWithoutATrace)
{
    for (double moment = 0; moment < kLongest; moment += kGrain) {
        const FileUrl url = media.add("/above.mp4", {.duration = 20});
        session->loadAboveVideo({url});
        advance(moment);
        session->clearAboveVideo();
        advance(5);
        expectEmpty(moment);
    }
}

TEST_F(Supersession, AClearInTheSameTurnEndsALoadBeforeItBegins)
{
    session->loadAboveVideo({media.add("/above.mp4", {})});
    session->clearAboveVideo();
    advance(5);
    expectEmpty(0);
    EXPECT_THAT(media.assetLoads, IsEmpty());
}

TEST_F(Supersession, ALaterLoadSparesTheUserTheRefusalOfTheEarlierOne)
{
    loadBelow("/below.mp4");
    for (double moment = 0; moment < 0.095; moment += kGrain) {
        session->loadAboveVideo({media.add("/first.mp4", {.size = {960, 720}})});
        advance(moment);
        session->loadAboveVideo({media.add("/second.mp4", {})});
        advance(5);
        EXPECT_THAT(dialogs.alerts, IsEmpty()) << moment;
    }
}

TEST_F(Supersession, AClearEndsAQuestion)
{
    loadBelow("/below.mp4", {.frameDuration = {1, 25}});
    for (double moment = 0; moment < kLongest; moment += kGrain) {
        const FileUrl url = media.add("/above.mp4", {.duration = 20, .frameDuration = {1, 30}});
        session->loadAboveVideo({url});
        advance(moment);
        session->clearAboveVideo();
        advance(5);
        expectEmpty(moment);
    }
    EXPECT_TRUE(session->belowVideoURL());
}

TEST_F(Supersession, ARefusedVideoEndsTheLoadBeforeItAllTheSame)
{
    loadBelow("/below.mp4");
    const FileUrl first = media.add("/first.mp4", {.metadataDelay = 2});
    const FileUrl refused = media.add("/refused.mp4", {.size = {960, 720}});
    session->loadAboveVideo({first});
    advance(1);
    session->loadAboveVideo({refused});
    advance(10);
    EXPECT_EQ(session->aboveVideoURL(), first) << "what was done by then stays";
    EXPECT_EQ(session->projectState().aboveVideo, std::nullopt);
}

TEST_F(Supersession, ADeclinedVideoEndsTheLoadBeforeItAllTheSame)
{
    loadBelow("/below.mp4", {.frameDuration = {1, 25}});
    dialogs.answer = 1;
    session->loadAboveVideo({media.add("/first.mp4", {.frameDuration = {1, 25}, .metadataDelay = 2})});
    advance(1);
    session->loadAboveVideo({media.add("/declined.mp4", {.frameDuration = {1, 30}})});
    advance(10);
    EXPECT_THAT(dialogs.alerts, testing::SizeIs(1));
    EXPECT_EQ(session->aboveVideoURL(), FileUrl("/first.mp4"));
    EXPECT_EQ(session->projectState().aboveVideo, std::nullopt);
}

TEST_F(Supersession, LoadsOfTheTwoSidesGoOnBesideEachOther)
{
    for (double moment = 0; moment < 0.5; moment += kGrain) {
        session->loadAboveVideo({media.add("/above.mp4", {.duration = 20})});
        advance(moment);
        session->loadBelowVideo({media.add("/below.mp4", {.duration = 30})});
        advance(5);
        EXPECT_TRUE(session->projectState().aboveVideo) << moment;
        EXPECT_TRUE(session->projectState().belowVideo) << moment;
        EXPECT_EQ(session->belowPlayerService().duration(), 30) << moment;
        session->clearAboveVideo();
        session->clearBelowVideo();
    }
}

TEST_F(Supersession, TheSessionMayGoInTheMiddleOfALoad)
{
    for (double moment = 0; moment < kLongest; moment += kGrain) {
        SessionHarness other;
        other.loadBelow("/below.mp4", {.frameDuration = {1, 25}});
        const FileUrl url = other.media.add("/above.mp4", {.duration = 20, .frameDuration = {1, 30}});
        other.session->loadAboveVideo({url});
        other.advance(moment);
        other.session.reset();
        other.advance(5);
        EXPECT_EQ(other.session, nullptr);
    }
}

}
}
