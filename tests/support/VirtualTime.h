// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/Clock.h"
#include "platform/MainQueue.h"

#include <coroutine>
#include <cstdint>
#include <map>
#include <mutex>

namespace zumeta::test {

/// A clock and the main thread's queue in one, in a time that moves only when a test says so. Work runs in order of
/// its moment, then of posting; each piece is a turn of its own. Work that is left at the end still runs, so that no
/// suspended task stays behind.
class VirtualTime final : public Clock, public MainQueue {
public:
    ~VirtualTime() override;

    double now() const override { return m_now; }
    void post(Work work) override;
    void postAfter(double seconds, Work work) override;

    /// Everything that is due now, also what that posts for now.
    void runDueWork();
    /// Goes on by so much, running everything that falls due on the way at its own moment.
    void advance(double seconds);
    /// What is left, however far off: for whoever goes before this does, and is meant by that work.
    void runWhatIsLeft();

    /// `co_await time.pass(0.2)` resumes a task after 0.2 s.
    auto pass(double seconds)
    {
        struct Awaiter {
            VirtualTime& time;
            double seconds;
            bool await_ready() const noexcept { return false; }
            void await_suspend(std::coroutine_handle<> task)
            {
                time.postAfter(seconds, [task] { task.resume(); });
            }
            void await_resume() const noexcept {}
        };
        return Awaiter{*this, seconds};
    }

private:
    bool runNext(double until);

    double m_now = 1000; ///< not 0, so that nothing comes to depend on it
    std::mutex m_mutex;  ///< post() may be called by any thread
    std::map<std::pair<double, uint64_t>, Work> m_work;
    uint64_t m_serial = 0;
};

}
