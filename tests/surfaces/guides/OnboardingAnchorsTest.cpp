// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/guides/OnboardingAnchors.h"

#include <gtest/gtest.h>
#include <limits>

namespace zumeta {
namespace {

using enum InteractiveOnboardingTarget;

TEST(OnboardingRect, IsUsableFromMoreThanEightOnEachSide)
{
    EXPECT_TRUE(isUsableOnboardingRect({0, 0, 8.1, 8.1}));
    EXPECT_FALSE(isUsableOnboardingRect({0, 0, 8, 20}));
    EXPECT_FALSE(isUsableOnboardingRect({0, 0, 20, 8}));
    EXPECT_FALSE(isUsableOnboardingRect({}));
}

TEST(OnboardingRect, OfNumbersThatAreNoneIsNotUsable)
{
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_FALSE(isUsableOnboardingRect({std::numeric_limits<double>::quiet_NaN(), 0, 20, 20}));
    EXPECT_FALSE(isUsableOnboardingRect({0, infinity, 20, 20}));
    EXPECT_FALSE(isUsableOnboardingRect({0, 0, infinity, 20}));
}

TEST(OnboardingAnchors, OfDifferentTargetsAreMerged)
{
    OnboardingAnchors anchors{{lockButton, {10, 10, 100, 40}}};
    InteractiveOnboardingTargetPreferenceKey::reduce(anchors, {{timeline, {0, 500, 700, 30}}});
    EXPECT_EQ(anchors, (OnboardingAnchors{{lockButton, {10, 10, 100, 40}}, {timeline, {0, 500, 700, 30}}}));
}

TEST(OnboardingAnchors, OfOneTargetAreTakenTogether)
{
    OnboardingAnchors rows{{step3Adjustments, {10, 100, 350, 49}}};
    InteractiveOnboardingTargetPreferenceKey::reduce(rows, {{step3Adjustments, {10, 160, 350, 49}}});
    InteractiveOnboardingTargetPreferenceKey::reduce(rows, {{step3Adjustments, {}}}); // out of sight
    EXPECT_EQ(rows, (OnboardingAnchors{{step3Adjustments, {10, 100, 350, 109}}}));
}

TEST(OnboardingPanelPart, HoldsAllTargetsOfTheCards)
{
    const OnboardingAnchors anchors{{step3Adjustments, {10, 100, 350, 300}}, {nextStepButton, {10, 500, 350, 48}}};
    EXPECT_EQ(panelPartFor({step3Adjustments, nextStepButton}, anchors), QRectF(10, 100, 350, 448));
    EXPECT_EQ(panelPartFor({nextStepButton}, anchors), QRectF(10, 500, 350, 48));
}

TEST(OnboardingPanelPart, IsNoneUntilAllTargetsAreThere)
{
    EXPECT_EQ(panelPartFor({step3Adjustments, nextStepButton}, {{nextStepButton, {10, 500, 350, 48}}}), std::nullopt);
}

TEST(OnboardingPanelPart, IsNoneOfWhatStandsOutsideThePanel)
{
    for (const InteractiveOnboardingTarget target : {aboveDropArea, timelineInstruction, timeline, preview})
        EXPECT_EQ(panelPartFor({target}, {{target, {10, 500, 350, 48}}}), std::nullopt);
}

}
}
