// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/VideoPlayerService.h"

#include "platform/Log.h"
#include "support/VirtualPlayer.h"
#include "support/VirtualTime.h"

#include <gmock/gmock.h>

namespace zumeta {
namespace {

using test::VirtualPlayer;
using test::VirtualTime;
using testing::Contains;
using testing::ElementsAre;

/// Knows a few files and takes its time for each.
class ScriptedAssets final : public AssetLoader {
public:
    explicit ScriptedAssets(VirtualTime& time)
        : m_time(time)
    {}

    void add(const char* path, int64_t seconds, std::optional<MediaTime> frameDuration, bool hasSound = true)
    {
        MediaAsset asset;
        asset.url = FileUrl(path);
        asset.duration = {seconds, 1};
        if (frameDuration) {
            asset.video.emplace();
            asset.video->minFrameDuration = *frameDuration;
            asset.video->length = asset.duration;
        }
        if (hasSound)
            asset.audio.emplace().end = asset.duration;
        m_files[path] = asset;
    }

    Task<AssetOutcome> load(FileUrl url) override
    {
        co_await m_time.pass(0.1);
        const auto found = m_files.find(url.path().native());
        if (found == m_files.end())
            co_return MovieError(MovieError::Kind::cannotOpen, "no such file");
        co_return AssetOutcome(found->second); // a copy: the coroutine moves out of what it is given by name
    }

private:
    VirtualTime& m_time;
    std::map<std::string, MediaAsset> m_files;
};

struct VideoPlayerServiceTest : testing::Test {
    VirtualTime time;
    PlaybackClock clock{time, time};
    ScriptedAssets assets{time};
    std::vector<QString> log;
    LogCapture capture{[this](const QString& line) { log.push_back(line); }};
    VideoPlayerService service{std::make_unique<VirtualPlayer>(clock), assets};
    VirtualPlayer& player = static_cast<VirtualPlayer&>(service.player());

    VideoPlayerServiceTest()
    {
        assets.add("/a.mp4", 10, MediaTime{1, 60});
        assets.add("/b.mp4", 5, MediaTime{1, 25});
        assets.add("/sound.mp4", 3, std::nullopt);
        assets.add("/proxy.mp4", 10, MediaTime{1, 50});
    }

