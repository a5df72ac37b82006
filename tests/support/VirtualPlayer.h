// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/playback/TimekeepingPlayer.h"

#include <vector>

namespace zumeta::test {

/// A player without pictures that notes what it was told.
class VirtualPlayer final : public TimekeepingPlayer {
public:
    struct Seek {
        double hostTime = 0;
        MediaTime target;
        SeekTolerance tolerance = SeekTolerance::zero;
    };
    struct RateChange {
        double hostTime = 0;
        double rate = 0;
    };

    explicit VirtualPlayer(PlaybackClock& clock)
        : TimekeepingPlayer(clock)
        , m_clock(clock)
    {}

    void replaceCurrentItem(std::optional<PlayerItem> item, ItemChange change = ItemChange::startsOver) override;
    void setRate(double rate) override;
    void seek(MediaTime target, SeekTolerance tolerance) override;
    ObserverToken addPeriodicTimeObserver(TimeObserver observer) override;
    void removeTimeObserver(ObserverToken token) override;

    double secondsNow() const { return secondsAt(m_clock.now()); }

    std::vector<Seek> seeks;
    std::vector<RateChange> rateChanges;
    std::vector<ItemChange> itemChanges;
    int observers = 0;

private:
    PlaybackClock& m_clock;
};

}
