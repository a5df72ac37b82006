// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <cstdint>

namespace zumeta::swim {

// The scene is measured in units: 1920 of them are the width that the below-water camera sees at the swimmer's lane,
// 500 are one metre. x runs along the lane, 0 at the rope's colour change; y runs downward, 0 at the calm surface.
inline constexpr float kUnitsPerMetre = 500;
inline constexpr float kViewWidth = 1920;
/// The above camera's picture will be shown this much enlarged, so it sees this much more.
inline constexpr double kCameraZoom = 1.22;

// The swim's own clock is 0 at the landmark: the instant when the swimmer's head passes the rope's colour change.

/// Where the middle of the swimmer's head is, and where the two cameras on their trolley look.
double headPosition(double swimTime);
double cameraPosition(double swimTime);
/// One stroke of the arm that is nearer to the cameras: 0 and 1 when the hand enters the water. The other arm is half
/// a stroke behind.
double strokePhase(double swimTime);
inline constexpr double kStrokeSeconds = 1.32;

struct FrameRate {
    int64_t numerator = 30000; ///< frames in `denominator` seconds
    int64_t denominator = 1001;
    double perSecond() const { return double(numerator) / double(denominator); }
    friend bool operator==(const FrameRate&, const FrameRate&) = default;
};

/// What each recording holds: all in whole frames, so that picture and sound of a chapter are equally long.
struct SwimPlan {
    FrameRate rate;
    int aboveFrames = 0;
    int firstChapterFrames = 0; ///< the rest is in the second chapter
    int belowFrames = 0;
    int aboveLandmarkFrame = 0;
    int belowLandmarkFrame = 0;
    double beepSwimTime = 0;

    /// `seconds` of swim, at least one; the below camera was started a little earlier.
    static SwimPlan make(FrameRate rate, double seconds);

    double secondsOf(int frames) const { return double(frames) / rate.perSecond(); }
    double aboveSwimTime(int frame) const { return secondsOf(frame - aboveLandmarkFrame); }
    double belowSwimTime(int frame) const { return secondsOf(frame - belowLandmarkFrame); }
    double beepAboveTime() const { return secondsOf(aboveLandmarkFrame) + beepSwimTime; }
    double beepBelowTime() const { return secondsOf(belowLandmarkFrame) + beepSwimTime; }
};

/// Sound comes with 48000 samples a second. How many lie before the given frame begins.
inline constexpr int kSampleRate = 48000;
int64_t samplesBefore(int frame, FrameRate rate);

}
