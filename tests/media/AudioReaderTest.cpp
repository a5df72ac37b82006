// SPDX-License-Identifier: GPL-3.0-or-later
#include "Reading.h"
#include "media/movie/MovieError.h"
#include "support/Click.h"
#include "support/TemporaryFolder.h"

#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zumeta::test {

namespace {

constexpr double kSample = 1.0 / AudioSource::kSampleRate;

MediaTime seconds(double value)
{
    return MediaTime::nearest(value, 600);
}

/// Sound whose clicks can be placed to the sample: PCM.
FootageSpec soundClip(std::vector<double> clicks, int sampleRate = 44100, int channels = 2)
{
    FootageSpec spec;
    spec.width = 96;
    spec.height = 54;
    spec.frames = 50;
    spec.rate = {25, 1};
    spec.clicks = std::move(clicks);
    spec.sound = SoundSpec{sampleRate, channels, {"-c:a", "pcm_s16le"}, 0, 0};
    spec.extension = "mov";
    return spec;
}

std::vector<double> clicksIn(const MediaComposition& source, double start, double length, int channel = 0)
{
    AudioReader reader(source, seconds(start), length);
    return findClicks(channelOf(soundFrom(reader, start), AudioSource::kChannels, channel), AudioSource::kSampleRate);
}

}

TEST(AudioReader, GivesEverySampleOfSoundInItsOwnRate)
{
    AudioReader reader(sourceOf(FootageMaker::make(soundClip({0.5}))), seconds(0), kLong);
    const std::vector<int16_t> sound = soundFrom(reader, 0);
    EXPECT_EQ(sound.size(), 2u * 2u * 44100u);
    EXPECT_THAT(findClicks(channelOf(sound, 2, 0), 44100), testing::ElementsAre(testing::DoubleNear(0.5, kSample / 2)));
}

TEST(AudioReader, PlacesClicksWithinASampleFromEveryRate)
{
    for (const int rate : {8000, 22050, 32000, 48000, 96000}) {
        const MediaComposition source = sourceOf(FootageMaker::make(soundClip({0.25, 1.75}, rate)));
        EXPECT_THAT(clicksIn(source, 0, kLong),
                    testing::ElementsAre(testing::DoubleNear(0.25, kSample), testing::DoubleNear(1.75, kSample)))
            << rate;
    }
}

TEST(AudioReader, BringsMonoAndSurroundToBothChannels)
{
    for (const int channels : {1, 2, 6}) {
        const MediaComposition source = sourceOf(FootageMaker::make(soundClip({0.5}, 48000, channels)));
        for (const int channel : {0, 1})
            EXPECT_THAT(clicksIn(source, 0, kLong, channel), testing::ElementsAre(testing::DoubleNear(0.5, kSample)))
                << channels;
    }
}

TEST(AudioReader, StartsAndEndsOnTheSample)
{
    const MediaComposition source = sourceOf(FootageMaker::make(soundClip({0.5, 1.0})));
    for (const double start : {0.0, 0.1, 0.37, 0.4983333333333333}) {
        AudioReader reader(source, seconds(start), 0.6);
        const std::optional<AudioBuffer> first = reader.next();
        ASSERT_TRUE(first);
        EXPECT_NEAR(first->presentationTime.seconds(), seconds(start).seconds(), kSample) << start;
        size_t count = first->samples.size();
        while (const std::optional<AudioBuffer> buffer = reader.next())
            count += buffer->samples.size();
        EXPECT_NEAR(double(count) / 2, 0.6 * 44100, 1) << start;
    }
    EXPECT_THAT(clicksIn(source, 0.4, 0.3), testing::ElementsAre(testing::DoubleNear(0.1, kSample)));
}

TEST(AudioReader, LeavesOutTheEncodersPriming)
{
    for (const char* const container : {"mp4", "mkv"}) {
        FootageSpec spec = soundClip({0.5}, 48000);
        spec.sound->encoder = {"-c:a", "aac", "-b:a", "192k"};
        spec.extension = container;
        const MediaComposition source = sourceOf(FootageMaker::make(spec));
        EXPECT_THAT(clicksIn(source, 0, kLong), testing::ElementsAre(testing::DoubleNear(0.5, 0.0005))) << container;
        EXPECT_THAT(clicksIn(source, 0.3, kLong), testing::ElementsAre(testing::DoubleNear(0.2, 0.0005))) << container;
    }
}

TEST(AudioReader, SoundThatBeginsLateKeepsItsPlace)
{
    FootageSpec spec = soundClip({0.5});
    spec.sound->start = 0.3;
    spec.sound->seconds = 1.5;
    const MediaComposition source = sourceOf(FootageMaker::make(spec));
    AudioReader reader(source, seconds(0), kLong);
    EXPECT_NEAR(reader.next()->presentationTime.seconds(), 0.3, 0.002);
    EXPECT_THAT(clicksIn(source, 0, kLong), testing::ElementsAre(testing::DoubleNear(0.5, 0.002)));
}

