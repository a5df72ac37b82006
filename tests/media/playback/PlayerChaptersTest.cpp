// SPDX-License-Identifier: GPL-3.0-or-later
#include "PlayerHarness.h"
#include "support/FootageMaker.h"

#include <gmock/gmock.h>
#include <numeric>

namespace zumeta::test {
namespace {

MediaComposition joined(const std::vector<std::filesystem::path>& files)
{
    MediaComposition composition;
    MediaTime at;
    for (const std::filesystem::path& file : files) {
        const MediaAsset asset = MediaAsset::load(FileUrl(file));
        composition.insertVideo(asset, at);
        at = at + asset.duration;
    }
    return composition;
}

TEST(ChaptersInAPlayer, OfEqualLengthShowEveryFrameAcrossTheirJoints)
{
    std::vector<std::filesystem::path> files;
    for (int chapter = 0; chapter < 3; ++chapter) {
        FootageSpec spec;
        spec.frames = 24;
        spec.firstNumber = 24 * chapter;
        files.push_back(FootageMaker::make(spec));
    }
    PlayerHarness harness;
    harness.player.replaceCurrentItem(joined(files));
    ASSERT_EQ(numberOf(harness.exactPicture()), 0);
    harness.player.setRate(1);
    std::vector<int> shown;
    for (int frame = 0; frame < 71; ++frame) {
        harness.time.advance(1.0 / 30);
        shown.push_back(numberOf(harness.exactPictureWhilePlaying()).value_or(-1));
    }
    std::vector<int> counted(71);
    std::iota(counted.begin(), counted.end(), 1);
    EXPECT_THAT(shown, testing::ElementsAreArray(counted));
}

TEST(ChaptersInAPlayer, OfACameraHoldTheLastFrameOverTheGapsThatTheirSoundLeaves)
{
    std::vector<std::filesystem::path> files;
    for (const char* name : {"GH010042.MP4", "GH020042.MP4", "GH030042.MP4"})
        files.push_back(std::filesystem::path(ZUMETA_FOOTAGE) / name);
    const MediaComposition chapters = joined(files);
    const double gaps[] = {0.0083, 0.0163}; // what the sound of the chapter before is longer than its picture
    PlayerHarness harness;
    harness.player.replaceCurrentItem(chapters);
    const auto shownAt = [&](double seconds) {
        harness.seek(seconds);
        const std::optional<ShownPicture> picture = harness.exactPicture();
        return picture ? picture->presentationTime.seconds() : -1;
    };
    for (size_t joint = 1; joint < 3; ++joint) {
        const MediaSegment& before = chapters.video()[joint - 1];
        const double pictureEnd = (before.start + before.asset.video->length).seconds();
        const double start = chapters.video()[joint].start.seconds();
        EXPECT_NEAR(start - pictureEnd, gaps[joint - 1], 0.0002);
        const double last = shownAt(pictureEnd - 0.001);
        EXPECT_NEAR(last, pictureEnd - 1001.0 / 30000, 0.001);
        EXPECT_EQ(shownAt((pictureEnd + start) / 2), last);
        EXPECT_NEAR(shownAt(start), start, 1e-6);
    }
}

}
}
