// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/export/AudioExport.h"

#include <deque>
#include <gtest/gtest.h>

namespace zumeta::test {

namespace {

/// Gives prepared buffers, each filled with its number.
class PreparedSound final : public AudioSource {
public:
    explicit PreparedSound(const std::vector<MediaTime>& times)
    {
        for (const MediaTime& time : times)
            m_buffers.push_back({time, std::vector<int16_t>(2048, int16_t(m_buffers.size()))});
    }
    std::optional<AudioBuffer> next() override
    {
        if (m_buffers.empty())
            return std::nullopt;
        AudioBuffer buffer = std::move(m_buffers.front());
        m_buffers.pop_front();
        return buffer;
    }

private:
    std::deque<AudioBuffer> m_buffers;
};

struct Appended {
    int16_t number;
    size_t samples;
    MediaTime time;
};

std::vector<Appended> copied(const std::vector<MediaTime>& times, MediaTime aboveStart)
{
    PreparedSound sound(times);
    std::vector<Appended> result;
    copyAudio(sound, aboveStart, [&](std::span<const int16_t> samples, MediaTime time) {
        result.push_back({samples.front(), samples.size(), time});
    });
    return result;
}

}

TEST(CopyAudio, CountsTimeFromTheStartOfTheMovie)
{
    const auto result = copied({{600, 600}, {700, 600}}, {600, 600});
    ASSERT_EQ(result.size(), 2u);
    EXPECT_EQ(result[0].time, (MediaTime{0, 1}));
    EXPECT_EQ(result[1].time, (MediaTime{100, 600}));
}

TEST(CopyAudio, DropsABufferThatBeginsTenMillisecondsEarlyWhole)
{
    // Its tail lies inside the movie, and goes with it.
    const auto result = copied({{594, 600}, {620, 600}}, {600, 600});
    ASSERT_EQ(result.size(), 1u);
    EXPECT_EQ(result[0].number, 1);
    EXPECT_EQ(result[0].samples, 2048u);
    EXPECT_EQ(result[0].time, (MediaTime{20, 600}));
}

TEST(CopyAudio, KeepsABufferThatBeginsExactlyAtTheStart)
{
    EXPECT_EQ(copied({{44100, 44100}}, {600, 600}).size(), 1u);
    EXPECT_EQ(copied({{44099, 44100}}, {600, 600}).size(), 0u);
}

TEST(CopyAudio, OfNoSoundIsNothing)
{
    EXPECT_TRUE(copied({}, {0, 600}).empty());
}

}
