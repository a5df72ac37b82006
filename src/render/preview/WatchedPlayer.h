// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/playback/Player.h"

namespace zumeta {

/// A player that is listened to for anything that may change its picture. Main thread. The player must outlive it.
class WatchedPlayer {
public:
    /// `news` is called on turns of its own: while the player plays 60 times a second, else after every seek, stop,
    /// change of item, and when a standing player has another picture to show.
    WatchedPlayer(Player& player, const std::function<void()>& news);
    ~WatchedPlayer();
    WatchedPlayer(const WatchedPlayer&) = delete; // the player knows its observers
    WatchedPlayer& operator=(const WatchedPlayer&) = delete;

    Player& player() { return m_player; }
    bool isPlaying() const { return m_player.rate() != 0; }

private:
    Player& m_player;
    Player::ObserverToken m_token;
};

}
