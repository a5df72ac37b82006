// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/playback/PlaybackClock.h"

#include <algorithm>

namespace zumeta {

PlaybackClock::PlaybackClock(const Clock& clock, MainQueue& queue)
    : m_clock(clock)
    , m_queue(queue)
{}

PlaybackClock::~PlaybackClock() = default;

double PlaybackClock::turnTime() const
{
    if (!m_turnHasTime) {
        m_turnTime = m_clock.now();
        m_turnHasTime = true;
        m_queue.post([this, alive = std::weak_ptr(m_alive)] {
            if (!alive.expired())
                m_turnHasTime = false;
        });
    }
    return m_turnTime;
}

void PlaybackClock::join(Participant& participant)
{
    m_members.push_back({&participant});
}

void PlaybackClock::leave(Participant& participant)
{
    std::erase_if(m_members, [&](const Member& member) { return member.participant == &participant; });
}

void PlaybackClock::requestReport(Participant& participant)
{
    for (Member& member : m_members) {
        if (member.participant == &participant)
            member.wantsReport = true;
    }
    if (std::exchange(m_reportIsPosted, true))
        return;
    m_queue.post([this, alive = std::weak_ptr(m_alive)] {
        if (alive.expired())
            return;
        m_reportIsPosted = false;
        deliverReports();
    });
}

void PlaybackClock::participantStarted()
{
    if (std::exchange(m_isTicking, true))
        return;
    m_nextTick = turnTime();
    scheduleTick();
}

void PlaybackClock::scheduleTick()
{
    // From the tick before, not from now: the late ones must not make the next ones later. Ticks that a busy thread
    // missed are left out.
    const double now = m_clock.now();
    m_nextTick += kReportInterval;
    if (m_nextTick <= now)
        m_nextTick = now + kReportInterval;
    m_queue.postAfter(m_nextTick - now, [this, alive = std::weak_ptr(m_alive)] {
        if (alive.expired())
            return;
        deliverReports();
        m_isTicking = std::any_of(m_members.begin(), m_members.end(),
                                  [](const Member& member) { return member.participant->isRunning(); });
        if (m_isTicking)
            scheduleTick();
    });
}

void PlaybackClock::deliverReports()
{
    // A turn of its own begins here, however late the one before ended.
    m_turnHasTime = false;
    std::vector<Participant*> reporting;
    for (Member& member : m_members) {
        if (std::exchange(member.wantsReport, false) || member.participant->isRunning())
            reporting.push_back(member.participant);
    }
    for (Participant* const participant : reporting) {
        const bool isStillThere = std::any_of(m_members.begin(), m_members.end(),
                                              [&](const Member& member) { return member.participant == participant; });
        if (isStillThere)
            participant->report();
    }
}

}
