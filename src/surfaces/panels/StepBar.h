// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace zumeta {

/// How a step looks in the bar. Steps are counted from 1.
enum class StepPillLook {
    ahead,   ///< not reached yet
    visited, ///< reached, and nothing beyond it
    done,    ///< a later one has been reached
    current
};
StepPillLook stepPillLook(int step, int currentStep, int maxReachedStep);

/// Of the line between this step and the next one.
bool isConnectorCompleted(int stepBefore, int maxReachedStep);

}
