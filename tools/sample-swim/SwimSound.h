// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "SwimPlan.h"

#include <cstdint>
#include <vector>

namespace zumeta::swim {

/// What a camera's microphone hears: interleaved stereo at kSampleRate, one stretch after the other.
class SwimSound {
public:
    enum class Place { above, below };

    SwimSound(const SwimPlan& plan, Place place);

    /// Samples per channel of the whole recording.
    int64_t length() const { return m_length; }
    /// The sample at which the start beep sets in, at full strength from the first one on.
    int64_t beepSample() const { return m_beep; }
    /// The next `count` samples of both channels; the ambience goes on beyond the recording's end.
    std::vector<int16_t> next(int count);

private:
    struct Channel {
        uint32_t seed;
        float low = 0, lower = 0, rumble = 0;
    };
    float hallAt(int64_t sample, Channel& channel, float splash, float kick) const;
    float waterAt(int64_t sample, Channel& channel, float splash, float kick) const;

    Place m_place;
    double m_start; ///< swim time of the first sample
    int64_t m_length;
    int64_t m_beep;
    int64_t m_next = 0;
    Channel m_left{1};
    Channel m_right{2};
};

}
