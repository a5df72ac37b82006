// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/playback/AudioOutput.h"
#include "media/playback/SoundRing.h"

#include <condition_variable>
#include <mutex>
#include <stop_token>

namespace zumeta {

/// Sound on its way from a feed to an output, each sample with its moment on the host clock. The output says when what
/// it asks for is heard, and gets what belongs to that moment: the clock leads, and a device that runs early or late is
/// followed. Every beginning, end and jump is faded over a few milliseconds, so that nothing clicks.
///
/// A run is unbroken sound with one beginning. Serials tell the runs apart: only the one that is awaited is taken, so
/// that sound made for an older wish is never heard. Bounded: who puts waits for room. Any thread.
class SoundQueue final : public AudioPull {
public:
    /// Sound that stands further from its moment than this is moved there. Seconds.
    static constexpr double kTolerance = 0.015;
    static constexpr double kFade = 0.005; ///< seconds
    /// A run is heard once it is this far ahead: it must not stop again for a slow start. Seconds.
    static constexpr double kAhead = 0.05;

    enum class OldRun {
        ends,       ///< at once
        isReplaced, ///< goes on until the new one begins
    };

    SoundQueue() = default;
    SoundQueue(const SoundQueue&) = delete; // two threads hold its address
    SoundQueue& operator=(const SoundQueue&) = delete;

    /// From here on only the run of this serial is taken.
    void await(uint64_t serial, OldRun old);
    /// Silence until the next await().
    void awaitNothing();

    /// What is put next is heard from `hostTime` on. False: this run is not awaited any more.
    bool begin(uint64_t serial, double hostTime);
    /// Waits for room. False: not awaited any more, or stopped.
    bool put(uint64_t serial, std::span<const int16_t> samples, const std::stop_token& stop);
    /// Nothing more comes of this run; if it never began, what was heard before it ends too.
    void end(uint64_t serial);

    bool pull(std::span<int16_t> samples, double heardAt) override;

    /// The moment up to which all sound is there; without end when none is to come.
    double readyUntil() const;

private:
    void endRun();
    bool place(double heardAt);
    void fadeOutFrom(int64_t position);
    void mixRun(std::span<int16_t> samples);
    void mixTail(std::span<int16_t> samples);

    mutable std::mutex m_mutex; // guards all that follows
    std::condition_variable_any m_roomOrNews;
    uint64_t m_awaited = 0;
    bool m_isWanted = false; ///< sound is heard or may come
    bool m_isComplete = true;

    bool m_hasRun = false;
    uint64_t m_run = 0;
    double m_runHost = 0; ///< when its first sample is heard
    SoundRing m_ring;
    int64_t m_position = 0; ///< the sample of the run that is asked for next
    bool m_isPlaced = false;
    float m_gain = 0;

    std::vector<float> m_tail; ///< the end of what was heard before, fading; interleaved
    size_t m_tailTaken = 0;
};

}
