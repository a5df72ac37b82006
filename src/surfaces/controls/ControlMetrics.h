// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The numbers of a value row. Lengths and text sizes are device-independent pixels, durations are seconds.

namespace zumeta {

// The label.
inline constexpr double kLabelAccessorySmaller = 2; ///< than the label's text; the accessory is bold

// The field.
inline constexpr double kFieldWidth = 75;
inline constexpr double kTimecodeFieldWidth = 92;
inline constexpr double kFieldHeight = 28;
inline constexpr double kFieldTextSize = 16; ///< semibold

// The greatest lengths of a typed text, in characters. Where the range needs longer texts, they may be typed.
inline constexpr int kLongestTimecode = 9;
inline constexpr int kLongestDecimal = 8;
inline constexpr int kLongestNumber = 4;

// The buttons beside the field.
inline constexpr double kStepperButtonSize = 24;
inline constexpr double kStepperIconSize = 10;  ///< bold
inline constexpr double kRepeatDelay = 0.3;     ///< from the press to the first repetition
inline constexpr double kRepeatInterval = 0.08; ///< between repetitions
inline constexpr int kStepsOfALargeStep = 10;   ///< by the arrow keys

// The track.
inline constexpr double kTrackHeight = 4;
inline constexpr double kKnobWidth = 16;

}
