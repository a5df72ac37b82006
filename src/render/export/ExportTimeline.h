// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/movie/MediaTime.h"
#include "render/export/ExportParameters.h"

#include <cstdint>

namespace zumeta {

/// Which stretch of each recording a movie shows. Seconds.
struct ExportTimeline {
    double offset = 0;         ///< below time minus above time of the same instant
    double exportDuration = 0; ///< length of the movie
    double aboveStart = 0;     ///< where the above video is read from
    double belowStart = 0;     ///< where the below video is read from

    /// Throws ExportError::exportSessionFailed when nothing is left after trimming.
    static ExportTimeline compute(const ExportParameters& params, double aboveDuration, double belowDuration);
};

/// The rate that a movie is made at: the below video's, or 30 when that says nothing.
float exportFrameRate(float nominalFrameRate);
/// Time between two frames of the movie, in whole 60000ths of a second.
MediaTime exportFrameDuration(float fps);
/// Frames that the export aims at.
int64_t exportTotalFrames(double exportDuration, float fps);

/// Lets progress through once for every whole percent, and at the end.
class ProgressThrottle {
public:
    bool shouldReport(double fraction);
    /// The last fraction that was let through, 0 to 1.
    double lastReportedProgress() const { return m_last; }

private:
    double m_last = 0;
};

}
