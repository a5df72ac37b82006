// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/playback/TimekeepingPlayer.h"

namespace zumeta {

void TimekeepingPlayer::replaceCurrentItem(std::optional<PlayerItem> item, ItemChange change)
{
    m_item = std::move(item);
    if (!m_item) {
        m_transport.removeItem();
        return;
    }
    const MediaComposition* const composition = std::get_if<MediaComposition>(&*m_item);
    m_transport.setItem(composition ? std::optional(composition->duration()) : std::nullopt, change);
}

Player::ObserverToken TimekeepingPlayer::addPeriodicTimeObserver(TimeObserver observer)
{
    return m_transport.addPeriodicTimeObserver(std::move(observer));
}

}
