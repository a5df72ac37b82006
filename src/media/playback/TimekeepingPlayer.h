// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/playback/PlayerTransport.h"

namespace zumeta {

/// A player whose time runs as that of every other, and which never decodes a picture: for work without a window.
class TimekeepingPlayer : public Player {
public:
    explicit TimekeepingPlayer(PlaybackClock& clock)
        : m_transport(clock)
    {}

    void replaceCurrentItem(std::optional<PlayerItem> item, ItemChange change = ItemChange::startsOver) override;
    bool hasCurrentItem() const override { return m_item.has_value(); }
    void play() override { setRate(1); }
    void pause() override { setRate(0); }
    double rate() const override { return m_transport.rate(); }
    void setRate(double rate) override { m_transport.setRate(rate); }
    MediaTime currentTime() const override { return m_transport.currentTime(); }
    void seek(MediaTime target, SeekTolerance) override { m_transport.seek(target); }
    ObserverToken addPeriodicTimeObserver(TimeObserver observer) override;
    void removeTimeObserver(ObserverToken token) override { m_transport.removeTimeObserver(token); }
    std::optional<ShownPicture> shownPicture(double) override { return std::nullopt; }
    void setPictureObserver(std::function<void()>) override {}

    const std::optional<PlayerItem>& item() const { return m_item; }
    double secondsAt(double hostTime) const { return m_transport.secondsAt(hostTime); }

private:
    PlayerTransport m_transport;
    std::optional<PlayerItem> m_item;
};

}
