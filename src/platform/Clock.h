// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <chrono>

namespace zumeta {

/// Time that only runs forward, for playing and measuring. Its zero means nothing. Any thread.
class Clock {
public:
    Clock() = default;
    virtual ~Clock() = default;
    Clock(const Clock&) = delete; // an interface: copying would slice
    Clock& operator=(const Clock&) = delete;
    virtual double now() const = 0; ///< seconds
};

class MonotonicClock final : public Clock {
public:
    double now() const override
    {
        return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
    }
};

}
