// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/playback/Player.h"

#include <optional>

namespace zumeta {

/// The sound of one player: follows what the player does. Main thread; nothing here waits.
class PlayerSound {
public:
    virtual ~PlayerSound() = default;
    virtual void setItem(std::optional<PlayerItem> item) = 0;
    /// The item's time is `seconds` at `hostTime` of the PlaybackClock and moves on at `rate` from there; 0 is silence.
    virtual void follow(double seconds, double hostTime, double rate) = 0;
};

}