    static VideoAsset assetOf(std::vector<const char*> paths)
    {
        VideoAsset asset;
        asset.id = QUuid::createUuid();
        for (const char* path : paths)
            asset.fileURLs.emplace_back(path);
        return asset;
    }
    VideoAsset load(const VideoAsset& asset, bool useProxy = true)
    {
        service.load(asset, useProxy);
        time.advance(1);
        return asset;
    }
    const MediaComposition& composition() const { return std::get<MediaComposition>(*player.item()); }
    std::vector<std::string> filesInPlayer() const
    {
        std::vector<std::string> files;
        for (const MediaSegment& segment : composition().video())
            files.push_back(segment.asset.url.path().native());
        return files;
    }
};

TEST_F(VideoPlayerServiceTest, StartsEmpty)
{
    EXPECT_FALSE(service.isPlaying());
    EXPECT_EQ(service.currentTime(), 0);
    EXPECT_EQ(service.duration(), 0);
    EXPECT_EQ(service.loadedFrameDuration(), (MediaTime{1, 30}));
    EXPECT_EQ(service.currentAssetID(), std::nullopt);
    EXPECT_FALSE(player.hasCurrentItem());
}

TEST_F(VideoPlayerServiceTest, LoadsASingleFileWithItsLengthAndFrameDuration)
{
    const VideoAsset asset = load(assetOf({"/a.mp4"}));
    EXPECT_EQ(service.duration(), 10);
    EXPECT_EQ(service.loadedFrameDuration(), (MediaTime{1, 60}));
    EXPECT_EQ(service.currentAssetID(), asset.id);
    EXPECT_THAT(filesInPlayer(), ElementsAre("/a.mp4"));
}

TEST_F(VideoPlayerServiceTest, LoadsTheSourceWhenAProxyIsWantedButThereIsNone)
{
    load(assetOf({"/a.mp4"}), true);
    EXPECT_THAT(filesInPlayer(), ElementsAre("/a.mp4"));
}

TEST_F(VideoPlayerServiceTest, LoadsTheProxyWhenItIsWantedAndThereIsOne)
{
    VideoAsset asset = assetOf({"/a.mp4"});
    asset.proxyURL = FileUrl("/proxy.mp4");
    load(asset, true);
    EXPECT_THAT(filesInPlayer(), ElementsAre("/proxy.mp4"));
}

TEST_F(VideoPlayerServiceTest, LoadsTheProxyInPlaceOfSeveralFilesToo)
{
    VideoAsset asset = assetOf({"/a.mp4", "/b.mp4"});
    asset.proxyURL = FileUrl("/proxy.mp4");
    load(asset, true);
    EXPECT_THAT(filesInPlayer(), ElementsAre("/proxy.mp4"));
}

TEST_F(VideoPlayerServiceTest, LoadsTheSourceWhenTheProxyIsNotWanted)
{
    VideoAsset asset = assetOf({"/a.mp4"});
    asset.proxyURL = FileUrl("/proxy.mp4");
    load(asset, false);
    EXPECT_THAT(filesInPlayer(), ElementsAre("/a.mp4"));
}

TEST_F(VideoPlayerServiceTest, JoinsChaptersEndToEnd)
{
    load(assetOf({"/a.mp4", "/b.mp4"}));
    EXPECT_EQ(service.duration(), 15);
    ASSERT_THAT(filesInPlayer(), ElementsAre("/a.mp4", "/b.mp4"));
    EXPECT_EQ(composition().video()[1].start, (MediaTime{10, 1}));
    EXPECT_THAT(log, Contains(QStringLiteral("📎 Added chapter: b.mp4 (duration: 5s)")));
    EXPECT_THAT(log, Contains(QStringLiteral("📎 Total composition duration: 15s")));
}

TEST_F(VideoPlayerServiceTest, AChapterWithoutSoundIsNoFailureAndLeavesAGapInIt)
{
    assets.add("/silent.mp4", 4, MediaTime{1, 25}, false);
    load(assetOf({"/a.mp4", "/silent.mp4", "/b.mp4"}));
    EXPECT_THAT(filesInPlayer(), ElementsAre("/a.mp4", "/silent.mp4", "/b.mp4"));
    ASSERT_EQ(composition().audio().size(), 2u);
    EXPECT_EQ(composition().audio()[0].start, MediaTime{});
    EXPECT_EQ(composition().audio()[1].start, (MediaTime{14, 1}));
    EXPECT_EQ(service.duration(), 19);
}

TEST_F(VideoPlayerServiceTest, TheFirstUsableChapterDecidesTheFrameDuration)
{
    load(assetOf({"/a.mp4", "/b.mp4"}));
    EXPECT_EQ(service.loadedFrameDuration(), (MediaTime{1, 60}));
}

TEST_F(VideoPlayerServiceTest, AChapterWithoutAPictureIsLeftOut)
{
    load(assetOf({"/sound.mp4", "/b.mp4"}));
    ASSERT_THAT(filesInPlayer(), ElementsAre("/b.mp4"));
    EXPECT_EQ(composition().video()[0].start, MediaTime{});
    EXPECT_EQ(service.duration(), 5);
    EXPECT_EQ(service.loadedFrameDuration(), (MediaTime{1, 25}));
    EXPECT_THAT(log, Contains(QStringLiteral("No video track in sound.mp4")));
}

TEST_F(VideoPlayerServiceTest, AChapterThatCannotBeReadIsLeftOut)
{
    load(assetOf({"/a.mp4", "/gone.mp4", "/b.mp4"}));
    EXPECT_THAT(filesInPlayer(), ElementsAre("/a.mp4", "/b.mp4"));
    EXPECT_EQ(service.duration(), 15);
    EXPECT_THAT(log, Contains(QStringLiteral("Failed to add gone.mp4 to composition: no such file")));
}

TEST_F(VideoPlayerServiceTest, NoFilesGiveAnEmptyItem)
{
    load(assetOf({}));
    EXPECT_EQ(service.duration(), 0);
    EXPECT_EQ(service.loadedFrameDuration(), VideoPlayerService::kDefaultFrameDuration);
    ASSERT_TRUE(player.hasCurrentItem());
    EXPECT_FALSE(composition().hasVideoTrack());
}

TEST_F(VideoPlayerServiceTest, AFileThatCannotBeReadLeavesTheLengthAndIsGivenToThePlayer)
{
    load(assetOf({"/a.mp4"}));
    load(assetOf({"/gone.mp4"}));
    EXPECT_EQ(service.duration(), 10);
    EXPECT_EQ(service.loadedFrameDuration(), VideoPlayerService::kDefaultFrameDuration);
    EXPECT_EQ(std::get<FileUrl>(*player.item()), FileUrl("/gone.mp4"));
    EXPECT_THAT(log, Contains(QStringLiteral("Failed to load duration: no such file")));
}

TEST_F(VideoPlayerServiceTest, AFileThatTellsNoFrameDurationGetsAThirtieth)
{
    assets.add("/untold.mp4", 10, MediaTime{0, 1});
    load(assetOf({"/untold.mp4"}));
    EXPECT_EQ(service.loadedFrameDuration(), (MediaTime{1, 30}));
    load(assetOf({"/untold.mp4", "/a.mp4"}));
    EXPECT_EQ(service.loadedFrameDuration(), (MediaTime{1, 30}));
}

TEST_F(VideoPlayerServiceTest, ARecordingWithoutAPictureGetsAThirtiethToo)
{
    load(assetOf({"/a.mp4"}));
    load(assetOf({"/sound.mp4"}));
    EXPECT_EQ(service.duration(), 3);
    EXPECT_EQ(service.loadedFrameDuration(), (MediaTime{1, 30}));
}

TEST_F(VideoPlayerServiceTest, OfTwoLoadsThatInterleaveTheFirstEndsWithoutEffect)
{
    service.load(assetOf({"/a.mp4", "/b.mp4", "/a.mp4"}), true);
    time.advance(0.15); // the first chapter is there; the last one would come after the second load
    const VideoAsset second = load(assetOf({"/b.mp4"}));
    EXPECT_THAT(filesInPlayer(), ElementsAre("/b.mp4"));
    EXPECT_EQ(service.duration(), 5);
    EXPECT_EQ(service.currentAssetID(), second.id);
}

TEST_F(VideoPlayerServiceTest, ALoadDuringWhichItIsResetEndsWithoutEffect)
{
    service.load(assetOf({"/a.mp4"}), true);
    service.reset();
    time.advance(1);
    EXPECT_FALSE(player.hasCurrentItem());
    EXPECT_EQ(service.duration(), 0);
}

TEST_F(VideoPlayerServiceTest, FollowsThePlayersReports)
{
    load(assetOf({"/a.mp4"}));
    player.seek({4, 1}, SeekTolerance::zero);
    EXPECT_EQ(service.currentTime(), 0);
    time.runDueWork();
    EXPECT_EQ(service.currentTime(), 4);
}

TEST_F(VideoPlayerServiceTest, PassesEqualReportsOn)
{
    load(assetOf({"/a.mp4"}));
    std::vector<double> reports;
    QObject::connect(&service, &VideoPlayerService::timeReported, [&](double seconds) { reports.push_back(seconds); });
    player.seek({4, 1}, SeekTolerance::zero);
    time.runDueWork();
    player.seek({4, 1}, SeekTolerance::zero);
    time.runDueWork();
    EXPECT_THAT(reports, ElementsAre(4.0, 4.0));
}

TEST_F(VideoPlayerServiceTest, LoadingTheSameAssetTwiceLeavesOneObserver)
{
    const VideoAsset asset = load(assetOf({"/a.mp4"}));
    load(asset);
    EXPECT_EQ(player.observers, 1);
}

TEST_F(VideoPlayerServiceTest, LoadingAnotherAssetLeavesTheOldObserverBesideTheNew)
{
    load(assetOf({"/a.mp4"}));
    load(assetOf({"/b.mp4"}));
    EXPECT_EQ(player.observers, 2);
    player.seek({2, 1}, SeekTolerance::zero);
    time.runDueWork();
    EXPECT_EQ(service.currentTime(), 2);
}

TEST_F(VideoPlayerServiceTest, SwitchingTheSourceKeepsTimeRateAndTheRestOfTheState)
{
    load(assetOf({"/a.mp4"}));
    player.seek({3, 1}, SeekTolerance::zero);
    player.setRate(0.5);
    time.advance(2);
    service.switchSource(FileUrl("/proxy.mp4"));
    EXPECT_EQ(std::get<FileUrl>(*player.item()), FileUrl("/proxy.mp4"));
    EXPECT_EQ(player.rate(), 0.5);
    EXPECT_NEAR(player.currentTime().seconds(), 4, 1.0 / 60000);
    EXPECT_EQ(service.duration(), 10);
    EXPECT_EQ(service.loadedFrameDuration(), (MediaTime{1, 60}));
    EXPECT_EQ(player.observers, 1);
}

TEST_F(VideoPlayerServiceTest, SwitchingTheSourceOfOneThatStandsDoesNotStartIt)
{
    load(assetOf({"/a.mp4"}));
    player.seek({3, 1}, SeekTolerance::zero);
    service.switchSource(FileUrl("/proxy.mp4"));
    time.advance(1);
    EXPECT_EQ(player.rate(), 0);
    EXPECT_EQ(player.currentTime(), (MediaTime{3, 1}));
}

TEST_F(VideoPlayerServiceTest, ResetEmptiesThePlayerAndTheState)
{
    load(assetOf({"/a.mp4"}));
    player.play();
    service.setPlaying(true);
    time.advance(2);
    service.reset();
    EXPECT_FALSE(player.hasCurrentItem());
    EXPECT_EQ(player.rate(), 0);
    EXPECT_FALSE(service.isPlaying());
    EXPECT_EQ(service.currentTime(), 0);
    EXPECT_EQ(service.duration(), 0);
    EXPECT_EQ(service.loadedFrameDuration(), VideoPlayerService::kDefaultFrameDuration);
    EXPECT_EQ(service.currentAssetID(), std::nullopt);
    EXPECT_EQ(player.observers, 1);
}

TEST_F(VideoPlayerServiceTest, TellsOfEveryLengthAlsoOfAnEqualOne)
{
    int told = 0;
    QObject::connect(&service, &VideoPlayerService::durationChanged, [&] { ++told; });
    load(assetOf({"/a.mp4"}));
    load(assetOf({"/a.mp4"}));
    EXPECT_EQ(told, 2);
}

TEST_F(VideoPlayerServiceTest, ALoadThatOutlivesTheServiceTouchesNothing)
{
    auto shortLived = std::make_unique<VideoPlayerService>(std::make_unique<VirtualPlayer>(clock), assets);
    shortLived->load(assetOf({"/a.mp4", "/b.mp4"}), true);
    shortLived.reset();
    time.advance(1);
    EXPECT_THAT(log, testing::IsEmpty());
}

}
}
