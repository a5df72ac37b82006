// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/Step3Bases.h"

#include "model/ProjectState.h"

namespace zumeta {

namespace {

double keptBase(std::optional<double> base, std::optional<double> relative, double value)
{
    if (base)
        return *base;
    return relative ? value - *relative : 0;
}

}

Step3Bases Step3Bases::equalTo(const VideoCompositionConfig& config)
{
    return {config.waterlineHeight, config.aboveOffset, config.aboveHorizontalOffset, config.aboveOffset};
}

Step3Bases Step3Bases::keptIn(const ProjectState& state)
{
    const VideoCompositionConfig& config = state.projectConfig;
    Step3Bases bases;
    bases.waterlineHeight =
        keptBase(state.step3BaseWaterlineHeight, state.step3RelativeWaterlineHeight, config.waterlineHeight);
    bases.aboveOffset = keptBase(state.step3BaseAboveOffset, state.step3RelativeAboveOffset, config.aboveOffset);
    bases.aboveHorizontalOffset = keptBase(state.step3BaseAboveHorizontalOffset,
                                           state.step3RelativeAboveHorizontalOffset, config.aboveHorizontalOffset);
    bases.verticalOffset = bases.aboveOffset;
    return bases;
}

void Step3Bases::keepIn(ProjectState& state) const
{
    const VideoCompositionConfig& config = state.projectConfig;
    state.step3BaseWaterlineHeight = waterlineHeight;
    state.step3BaseAboveOffset = aboveOffset;
    state.step3BaseAboveHorizontalOffset = aboveHorizontalOffset;
    state.step3RelativeWaterlineHeight = config.waterlineHeight - waterlineHeight;
    state.step3RelativeAboveOffset = config.aboveOffset - aboveOffset;
    state.step3RelativeAboveHorizontalOffset = config.aboveHorizontalOffset - aboveHorizontalOffset;
}

}
