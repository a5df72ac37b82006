// SPDX-License-Identifier: GPL-3.0-or-later
#include "SwimPlan.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <numeric>

namespace zumeta::swim {

namespace {

constexpr double kSpeed = 800; // units per second: 1.6 m/s
constexpr double kCyclesPerSecond = 1 / kStrokeSeconds;

// The trolley stands until the swimmer is well inside the picture, gathers speed in kGather, and then lets the swimmer
// drift slowly toward the right edge without ever reaching it.
constexpr double kGatherStart = -.80;
constexpr double kGather = 1.6;
constexpr double kDriftSpeed = 34;
constexpr double kDriftRoom = 170;
constexpr double kStandingAt = -375;

/// The integral of the smooth step from 0 to t.
double smoothStepArea(double t)
{
    return t * t * t - t * t * t * t / 2;
}

double evenHeadPosition(double swimTime)
{
    return kSpeed * swimTime;
}

}

double headPosition(double swimTime)
{
    // Every pull of an arm pushes the body on a little; zero at the landmark.
    const auto surge = [](double t) { return 7 * std::sin(4 * std::numbers::pi * t * kCyclesPerSecond + 1.1); };
    return evenHeadPosition(swimTime) + surge(swimTime) - surge(0);
}

double cameraPosition(double swimTime)
{
    const double since = swimTime - kGatherStart;
    if (since <= 0)
        return kStandingAt;
    const double cruise = kSpeed - kDriftSpeed;
    if (since <= kGather)
        return kStandingAt + cruise * kGather * smoothStepArea(since / kGather);
    const double endOfGather = kGatherStart + kGather;
    const double lead = evenHeadPosition(endOfGather) - (kStandingAt + cruise * kGather / 2);
    const double drift = kDriftRoom * (1 - std::exp(-(swimTime - endOfGather) * kDriftSpeed / kDriftRoom));
    return evenHeadPosition(swimTime) - lead - drift;
}

double strokePhase(double swimTime)
{
    const double strokes = swimTime * kCyclesPerSecond + .885;
    return strokes - std::floor(strokes);
}

SwimPlan SwimPlan::make(FrameRate rate, double seconds)
{
    SwimPlan plan;
    plan.rate = rate;
    const double fps = rate.perSecond();
    const auto frames = [fps](double s) { return int(std::lround(s * fps)); };
    plan.aboveFrames = std::max(2, frames(seconds));
    plan.aboveLandmarkFrame = frames(std::min(4.4, seconds * .4));
    const int earlier = std::max(1, frames(std::min(2.5, seconds * .25)));
    plan.belowLandmarkFrame = plan.aboveLandmarkFrame + earlier;
    plan.belowFrames = plan.aboveFrames + earlier;
    plan.beepSwimTime = -std::min(3.4, seconds * .3);

    // A chapter's sound ends with its picture to the sample only after this many frames, or a multiple of it.
    const int64_t step = rate.numerator / std::gcd(rate.numerator, rate.denominator * kSampleRate);
    const int64_t wanted = plan.aboveFrames / 2;
    const int64_t exact = std::max<int64_t>(1, (wanted + step / 2) / step) * step;
    plan.firstChapterFrames = int(exact < plan.aboveFrames ? exact : wanted);
    return plan;
}

int64_t samplesBefore(int frame, FrameRate rate)
{
    return (int64_t(frame) * rate.denominator * kSampleRate + rate.numerator / 2) / rate.numerator;
}

}
