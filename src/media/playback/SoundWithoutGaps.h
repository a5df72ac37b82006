// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/movie/AudioReader.h"

namespace zumeta {

/// A source's sound from `start` on, sample after sample: what is missing before, between or among its buffers is
/// silence, so that the n-th sample is the one at start + n / 44100 s.
class SoundWithoutGaps {
public:
    SoundWithoutGaps(AudioSource& source, MediaTime start);

    /// Interleaved samples, some at each call; nothing at the end.
    std::optional<std::vector<int16_t>> next();

private:
    std::vector<int16_t> silence(int64_t frames);

    AudioSource& m_source;
    MediaTime m_start;
    int64_t m_given = 0;                ///< frames
    std::optional<AudioBuffer> m_ahead; ///< what comes after the gap
    int16_t m_lastLeft = 0;
    int16_t m_lastRight = 0;
};

}
