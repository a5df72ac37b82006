// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace zumeta {

/// The keys by which a focused slider of the timeline is scrubbed.
enum class ScrubKey { home, end, pageUp, pageDown };
/// Fine with Shift.
enum class ScrubPace { coarse, fine };

/// A coarse page is this part of the length: some twenty presses lead through a recording of any length.
inline constexpr double kCoarsePageFraction = 0.05;
/// A fine page, and the least that a coarse one is; seconds. What is finer still belongs to the arrow keys, which step
/// by frames.
inline constexpr double kFinePageSeconds = 1;

/// Where the playhead goes from `time`; Page Up leads to later times. Seconds, from 0 to the length.
double scrubTarget(ScrubKey key, ScrubPace pace, double time, double duration);

}
