// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "model/VideoCompositionConfig.h"

namespace zumeta {

// Dormant: sync is the user's lock and nothing else. The constants are those that a detection would start from.

/// Would find a clap of the hands over the head, by the distance of the wrists as a fraction of the picture.
struct ClapDetectionService {
    static constexpr double kArmsWideThreshold = 0.25;
    static constexpr double kClapThreshold = 0.12;
    static constexpr double kSampleInterval = 0.033; ///< seconds
};

/// Would find the moment at which the picture begins to move.
struct MotionStartDetectionService {
    static constexpr double kSampleInterval = 0.05; ///< seconds
    static constexpr Size kProcessingSize{64, 64};  ///< pixels
    static constexpr double kMotionThresholdMultiplier = 3.0;
};

/// Would align two recordings by their sound.
struct AudioSyncService {};

/// Would find the moment at which the head goes down.
struct HeadDropDetectionService {
    double sampleInterval = 0; ///< seconds
    double dropThreshold = 0;
    double dropDuration = 0; ///< seconds
};

}
