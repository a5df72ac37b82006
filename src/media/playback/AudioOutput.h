// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <cstdint>
#include <span>

namespace zumeta {

/// What an output plays. Asked on the output's own thread.
class AudioPull {
public:
    /// Fills interleaved stereo samples at AudioSource's rate; the first is heard at `heardAt`, seconds of the clock.
    /// False: nothing is wanted for now, the output may come to rest.
    virtual bool pull(std::span<int16_t> samples, double heardAt) = 0;

protected:
    ~AudioPull() = default;
};

/// A place where sound is heard. It never tells whether it works: without a device all goes on in silence, and time
/// does not hang on it. Its end is the end of all asking.
class AudioOutput {
public:
    AudioOutput() = default;
    virtual ~AudioOutput() = default;
    AudioOutput(const AudioOutput&) = delete; // it stands for a device
    AudioOutput& operator=(const AudioOutput&) = delete;

    /// Asks `source` from now on; nothing new when that is so already. A device that was not there or went away is
    /// tried again. Main thread; waits for nothing.
    virtual void start(AudioPull& source) = 0;
};

}
