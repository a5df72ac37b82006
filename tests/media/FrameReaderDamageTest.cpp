// SPDX-License-Identifier: GPL-3.0-or-later
#include "Reading.h"
#include "media/movie/MovieError.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zumeta::test {

namespace {

/// The numbers 0 to count - 1, with no picture where a frame was damaged.
std::vector<int> countingWithout(int count, const std::vector<int>& damaged)
{
    std::vector<int> numbers;
    for (int i = 0; i < count; ++i)
        numbers.push_back(std::find(damaged.begin(), damaged.end(), i) == damaged.end() ? i : kNoPicture);
    return numbers;
}

}

TEST(FrameReader, ADamagedFrameIsASlotWithoutAPicture)
{
    const FootageSpec kinds[] = {
        clip(x264("keyint=1")),
        in(clip({"-c:v", "mjpeg", "-q:v", "3"}), "mov", "yuvj422p"),
        in(clip({"-c:v", "prores_ks"}), "mov", "yuv422p10le"),
    };
    for (const FootageSpec& spec : kinds) {
        const auto file = FootageMaker::withDamagedPackets(FootageMaker::make(spec), {7, 20, 21});
        for (const int threads : {1, 3}) {
            FrameReader reader(sourceOf(file), 0, kLong, {threads, {}});
            const std::vector<ReadSlot> slots = readAll(reader);
            ASSERT_EQ(numbersOf(slots), countingWithout(40, {7, 20, 21})) << spec.encoder[1] << ' ' << threads;
            EXPECT_NEAR(slots[20].time, 20 * 1001.0 / 30000, 1e-6);
        }
    }
}

TEST(FrameReader, DamagedFirstAndLastFramesKeepTheirSlots)
{
    const auto file = FootageMaker::withDamagedPackets(FootageMaker::make(clip(x264("keyint=1"))), {0, 39});
    FrameReader reader(sourceOf(file), 0, kLong);
    EXPECT_EQ(numbersOf(readAll(reader)), countingWithout(40, {0, 39}));
}

TEST(FrameReader, DamageInALongGroupCostsNoSlotAndNothingBehindTheNextKeyFrame)
{
    const FootageSpec spec = clip(x264("bframes=3:b-adapt=0:keyint=16:min-keyint=16:scenecut=0"), 48);
    const auto file = FootageMaker::withDamagedPackets(FootageMaker::make(spec), {17, 20});
    FrameReader reader(sourceOf(file), 0, kLong);
    const std::vector<int> numbers = numbersOf(readAll(reader));
    ASSERT_EQ(numbers.size(), 48u);
    for (int i = 0; i < 12; ++i)
        EXPECT_EQ(numbers[size_t(i)], i);
    for (int i = 32; i < 48; ++i)
        EXPECT_EQ(numbers[size_t(i)], i);
    // A picture that claims to be whole shows its own number.
    for (int i = 12; i < 32; ++i)
        EXPECT_THAT(numbers[size_t(i)], testing::AnyOf(i, kNoPicture, kUnreadable));
    EXPECT_THAT(numbers, testing::Contains(kNoPicture));
}

TEST(FrameReader, AStartOnADamagedFrameIsASlotWithoutAPicture)
{
    const auto file = FootageMaker::withDamagedPackets(FootageMaker::make(clip(x264("keyint=1"))), {10});
    FrameReader reader(sourceOf(file), 10 * 1001.0 / 30000, 3.5 * 1001 / 30000);
    EXPECT_EQ(numbersOf(readAll(reader)), (std::vector<int>{kNoPicture, 11, 12, 13}));
}

TEST(FrameReader, ARecordingThatBreaksOffEndsWhereItBreaksOff)
{
    FootageSpec spec = clip(x264("keyint=1"));
    spec.container = {"-movflags", "+faststart"};
    const auto whole = FootageMaker::make(spec);
    const auto cut = FootageMaker::truncated(whole, std::filesystem::file_size(whole) / 2);
    FrameReader reader(sourceOf(cut), 0, kLong);
    std::vector<int> numbers = numbersOf(readAll(reader));
    ASSERT_GT(numbers.size(), 10u);
    ASSERT_LT(numbers.size(), 35u);
    if (numbers.back() == kNoPicture) // the frame in which the cut lies
        numbers.pop_back();
    for (size_t i = 0; i < numbers.size(); ++i)
        EXPECT_EQ(numbers[i], int(i));
}

TEST(FrameReader, EndsWithoutAPictureWhereNothingCanBeDecoded)
{
    FrameReader reader(sourceOf(footage("zero_empty_stsc.mp4").path()), 0, kLong);
    EXPECT_THAT(numbersOf(readAll(reader)), testing::Each(kNoPicture));
}

TEST(FrameReader, ReadsOnWhenTheFileIsRemovedAndEndsWhenItIsCut)
{
    const TemporaryFolder folder;
    FootageSpec spec = clip(x264("keyint=1"), 200);
    spec.container = {"-movflags", "+faststart"};
    std::filesystem::copy_file(FootageMaker::make(spec), folder.file("removed.mp4"));
    std::filesystem::copy_file(FootageMaker::make(spec), folder.file("cut.mp4"));
    FrameReader removed(sourceOf(folder.file("removed.mp4")), 0, kLong);
    FrameReader cut(sourceOf(folder.file("cut.mp4")), 0, kLong);
    ASSERT_TRUE(removed.next());
    ASSERT_TRUE(cut.next());
    std::filesystem::remove(folder.file("removed.mp4"));
    std::filesystem::resize_file(folder.file("cut.mp4"), std::filesystem::file_size(folder.file("cut.mp4")) / 3);
    EXPECT_EQ(readAll(removed).size(), 199u);
    EXPECT_LT(readAll(cut).size(), 150u);
}

TEST(FrameReader, ThrowsForAFileThatWentAwayOrHasNoPicture)
{
    const TemporaryFolder folder;
    std::filesystem::copy_file(FootageMaker::make(clip(x264("keyint=1"))), folder.file("clip.mp4"));
    const MediaComposition source = sourceOf(folder.file("clip.mp4"));
    std::filesystem::remove(folder.file("clip.mp4"));
    EXPECT_THROW(FrameReader(source, 0, 1), MovieError);
    EXPECT_THROW(FrameReader(sourceOf(footage("multiple-aac-tracks.mp4").path()), 0, 1), MovieError);
}

TEST(FrameReader, GivesUpWhenItIsInterrupted)
{
    std::stop_source stop;
    FrameReader reader(sourceOf(footage("long_1080p_lowbitrate.mp4").path()), 0, kLong, {1, stop.get_token()});
    ASSERT_TRUE(reader.next());
    stop.request_stop();
    int further = 0;
    while (reader.next())
        ++further;
    EXPECT_LT(further, 2); // of more than ten thousand
}

}
