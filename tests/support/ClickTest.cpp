// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Click.h"

#include <cmath>
#include <gtest/gtest.h>

namespace zumeta::test {

namespace {

std::vector<int16_t> soundWith(const std::vector<double>& clicks, double seconds, int rate, double phase)
{
    std::vector<int16_t> samples;
    for (size_t i = 0; i < size_t(seconds * rate); ++i) {
        double value = 0.01 * std::sin(0.03 * double(i) + phase);
        for (const double click : clicks)
            value += 0.5 * clickAt(double(i) / rate - click);
        samples.push_back(int16_t(std::lround(value * 32767)));
    }
    return samples;
}

}

TEST(Click, IsFoundWithinATenthOfASample)
{
    for (const int rate : {44100, 48000}) {
        for (const double first : {0.5, 0.5 + 0.3 / rate, 0.5 + 0.5 / rate, 0.500333}) {
            const std::vector<double> found = findClicks(soundWith({first, 0.9}, 1.2, rate, 1), rate);
            ASSERT_EQ(found.size(), 2u);
            EXPECT_NEAR(found[0], first, 0.1 / rate);
            EXPECT_NEAR(found[1], 0.9, 0.1 / rate);
        }
    }
}

TEST(Click, CutInHalfAtTheStartIsStillFoundWithinAToneCycle)
{
    const std::vector<double> found = findClicks(soundWith({0}, 0.5, 44100, 0), 44100);
    ASSERT_EQ(found.size(), 1u);
    EXPECT_NEAR(found[0], 0, 1.0 / 3000 + 0.0001);
}

TEST(Click, IsNotFoundInQuietSound)
{
    EXPECT_TRUE(findClicks(soundWith({}, 0.5, 48000, 0), 48000).empty());
    EXPECT_TRUE(findClicks({}, 48000).empty());
}

TEST(Click, OneChannelIsTakenOutOfInterleavedOnes)
{
    EXPECT_EQ(channelOf(std::vector<int16_t>{1, 2, 3, 4, 5, 6}, 3, 1), (std::vector<int16_t>{2, 5}));
}

}
