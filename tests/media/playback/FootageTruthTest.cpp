// SPDX-License-Identifier: GPL-3.0-or-later
#include "PlayerHarness.h"
#include "TruthCount.h"
#include "media/movie/FrameReader.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <random>

namespace zumeta::test {

namespace {

constexpr const char* kFiles[] = {
    "-video-with-dash-.mp4",
    "GH010042.MP4",
    "annex-b.mp4",
    "apple-prores-422.mov",
    "cam01.mp4",
    "cursed-vfr.mp4",
    "edit_list_positive_shift.mp4",
    "h264_10bits.mp4",
    "hdr10-video-with-sdr-container.mp4",
    "iibbibb_editlist_videoonly.mp4",
    "increasing_timestamps_320x240_5s.mp4",
    "max-heromode.mp4",
    "nasa_13013.mp4",
    "portrait_4k60.mp4",
    "sample-5s_h265.mp4",
    "sample.avi",
    "sample_fragmented.mp4",
    "sar_2x1.mp4",
    "sowt-with-video.mov",
    "video_rotation_90.mp4",
    "walk.mkv",
};

/// Enough of a picture to tell it from every other one of its recording.
uint64_t fingerprint(const VideoPicture& picture)
{
    uint64_t hash = 1469598103934665603u;
    const int bytes = picture.format.width * picture.format.bytesPerSample();
    for (int row = 0; row < picture.format.height; row += 3) {
        const uint8_t* const samples = picture.planes[0].data + row * picture.planes[0].stride;
        for (int i = 0; i < bytes; ++i)
            hash = (hash ^ samples[i]) * 1099511628211u;
    }
    return hash;
}

struct Seen {
    MediaTime time;
    uint64_t fingerprint = 0;
};

/// Every whole frame of a reading from the beginning.
std::vector<Seen> framesOf(const MediaComposition& source)
{
    std::vector<Seen> frames;
    FrameReader reader(source, 0, 1e6);
    while (const auto slot = reader.next()) {
        if (slot->picture)
            frames.push_back({slot->presentationTime, fingerprint(*slot->picture)});
    }
    // In one file the time stamps contradict the order of the frames.
    std::stable_sort(frames.begin(), frames.end(), [](const Seen& a, const Seen& b) { return a.time < b.time; });
    return frames;
}

class FootageTruth : public testing::TestWithParam<const char*> {};

}

TEST_P(FootageTruth, APreciseSeekEndsOnTheFrameOfAReadingFromTheBeginning)
{
    const auto asset = MediaAsset::load(FileUrl(std::filesystem::path(ZUMETA_FOOTAGE) / GetParam()));
    const MediaComposition source(asset);
    const std::vector<Seen> frames = framesOf(source);
    ASSERT_FALSE(frames.empty());
    PlayerHarness harness;
    harness.player.replaceCurrentItem(source);
    std::mt19937 random(3);
    std::uniform_real_distribution<double> anywhere(0, source.duration().seconds());
    const int seeks = truthCount("ZUMETA_TRUTH_SEEKS", 15);
    for (int i = 0; i < seeks; ++i) {
        harness.seek(anywhere(random));
        const double target = harness.player.currentTime().seconds();
        const auto begun = [target](const Seen& frame) { return frameHasBegun(frame.time, target); };
        const auto next = std::partition_point(frames.begin(), frames.end(), begun);
        const Seen& expected = next == frames.begin() ? *next : *std::prev(next);
        const auto picture = harness.exactPicture();
        ASSERT_TRUE(picture) << target;
        EXPECT_EQ(picture->presentationTime, expected.time) << target;
        EXPECT_EQ(fingerprint(picture->picture), expected.fingerprint) << target;
    }
}

INSTANTIATE_TEST_SUITE_P(, FootageTruth, testing::ValuesIn(kFiles), [](const auto& file) {
    std::string name = file.param;
    std::erase_if(name, [](char c) { return !std::isalnum(static_cast<unsigned char>(c)); });
    return name;
});

}
