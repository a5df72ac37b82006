// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <optional>
#include <vector>

namespace zumeta {

/// What one step of undoing in Steps 3 and 4 brings back, as a whole.
struct StepEditSnapshot {
    double waterlineHeight = 0;
    double aboveOffset = 0;
    double aboveHorizontalOffset = 0;
    double aboveZoom = 0;
    double timingOffset = 0;
    double blendAmount = 0;
    bool isStep3LoopEnabled = false;
    bool isStep3SlowPlaybackEnabled = false;
    double exportTrimStartSeconds = 0;
    double exportTrimEndSeconds = 0;
    std::vector<double> trimMarkers;
    std::optional<double> selectedTrimMarker;
    double currentTime = 0;

    friend bool operator==(const StepEditSnapshot&, const StepEditSnapshot&) = default;
};

}
