// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/preview/PreviewStack.h"

namespace zumeta {

namespace {

using WorkflowStep = PublishedFields::WorkflowStep;

/// In Steps 1 and 2 the step's own side counts, afterwards both.
bool lacksMedia(const PreviewStackFacts& facts)
{
    switch (facts.currentStep) {
    case WorkflowStep::step1:
        return facts.isMissing.above;
    case WorkflowStep::step2:
        return facts.isMissing.below;
    case WorkflowStep::step3:
    case WorkflowStep::step4:
        return facts.isMissing.above || facts.isMissing.below;
    }
    return false;
}

}

PreviewStack previewStack(const PreviewStackFacts& facts)
{
    PreviewStack stack;
    // With no media at all there is no item either, and it is then that the user has to be told.
    stack.hasMissingMediaView = lacksMedia(facts);
    stack.hasSurface = facts.hasItem.above || facts.hasItem.below;
    if (!stack.hasSurface)
        return stack;
    stack.hasSkeletonOverlay = facts.showSkeletonOverlay;
    stack.hasWaterlineIndicator = facts.viewMode == PublishedFields::ViewMode::split;
    stack.waterlineIndicatorOpacity = facts.isAdjustingWaterline ? 1 : 0;
    stack.hasVerticalGuideLine = facts.currentStep == WorkflowStep::step1 || facts.currentStep == WorkflowStep::step2;
    return stack;
}

}
