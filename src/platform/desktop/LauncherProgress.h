// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/MainQueue.h"

#include <QDBusConnection>
#include <memory>
#include <optional>

namespace zumeta {

/// How far the work is, shown by docks and panels on the program's icon. They are told at most five times a second, and
/// always of the last. Whoever does not listen misses nothing. Main thread; nothing waits.
class LauncherProgress {
public:
    /// `bus` is the session's bus, or one that stands for it. The queue must outlive it.
    LauncherProgress(QDBusConnection bus, MainQueue& queue);
    /// What is shown goes with it.
    ~LauncherProgress();
    LauncherProgress(const LauncherProgress&) = delete; // it stands for the program's one icon
    LauncherProgress& operator=(const LauncherProgress&) = delete;

    /// From 0 to 1.
    void show(double fraction);
    void clear();

private:
    void tell();
    void send();

    QDBusConnection m_bus;
    MainQueue& m_queue;
    std::optional<double> m_fraction; ///< nothing: no work
    std::optional<double> m_told;
    bool m_isResting = false;
    std::shared_ptr<LauncherProgress*> m_self = std::make_shared<LauncherProgress*>(this); ///< for work that waits
};

}
