// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/playback/SoundPlayer.h"

namespace zumeta {

SoundPlayer::SoundPlayer(const Clock& clock, std::unique_ptr<AudioOutput> output)
    : m_feed(m_queue, clock)
    , m_output(std::move(output))
{}

SoundPlayer::~SoundPlayer() = default;

void SoundPlayer::setItem(std::optional<PlayerItem> item)
{
    m_feed.setItem(std::move(item));
    if (m_feed.hasItem() && m_time.isAudible())
        // The same recording in another file goes on without a break; a new one is about to be sent to its beginning.
        makeRun(SoundQueue::OldRun::isReplaced);
    else
        m_queue.awaitNothing();
}

void SoundPlayer::follow(double seconds, double hostTime, double rate)
{
    const SoundTime time{seconds, hostTime, rate};
    const bool isNew = !time.soundsLike(m_time);
    if (isNew)
        m_time = time;
    if (!m_feed.hasItem() || !time.isAudible()) {
        m_feed.rest();
        m_queue.awaitNothing();
    } else if (isNew) {
        makeRun(SoundQueue::OldRun::ends);
    }
}

void SoundPlayer::makeRun(SoundQueue::OldRun old)
{
    m_queue.await(++m_serial, old);
    m_feed.makeRun(m_serial, m_time);
    m_output->start(m_queue);
}

}
