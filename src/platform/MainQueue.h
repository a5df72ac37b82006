// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QObject>
#include <functional>

namespace zumeta {

/// Work for later turns of the main thread's event loop, in order. What is posted runs at a time of its own: never
/// inside the call that posts it, and never inside another posted one.
class MainQueue {
public:
    using Work = std::function<void()>;

    MainQueue() = default;
    virtual ~MainQueue() = default;
    MainQueue(const MainQueue&) = delete; // an interface: copying would slice
    MainQueue& operator=(const MainQueue&) = delete;

    /// Any thread.
    virtual void post(Work work) = 0;
    /// Main thread. Not before `seconds` have gone by.
    virtual void postAfter(double seconds, Work work) = 0;
};

/// The main thread's event loop. Work that is still waiting when the queue goes is dropped.
class EventLoopQueue final : public MainQueue {
public:
    void post(Work work) override;
    void postAfter(double seconds, Work work) override;

private:
    QObject m_context;
};

}
