// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/playback/FrameCache.h"

#include <limits>
#include <optional>

namespace zumeta {

/// What the choice of a decoder's next work looks at. Times in seconds on the item's clock.
struct DecodeSituation {
    double playhead = 0;
    double rate = 0;                            ///< 0: the player stands
    std::optional<FrameCache::Stretch> covered; ///< around the playhead
    double frameLength = 1.0 / 30;
    int framesInBudget = 8; ///< that the cache can hold
    int framesWanted = 0;   ///< in the cache on the side to which the playhead moves, its own frame counted
    double itemBegin = 0;   ///< nothing is before it
    double itemEnd = std::numeric_limits<double>::infinity();
};

/// A frame that is to be decoded.
struct DecodeNeed {
    double target = 0;     ///< a moment at which it is shown
    bool isUrgent = false; ///< it is waited for; else it is read ahead
    /// Frames from before are only passed through.
    double keepFrom = -std::numeric_limits<double>::infinity();
};

/// Which frames are decoded for a moving playhead.
enum class Pace {
    everyFrame,
    passingOver, ///< all but those that no other frame leans on
    keyFrames
};

/// The most thorough pace that gives a fluent picture. `decodeSeconds` is what a frame takes at present; `keySpacing`
/// the seconds between key frames, nothing when unknown.
Pace paceFor(double rate, double frameLength, double decodeSeconds, std::optional<double> keySpacing);

/// The next moment for which a playhead that goes by key frames wants a picture; nothing while it has enough ahead.
/// `last` is the moment before that one.
std::optional<double> nextHop(double playhead, double rate, double frameLength, std::optional<double> last);

/// The frame to decode next, or nothing while all is there that may be needed soon.
std::optional<DecodeNeed> nextNeed(const DecodeSituation& situation);

}
