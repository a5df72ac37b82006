// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/WallClock.h"

namespace zumeta::test {

/// A clock that stands until it is told otherwise, and counts how often it was read.
class ManualWallClock final : public WallClock {
public:
    explicit ManualWallClock(std::chrono::sys_seconds start)
        : time(start)
    {}
    std::chrono::sys_seconds now() const override
    {
        ++readings;
        return time;
    }

    std::chrono::sys_seconds time;
    mutable int readings = 0;
};

}
