// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/Clock.h"
#include "platform/MainQueue.h"

#include <memory>
#include <vector>

namespace zumeta {

/// The one clock of all players of a session. It gives every turn of the main thread one instant, and reports the time
/// of all players in the same turn. Main thread.
class PlaybackClock {
public:
    static constexpr double kReportInterval = 1.0 / 60; ///< seconds

    class Participant {
    public:
        virtual bool isRunning() const = 0;
        /// Tells the time to those who want to know it. May do anything, also start, stop and leave.
        virtual void report() = 0;

    protected:
        ~Participant() = default;
    };

    PlaybackClock(const Clock& clock, MainQueue& queue);
    ~PlaybackClock();
    PlaybackClock(const PlaybackClock&) = delete; // participants hold its address
    PlaybackClock& operator=(const PlaybackClock&) = delete;

    /// Seconds; the same for everything that happens in one turn.
    double turnTime() const;
    /// Seconds; not held for the turn: what the display asks for.
    double now() const { return m_clock.now(); }

    void join(Participant& participant);
    void leave(Participant& participant);
    /// A report in the next turn, from this participant and from all that run.
    void requestReport(Participant& participant);
    /// Reports go on 60 times a second from here on, until nobody runs.
    void participantStarted();

private:
    struct Member {
        Participant* participant = nullptr;
        bool wantsReport = false;
    };

    void deliverReports();
    void scheduleTick();

    const Clock& m_clock;
    MainQueue& m_queue;
    std::vector<Member> m_members;
    mutable bool m_turnHasTime = false;
    mutable double m_turnTime = 0;
    double m_nextTick = 0;
    bool m_isTicking = false;
    bool m_reportIsPosted = false;
    std::shared_ptr<const bool> m_alive = std::make_shared<const bool>(true); ///< posted work looks whether it is there
};

}
