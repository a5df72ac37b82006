// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/movie/AudioReader.h"

#include <span>

namespace zumeta {

/// A bounded stretch of a run of sound, by the number of the sample: the newest, and a little of what is past, because
/// the place where it is heard may move back.
class SoundRing {
public:
    static constexpr int64_t kCapacity = AudioSource::kSampleRate * 3 / 2;
    static constexpr int64_t kPast = AudioSource::kSampleRate / 4;

    SoundRing();

    void clear() { m_begin = m_end = 0; }
    int64_t begin() const { return m_begin; }
    int64_t end() const { return m_end; }
    /// How many samples can be added without losing those from kPast before `position` on.
    int64_t room(int64_t position) const;
    void add(std::span<const int16_t> samples);
    bool contains(int64_t index) const { return index >= m_begin && index < m_end; }
    /// The left one of two; only for what is contained.
    const int16_t* frame(int64_t index) const;

private:
    std::vector<int16_t> m_samples;
    int64_t m_begin = 0;
    int64_t m_end = 0;
};

}
