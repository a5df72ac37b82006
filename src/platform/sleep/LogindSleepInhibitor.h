// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/SleepInhibitor.h"

#include <QDBusConnection>

namespace zumeta {

/// Asks the system's login service, which every desktop listens to. It hands out an open file as the right and takes
/// the closing for its end, so that a killed process keeps nobody awake. Nothing waits for the service: until it has
/// answered the machine may fall asleep, as it may where there is no bus, no service, or a refusal.
class LogindSleepInhibitor final : public SleepInhibitor {
public:
    /// `bus` is the system bus, or one that stands for it.
    explicit LogindSleepInhibitor(QDBusConnection bus);
    std::unique_ptr<Inhibition> inhibit(const QString& reason) override;

private:
    QDBusConnection m_bus;
};

}
