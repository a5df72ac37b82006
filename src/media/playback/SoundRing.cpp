// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/playback/SoundRing.h"

#include <algorithm>

namespace zumeta {

namespace {

constexpr int kChannels = AudioSource::kChannels;

}

SoundRing::SoundRing()
    : m_samples(size_t(kCapacity * kChannels))
{}

int64_t SoundRing::room(int64_t position) const
{
    const int64_t kept = std::clamp(position - kPast, m_begin, m_end);
    return kCapacity - (m_end - kept);
}

void SoundRing::add(std::span<const int16_t> samples)
{
    for (size_t i = 0; i + 1 < samples.size(); i += kChannels) {
        const auto slot = size_t(m_end % kCapacity) * kChannels;
        m_samples[slot] = samples[i];
        m_samples[slot + 1] = samples[i + 1];
        ++m_end;
    }
    m_begin = std::max(m_begin, m_end - kCapacity);
}

const int16_t* SoundRing::frame(int64_t index) const
{
    return m_samples.data() + (index % kCapacity) * kChannels;
}

}
