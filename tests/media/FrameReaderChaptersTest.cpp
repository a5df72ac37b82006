// SPDX-License-Identifier: GPL-3.0-or-later
#include "Reading.h"
#include "media/movie/MovieError.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zumeta::test {

namespace {

/// Three chapters that count on; their sound is longer than their picture by a little, as cameras write it.
std::vector<std::filesystem::path> chapterFiles(double overhang)
{
    std::vector<std::filesystem::path> files;
    int first = 0;
    for (const int frames : {20, 13, 9}) {
        FootageSpec spec = clip(x264("bframes=2:keyint=6:open-gop=1"), frames, {25, 1});
        spec.firstNumber = first;
        first += frames;
        spec.sound = SoundSpec{48000, 2, {"-c:a", "pcm_s16le"}, frames / 25.0 + overhang, 0};
        spec.extension = "mov";
        files.push_back(FootageMaker::make(spec));
    }
    return files;
}

}

TEST(FrameReader, ChaptersAreReadAsOneFromAnyStart)
{
    const MediaComposition source = chaptersOf(chapterFiles(0));
    EXPECT_EQ(source.duration(), (MediaTime{42, 25}));
    for (int first = 0; first < 42; ++first) {
        FrameReader reader(source, first / 25.0, kLong);
        const std::vector<ReadSlot> slots = readAll(reader);
        ASSERT_EQ(slots.size(), size_t(42 - first));
        for (size_t i = 0; i < slots.size(); ++i) {
            ASSERT_EQ(slots[i].number, first + int(i));
            ASSERT_NEAR(slots[i].time, slots[i].number / 25.0, 1e-9);
        }
    }
}

TEST(FrameReader, APictureIsHeldOverTheGapBehindAChaptersLastFrame)
{
    const MediaComposition source = chaptersOf(chapterFiles(0.01));
    EXPECT_EQ(source.duration(), (MediaTime{171, 100}));
    const auto firstAt = [&](double start) {
        FrameReader reader(source, start, 0.001);
        return readAll(reader).at(0);
    };
    EXPECT_EQ(firstAt(0.805).number, 19); // the chapter's picture ended at 0.80, its sound at 0.81
    EXPECT_EQ(firstAt(0.81).number, 20);
    EXPECT_NEAR(firstAt(0.81).time, 0.81, 1e-9);
    EXPECT_EQ(firstAt(1.335).number, 32);
    EXPECT_EQ(firstAt(1.34).number, 33);
}

TEST(FrameReader, ChaptersOfARealCameraStartWhereTheFilesBeforeThemEnd)
{
    const MediaComposition source =
        chaptersOf({footage("GH010042.MP4").path(), footage("GH020042.MP4").path(), footage("GH030042.MP4").path()});
    FrameReader reader(source, 0, kLong);
    std::vector<double> times;
    for (const ReadSlot& slot : readAll(reader))
        times.push_back(slot.time);
    ASSERT_EQ(times.size(), 315u);
    const double second = 240640.0 / 48000;
    const double third = second + 0.008 + 240640.0 / 48000;
    EXPECT_NEAR(times[149], 149 * 1001.0 / 30000, 1e-6);
    EXPECT_NEAR(times[150], second, 0.001);
    EXPECT_NEAR(times[300], third, 0.001);
    // Behind the frames' own places by the overhang of the files before.
    EXPECT_NEAR(times[150] - 150 * 1001.0 / 30000, 0.0083, 0.001);
    EXPECT_NEAR(times[300] - 300 * 1001.0 / 30000, 0.0247, 0.002);
}

TEST(FrameReader, ChaptersOfDifferentSizesAndCodecsFollowOneAnother)
{
    FootageSpec second = in(clip({"-c:v", "prores_ks"}, 5, {25, 1}), "mov", "yuv422p10le");
    second.width = 320;
    second.height = 240;
    second.firstNumber = 5;
    FrameReader reader(chaptersOf({FootageMaker::make(clip(x264("keyint=5"), 5, {25, 1})), FootageMaker::make(second)}),
                       0, kLong);
    EXPECT_EQ(numbersOf(readAll(reader)), (std::vector<int>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9}));
}

TEST(FrameReader, AChapterThatCannotBeOpenedAnyMoreEndsTheReading)
{
    const TemporaryFolder folder;
    const auto files = chapterFiles(0);
    std::filesystem::copy_file(files[1], folder.file("second.mov"));
    const MediaComposition source = chaptersOf({files[0], folder.file("second.mov"), files[2]});
    FrameReader reader(source, 0, kLong);
    ASSERT_TRUE(reader.next());
    std::filesystem::remove(folder.file("second.mov"));
    EXPECT_EQ(readAll(reader).size(), 19u);
}

}
