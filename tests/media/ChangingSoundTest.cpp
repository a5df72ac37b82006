// SPDX-License-Identifier: GPL-3.0-or-later
// Sound that changes its form half way, as it comes from recordings that were joined without care.
#include "Reading.h"
#include "support/TemporaryFolder.h"

#include <cmath>
#include <fstream>
#include <gtest/gtest.h>

namespace zumeta::test {

namespace {

/// A second of a tone as bare AAC, which can be laid end to end.
std::filesystem::path tone(int sampleRate, int channels)
{
    return FootageMaker::derive({"-f", "lavfi", "-i", "sine=frequency=440:duration=1", "-ar",
                                 std::to_string(sampleRate), "-ac", std::to_string(channels), "-c:a", "aac"},
                                "aac");
}

std::filesystem::path joined(const TemporaryFolder& folder, const std::vector<std::filesystem::path>& parts)
{
    std::ofstream out(folder.file("joined.aac"));
    for (const auto& part : parts)
        out << std::ifstream(part).rdbuf();
    return folder.file("joined.aac");
}

double loudness(const std::vector<int16_t>& stereo, double from, double to)
{
    const auto begin = size_t(from * AudioSource::kSampleRate) * 2;
    const auto end = std::min(size_t(to * AudioSource::kSampleRate) * 2, stereo.size());
    double power = 0;
    for (size_t i = begin; i < end; ++i)
        power += double(stereo[i]) * stereo[i];
    return end > begin ? std::sqrt(power / double(end - begin)) : 0;
}

std::vector<int16_t> soundOf(const std::filesystem::path& file)
{
    AudioReader reader(sourceOf(file), {0, 1}, 10);
    return soundFrom(reader, 0);
}

}

TEST(ChangingSound, IsHeardOnWithOtherChannels)
{
    // Fewer channels than before made the resampler read a plane that was not there.
    const TemporaryFolder folder;
    for (const auto& parts : {std::vector{tone(44100, 2), tone(44100, 1)}, std::vector{tone(44100, 1), tone(44100, 6)},
                              std::vector{tone(44100, 6), tone(44100, 1)}}) {
        const std::vector<int16_t> sound = soundOf(joined(folder, parts));
        EXPECT_NEAR(double(sound.size()) / 2 / AudioSource::kSampleRate, 2, .1);
        EXPECT_GT(loudness(sound, .2, .8), 500);
        EXPECT_GT(loudness(sound, 1.2, 1.8), 500);
    }
}

TEST(ChangingSound, IsHeardOnAtAnotherRate)
{
    const TemporaryFolder folder;
    const std::vector<int16_t> sound = soundOf(joined(folder, {tone(44100, 2), tone(22050, 1)}));
    EXPECT_GT(loudness(sound, .2, .8), 500);
    EXPECT_GT(loudness(sound, 1.2, 1.4), 500);
}

}
