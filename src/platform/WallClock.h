// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <chrono>

namespace zumeta {

/// The time of day, in whole seconds of UTC: what records and file names carry. Not for measuring how long things take.
class WallClock {
public:
    WallClock() = default;
    virtual ~WallClock() = default;
    WallClock(const WallClock&) = delete; // an interface: copying would slice
    WallClock& operator=(const WallClock&) = delete;
    virtual std::chrono::sys_seconds now() const = 0;
};

class SystemWallClock final : public WallClock {
public:
    std::chrono::sys_seconds now() const override
    {
        return std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
    }
};

}
