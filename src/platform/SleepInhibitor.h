// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QString>
#include <memory>

namespace zumeta {

/// Keeps the machine from falling asleep over long work. Main thread.
class SleepInhibitor {
public:
    /// The machine stays awake for as long as this lives.
    class Inhibition {
    public:
        Inhibition() = default;
        virtual ~Inhibition() = default;
        Inhibition(const Inhibition&) = delete; // it stands for one right that is held
        Inhibition& operator=(const Inhibition&) = delete;
    };

    SleepInhibitor() = default;
    virtual ~SleepInhibitor() = default;
    SleepInhibitor(const SleepInhibitor&) = delete; // an interface: copying would slice
    SleepInhibitor& operator=(const SleepInhibitor&) = delete;

    /// Returns at once. `reason` is shown by the desktop to whoever wants to know what keeps the machine awake. Where
    /// nobody grants the right, the work goes on without it.
    [[nodiscard]] virtual std::unique_ptr<Inhibition> inhibit(const QString& reason) = 0;
};

}
