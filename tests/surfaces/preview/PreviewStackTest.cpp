// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/preview/PreviewStack.h"

#include <gtest/gtest.h>

namespace zumeta {
namespace {

using WorkflowStep = PublishedFields::WorkflowStep;
using ViewMode = PublishedFields::ViewMode;

PreviewStackFacts bothIn(WorkflowStep step, ViewMode viewMode = ViewMode::split)
{
    PreviewStackFacts facts;
    facts.currentStep = step;
    facts.viewMode = viewMode;
    facts.hasItem = {true, true};
    return facts;
}

TEST(PreviewStack, WithoutAnyItemThereIsTheBackgroundAlone)
{
    PreviewStackFacts facts = bothIn(WorkflowStep::step1);
    facts.hasItem = {};
    facts.showSkeletonOverlay = true;
    facts.isAdjustingWaterline = true;
    EXPECT_EQ(previewStack(facts), PreviewStack{});
}

TEST(PreviewStack, OneItemIsEnoughForTheSurface)
{
    PreviewStackFacts facts = bothIn(WorkflowStep::step3);
    facts.hasItem = {true, false};
    EXPECT_TRUE(previewStack(facts).hasSurface);
    facts.hasItem = {false, true};
    EXPECT_TRUE(previewStack(facts).hasSurface);
}

TEST(PreviewStack, TheSkeletonOverlayFollowsItsSwitch)
{
    PreviewStackFacts facts = bothIn(WorkflowStep::step3);
    EXPECT_FALSE(previewStack(facts).hasSkeletonOverlay);
    facts.showSkeletonOverlay = true;
    EXPECT_TRUE(previewStack(facts).hasSkeletonOverlay);
}

TEST(PreviewStack, TheWaterlineIndicatorIsThereInSplitAlone)
{
    EXPECT_TRUE(previewStack(bothIn(WorkflowStep::step3)).hasWaterlineIndicator);
    EXPECT_FALSE(previewStack(bothIn(WorkflowStep::step1, ViewMode::aboveOnly)).hasWaterlineIndicator);
    EXPECT_FALSE(previewStack(bothIn(WorkflowStep::step2, ViewMode::belowOnly)).hasWaterlineIndicator);
}

TEST(PreviewStack, TheWaterlineIndicatorIsSeenByItsFlagAlone)
{
    PreviewStackFacts facts = bothIn(WorkflowStep::step3);
    EXPECT_EQ(previewStack(facts).waterlineIndicatorOpacity, 0);
    facts.isAdjustingWaterline = true;
    EXPECT_EQ(previewStack(facts).waterlineIndicatorOpacity, 1);
}

TEST(PreviewStack, TheVerticalGuideLineIsThereInStepsOneAndTwo)
{
    EXPECT_TRUE(previewStack(bothIn(WorkflowStep::step1)).hasVerticalGuideLine);
    EXPECT_TRUE(previewStack(bothIn(WorkflowStep::step2)).hasVerticalGuideLine);
    EXPECT_FALSE(previewStack(bothIn(WorkflowStep::step3)).hasVerticalGuideLine);
    EXPECT_FALSE(previewStack(bothIn(WorkflowStep::step4)).hasVerticalGuideLine);
}

TEST(PreviewStack, MissingMediaCountsForItsStepAndLaterForBoth)
{
    for (int missing = 0; missing < 4; ++missing) {
        const Sides<bool> isMissing{(missing & 1) != 0, (missing & 2) != 0};
        const auto showsIt = [&](WorkflowStep step) {
            PreviewStackFacts facts = bothIn(step);
            facts.isMissing = isMissing;
            return previewStack(facts).hasMissingMediaView;
        };
        EXPECT_EQ(showsIt(WorkflowStep::step1), isMissing.above) << missing;
        EXPECT_EQ(showsIt(WorkflowStep::step2), isMissing.below) << missing;
        EXPECT_EQ(showsIt(WorkflowStep::step3), missing != 0) << missing;
        EXPECT_EQ(showsIt(WorkflowStep::step4), missing != 0) << missing;
    }
}

TEST(PreviewStack, MissingMediaAreToldOfWithoutAnyItem)
{
    PreviewStackFacts facts = bothIn(WorkflowStep::step3);
    facts.hasItem = {};
    facts.isMissing = {true, true};
    EXPECT_TRUE(previewStack(facts).hasMissingMediaView);
    EXPECT_FALSE(previewStack(facts).hasSurface);
}

}
}
