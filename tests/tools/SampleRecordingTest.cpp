// SPDX-License-Identifier: GPL-3.0-or-later
#include "Recording.h"
#include "media/movie/FrameReader.h"
#include "media/movie/MovieError.h"
#include "support/FileSandbox.h"

#include <cstring>
#include <gtest/gtest.h>

namespace zumeta::swim {

namespace {

constexpr int kWidth = 160;
constexpr int kHeight = 90;

void fillGrey(const WritablePicture& picture, int value)
{
    for (int y = 0; y < kHeight; ++y)
        std::memset(picture.planes[0].data + y * picture.planes[0].stride, value, kWidth);
    for (int y = 0; y < kHeight / 2; ++y) {
        std::memset(picture.planes[1].data + y * picture.planes[1].stride, 128, kWidth / 2);
        std::memset(picture.planes[2].data + y * picture.planes[2].stride, 128, kWidth / 2);
    }
}

Chapter chapterIn(const test::FileSandbox& folder, const SwimPlan& plan)
{
    return {folder.url("chapter.MP4"), kWidth, kHeight, plan.rate, 10, 40};
}

}

TEST(SampleRecording, AChapterHoldsItsFramesAndEndsWithItsSoundAtTheSameInstant)
{
    const test::FileSandbox folder;
    const SwimPlan plan = SwimPlan::make({30000, 1001}, 2);
    const Chapter chapter = chapterIn(folder, plan);
    SwimSound sound(plan, SwimSound::Place::above);
    const std::atomic<bool> interrupted = false;
    std::vector<int> drawn;
    const DrawFrame draw = [&](int frame, const WritablePicture& picture) {
        drawn.push_back(frame);
        fillGrey(picture, 20 + frame * 5);
    };
    ASSERT_TRUE(writeChapter(chapter, draw, sound, interrupted));
    EXPECT_EQ(drawn.size(), 30u);
    EXPECT_EQ(drawn.front(), 10);
    EXPECT_EQ(drawn.back(), 39);

    const MediaAsset asset = MediaAsset::load(chapter.file);
    ASSERT_TRUE(asset.video && asset.audio);
    EXPECT_EQ(asset.video->length, (MediaTime{30030, 30000}));
    EXPECT_EQ(asset.audio->sampleRate, kSampleRate);
    EXPECT_NEAR(asset.audio->end.seconds(), asset.video->length.seconds(), 1.0 / kSampleRate);
}

TEST(SampleRecording, AnInterruptedChapterLeavesNoFile)
{
    const test::FileSandbox folder;
    const SwimPlan plan = SwimPlan::make({30000, 1001}, 2);
    const Chapter chapter = chapterIn(folder, plan);
    SwimSound sound(plan, SwimSound::Place::above);
    std::atomic<bool> interrupted = false;
    const DrawFrame draw = [&](int frame, const WritablePicture& picture) {
        fillGrey(picture, 100);
        interrupted = frame == 20;
    };
    EXPECT_FALSE(writeChapter(chapter, draw, sound, interrupted));
    EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

TEST(SampleRecording, AFailureWhileDrawingLeavesNoFile)
{
    const test::FileSandbox folder;
    const SwimPlan plan = SwimPlan::make({30000, 1001}, 2);
    const Chapter chapter = chapterIn(folder, plan);
    SwimSound sound(plan, SwimSound::Place::above);
    const std::atomic<bool> interrupted = false;
    const DrawFrame draw = [](int, const WritablePicture&) { throw std::runtime_error("no paint left"); };
    EXPECT_THROW(writeChapter(chapter, draw, sound, interrupted), std::runtime_error);
    EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

TEST(SampleRecording, AFileThatIsThereAlreadyStaysAsItIs)
{
    const test::FileSandbox folder;
    const SwimPlan plan = SwimPlan::make({30000, 1001}, 2);
    const Chapter chapter = chapterIn(folder, plan);
    folder.write("chapter.MP4", "somebody's recording");
    SwimSound sound(plan, SwimSound::Place::above);
    const std::atomic<bool> interrupted = false;
    const DrawFrame draw = [](int, const WritablePicture& picture) { fillGrey(picture, 100); };
    EXPECT_THROW(writeChapter(chapter, draw, sound, interrupted), MovieError);
    EXPECT_EQ(std::filesystem::file_size(chapter.file.path()), 20u);
}

}
