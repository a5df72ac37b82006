// SPDX-License-Identifier: GPL-3.0-or-later
#include "Listening.h"
#include "LogLines.h"
#include "support/FootageMaker.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <thread>

namespace zumeta::test {

namespace {

constexpr double kStart = 1000; ///< where the manual clock stands at first
/// The clicks are not evenly spaced on the grid of any rate.
const std::vector<double> kClicks = {0.437, 1.012, 1.7331, 2.3907, 3.071, 3.8013, 4.613, 5.3377};

std::filesystem::path clickFile()
{
    FootageSpec spec;
    spec.width = 96;
    spec.height = 54;
    spec.frames = 180;
    spec.clicks = kClicks;
    spec.sound = SoundSpec{44100, 2, {"-c:a", "pcm_s16le"}, 0, 0};
    spec.extension = "mov";
    return FootageMaker::make(spec);
}

/// A quiet tone of 440 Hz without any picture.
std::filesystem::path toneFile(const char* seconds = "8")
{
    return FootageMaker::derive({"-f", "lavfi", "-i",
                                 std::string("sine=frequency=440:sample_rate=44100:duration=") + seconds, "-c:a",
                                 "pcm_s16le"},
                                "wav");
}

/// The steepest step of that tone itself, with some room.
constexpr int kToneStep = 230;

PlayerItem item(const std::filesystem::path& file)
{
    return FileUrl(file);
}

/// Plays from the beginning for half a second.
void start(Listening& listening, double rate = 1)
{
    listening.player.follow(0, listening.clock.now(), rate);
    listening.listen(0.5);
}

int threadCount()
{
    return int(std::distance(std::filesystem::directory_iterator("/proc/self/task"), {}));
}

}

TEST(SoundPlayer, LetsEachClickBeHeardAtTheMomentThatThePlayerSays)
{
    Listening listening(item(clickFile()));
    listening.player.follow(0, kStart, 1);
    const std::vector<double> heard = listening.listen(6).clicks();
    ASSERT_EQ(heard.size(), kClicks.size());
    for (size_t i = 0; i < heard.size(); ++i)
        EXPECT_NEAR(heard[i], kStart + kClicks[i], 0.001) << i;
}

TEST(SoundPlayer, LetsEachClickBeHeardAtItsMomentAtHalfSpeed)
{
    Listening listening(item(clickFile()));
    listening.player.follow(0, kStart, 0.5);
    const std::vector<double> heard = listening.listen(11.5).clicks();
    ASSERT_EQ(heard.size(), kClicks.size());
    for (size_t i = 0; i < heard.size(); ++i)
        EXPECT_NEAR(heard[i], kStart + kClicks[i] / 0.5, 0.02) << i;
}

TEST(SoundPlayer, LetsClicksBeHeardAtTheirMomentAtDoubleSpeed)
{
    Listening listening(item(clickFile()));
    listening.player.follow(0, kStart, 2);
    const std::vector<double> heard = listening.listen(3).clicks();
    // Some of the shortest sounds fall out when half of all is left out.
    EXPECT_GE(heard.size(), 4u);
    for (const double moment : heard)
        EXPECT_THAT(kClicks, testing::Contains(testing::DoubleNear(2 * (moment - kStart), 0.04))) << moment;
}

TEST(SoundPlayer, KeepsThePitchAtEverySpeedThatIsHeard)
{
    for (const double rate : {0.5, 1.0, 2.0}) {
        Listening listening(item(toneFile()));
        start(listening, rate);
        const Heard heard = listening.listen(2);
        EXPECT_NEAR(heard.pitch(), 440, 2) << rate;
        EXPECT_GT(heard.loudest(), 2000) << rate;
    }
}

TEST(SoundPlayer, IsSilentAtEveryOtherRate)
{
    for (const double rate : {4.0, 2.1, 0.4, 0.0, -1.0, -2.0}) {
        Listening listening(item(toneFile()));
        start(listening);
        listening.player.follow(4, listening.clock.now(), rate);
        listening.listen(0.02);
        EXPECT_EQ(listening.listen(0.5).loudest(), 0) << rate;
    }
}

TEST(SoundPlayer, AsksNoDeviceBeforeThereIsSomethingToHear)
{
    Listening listening(item(toneFile()));
    listening.player.follow(0, kStart, 0);
    listening.player.follow(2, kStart, 4);
    EXPECT_EQ(listening.output.starts, 0);
    listening.player.follow(2, kStart, 1);
    EXPECT_EQ(listening.output.starts, 1);
}

TEST(SoundPlayer, ASeekMovesTheSound)
{
    Listening listening(item(clickFile()));
    listening.player.follow(0, kStart, 1);
    listening.listen(0.7);
    const double seek = listening.clock.now();
    listening.player.follow(3.5, seek, 1);
    EXPECT_THAT(listening.listen(1.5).clicks(), testing::ElementsAre(testing::DoubleNear(seek + 3.8013 - 3.5, 0.001),
                                                                     testing::DoubleNear(seek + 4.613 - 3.5, 0.001)));
}

TEST(SoundPlayer, OfManySeeksOnlyTheNewestIsHeard)
{
    Listening listening(item(clickFile()));
    for (int i = 0; i < 200; ++i)
        listening.player.follow(0.02 * i, kStart, 1);
    listening.player.follow(0.5, kStart, 1);
    EXPECT_THAT(listening.listen(1).clicks(), testing::ElementsAre(testing::DoubleNear(kStart + 0.512, 0.001)));
}

TEST(SoundPlayer, ChangesOfSpeedStopsAndSeeksDoNotClick)
{
    Listening listening(item(toneFile()));
    start(listening);
    Heard heard = listening.listen(0.1);
    for (const double rate : {0.5, 0.0, 2.0, -1.0, 1.0, 1.0, 4.0, 1.0}) {
        listening.player.follow(2, listening.clock.now(), rate);
        const Heard more = listening.listen(0.3);
        heard.samples.insert(heard.samples.end(), more.samples.begin(), more.samples.end());
    }
    EXPECT_GT(heard.loudest(), 2500);
    EXPECT_LT(heard.steepest(), kToneStep);
}

TEST(SoundPlayer, FollowsADeviceThatFallsBehind)
{
    Listening listening(item(clickFile()));
    listening.player.follow(0, kStart, 1);
    listening.listen(0.7);
    listening.deviceDelay += 0.2;
    EXPECT_THAT(listening.listen(1.2).clicks(), testing::ElementsAre(testing::DoubleNear(kStart + 1.012, 0.001),
                                                                     testing::DoubleNear(kStart + 1.7331, 0.001)));
}

TEST(SoundPlayer, BeingToldTheSameLineAgainChangesNothing)
{
    Listening listening(item(toneFile()));
    start(listening);
    const int starts = listening.output.starts;
    for (int i = 0; i < 10; ++i) {
        listening.player.follow(listening.clock.now() - kStart, listening.clock.now(), 1);
        const Heard heard = listening.listen(0.1);
        EXPECT_GT(heard.loudest(), 2000);
        EXPECT_LT(heard.steepest(), kToneStep);
    }
    EXPECT_EQ(listening.output.starts, starts);
}

TEST(SoundPlayer, TheSameRecordingInAnotherFileGoesOnWithoutABreak)
{
    const MediaComposition other(MediaAsset::load(FileUrl(toneFile("9"))));
    Listening listening(item(toneFile()));
    start(listening);
    listening.player.setItem(other);
    // At once: the other file is not open yet.
    std::vector<int16_t> block(882);
    listening.output.source()->pull(block, listening.clock.now() + Listening::kDeviceDelay);
    EXPECT_GT(*std::max_element(block.end() - 240, block.end()), 1500);
    listening.clock.advance(0.01);
    const Heard heard = listening.listen(1);
    EXPECT_NEAR(heard.pitch(), 440, 1);
    for (double at = heard.from; at < heard.from + 0.99; at += 0.01)
        EXPECT_GT(heard.between(at, at + 0.01).loudest(), 1500) << at - heard.from;
}

TEST(SoundPlayer, WithoutAnItemThereIsSilence)
{
    Listening listening(item(toneFile()));
    start(listening);
    listening.player.setItem(std::nullopt);
    listening.listen(0.02);
    EXPECT_EQ(listening.listen(0.2).loudest(), 0);
    listening.player.follow(0, listening.clock.now(), 1);
    EXPECT_EQ(listening.listen(0.2).loudest(), 0);
}

TEST(SoundPlayer, AnItemThatComesWhileItPlaysIsHeard)
{
    const PlayerItem clicks = item(clickFile());
    Listening listening(std::nullopt);
    listening.player.follow(0, kStart, 1);
    listening.listen(0.3);
    listening.player.setItem(clicks);
    EXPECT_THAT(listening.listen(0.5).clicks(), testing::ElementsAre(testing::DoubleNear(kStart + 0.437, 0.001)));
}

TEST(SoundPlayer, IsSilentBehindTheEndAndPlaysAgainAfterASeek)
{
    Listening listening(item(clickFile()));
    listening.player.follow(5.9, kStart, 1);
    listening.listen(0.2);
    EXPECT_EQ(listening.listen(0.3).loudest(), 0);
    listening.player.follow(0.9, listening.clock.now(), 1);
    EXPECT_EQ(listening.listen(0.3).clicks().size(), 1u);
}

TEST(SoundPlayer, AMissingFileIsOneLogLineAndSilence)
{
    const LogLines log;
    Listening listening(item("/nowhere/swim.mp4"));
    for (int i = 0; i < 3; ++i) {
        listening.player.follow(i, listening.clock.now(), 1);
        EXPECT_EQ(listening.listen(0.2).loudest(), 0);
    }
    EXPECT_EQ(log.all().size(), 1) << log.all().join(QLatin1Char('\n')).toStdString();
}

TEST(SoundPlayer, AFileWithoutSoundIsSilentWithoutALogLine)
{
    FootageSpec spec;
    spec.width = 96;
    spec.height = 54;
    const LogLines log;
    Listening listening(item(FootageMaker::make(spec)));
    listening.player.follow(0, kStart, 1);
    EXPECT_EQ(listening.listen(0.5).loudest(), 0);
    EXPECT_TRUE(log.all().isEmpty()) << log.all().join(QLatin1Char('\n')).toStdString();
}

TEST(SoundPlayer, WithoutADeviceAllGoesOnAndADeviceThatComesLaterIsInStep)
{
    Listening listening(item(clickFile()));
    listening.player.follow(0, kStart, 1);
    listening.waitUntilReady(kStart + 1.4); // as far as sound is held ready
    listening.clock.advance(4.2);           // in which nobody asks
    std::vector<int16_t> block(882);
    listening.output.source()->pull(block, listening.clock.now());
    listening.clock.advance(0.01);
    EXPECT_THAT(listening.listen(0.8).clicks(), testing::ElementsAre(testing::DoubleNear(kStart + 4.613, 0.001)));
}

TEST(SoundPlayer, LeavesNoThreadBehind)
{
    const PlayerItem clicks = item(clickFile());
    const auto playABit = [&](int i) {
        Listening listening(clicks);
        listening.player.follow(0.1 * i, kStart, 1);
        if (i % 2 == 0)
            listening.listen(0.05);
    };
    playABit(0); // sanitizers start a thread of their own with the first one
    const int before = threadCount();
    for (int i = 1; i <= 20; ++i)
        playABit(i);
    // The kernel may still list a thread that was waited for.
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (threadCount() > before && std::chrono::steady_clock::now() < deadline)
        std::this_thread::yield();
    EXPECT_EQ(threadCount(), before);
}

}
