// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/playback/SoundStretcher.h"
#include "support/Click.h"

#include <algorithm>
#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <numbers>

namespace zumeta::test {

namespace {

constexpr int kRate = AudioSource::kSampleRate;

std::vector<int16_t> stereo(double seconds, const std::function<double(double)>& wave)
{
    std::vector<int16_t> samples;
    for (int i = 0; i < int(seconds * kRate); ++i)
        samples.insert(samples.end(), 2, int16_t(std::lround(32767 * wave(double(i) / kRate))));
    return samples;
}

/// In portions, as decoders give it.
std::vector<int16_t> stretched(const std::vector<int16_t>& input, double tempo, size_t portion = 2048)
{
    SoundStretcher stretcher(tempo);
    std::vector<int16_t> output;
    const auto append = [&](const std::vector<int16_t>& more) {
        output.insert(output.end(), more.begin(), more.end());
    };
    for (size_t i = 0; i < input.size(); i += portion)
        append(stretcher.stretch(std::span(input).subspan(i, std::min(portion, input.size() - i))));
    append(stretcher.finish());
    return output;
}

std::vector<int16_t> leftOf(const std::vector<int16_t>& samples)
{
    return channelOf(samples, 2, 0);
}

/// Hertz, by upward zero crossings away from both ends.
double pitchOf(const std::vector<int16_t>& left)
{
    size_t first = 0;
    size_t last = 0;
    int crossings = -1;
    for (size_t i = 2000; i + 2000 < left.size(); ++i) {
        if (left[i - 1] < 0 && left[i] >= 0) {
            first = crossings < 0 ? i : first;
            last = i;
            ++crossings;
        }
    }
    return crossings * double(kRate) / double(last - first);
}

}

TEST(SoundStretcher, GivesTheLengthThatTheTempoSays)
{
    const std::vector<int16_t> input = stereo(3, [](double t) { return 0.3 * std::sin(1000 * t); });
    for (const double tempo : {0.5, 0.7, 1.3, 2.0})
        EXPECT_EQ(stretched(input, tempo).size() / 2, size_t(std::llround(3 * kRate / tempo))) << tempo;
}

TEST(SoundStretcher, KeepsThePitch)
{
    for (const double pitch : {110.0, 440.0, 2500.0}) {
        const std::vector<int16_t> input =
            stereo(3, [&](double t) { return 0.5 * std::sin(2 * std::numbers::pi * pitch * t); });
        for (const double tempo : {0.5, 0.8, 1.5, 2.0})
            EXPECT_NEAR(pitchOf(leftOf(stretched(input, tempo))), pitch, 0.005 * pitch) << pitch << ' ' << tempo;
    }
}

TEST(SoundStretcher, KeepsAToneSmooth)
{
    // The joints of its pieces must not be heard: the tone has the same strength everywhere.
    const std::vector<int16_t> input = stereo(2, [](double t) { return 0.5 * std::sin(2765 * t); });
    for (const double tempo : {0.5, 2.0}) {
        const std::vector<int16_t> left = leftOf(stretched(input, tempo));
        for (size_t i = 2000; i + 2441 < left.size(); i += 441) {
            const auto [low, high] =
                std::minmax_element(left.begin() + ptrdiff_t(i), left.begin() + ptrdiff_t(i + 441));
            EXPECT_GT(*high, 15000) << tempo << ' ' << i;
            EXPECT_LT(*low, -15000) << tempo << ' ' << i;
        }
    }
}

TEST(SoundStretcher, KeepsSharpSoundsNearTheirMoment)
{
    std::vector<double> clicks;
    for (int i = 0; i < 25; ++i)
        clicks.push_back(0.5 + 0.737 * i);
    const std::vector<int16_t> input = stereo(20, [&](double t) {
        const double nearest = clicks[size_t(std::clamp(std::lround((t - 0.5) / 0.737), 0L, 24L))];
        return 0.01 * std::sin(1256 * t) + 0.5 * clickAt(t - nearest);
    });
    for (const double tempo : {0.5, 0.75, 1.25}) {
        const std::vector<double> heard = findClicks(leftOf(stretched(input, tempo)), kRate);
        // What is made shorter loses some of the shortest sounds.
        ASSERT_GE(heard.size(), tempo < 1 ? 25u : 20u) << tempo;
        for (const double moment : heard) {
            const auto distance = [&](double click) { return std::abs(moment - click / tempo); };
            EXPECT_LT(distance(*std::min_element(clicks.begin(), clicks.end(),
                                                 [&](double a, double b) { return distance(a) < distance(b); })),
                      0.017)
                << tempo;
        }
    }
}

TEST(SoundStretcher, GivesTheSameInAnyPortions)
{
    const std::vector<int16_t> input = stereo(1, [](double t) { return 0.4 * std::sin(900 * t * (1 + t)); });
    const std::vector<int16_t> whole = stretched(input, 0.6, input.size());
    EXPECT_EQ(stretched(input, 0.6, 2), whole);
    EXPECT_EQ(stretched(input, 0.6, 1234), whole);
}

TEST(SoundStretcher, KeepsTheChannelsApart)
{
    std::vector<int16_t> input = stereo(1, [](double t) { return 0.4 * std::sin(3000 * t); });
    for (size_t i = 1; i < input.size(); i += 2)
        input[i] = 0;
    const std::vector<int16_t> output = stretched(input, 0.5);
    EXPECT_THAT(channelOf(output, 2, 1), testing::Each(0));
    EXPECT_GT(*std::max_element(output.begin(), output.end()), 10000);
}

TEST(SoundStretcher, LeavesSilenceSilent)
{
    EXPECT_THAT(stretched(std::vector<int16_t>(88200), 2), testing::Each(0));
    EXPECT_TRUE(stretched({}, 0.5).empty());
}

}
