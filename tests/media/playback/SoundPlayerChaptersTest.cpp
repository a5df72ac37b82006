// SPDX-License-Identifier: GPL-3.0-or-later
#include "Listening.h"
#include "LogLines.h"
#include "support/FootageMaker.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zumeta::test {

namespace {

constexpr double kStart = 1000; ///< where the manual clock stands at first

/// Two seconds of a hum of 200 Hz, which fits into them in whole periods; one click half a second in.
FootageSpec chapter(double soundSeconds = 0)
{
    FootageSpec spec;
    spec.width = 96;
    spec.height = 54;
    spec.frames = 60;
    spec.clicks = {0.5};
    spec.sound = SoundSpec{44100, 2, {"-c:a", "pcm_s16le"}, soundSeconds, 0};
    spec.extension = "mov";
    return spec;
}

MediaComposition chapters(const std::vector<std::filesystem::path>& files)
{
    MediaComposition composition;
    composition.addAudioTrack();
    MediaTime at{0, 1};
    for (const std::filesystem::path& file : files) {
        const MediaAsset asset = MediaAsset::load(FileUrl(file));
        composition.insertVideo(asset, at);
        composition.insertAudio(asset, at);
        at = at + asset.duration;
    }
    return composition;
}

}

TEST(SoundPlayer, PlaysUnbrokenOverTheJointsOfEqualChapters)
{
    const std::filesystem::path file = FootageMaker::make(chapter());
    Listening listening(chapters({file, file, file}));
    listening.player.follow(0, kStart, 1);
    const Heard heard = listening.listen(5.9);
    EXPECT_THAT(heard.clicks(),
                testing::ElementsAre(testing::DoubleNear(kStart + 0.5, 0.001), testing::DoubleNear(kStart + 2.5, 0.001),
                                     testing::DoubleNear(kStart + 4.5, 0.001)));
    for (const double joint : {2.0, 4.0}) {
        const Heard around = heard.between(kStart + joint - 0.3, kStart + joint + 0.3);
        EXPECT_NEAR(around.pitch(), 200, 0.5) << joint;
        EXPECT_LT(around.steepest(), 15) << joint; // the hum's own steepest step is 9.3
        for (double at = around.from; at < around.from + 0.59; at += 0.005)
            EXPECT_GT(around.between(at, at + 0.005).loudest(), 300) << at - kStart;
    }
}

TEST(SoundPlayer, PlaysSilenceWhereAChapterLacksSound)
{
    Listening listening(chapters({FootageMaker::make(chapter(1.2)), FootageMaker::make(chapter())}));
    listening.player.follow(0, kStart, 1);
    const Heard heard = listening.listen(3);
    EXPECT_GT(heard.between(kStart + 1, kStart + 1.19).loudest(), 300);
    EXPECT_EQ(heard.between(kStart + 1.21, kStart + 1.99).loudest(), 0);
    EXPECT_THAT(heard.clicks(), testing::ElementsAre(testing::DoubleNear(kStart + 0.5, 0.001),
                                                     testing::DoubleNear(kStart + 2.5, 0.001)));
}

TEST(SoundPlayer, IsSilentWithALogLineFromAChapterOnThatVanished)
{
    const TemporaryFolder folder;
    const std::filesystem::path second = folder.file("second.mov");
    std::filesystem::copy_file(FootageMaker::make(chapter()), second);
    const MediaComposition both = chapters({FootageMaker::make(chapter()), second});
    std::filesystem::remove(second);
    const LogLines log;
    Listening listening(both);
    listening.player.follow(0, kStart, 1);
    const Heard heard = listening.listen(3);
    EXPECT_THAT(heard.clicks(), testing::ElementsAre(testing::DoubleNear(kStart + 0.5, 0.001)));
    EXPECT_EQ(heard.between(kStart + 2.01, kStart + 3).loudest(), 0);
    EXPECT_EQ(log.all().size(), 1);
}

}
