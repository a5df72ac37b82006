// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/playback/PlayerTransport.h"

#include <algorithm>

namespace zumeta {

PlayerTransport::PlayerTransport(PlaybackClock& clock)
    : m_clock(clock)
{
    m_clock.join(*this);
}

PlayerTransport::~PlayerTransport()
{
    m_clock.leave(*this);
}

void PlayerTransport::setItem(std::optional<MediaTime> length, ItemChange change)
{
    const bool keepsTime = change == ItemChange::keepsTime && m_hasItem;
    m_hasItem = true;
    m_length = length;
    if (!keepsTime) {
        m_anchor = {};
        m_told = {};
        m_anchorHost = m_clock.turnTime();
    }
    if (m_rate != 0)
        m_clock.participantStarted();
    m_clock.requestReport(*this);
}

void PlayerTransport::removeItem()
{
    m_hasItem = false;
    m_length.reset();
    m_anchor = {};
    m_told = {};
    m_anchorHost = m_clock.turnTime();
    m_clock.requestReport(*this);
}

void PlayerTransport::setLength(MediaTime length)
{
    m_length = length;
    m_told = heldInside(m_told);
    if (m_rate == 0)
        m_anchor = heldInside(m_anchor);
}

MediaTime PlayerTransport::heldInside(MediaTime time) const
{
    if (m_length && time > *m_length)
        return *m_length;
    return std::max(time, MediaTime{});
}

double PlayerTransport::secondsAt(double hostTime) const
{
    if (!m_hasItem)
        return 0;
    const double seconds = m_anchor.seconds() + m_rate * std::max(hostTime - m_anchorHost, 0.0);
    return std::clamp(seconds, 0.0, m_length ? std::max(m_length->seconds(), 0.0) : std::max(seconds, 0.0));
}

MediaTime PlayerTransport::timeAt(double hostTime) const
{
    // A standing player answers with exactly what it was told.
    return m_rate == 0 ? m_anchor : heldInside(MediaTime::nearest(secondsAt(hostTime), kSeekTimescale));
}

bool PlayerTransport::hasEndedAt(double hostTime) const
{
    if (m_rate > 0)
        return m_length && secondsAt(hostTime) >= m_length->seconds();
    return m_rate < 0 && secondsAt(hostTime) <= 0;
}

double PlayerTransport::rate() const
{
    return m_hasItem && hasEndedAt(m_clock.turnTime()) ? 0 : m_rate;
}

MediaTime PlayerTransport::currentTime() const
{
    return m_hasItem ? timeAt(m_clock.turnTime()) : MediaTime{};
}

void PlayerTransport::stopAt(MediaTime time)
{
    m_anchor = time;
    m_told = time;
    m_anchorHost = m_clock.turnTime();
    m_rate = 0;
}

void PlayerTransport::start(MediaTime from, double rate)
{
    m_anchor = from;
    m_anchorHost = m_clock.turnTime();
    m_rate = rate;
    if (m_hasItem)
        m_clock.participantStarted();
}

void PlayerTransport::setRate(double rate)
{
    const double wanted = std::clamp(rate, -kGreatestRate, kGreatestRate);
    if (wanted != 0) {
        // Not on the grid of the reports: many changes of rate must not add up to a drift between two players.
        constexpr int64_t kNanoseconds = 1'000'000'000;
        start(isRunning() ? MediaTime::nearest(secondsAt(m_clock.turnTime()), kNanoseconds) : m_anchor, wanted);
    } else if (m_rate != 0) {
        // What has been played since was told to nobody. All players are reported in one turn, so those that stop in
        // one turn stand at one instant.
        stopAt(m_told);
    }
    m_clock.requestReport(*this);
}

bool PlayerTransport::seek(MediaTime target)
{
    if (!m_hasItem)
        return false;
    // A player that stood at an end stays stopped there.
    const double rate = hasEndedAt(m_clock.turnTime()) ? 0 : m_rate;
    m_anchor = heldInside(target);
    m_told = m_anchor;
    m_anchorHost = m_clock.turnTime();
    m_rate = rate;
    m_clock.requestReport(*this);
    return true;
}

Player::ObserverToken PlayerTransport::addPeriodicTimeObserver(Player::TimeObserver observer)
{
    m_observers.push_back({m_nextToken, std::move(observer)});
    return m_nextToken++;
}

void PlayerTransport::removeTimeObserver(Player::ObserverToken token)
{
    std::erase_if(m_observers, [&](const Observer& observer) { return observer.token == token; });
}

void PlayerTransport::report()
{
    const double hostTime = m_clock.turnTime();
    if (m_hasItem && hasEndedAt(hostTime))
        stopAt(m_rate > 0 ? *m_length : MediaTime{});
    m_told = currentTime();
    // Read anew for each: an observer may seek, and the next one must not be told the time from before.
    const std::vector<Observer> observers = m_observers;
    for (const Observer& observer : observers)
        observer.call(currentTime().seconds());
}

}
