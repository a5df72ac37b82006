// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/playback/PlaybackClock.h"
#include "media/playback/Player.h"

namespace zumeta {

/// The time of one player: position, rate, ends and reports, without a picture. Main thread.
class PlayerTransport final : private PlaybackClock::Participant {
public:
    static constexpr double kGreatestRate = 32;

    explicit PlayerTransport(PlaybackClock& clock);
    ~PlayerTransport();
    PlayerTransport(const PlayerTransport&) = delete; // the clock holds its address
    PlayerTransport& operator=(const PlayerTransport&) = delete;

    /// `length` is absent while it is not known: then only the beginning is an end.
    void setItem(std::optional<MediaTime> length, ItemChange change);
    void removeItem();
    bool hasItem() const { return m_hasItem; }
    void setLength(MediaTime length);

    double rate() const;
    void setRate(double rate);
    MediaTime currentTime() const;
    /// The seconds shown at a moment of the clock.
    double secondsAt(double hostTime) const;
    /// False without an item, where the seek is forgotten.
    bool seek(MediaTime target);

    Player::ObserverToken addPeriodicTimeObserver(Player::TimeObserver observer);
    void removeTimeObserver(Player::ObserverToken token);

private:
    struct Observer {
        Player::ObserverToken token = 0;
        Player::TimeObserver call;
    };

    bool isRunning() const override { return m_hasItem && m_rate != 0; }
    void report() override;
    MediaTime heldInside(MediaTime time) const;
    MediaTime timeAt(double hostTime) const;
    bool hasEndedAt(double hostTime) const;
    void stopAt(MediaTime time);
    void start(MediaTime from, double rate);

    PlaybackClock& m_clock;
    bool m_hasItem = false;
    std::optional<MediaTime> m_length;
    MediaTime m_anchor;      ///< the item's time at m_anchorHost
    double m_anchorHost = 0; ///< an instant of the clock
    double m_rate = 0;
    MediaTime m_told; ///< the time of the last report, or the target of a seek since
    std::vector<Observer> m_observers;
    Player::ObserverToken m_nextToken = 1;
};

}
