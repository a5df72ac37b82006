// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <cstdint>
#include <span>
#include <vector>

namespace zumeta::test {

/// A click is a tone burst of 2 ms under a round envelope, centred on its instant: short enough to be placed exactly,
/// narrow enough in frequency to come through a lossy encoder. Value at `seconds` from the centre, -1 to 1.
double clickAt(double seconds);

/// Seconds from the first sample to the centre of each click, by matched filter, between samples by parabola.
/// `samples` is one channel.
std::vector<double> findClicks(std::span<const int16_t> samples, int sampleRate);
/// One channel out of interleaved ones.
std::vector<int16_t> channelOf(std::span<const int16_t> interleaved, int channels, int channel);

}
