// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/VideoMetadataLoader.h"
#include "media/movie/MovieError.h"
#include "support/FootageMaker.h"
#include "support/TemporaryFolder.h"

#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <mutex>
#include <semaphore>

namespace zumeta::test {

namespace {

FileUrl footage(const char* name)
{
    return FileUrl(std::filesystem::path(ZUMETA_FOOTAGE) / name);
}

FileUrl clip(const char* name)
{
    return FileUrl(std::filesystem::path("/clips") / name);
}

MediaAsset asset(double width, double height, float rate, MediaTime duration)
{
    MediaAsset result;
    result.video = VideoTrack{};
    result.video->naturalWidth = width;
    result.video->naturalHeight = height;
    result.video->nominalFrameRate = rate;
    result.duration = duration;
    return result;
}

MediaAsset soundAlone(MediaTime duration)
{
    MediaAsset result;
    result.audio = AudioTrack{};
    result.duration = duration;
    return result;
}

/// Files that exist only here; the rest cannot be opened.
VideoMetadataLoader::AssetLoader world(std::map<std::string, MediaAsset> files)
{
    return [files = std::move(files)](const FileUrl& url) {
        const auto found = files.find(url.lastPathComponent());
        if (found == files.end())
            throw MovieError(MovieError::Kind::cannotOpen, url.lastPathComponent() + ": cannot be opened");
        return found->second;
    };
}

VideoAsset loaded(const std::vector<FileUrl>& urls, const VideoMetadataLoader::AssetLoader& load)
{
    const MetadataOutcome outcome = VideoMetadataLoader::loadNow(urls, load);
    if (const auto* const failure = std::get_if<MetadataFailure>(&outcome))
        throw std::runtime_error(failure->description.toStdString());
    return std::get<VideoAsset>(outcome);
}

VideoAsset loaded(const std::vector<FileUrl>& urls)
{
    return loaded(urls, [](const FileUrl& url) { return MediaAsset::load(url); });
}

}

TEST(VideoMetadataLoader, AnEmptyListIsTheOneErrorOfItsOwn)
{
    const MetadataOutcome outcome = VideoMetadataLoader::loadNow({}, world({}));
    const auto& failure = std::get<MetadataFailure>(outcome);
    EXPECT_EQ(failure.error, VideoMetadataError::noFilesProvided);
    EXPECT_EQ(failure.description.toStdString(), "No video files provided");
}

TEST(VideoMetadataLoader, OneFileKeepsItsPlainName)
{
    const VideoAsset result = loaded({clip("GX010123.MP4")}, world({{"GX010123.MP4", asset(1920, 1080, 50, {7, 2})}}));
    EXPECT_EQ(result.fileName.toStdString(), "GX010123.MP4");
    EXPECT_EQ(result.width, 1920);
    EXPECT_EQ(result.height, 1080);
    EXPECT_EQ(result.frameRate, 50);
    EXPECT_EQ(result.duration, 3.5);
    EXPECT_FALSE(result.id.isNull());
    EXPECT_FALSE(result.bookmarkData);
    EXPECT_FALSE(result.bookmarkDataList);
    EXPECT_FALSE(result.proxyURL);
}

TEST(VideoMetadataLoader, CountsFurtherChaptersAlwaysInThePlural)
{
    const auto load = world(
        {{"a.mp4", asset(1, 1, 1, {1, 1})}, {"b.mp4", asset(1, 1, 1, {1, 1})}, {"c.mp4", asset(1, 1, 1, {1, 1})}});
    EXPECT_EQ(loaded({clip("a.mp4"), clip("b.mp4")}, load).fileName.toStdString(), "a.mp4 (+1 chapters)");
    EXPECT_EQ(loaded({clip("a.mp4"), clip("b.mp4"), clip("c.mp4")}, load).fileName.toStdString(),
              "a.mp4 (+2 chapters)");
}

TEST(VideoMetadataLoader, SortsFilesByNameWhateverTheirFolders)
{
    const auto load = world({{"GX010123.MP4", asset(1920, 1080, 50, {1, 1})},
                             {"GX020123.MP4", asset(640, 480, 25, {1, 1})},
                             {"GX030123.MP4", asset(320, 240, 24, {1, 1})}});
    const std::vector<FileUrl> reversed = {FileUrl("/a/GX030123.MP4"), FileUrl("/b/GX020123.MP4"),
                                           FileUrl("/z/GX010123.MP4")};
    const VideoAsset result = loaded(reversed, load);
    EXPECT_EQ(result.fileURLs, (std::vector<FileUrl>{reversed[2], reversed[1], reversed[0]}));
    EXPECT_EQ(result.fileName.toStdString(), "GX010123.MP4 (+2 chapters)");
    EXPECT_EQ(result.width, 1920);
}

TEST(VideoMetadataLoader, KeepsTheOrderOfFilesOfOneName)
{
    const auto load = world({{"clip.mp4", asset(1, 1, 1, {1, 1})}});
    const std::vector<FileUrl> given = {FileUrl("/z/clip.mp4"), FileUrl("/a/clip.mp4"), FileUrl("/m/clip.mp4")};
    EXPECT_EQ(loaded(given, load).fileURLs, given);
}

TEST(VideoMetadataLoader, TakesEveryFileThatItIsGivenWhateverItsExtension)
{
    const auto load = world({{"a.mp4", asset(1, 1, 1, {1, 1})}, {"b.webm", asset(1, 1, 1, {2, 1})}});
    const VideoAsset result = loaded({clip("b.webm"), clip("a.mp4")}, load);
    EXPECT_EQ(result.fileURLs, (std::vector<FileUrl>{clip("a.mp4"), clip("b.webm")}));
    EXPECT_EQ(result.duration, 3);
}

TEST(VideoMetadataLoader, LooksAtEachFileOnce)
{
    std::vector<std::string> looked;
    loaded({clip("b.mp4"), clip("a.mp4")}, [&](const FileUrl& url) {
        looked.push_back(url.lastPathComponent());
        return asset(1, 1, 1, {1, 1});
    });
    EXPECT_EQ(looked, (std::vector<std::string>{"a.mp4", "b.mp4"}));
}

TEST(VideoMetadataLoader, CutsFractionsOfASizeAndNeverRoundsThem)
{
    const VideoAsset result = loaded({clip("a.mp4")}, world({{"a.mp4", asset(1919.9, 1080.5, 30, {1, 1})}}));
    EXPECT_EQ(result.width, 1919);
    EXPECT_EQ(result.height, 1080);
}

TEST(VideoMetadataLoader, AFirstFileWithoutPictureHasNoSizeButItsLengthCounts)
{
    const VideoAsset result = loaded({clip("a.mp4"), clip("b.mp4")},
                                     world({{"a.mp4", soundAlone({2, 1})}, {"b.mp4", asset(1920, 1080, 30, {3, 1})}}));
    EXPECT_EQ(result.width, 0);
    EXPECT_EQ(result.height, 0);
    EXPECT_EQ(result.frameRate, 0);
    EXPECT_EQ(result.duration, 5);
}

TEST(VideoMetadataLoader, LaterFilesOfOtherSizesAndRatesPassUnread)
{
    const VideoAsset result =
        loaded({clip("a.mp4"), clip("b.mp4")},
               world({{"a.mp4", asset(1920, 1080, 29.97F, {1, 1})}, {"b.mp4", asset(640, 480, 60, {1, 1})}}));
    EXPECT_EQ(result.width, 1920);
    EXPECT_EQ(result.frameRate, double(29.97F));
}

TEST(VideoMetadataLoader, AFileThatCannotBeOpenedFailsTheLoadInItsOwnWords)
{
    const auto load = world({{"a.mp4", asset(1, 1, 1, {1, 1})}});
    for (const auto& urls : {std::vector{clip("missing.mp4")}, std::vector{clip("a.mp4"), clip("missing.mp4")}}) {
        const MetadataOutcome outcome = VideoMetadataLoader::loadNow(urls, load);
        const auto& failure = std::get<MetadataFailure>(outcome);
        EXPECT_FALSE(failure.error);
        EXPECT_EQ(failure.description.toStdString(), "missing.mp4: cannot be opened");
    }
}

TEST(VideoMetadataLoader, ASizeThatCannotBeReadIsNotCounted)
{
    const TemporaryFolder folder;
    std::ofstream(folder.file("b.mp4")) << std::string(1234, 'x');
    const auto load = world({{"a.mp4", asset(1, 1, 1, {1, 1})}, {"b.mp4", asset(1, 1, 1, {1, 1})}});
    const VideoAsset result = loaded({clip("a.mp4"), folder.url("b.mp4")}, load);
    EXPECT_EQ(result.fileSize, 1234);
    EXPECT_EQ(result.duration, 2);
}

TEST(VideoMetadataLoader, EveryLoadHasAnIdOfItsOwn)
{
    const auto load = world({{"a.mp4", asset(1, 1, 1, {1, 1})}});
    EXPECT_NE(loaded({clip("a.mp4")}, load).id, loaded({clip("a.mp4")}, load).id);
}

TEST(VideoMetadataLoader, ReadsTheChaptersOfARealCamera)
{
    const VideoAsset result = loaded({footage("GH030042.MP4"), footage("GH010042.MP4"), footage("GH020042.MP4")});
    EXPECT_EQ(result.fileName.toStdString(), "GH010042.MP4 (+2 chapters)");
    EXPECT_EQ(result.fileSize, 1722917 + 1728917 + 189366);
    EXPECT_EQ(result.width, 848);
    EXPECT_EQ(result.height, 480);
    EXPECT_EQ(result.frameRate, double(float(30000.0 / 1001)));
    EXPECT_NEAR(result.duration, 5.013333 + 5.021333 + 0.506667, 0.001);
}

TEST(VideoMetadataLoader, ATurnedPictureKeepsItsStoredSize)
{
    EXPECT_EQ(loaded({footage("portrait_4k60.mp4")}).width, 3840);
    EXPECT_EQ(loaded({footage("portrait_4k60.mp4")}).height, 2160);
    EXPECT_EQ(loaded({footage("cam01.mp4")}).width, 1088);
    EXPECT_EQ(loaded({footage("cam01.mp4")}).height, 1920);
}

TEST(VideoMetadataLoader, WidePixelsGiveTheSquaredWidthCut)
{
    FootageSpec spec;
    spec.frames = 3;
    spec.pixelAspect = "4:3"; // 426.67 squared
    EXPECT_EQ(loaded({FileUrl(FootageMaker::make(spec))}).width, 426);
    EXPECT_EQ(loaded({footage("sar_2x1.mp4")}).width, 1280);
}

TEST(VideoMetadataLoader, FilesWithoutPictureOrThatAreNoMovie)
{
    const VideoAsset sound = loaded({footage("multiple-aac-tracks.mp4")});
    EXPECT_EQ(sound.width, 0);
    EXPECT_NEAR(sound.duration, 5.013333, 0.001);
    EXPECT_THROW(loaded({footage("hello.mp4")}), std::runtime_error);
}

TEST(VideoMetadataLoader, RunsItsCallsOneAtATimeAndInOrder)
{
    std::binary_semaphore mayGoOn(0);
    std::mutex mutex;
    std::vector<std::string> events;
    const auto note = [&](std::string event) {
        const std::lock_guard lock(mutex);
        events.push_back(std::move(event));
    };
    VideoMetadataLoader loader([&](const FileUrl& url) {
        note("begin " + url.lastPathComponent());
        if (url.lastPathComponent() == "a.mp4")
            mayGoOn.acquire();
        note("end " + url.lastPathComponent());
        return asset(1, 1, 1, {1, 1});
    });
    auto first = loader.loadMetadata({clip("a.mp4")});
    auto second = loader.loadMetadata({clip("b.mp4")});
    mayGoOn.release();
    first.waitForFinished();
    second.waitForFinished();
    EXPECT_EQ(events, (std::vector<std::string>{"begin a.mp4", "end a.mp4", "begin b.mp4", "end b.mp4"}));
    EXPECT_TRUE(std::holds_alternative<VideoAsset>(first.result()));
}

TEST(VideoMetadataLoader, WorksOffTheCallingThread)
{
    std::thread::id worker;
    VideoMetadataLoader loader([&](const FileUrl&) {
        worker = std::this_thread::get_id();
        return asset(1, 1, 1, {1, 1});
    });
    loader.loadMetadata({clip("a.mp4")}).waitForFinished();
    EXPECT_TRUE(worker != std::this_thread::get_id());
}

}
