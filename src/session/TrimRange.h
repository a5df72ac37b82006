// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace zumeta {
struct VideoCompositionConfig;

/// The stretch of the composite timeline that is kept. Composite seconds; `end` is never below `start`.
struct TrimRange {
    double start = 0;
    double end = 0;

    static TrimRange of(const VideoCompositionConfig& config, double duration);
    friend bool operator==(const TrimRange&, const TrimRange&) = default;
};

/// Keeps both trims within a timeline of this length; the start goes before the end.
void clampExportTrim(VideoCompositionConfig& config, double duration);

}
