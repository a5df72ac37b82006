// SPDX-License-Identifier: GPL-3.0-or-later
#include "PlayerHarness.h"
#include "platform/Log.h"
#include "support/FootageMaker.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <atomic>
#include <ctime>
#include <filesystem>

namespace zumeta::test {

namespace {

namespace fs = std::filesystem;

fs::path footage(const char* name)
{
    return fs::path(ZUMETA_FOOTAGE) / name;
}

/// Counts the lines that are logged while it lives, on any thread.
struct LogLines {
    std::atomic<int> count = 0;
    LogCapture capture{[this](const QString&) { ++count; }};
};

fs::path longClip()
{
    FootageSpec spec;
    spec.frames = 240;
    spec.encoder = {"-c:v", "libx264", "-preset", "veryfast", "-crf", "12", "-g", "12"};
    spec.container = {"-movflags", "+faststart"};
    return FootageMaker::make(spec);
}

size_t entriesOf(const char* folder)
{
    return size_t(std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
}

double processorSeconds()
{
    return double(std::clock()) / CLOCKS_PER_SEC;
}

}

TEST(MoviePlayer, AFileThatIsNoMovieIsALogLineAndAnItemWithoutAPicture)
{
    for (const fs::path& file : {footage("hello.mp4"), fs::path("/nowhere/at/all.mp4")}) {
        LogLines lines;
        PlayerHarness harness;
        harness.player.replaceCurrentItem(FileUrl(file));
        EXPECT_TRUE(harness.waitUntil([&lines] { return lines.count > 0; })) << file;
        harness.letPass(std::chrono::milliseconds(20));
        harness.player.play();
        harness.seek(1);
        harness.time.advance(1);
        EXPECT_FALSE(harness.shown()) << file;
        EXPECT_TRUE(harness.player.hasCurrentItem());
        EXPECT_EQ(harness.player.currentTime(), MediaTime{}) << file;
    }
}

TEST(MoviePlayer, ASoundRecordingHasTimeAndNoPicture)
{
    PlayerHarness harness;
    harness.player.replaceCurrentItem(FileUrl(footage("multiple-aac-tracks.mp4")));
    harness.letPass(std::chrono::milliseconds(300));
    harness.player.play();
    harness.time.advance(0.5);
    EXPECT_DOUBLE_EQ(harness.player.currentTime().seconds(), 0.5);
    EXPECT_FALSE(harness.shown());
}

TEST(MoviePlayer, AFileInWhichNothingDecodesRests)
{
    const LogLines quiet;
    PlayerHarness harness;
    harness.player.replaceCurrentItem(FileUrl(footage("zero_empty_stsc.mp4")));
    harness.seek(20);
    // It must come to the end that there is nothing, and not try for ever.
    harness.letPass(std::chrono::seconds(1));
    const double before = processorSeconds();
    harness.letPass(std::chrono::seconds(1));
    EXPECT_LT(processorSeconds() - before, 0.1);
    EXPECT_FALSE(harness.shown());
}

TEST(MoviePlayer, PlaysOnWhenItsFileIsRemovedOrReplaced)
{
    const TemporaryFolder folder;
    const fs::path file = folder.file("swim.mp4");
    for (const bool isReplaced : {false, true}) {
        fs::copy_file(longClip(), file, fs::copy_options::overwrite_existing);
        PlayerHarness harness;
        harness.player.replaceCurrentItem(FileUrl(file));
        ASSERT_TRUE(harness.exactPicture());
        fs::remove(file);
        if (isReplaced)
            fs::copy_file(footage("hello.mp4"), file);
        harness.seek(7.05); // the open file is still the old one
        EXPECT_EQ(numberOf(harness.exactPicture()), 211);
    }
}

TEST(MoviePlayer, HoldsTheLastGoodPictureOfAFileThatIsCutWhileItPlays)
{
    const LogLines quiet;
    const TemporaryFolder folder;
    const fs::path file = folder.file("swim.mp4");
    fs::copy_file(longClip(), file);
    PlayerHarness harness;
    harness.player.replaceCurrentItem(FileUrl(file));
    ASSERT_TRUE(harness.exactPicture());
    fs::resize_file(file, fs::file_size(file) / 3);
    harness.seek(7.05);
    const auto number = numberOf(harness.exactPicture());
    ASSERT_TRUE(number);
    EXPECT_GT(*number, 30);
    EXPECT_LT(*number, 120);
    harness.seek(1);
    EXPECT_EQ(numberOf(harness.exactPicture()), 30);
}

TEST(MoviePlayer, ADamagedFrameIsCoveredByTheOneBeforeIt)
{
    FootageSpec spec;
    spec.frames = 40;
    spec.encoder = {"-c:v", "libx264", "-g", "1"};
    const fs::path file = FootageMaker::withDamagedPackets(FootageMaker::make(spec), {0, 7, 20, 21, 39});
    const int expected[] = {1, 1, 6, 6, 8, 19, 19, 19, 22, 38, 38};
    const int sought[] = {0, 1, 6, 7, 8, 19, 20, 21, 22, 38, 39};
    PlayerHarness harness;
    harness.player.replaceCurrentItem(FileUrl(file));
    for (const bool isBackward : {false, true}) {
        for (size_t i = 0; i < std::size(sought); ++i) {
            const size_t at = isBackward ? std::size(sought) - 1 - i : i;
            harness.seek(sought[at] / 30.0);
            EXPECT_EQ(numberOf(harness.exactPicture()), expected[at]) << sought[at];
        }
    }
}

TEST(MoviePlayer, TwentyItemsInARowLeaveNoThreadAndNoFileBehind)
{
    PlayerHarness harness;
    harness.player.replaceCurrentItem(FileUrl(longClip()));
    ASSERT_TRUE(harness.exactPicture());
    const size_t threads = entriesOf("/proc/self/task");
    const size_t files = entriesOf("/proc/self/fd");
    for (int i = 0; i < 20; ++i) {
        harness.player.replaceCurrentItem(FileUrl(longClip()));
        harness.seek(0.3 * i);
        // Some are replaced before they are open.
        ASSERT_TRUE(i % 3 != 0 || harness.exactPicture());
    }
    ASSERT_TRUE(harness.exactPicture());
    EXPECT_EQ(entriesOf("/proc/self/task"), threads);
    EXPECT_EQ(entriesOf("/proc/self/fd"), files);
    harness.player.replaceCurrentItem(std::nullopt);
}

}
