// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/playback/AudioOutput.h"
#include "media/playback/PlayerSound.h"
#include "media/playback/SoundFeed.h"
#include "media/playback/SoundQueue.h"

namespace zumeta {

/// A player's sound, heard from half to double speed with its pitch, silent at other rates. The host clock leads: the
/// output tells when its samples are heard, and gets those that belong to that moment. A file that cannot be read is a
/// log line and silence.
class SoundPlayer final : public PlayerSound {
public:
    /// `clock` is the one under the PlaybackClock.
    SoundPlayer(const Clock& clock, std::unique_ptr<AudioOutput> output);
    ~SoundPlayer() override;
    SoundPlayer(const SoundPlayer&) = delete; // it stands for a thread and a device
    SoundPlayer& operator=(const SoundPlayer&) = delete;

    void setItem(std::optional<PlayerItem> item) override;
    void follow(double seconds, double hostTime, double rate) override;

    /// The moment of the clock up to which all sound is decoded; without end when none is to come.
    double readyUntil() const { return m_queue.readyUntil(); }

private:
    void makeRun(SoundQueue::OldRun old);

    SoundTime m_time;
    uint64_t m_serial = 0;
    SoundQueue m_queue;
    SoundFeed m_feed;
    std::unique_ptr<AudioOutput> m_output; ///< last: it pulls from the queue
};

}
