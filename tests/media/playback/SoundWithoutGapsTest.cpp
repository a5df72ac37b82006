// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/playback/SoundWithoutGaps.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zumeta::test {

namespace {

constexpr int kRate = AudioSource::kSampleRate;

/// Buffers made by hand.
class ListedSound final : public AudioSource {
public:
    explicit ListedSound(std::vector<AudioBuffer> buffers)
        : m_buffers(std::move(buffers))
    {}
    std::optional<AudioBuffer> next() override
    {
        return m_next < m_buffers.size() ? std::optional(m_buffers[m_next++]) : std::nullopt;
    }

private:
    std::vector<AudioBuffer> m_buffers;
    size_t m_next = 0;
};

/// `frames` samples of the one value in both channels, the first at sample `place`.
AudioBuffer level(MediaTime place, size_t frames, int16_t value)
{
    return {place, std::vector<int16_t>(frames * 2, value)};
}

std::vector<int16_t> leftOf(std::vector<AudioBuffer> buffers, MediaTime start)
{
    ListedSound source(std::move(buffers));
    SoundWithoutGaps sound(source, start);
    std::vector<int16_t> left;
    while (const std::optional<std::vector<int16_t>> samples = sound.next()) {
        for (size_t i = 0; i < samples->size(); i += 2)
            left.push_back((*samples)[i]);
    }
    return left;
}

}

TEST(SoundWithoutGaps, GivesSilenceBeforeSoundThatBeginsLate)
{
    const std::vector<int16_t> left = leftOf({level({3 * kRate, kRate}, 10, 7)}, {2 * kRate, kRate});
    ASSERT_EQ(left.size(), size_t(kRate + 10));
    EXPECT_EQ(std::count(left.begin(), left.end(), 0), kRate);
    EXPECT_EQ(left[size_t(kRate)], 7);
}

TEST(SoundWithoutGaps, LetsTheLastSampleDieAwayInAGap)
{
    const std::vector<int16_t> left =
        leftOf({level({0, kRate}, 100, 8000), level({10000, kRate}, 100, 8000)}, {0, kRate});
    ASSERT_EQ(left.size(), 10100u);
    for (size_t i = 101; i < 9000; ++i)
        EXPECT_LE(std::abs(left[i] - left[i - 1]), 8000 / 80) << i;
    EXPECT_EQ(left[5000], 0);
    EXPECT_EQ(left[10000], 8000);
}

TEST(SoundWithoutGaps, ClosesAJointThatLiesBetweenSamplesWithoutATick)
{
    // A sample is missing at the first joint, and one is there twice at the second.
    const std::vector<int16_t> left = leftOf(
        {level({0, kRate}, 100, 9000), level({101, kRate}, 100, 9000), level({200, kRate}, 100, 9000)}, {0, kRate});
    EXPECT_EQ(left.size(), 300u);
    EXPECT_THAT(left, testing::Each(testing::Ge(8900)));
}

TEST(SoundWithoutGaps, KeepsEverySampleAtItsPlaceOverManyJoints)
{
    // Each file is a third of a sample longer than its samples: 300 of them make 100 samples.
    std::vector<AudioBuffer> buffers;
    for (int file = 0; file < 300; ++file)
        buffers.push_back(level({file * 301, 3 * kRate}, 100, int16_t(1000 + file)));
    const std::vector<int16_t> left = leftOf(std::move(buffers), {0, kRate});
    EXPECT_NEAR(double(left.size()), 300 * 301 / 3.0, 1);
    EXPECT_EQ(left[size_t(299 * 301 / 3 + 2)], 1299);
}

}
