// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace zumeta {
struct ProjectState;
struct VideoCompositionConfig;

/// What Step 3's relative values are counted from; reference units.
struct Step3Bases {
    double waterlineHeight = 0;
    double aboveOffset = 0;
    double aboveHorizontalOffset = 0;
    double verticalOffset = 0; ///< kept with the others, always as the above offset; nothing reads it

    /// With these, every relative value is 0.
    static Step3Bases equalTo(const VideoCompositionConfig& config);
    /// As they were when the project was kept: told by it, else rebuilt from the relative values, else 0.
    static Step3Bases keptIn(const ProjectState& state);
    /// Writes them and the relative values of the state's own config.
    void keepIn(ProjectState& state) const;

    friend bool operator==(const Step3Bases&, const Step3Bases&) = default;
};

}
