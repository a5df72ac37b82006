// SPDX-License-Identifier: GPL-3.0-or-later
#include "Listening.h"
#include "media/playback/MoviePlayer.h"
#include "support/FootageMaker.h"
#include "support/VirtualTime.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zumeta::test {

namespace {

constexpr double kStart = 1000; ///< where the manual clock stands at first

std::filesystem::path clickFile()
{
    FootageSpec spec;
    spec.width = 96;
    spec.height = 54;
    spec.frames = 120;
    spec.clicks = {0.5, 1.5, 2.5, 3.5};
    spec.sound = SoundSpec{48000, 2, {"-c:a", "aac", "-b:a", "160k"}, 0, 0};
    return FootageMaker::make(spec);
}

/// A whole player, of which the sound is listened to.
struct SoundingMovie {
    ManualClock clock;
    VirtualTime queue;
    PlaybackClock playback{clock, queue};
    std::unique_ptr<ManualOutput> newOutput = std::make_unique<ManualOutput>();
    ManualOutput& output = *newOutput;
    std::unique_ptr<SoundPlayer> newSound = std::make_unique<SoundPlayer>(clock, std::move(newOutput));
    SoundPlayer& sound = *newSound;
    MoviePlayer player{playback, queue, std::move(newSound)};

    /// Begins a new turn of the main thread.
    Heard listen(double seconds)
    {
        const Heard heard = test::listen(clock, output, sound, Listening::kDeviceDelay, seconds);
        queue.runDueWork();
        return heard;
    }
};

}

TEST(MoviePlayerSound, IsHeardInStepWithThePlayersTime)
{
    const FileUrl file(clickFile());
    SoundingMovie movie;
    movie.player.replaceCurrentItem(PlayerItem(file));
    movie.player.play();
    EXPECT_THAT(movie.listen(1).clicks(), testing::ElementsAre(testing::DoubleNear(kStart + 0.5, 0.002)));
    movie.player.seek({33, 10}, SeekTolerance::zero);
    const double seek = movie.playback.turnTime();
    EXPECT_THAT(movie.listen(0.4).clicks(), testing::ElementsAre(testing::DoubleNear(seek + 0.2, 0.002)));
}

TEST(MoviePlayerSound, StopsWithAPauseAndIsSilentAtFastRates)
{
    const FileUrl file(clickFile());
    SoundingMovie movie;
    movie.player.replaceCurrentItem(PlayerItem(file));
    movie.player.play();
    EXPECT_GT(movie.listen(0.3).loudest(), 0);
    movie.player.pause();
    movie.listen(0.02);
    EXPECT_EQ(movie.listen(0.5).loudest(), 0);
    movie.player.setRate(4);
    EXPECT_EQ(movie.listen(0.5).loudest(), 0);
}

}
