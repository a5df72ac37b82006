// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/playback/SoundPlayer.h"

#include <atomic>
#include <vector>

namespace zumeta::test {

/// A clock that moves only when a test says so. Any thread may read it.
class ManualClock final : public Clock {
public:
    double now() const override { return m_now; }
    void advance(double seconds) { m_now = m_now + seconds; }

private:
    std::atomic<double> m_now = 1000; ///< not 0, so that nothing comes to depend on it
};

/// A device that asks when a test says so.
class ManualOutput final : public AudioOutput {
public:
    void start(AudioPull& source) override
    {
        m_source = &source;
        ++starts;
    }
    AudioPull* source() const { return m_source; }

    int starts = 0;

private:
    AudioPull* m_source = nullptr;
};

/// The left channel of what was heard, and from when on.
struct Heard {
    double from = 0; ///< host time
    std::vector<int16_t> samples;

    /// Host times of the clicks.
    std::vector<double> clicks() const;
    /// Hertz, by upward zero crossings.
    double pitch() const;
    int loudest() const;
    /// Largest jump between neighbours: a fault in a quiet tone.
    int steepest() const;
    /// What is heard between two host times.
    Heard between(double begin, double end) const;
};

/// Until sound for that moment of the clock is decoded, or none is to come.
void waitUntilReady(const SoundPlayer& sound, double hostTime);
/// Goes on by so much, asking in blocks of 10 ms as a device does that is heard `deviceDelay` later.
Heard listen(ManualClock& clock, const ManualOutput& output, const SoundPlayer& sound, double deviceDelay,
             double seconds);

/// A player's sound under a clock and a device that a test moves. Only decoding runs in real time, and is waited for.
class Listening {
public:
    static constexpr double kDeviceDelay = 0.05; ///< seconds from asking to hearing

    /// Recordings are made before this: a process with threads should not fork.
    explicit Listening(std::optional<PlayerItem> item)
        : m_output(std::make_unique<ManualOutput>())
        , output(*m_output)
        , player(clock, std::move(m_output))
    {
        player.setItem(std::move(item));
    }

    Heard listen(double seconds) { return test::listen(clock, output, player, deviceDelay, seconds); }
    void waitUntilReady(double hostTime) const { test::waitUntilReady(player, hostTime); }

private:
    std::unique_ptr<ManualOutput> m_output;

public:
    ManualClock clock;
    ManualOutput& output;
    double deviceDelay = kDeviceDelay;
    SoundPlayer player;
};

}
