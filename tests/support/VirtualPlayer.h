// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/playback/PlayerTransport.h"

#include <string>
#include <vector>

namespace zumeta::test {

/// A player without pictures: its time is the real players' own, on whatever clock it is given. It notes what it was
/// told.
class VirtualPlayer final : public Player {
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
        : m_clock(clock)
        , m_transport(clock)
    {}

    void replaceCurrentItem(std::optional<PlayerItem> item, ItemChange change = ItemChange::startsOver) override;
    bool hasCurrentItem() const override { return m_item.has_value(); }
    void play() override { setRate(1); }
    void pause() override { setRate(0); }
    double rate() const override { return m_transport.rate(); }
    void setRate(double rate) override;
    MediaTime currentTime() const override { return m_transport.currentTime(); }
    void seek(MediaTime target, SeekTolerance tolerance) override;
    ObserverToken addPeriodicTimeObserver(TimeObserver observer) override;
    void removeTimeObserver(ObserverToken token) override;
    std::optional<ShownPicture> shownPicture(double) override { return std::nullopt; }
    void setPictureObserver(std::function<void()>) override {}

    const std::optional<PlayerItem>& item() const { return m_item; }
    double secondsNow() const { return m_transport.secondsAt(m_clock.now()); }

    std::vector<Seek> seeks;
    std::vector<RateChange> rateChanges;
    std::vector<ItemChange> itemChanges;
    int observers = 0;

private:
    PlaybackClock& m_clock;
    PlayerTransport m_transport;
    std::optional<PlayerItem> m_item;
};

}
