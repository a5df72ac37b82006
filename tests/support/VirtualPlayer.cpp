// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/VirtualPlayer.h"

namespace zumeta::test {

void VirtualPlayer::replaceCurrentItem(std::optional<PlayerItem> item, ItemChange change)
{
    itemChanges.push_back(change);
    TimekeepingPlayer::replaceCurrentItem(std::move(item), change);
}

void VirtualPlayer::setRate(double rate)
{
    rateChanges.push_back({m_clock.turnTime(), rate});
    TimekeepingPlayer::setRate(rate);
}

void VirtualPlayer::seek(MediaTime target, SeekTolerance tolerance)
{
    seeks.push_back({m_clock.turnTime(), target, tolerance});
    TimekeepingPlayer::seek(target, tolerance);
}

Player::ObserverToken VirtualPlayer::addPeriodicTimeObserver(TimeObserver observer)
{
    ++observers;
    return TimekeepingPlayer::addPeriodicTimeObserver(std::move(observer));
}

void VirtualPlayer::removeTimeObserver(ObserverToken token)
{
    --observers;
    TimekeepingPlayer::removeTimeObserver(token);
}

}
