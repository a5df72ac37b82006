// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/VirtualPlayer.h"

namespace zumeta::test {

void VirtualPlayer::replaceCurrentItem(std::optional<PlayerItem> item, ItemChange change)
{
    m_item = std::move(item);
    itemChanges.push_back(change);
    if (!m_item) {
        m_transport.removeItem();
        return;
    }
    const MediaComposition* const composition = std::get_if<MediaComposition>(&*m_item);
    m_transport.setItem(composition ? std::optional(composition->duration()) : std::nullopt, change);
}

void VirtualPlayer::setRate(double rate)
{
    rateChanges.push_back({m_clock.turnTime(), rate});
    m_transport.setRate(rate);
}

void VirtualPlayer::seek(MediaTime target, SeekTolerance tolerance)
{
    seeks.push_back({m_clock.turnTime(), target, tolerance});
    m_transport.seek(target);
}

Player::ObserverToken VirtualPlayer::addPeriodicTimeObserver(TimeObserver observer)
{
    ++observers;
    return m_transport.addPeriodicTimeObserver(std::move(observer));
}

void VirtualPlayer::removeTimeObserver(ObserverToken token)
{
    --observers;
    m_transport.removeTimeObserver(token);
}

}
