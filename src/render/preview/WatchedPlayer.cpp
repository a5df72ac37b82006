// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/preview/WatchedPlayer.h"

namespace zumeta {

WatchedPlayer::WatchedPlayer(Player& player, const std::function<void()>& news)
    : m_player(player)
    , m_token(player.addPeriodicTimeObserver([news](double) { news(); }))
{
    player.setPictureObserver(news);
}

WatchedPlayer::~WatchedPlayer()
{
    m_player.setPictureObserver({});
    m_player.removeTimeObserver(m_token);
}

}