TEST(AudioReader, CountsFromTheFirstPictureWhenThatBeginsLate)
{
    FootageSpec spec = soundClip({0.5});
    spec.start = 0.4; // and the sound with it
    EXPECT_THAT(clicksIn(sourceOf(FootageMaker::make(spec)), 0, kLong),
                testing::ElementsAre(testing::DoubleNear(0.5, 0.002)));
    FootageSpec early = soundClip({0.5});
    early.start = 0.4;
    early.sound->start = -0.4; // the sound begins with the file, before the picture
    early.sound->seconds = 2;
    EXPECT_THAT(clicksIn(sourceOf(FootageMaker::make(early)), 0, kLong),
                testing::ElementsAre(testing::DoubleNear(0.5, 0.002)));
}

TEST(AudioReader, ChaptersFollowOneAnotherToTheSample)
{
    FootageSpec second = soundClip({0.25});
    second.firstNumber = 50;
    const MediaComposition source = chaptersOf({FootageMaker::make(soundClip({0.5})), FootageMaker::make(second)});
    EXPECT_THAT(clicksIn(source, 0, kLong),
                testing::ElementsAre(testing::DoubleNear(0.5, kSample), testing::DoubleNear(2.25, kSample)));
    EXPECT_THAT(clicksIn(source, 1.9, 0.5), testing::ElementsAre(testing::DoubleNear(0.35, kSample)));
}

TEST(AudioReader, AChapterWithoutSoundLeavesAGap)
{
    FootageSpec silent = soundClip({});
    silent.sound.reset();
    const auto loud = FootageMaker::make(soundClip({0.5}));
    const MediaComposition source = chaptersOf({loud, FootageMaker::make(silent), loud});
    EXPECT_THAT(clicksIn(source, 0, kLong),
                testing::ElementsAre(testing::DoubleNear(0.5, kSample), testing::DoubleNear(4.5, kSample)));
    AudioReader inTheGap(source, seconds(2.5), kLong);
    EXPECT_NEAR(inTheGap.next()->presentationTime.seconds(), 4, kSample);
}

TEST(AudioReader, ShorterSoundLeavesAGapBeforeTheNextChapter)
{
    FootageSpec first = soundClip({0.5});
    first.sound->seconds = 1.2;
    const MediaComposition source = chaptersOf({FootageMaker::make(first), FootageMaker::make(soundClip({0.5}))});
    EXPECT_THAT(clicksIn(source, 0, kLong),
                testing::ElementsAre(testing::DoubleNear(0.5, kSample), testing::DoubleNear(2.5, kSample)));
}

TEST(AudioReader, ChaptersWithoutAnySoundEndAtOnce)
{
    FootageSpec silent = soundClip({});
    silent.sound.reset();
    const auto file = FootageMaker::make(silent);
    AudioReader reader(chaptersOf({file, file}), seconds(0), kLong);
    EXPECT_FALSE(reader.next());
}

TEST(AudioReader, ARangeBehindTheSoundIsEmpty)
{
    FootageSpec spec = soundClip({0.5});
    spec.sound->seconds = 1;
    AudioReader reader(sourceOf(FootageMaker::make(spec)), seconds(1.5), kLong);
    EXPECT_FALSE(reader.next());
}

TEST(AudioReader, ReadsTheSoundOfRealFiles)
{
    struct Real {
        const char* file;
        double seconds; ///< of sound, see MediaAssetTest for how such numbers come about
    };
    for (const Real real :
         {Real{"max-heromode.mp4", 10.517333}, Real{"sowt-with-video.mov", 2.0}, Real{"nasa_13013.mp4", 13.056},
          Real{"sample.avi", 4.08}, Real{"GH020042.MP4", 5.021333}, Real{"multiple-aac-tracks.mp4", 5.013333}}) {
        AudioReader reader(sourceOf(footage(real.file).path()), seconds(0), kLong);
        const std::vector<int16_t> sound = soundFrom(reader, 0);
        EXPECT_NEAR(double(sound.size()) / 2 / 44100, real.seconds, 0.03) << real.file;
    }
}

TEST(AudioReader, DamagedSoundCostsNothingBehindIt)
{
    FootageSpec spec = soundClip({0.3, 1.7}, 48000);
    spec.sound->encoder = {"-c:a", "aac", "-b:a", "192k"};
    spec.extension = "mp4";
    const auto file = FootageMaker::withDamagedPackets(FootageMaker::make(spec), {40, 41}, "a:0");
    EXPECT_THAT(clicksIn(sourceOf(file), 0, kLong),
                testing::IsSupersetOf({testing::DoubleNear(0.3, 0.001), testing::DoubleNear(1.7, 0.001)}));
}

TEST(AudioReader, ThrowsForAFileThatWentAway)
{
    const TemporaryFolder folder;
    std::filesystem::copy_file(FootageMaker::make(soundClip({0.5})), folder.file("clip.mov"));
    const MediaComposition source = sourceOf(folder.file("clip.mov"));
    std::filesystem::remove(folder.file("clip.mov"));
    EXPECT_THROW(AudioReader(source, seconds(0), 1), MovieError);
}

}
