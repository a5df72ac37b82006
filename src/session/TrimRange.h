// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace zumeta {
struct VideoCompositionConfig;

/// The stretch of the composite timeline that is kept. Composite seconds; `end` is never below `start`.
struct TrimRange {
    double start = 0;
    double end = 0;

    static TrimRange of(const VideoCompositionConfig& config, double duration);
    /// Trims may reach beyond a timeline that has become shorter.
    TrimRange within(double duration) const;
    friend bool operator==(const TrimRange&, const TrimRange&) = default;
};

/// Keeps both trims within a timeline of this length; the start goes before the end.
void clampExportTrim(VideoCompositionConfig& config, double duration);

/// Where the end trim stands on the timeline; the config holds what it cuts off.
double trimEndPosition(const VideoCompositionConfig& config, double duration);

/// How short each way of setting a trim may make the range, in seconds. A value that is typed or dragged could
/// otherwise make it empty by a slip; setting a trim to the playhead is meant.
inline constexpr double kShortestRangeOfRows = 0.5;
inline constexpr double kShortestRangeAtPlayhead = 0;

/// Sets one trim as near to `position` as the other one and the timeline allow, and gives the place where it now
/// stands.
double setTrimStart(VideoCompositionConfig& config, double position, double duration, double shortestRange);
double setTrimEnd(VideoCompositionConfig& config, double position, double duration, double shortestRange);

/// Whether two positions count as one trim point: they are compared in whole hundredths of a second. Cut, not rounded,
/// so that what the user reads as one time is one; positions that should be equal but were computed in two ways may lie
/// on both sides of a hundredth, hence a grain of tolerance before the cut.
bool isSameTrimPoint(double position, double other);

}
