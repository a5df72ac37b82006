// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace zumeta {

/// The line that a player's time runs along: `seconds` of the item at `hostTime` of the clock, then on at `rate`.
struct SoundTime {
    double seconds = 0;
    double hostTime = 0;
    double rate = 0;

    /// Outside half to double speed, and backward, there is no sound.
    bool isAudible() const { return rate >= 0.5 && rate <= 2; }
    double secondsAt(double host) const { return seconds + rate * (host - hostTime); }
    /// Only while the rate is not 0.
    double hostTimeOf(double itemSeconds) const { return hostTime + (itemSeconds - seconds) / rate; }
    /// Whether sound that is on its way by this line is right by the other one too.
    bool soundsLike(const SoundTime& other) const;
};

}
