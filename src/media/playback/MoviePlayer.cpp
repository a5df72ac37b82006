// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/playback/MoviePlayer.h"

namespace zumeta {

MoviePlayer::MoviePlayer(PlaybackClock& clock, MainQueue& queue, std::unique_ptr<PlayerSound> sound,
                         const MoviePlayerOptions& options)
    : m_clock(clock)
    , m_queue(queue)
    , m_transport(clock)
    , m_sound(std::move(sound))
    , m_engine(options.cacheBytes, options.frameThreads, listener())
{
    // The first observer: pictures and sound know of an end before anybody hears of it.
    m_transport.addPeriodicTimeObserver([this](double) {
        m_engine.setDemand(demand());
        if (m_followedRate != m_transport.rate())
            follow();
    });
}

MoviePlayer::~MoviePlayer() = default;

PictureEngine::Listener MoviePlayer::listener()
{
    const std::weak_ptr<const bool> alive = m_alive;
    return {[this, alive] {
                m_queue.post([this, alive] {
                    if (!alive.expired() && m_pictureObserver)
                        m_pictureObserver();
                });
            },
            [this, alive](uint64_t item, std::optional<MediaTime> length) {
                m_queue.post([this, alive, item, length] {
                    if (!alive.expired())
                        lengthIsKnown(item, length);
                });
            }};
}

PictureDemand MoviePlayer::demand() const
{
    return {m_transport.secondsAt(m_clock.turnTime()), m_transport.rate(), m_tolerance, m_seek};
}

void MoviePlayer::follow()
{
    m_followedRate = m_transport.rate();
    if (m_sound)
        m_sound->follow(m_transport.secondsAt(m_clock.turnTime()), m_clock.turnTime(), m_followedRate);
}

void MoviePlayer::replaceCurrentItem(std::optional<PlayerItem> item, ItemChange change)
{
    m_change = hasCurrentItem() ? change : ItemChange::startsOver;
    m_tolerance = SeekTolerance::zero;
    ++m_seek;
    if (!item) {
        m_length.reset();
        m_transport.removeItem();
    } else {
        if (const auto* const composition = std::get_if<MediaComposition>(&*item))
            m_length = composition->duration();
        else if (m_change == ItemChange::startsOver)
            m_length.reset();
        m_transport.setItem(m_length, m_change);
    }
    if (m_sound)
        m_sound->setItem(item);
    m_item = m_engine.setItem(std::move(item), m_change, demand());
    follow();
}

void MoviePlayer::lengthIsKnown(uint64_t item, std::optional<MediaTime> length)
{
    if (item != m_item)
        return; // of an item that was replaced since
    if (!length && m_change == ItemChange::startsOver)
        length = MediaTime{};
    if (!length)
        return;
    m_length = length;
    m_transport.setLength(*length);
    m_engine.setDemand(demand());
    follow();
}

void MoviePlayer::setRate(double rate)
{
    if (rate != 0)
        m_tolerance = SeekTolerance::zero;
    m_transport.setRate(rate);
    m_engine.setDemand(demand());
    follow();
}

void MoviePlayer::seek(MediaTime target, SeekTolerance tolerance)
{
    if (!m_transport.seek(target))
        return;
    m_tolerance = tolerance;
    ++m_seek;
    m_engine.setDemand(demand());
    follow();
}

Player::ObserverToken MoviePlayer::addPeriodicTimeObserver(TimeObserver observer)
{
    return m_transport.addPeriodicTimeObserver(std::move(observer));
}

void MoviePlayer::removeTimeObserver(ObserverToken token)
{
    m_transport.removeTimeObserver(token);
}

std::optional<ShownPicture> MoviePlayer::shownPicture(double hostTime)
{
    return hasCurrentItem() ? m_engine.pictureAt(m_transport.secondsAt(hostTime)) : std::nullopt;
}

void MoviePlayer::setPictureObserver(std::function<void()> observer)
{
    m_pictureObserver = std::move(observer);
}

}
