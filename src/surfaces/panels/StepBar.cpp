// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/panels/StepBar.h"

namespace zumeta {

StepPillLook stepPillLook(int step, int currentStep, int maxReachedStep)
{
    if (step == currentStep)
        return StepPillLook::current;
    if (step > maxReachedStep)
        return StepPillLook::ahead;
    return step < maxReachedStep ? StepPillLook::done : StepPillLook::visited;
}

bool isConnectorCompleted(int stepBefore, int maxReachedStep)
{
    return maxReachedStep > stepBefore;
}

}
