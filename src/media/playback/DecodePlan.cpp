// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/playback/DecodePlan.h"

#include <algorithm>
#include <cmath>

namespace zumeta {

namespace {

/// How far ahead of a standing playhead, to either side: steps of a held key find the next frames decoded.
constexpr int kStandingReach = 12;
/// Frames that a decoder may have to hold beyond those that are wanted.
constexpr int kSpareFrames = 3;

DecodeNeed behind(const DecodeSituation& situation)
{
    const int kept = std::max(situation.framesInBudget - kSpareFrames, 1);
    return {situation.covered->begin - 2 * kFrameTimeTolerance, false,
            situation.covered->begin - kept * situation.frameLength};
}

bool reachesBegin(const DecodeSituation& situation)
{
    return situation.covered->begin <= latestBegin(situation.itemBegin);
}

bool reachesEnd(const DecodeSituation& situation)
{
    return situation.covered->end >= situation.itemEnd;
}

std::optional<DecodeNeed> needOfStanding(const DecodeSituation& situation)
{
    const double reach = std::min(kStandingReach, situation.framesInBudget / 3) * situation.frameLength;
    if (situation.covered->end < situation.playhead + reach && !reachesEnd(situation))
        return DecodeNeed{situation.covered->end};
    if (situation.covered->begin > situation.playhead - reach && !reachesBegin(situation))
        return behind(situation);
    return std::nullopt;
}

}

Pace paceFor(double rate, double frameLength, double decodeSeconds, std::optional<double> keySpacing)
{
    constexpr double kMostLoad = 0.8;       // of the time that passes
    constexpr double kFewestKeyFrames = 10; // a second, as they are shown
    const double speed = std::abs(rate);
    if (speed <= 1 || speed / frameLength * decodeSeconds <= kMostLoad)
        return Pace::everyFrame;
    return keySpacing && speed / *keySpacing >= kFewestKeyFrames ? Pace::keyFrames : Pace::passingOver;
}

std::optional<double> nextHop(double playhead, double rate, double frameLength, std::optional<double> last)
{
    constexpr double kShownInterval = 1.0 / 60; // seconds: no display gains from more
    constexpr double kAhead = 0.15;             // seconds as they pass
    const double direction = rate < 0 ? -1 : 1;
    const double step = std::max(std::abs(rate) * kShownInterval, frameLength);
    const double reach = std::max(std::abs(rate) * kAhead, 2 * step);
    const double ahead = last ? (*last - playhead) * direction : -1;
    // A place behind the playhead, or one from before a seek.
    const double hop = ahead < 0 || ahead > 2 * reach ? playhead + direction * step : *last + direction * step;
    return (hop - playhead) * direction <= reach ? std::optional(hop) : std::nullopt;
}

std::optional<DecodeNeed> nextNeed(const DecodeSituation& situation)
{
    if (!situation.covered)
        return DecodeNeed{situation.playhead, true};
    if (situation.rate == 0)
        return needOfStanding(situation);
    if (situation.rate > 0) {
        // A quarter of the cache is left to the frames that have been shown.
        const bool hasRoom = situation.framesWanted < situation.framesInBudget * 3 / 4;
        return hasRoom && !reachesEnd(situation) ? std::optional(DecodeNeed{situation.covered->end}) : std::nullopt;
    }
    if (reachesBegin(situation))
        return std::nullopt;
    // Where a group does not fit beside what is left of the one behind it, its last frames are waited for when the
    // playhead has come near: better late than never.
    const bool hasRoom = situation.framesWanted < situation.framesInBudget - kSpareFrames;
    const bool runsDry = situation.playhead - situation.covered->begin < 2 * situation.frameLength;
    return hasRoom || runsDry ? std::optional(behind(situation)) : std::nullopt;
}

}
