// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/playback/SoundWithoutGaps.h"

#include <algorithm>
#include <cmath>

namespace zumeta {

namespace {

constexpr int kChannels = AudioSource::kChannels;
/// Silence comes in pieces, so that a long gap does not ask for much memory.
constexpr int64_t kPiece = 8192;
/// A gap begins with the last sample dying away, so that it does not click. 2 ms.
constexpr int64_t kDying = AudioSource::kSampleRate / 500;

}

SoundWithoutGaps::SoundWithoutGaps(AudioSource& source, MediaTime start)
    : m_source(source)
    , m_start(start)
{}

std::optional<std::vector<int16_t>> SoundWithoutGaps::next()
{
    while (true) {
        if (!m_ahead)
            m_ahead = m_source.next();
        if (!m_ahead)
            return std::nullopt;
        const double place = (m_ahead->presentationTime - m_start).seconds() * AudioSource::kSampleRate;
        const int64_t gap = std::llround(place) - m_given;
        if (gap > 0)
            return silence(std::min(gap, kPiece));
        std::vector<int16_t> samples = std::move(m_ahead->samples);
        m_ahead.reset();
        // Two files overlap by a sample at a joint that lies between samples.
        const auto known = std::min(size_t(-gap) * kChannels, samples.size());
        samples.erase(samples.begin(), samples.begin() + ptrdiff_t(known));
        if (samples.empty())
            continue;
        m_given += int64_t(samples.size()) / kChannels;
        m_lastLeft = samples[samples.size() - 2];
        m_lastRight = samples.back();
        return samples;
    }
}

std::vector<int16_t> SoundWithoutGaps::silence(int64_t frames)
{
    std::vector<int16_t> samples(size_t(frames * kChannels));
    for (int64_t i = 0; i < std::min(frames, kDying); ++i) {
        const double left = 1 - double(i) / double(kDying);
        samples[size_t(i * kChannels)] = int16_t(m_lastLeft * left);
        samples[size_t(i * kChannels + 1)] = int16_t(m_lastRight * left);
    }
    m_given += frames;
    if (frames >= kDying) // a piece of a longer gap, or all of it: nothing is left to die away
        m_lastLeft = m_lastRight = 0;
    return samples;
}

}
