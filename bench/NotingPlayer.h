// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/playback/Player.h"

#include <functional>

namespace zumeta::bench {

/// Passes everything on to another player, and tells of each picture that is asked of it.
class NotingPlayer : public Player {
public:
    /// The player must outlive it.
    explicit NotingPlayer(Player& player)
        : m_player(player)
    {}
    void replaceCurrentItem(std::optional<PlayerItem> item, ItemChange change) override
    {
        m_player.replaceCurrentItem(std::move(item), change);
    }
    bool hasCurrentItem() const override { return m_player.hasCurrentItem(); }
    void play() override { m_player.play(); }
    void pause() override { m_player.pause(); }
    double rate() const override { return m_player.rate(); }
    void setRate(double rate) override { m_player.setRate(rate); }
    MediaTime currentTime() const override { return m_player.currentTime(); }
    void seek(MediaTime target, SeekTolerance tolerance) override { m_player.seek(target, tolerance); }
    ObserverToken addPeriodicTimeObserver(TimeObserver observer) override
    {
        return m_player.addPeriodicTimeObserver(std::move(observer));
    }
    void removeTimeObserver(ObserverToken token) override { m_player.removeTimeObserver(token); }
    std::optional<ShownPicture> shownPicture(double hostTime) override
    {
        std::optional<ShownPicture> shown = m_player.shownPicture(hostTime);
        if (shown && given)
            given(*shown);
        return shown;
    }
    void setPictureObserver(std::function<void()> observer) override
    {
        m_player.setPictureObserver(std::move(observer));
    }

    std::function<void(const ShownPicture&)> given;

private:
    Player& m_player;
};

}
