// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

// The numbers of the timeline strip. Lengths and text sizes are device-independent pixels, opacities run from 0 to 1,
// durations are seconds.

namespace zumeta {

// The strip.
inline constexpr double kStripSidePadding = 16;
inline constexpr double kStripVerticalPadding = 12;
inline constexpr double kStripStackSpacing = 8;
inline constexpr double kStripRowSpacing = 16;
/// An empty row that the strip grows by while the hint under the slider may show, which would hang out of it.
inline constexpr double kHintRowHeight = 28;

// The play button.
inline constexpr double kPlayButtonFaceSize = 36;
inline constexpr double kPlayButtonRingSize = 44; ///< also the height of the strip's row
inline constexpr double kPlayButtonPressedScale = 0.95;

// The read-outs.
inline constexpr double kTimeDisplayWidth = 70;
inline constexpr double kTimeDisplayTextSize = 14;
inline constexpr double kLengthIconSpacing = 4;
inline constexpr int kFramesPerSecondOfTimeText = 30;
inline constexpr double kFullScreenButtonSize = 32;

// The plain slider.
inline constexpr double kSliderHeight = 30; ///< of its box, all of which takes hits
inline constexpr double kSliderTrackHeight = 8;
inline constexpr double kSliderTrackOpacity = 0.24; ///< white
inline constexpr double kSliderFillOpacity = 0.68;  ///< white
inline constexpr double kSliderDisabledOpacity = 0.4;
inline constexpr double kThumbWidth = 21;
inline constexpr double kThumbHeight = 20;
inline constexpr double kThumbWidthGrowth = 4; ///< while it is hovered or dragged
inline constexpr double kThumbHeightGrowth = 2;
inline constexpr double kThumbGrowthDuration = 0.2; ///< eased in and out
/// Shorter ranges are shown as if they were this long, so that an empty session has a usable scale; seconds.
inline constexpr double kShortestScale = 0.1;

// The hint under the plain slider's thumb.
inline constexpr double kHintBelowMiddle = 40; ///< its centre, from the slider's middle downward
inline constexpr double kHintTextSize = 12;    ///< bold
inline constexpr double kHintPointerOffset = 6;

// The trimmer.
inline constexpr double kTrimmerTrackHeight = 6;
inline constexpr double kTrimmerTrackOpacity = 0.24; ///< white
inline constexpr double kTrimmerFrameHeight = 44;    ///< of its box, all of which takes hits
inline constexpr double kHandleWidth = 20;           ///< of a handle's hit box; also the least distance between handles
inline constexpr double kVisualHandleWidth = 6;
inline constexpr double kKeptRangeRadius = 3;
inline constexpr double kPlayheadWidth = 2;
inline constexpr double kPlayheadHeight = kTrimmerFrameHeight + 8;
inline constexpr double kPlayheadShadowOpacity = 0.5; ///< black
inline constexpr double kHandleDragDistance = 10;     ///< from the press; less is a seek
inline constexpr double kMarkerDragDistance = 2;      ///< from the press; less is a tap

// The markers above the trimmer.
inline constexpr double kMarkerWidth = 36;
inline constexpr double kMarkerHeight = 38;
inline constexpr double kMarkerAboveTop = 12; ///< its centre, from the trimmer's top upward
inline constexpr double kMarkerTextSize = 9;
inline constexpr double kSelectedMarkerTextSize = 10;
inline constexpr double kMarkerPointerSize = 9;
inline constexpr double kSelectedMarkerPointerSize = 11;

}
