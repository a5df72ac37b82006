// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/export/SourceAssembly.h"
#include "platform/Log.h"
#include "render/export/ExportError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>
#include <stdexcept>

namespace zumeta::test {

namespace {

enum class Sound { none, some };

MediaAsset clip(MediaTime duration, Sound sound = Sound::some)
{
    MediaAsset asset;
    asset.duration = duration;
    asset.video = VideoTrack{};
    asset.video->length = duration;
    asset.video->nominalFrameRate = 30;
    if (sound == Sound::some)
        asset.audio = AudioTrack{1, 48000, 2, duration};
    return asset;
}

/// A world of files in memory: what is not in it cannot be loaded.
class Files {
public:
    std::map<std::string, MediaAsset> known;
    std::string soundThatFails;
    std::vector<std::string> log;

    MediaComposition join(const std::vector<const char*>& names)
    {
        std::vector<FileUrl> urls;
        for (const char* const name : names)
            urls.emplace_back(std::filesystem::path("/clips") / name);
        const LogCapture capture([this](const QString& line) { log.push_back(line.toStdString()); });
        return createAssetFromURLs(urls, {[this](const FileUrl& url) { return load(url); },
                                          [this](MediaComposition& composition, const MediaAsset& asset, MediaTime at) {
                                              if (asset.url.lastPathComponent() == soundThatFails)
                                                  throw std::runtime_error("no such sound");
                                              composition.insertAudio(asset, at);
                                          }});
    }

private:
    MediaAsset load(const FileUrl& url)
    {
        const auto found = known.find(url.lastPathComponent());
        if (found == known.end())
            throw std::runtime_error("cannot be opened");
        MediaAsset asset = found->second;
        asset.url = url;
        return asset;
    }
};

std::vector<std::pair<std::string, double>> places(const std::vector<MediaSegment>& segments)
{
    std::vector<std::pair<std::string, double>> result;
    for (const MediaSegment& segment : segments)
        result.emplace_back(segment.asset.url.lastPathComponent(), segment.start.seconds());
    return result;
}

using Places = std::vector<std::pair<std::string, double>>;

}

TEST(SourceAssembly, AnEmptyListIsAMissingVideoTrack)
{
    try {
        Files().join({});
        FAIL();
    } catch (const ExportError& error) {
        EXPECT_EQ(error.reason(), ExportError::Case::missingVideoTrack);
    }
}

TEST(SourceAssembly, OneFileIsTakenAsItIsAndItsFailureThrown)
{
    Files files;
    files.known["silent"] = clip({2, 1}, Sound::none);
    const MediaComposition one = files.join({"silent"});
    EXPECT_TRUE(one.hasVideoTrack());
    EXPECT_FALSE(one.hasAudioTrack());
    EXPECT_TRUE(files.log.empty());
    EXPECT_THROW(files.join({"missing"}), std::runtime_error);
}

TEST(SourceAssembly, LaysFilesEndToEndAtTheirOwnDurations)
{
    Files files;
    files.known["a"] = clip({1001, 600});
    files.known["b"] = clip({7, 5});
    files.known["c"] = clip({3, 1});
    const MediaComposition composition = files.join({"a", "b", "c"});
    EXPECT_EQ(composition.duration(), (MediaTime{1001, 600}) + (MediaTime{7, 5}) + (MediaTime{3, 1}));
    const auto& video = composition.video();
    ASSERT_EQ(video.size(), 3u);
    EXPECT_EQ(video[1].start, (MediaTime{1001, 600}));
    EXPECT_EQ(video[2].start, (MediaTime{1001, 600}) + (MediaTime{7, 5}));
    EXPECT_EQ(composition.audio().size(), 3u);
}

TEST(SourceAssembly, SeveralFilesAlwaysHaveAnAudioTrack)
{
    Files files;
    files.known["a"] = clip({1, 1}, Sound::none);
    files.known["b"] = clip({1, 1}, Sound::none);
    const MediaComposition composition = files.join({"a", "b"});
    EXPECT_TRUE(composition.hasAudioTrack());
    EXPECT_TRUE(composition.audio().empty());
}

TEST(SourceAssembly, LeavesOutWhatCannotBeOpenedOrHasNoPicture)
{
    Files files;
    files.known["a"] = clip({1, 1});
    files.known["sound"] = clip({5, 1});
    files.known["sound"].video.reset();
    files.known["b"] = clip({2, 1});
    const MediaComposition composition = files.join({"a", "missing", "sound", "b"});
    EXPECT_EQ(places(composition.video()), (Places{{"a", 0}, {"b", 1}}));
    EXPECT_EQ(composition.duration(), (MediaTime{3, 1}));
    EXPECT_THAT(files.log, testing::Contains("Failed to add missing to export composition: cannot be opened"));
    EXPECT_THAT(files.log, testing::Contains("No video track in sound"));
}

TEST(SourceAssembly, WithoutAnyPictureIsEmptyAndNoErrorHere)
{
    Files files;
    files.known["sound"] = clip({5, 1});
    files.known["sound"].video.reset();
    const MediaComposition composition = files.join({"sound", "sound"});
    EXPECT_FALSE(composition.hasVideoTrack());
    EXPECT_EQ(composition.duration(), (MediaTime{0, 1}));
}

TEST(SourceAssembly, AClipWhoseSoundFailsStaysAndTheNextIsLaidOverIt)
{
    Files files;
    files.known["a"] = clip({1, 1});
    files.known["b"] = clip({4, 1});
    files.known["c"] = clip({2, 1});
    files.soundThatFails = "b";
    const MediaComposition composition = files.join({"a", "b", "c"});
    // What the next clip covers of it is gone, and what reaches past that clip is seen.
    EXPECT_EQ(places(composition.video()), (Places{{"a", 0}, {"c", 1}, {"b", 3}}));
    EXPECT_EQ(composition.video()[2].sourceStart, (MediaTime{2, 1}));
    EXPECT_EQ(places(composition.audio()), (Places{{"a", 0}, {"c", 1}}));
    EXPECT_THAT(files.log, testing::Contains("Failed to add b to export composition: no such sound"));
}

TEST(SourceAssembly, LogsEachChapterAndTheWhole)
{
    Files files;
    files.known["a"] = clip({3, 2});
    files.known["b"] = clip({1, 1});
    files.join({"a", "b"});
    EXPECT_THAT(files.log, testing::ElementsAre("📎 Export: Added chapter: a (duration: 1.5s)",
                                                testing::StartsWith("📎 Export: Added chapter: b (duration: 1"),
                                                testing::StartsWith("📎 Export: Total composition duration: 2.5")));
}

}
