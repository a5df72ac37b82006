// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/guides/OnboardingCards.h"

#include <gtest/gtest.h>

namespace zumeta {
namespace {

using enum InteractiveOnboardingTarget;

constexpr QSizeF kWindow(1400, 900);

TEST(OnboardingCard, OfTheDropAreaStandsInThePicturesCorner)
{
    const OnboardingAnchors anchors{{aboveDropArea, {300, 300, 460, 300}}, {preview, {0, 74, 1010, 758}}};
    EXPECT_EQ(cardPosition(aboveDropArea, anchors, kWindow), QPointF(1010 - 150 - 24, 74 + 95 + 18));
}

TEST(OnboardingCard, OfTheDropAreaWithoutAPictureStandsBesideIt)
{
    const OnboardingAnchors anchors{{aboveDropArea, {300, 300, 460, 300}}};
    EXPECT_EQ(cardPosition(aboveDropArea, anchors, kWindow), QPointF(760 + 150 + 24, 300 - 95 - 18));
}

TEST(OnboardingCard, OfTheTimelineStandsAboveItAndLeftOfThePanel)
{
    const OnboardingAnchors anchors{{timeline, {150, 850, 700, 30}}};
    EXPECT_EQ(cardPosition(timeline, anchors, kWindow), QPointF(1400 - 24 - 150 - 300 - 24, 850 - 95 - 18));
}

TEST(OnboardingCard, OfTheLockButtonStandsAboveItsRightEnd)
{
    const OnboardingAnchors anchors{{lockButton, {1030, 400, 350, 48}}};
    EXPECT_EQ(cardPosition(lockButton, anchors, kWindow), QPointF(1400 - 174, 400 - 95 - 18)); // held inside
    const OnboardingAnchors left{{lockButton, {20, 150, 200, 48}}};
    EXPECT_EQ(cardPosition(lockButton, left, kWindow), QPointF(174, 119));
}

TEST(OnboardingCard, OfThePreviewStandsInItsCorner)
{
    const OnboardingAnchors anchors{{preview, {0, 169, 1010, 568}}};
    EXPECT_EQ(cardPosition(preview, anchors, kWindow), QPointF(836, 282));
}

TEST(OnboardingCard, OfTheNextStepButtonStandsAtItsLeft)
{
    const OnboardingAnchors anchors{{nextStepButton, {1030, 500, 350, 48}}};
    EXPECT_EQ(cardPosition(nextStepButton, anchors, kWindow), QPointF(1030 - 150 - 18, 500 - 95 - 18));
}

TEST(OnboardingCard, GoesUnderATargetThatIsTooNearTheTop)
{
    const OnboardingAnchors anchors{{nextStepButton, {1030, 190, 350, 48}}};
    EXPECT_EQ(cardPosition(nextStepButton, anchors, kWindow).y(), 238 + 95 + 18);
    const OnboardingAnchors lower{{nextStepButton, {1030, 191, 350, 700}}};
    EXPECT_EQ(cardPosition(nextStepButton, lower, kWindow).y(), 119); // above it, and inside
    const OnboardingAnchors high{{nextStepButton, {1030, 100, 350, 700}}};
    EXPECT_EQ(cardPosition(nextStepButton, high, kWindow).y(), 900 - 24 - 95);
}

TEST(OnboardingCard, OfOtherTargetsStandsOnTheSideWithMoreRoom)
{
    const OnboardingAnchors left{{exportButton, {200, 300, 100, 48}}};
    EXPECT_EQ(cardPosition(exportButton, left, kWindow).x(), 300 + 150 + 24);
    const OnboardingAnchors right{{exportButton, {1030, 300, 350, 48}}};
    EXPECT_EQ(cardPosition(exportButton, right, kWindow).x(), 1030 - 150 - 24);
    const OnboardingAnchors justLeft{{exportButton, {0.62 * 1400 - 51, 300, 100, 48}}};
    EXPECT_EQ(cardPosition(exportButton, justLeft, kWindow).x(), 0.62 * 1400 + 49 + 174);
}

TEST(OnboardingCard, StaysInsideANarrowWindow)
{
    const OnboardingAnchors anchors{{preview, {0, 0, 2000, 2000}}, {timeline, {-500, -500, 100, 100}}};
    const QSizeF narrow(500, 400);
    EXPECT_EQ(cardPosition(preview, anchors, narrow), QPointF(500 - 174, 119));
    EXPECT_EQ(cardPosition(timeline, anchors, narrow), QPointF(174, 119));
}

TEST(OnboardingCard, KeepsItsLeftEdgeInAWindowThatIsNarrowerThanItself)
{
    const OnboardingAnchors anchors{{preview, {0, 0, 300, 200}}};
    EXPECT_EQ(cardPosition(preview, anchors, {347, 237}), QPointF(174, 119));
}

TEST(OnboardingCard, WithoutAUsableTargetStandsInTheMiddle)
{
    EXPECT_EQ(cardPosition(lockButton, {}, kWindow), QPointF(700, 450));
    EXPECT_EQ(simultaneousCardPosition(step3Adjustments, {}, kWindow), QPointF(700, 450));
}

TEST(OnboardingCards, OfTwoAtOnceTheAdjustmentsStandLeftOfTheButton)
{
    const OnboardingAnchors anchors{{step3Adjustments, {1030, 300, 350, 280}}, {nextStepButton, {1030, 620, 350, 48}}};
    const QPointF adjustments = simultaneousCardPosition(step3Adjustments, anchors, kWindow);
    const QPointF button = simultaneousCardPosition(nextStepButton, anchors, kWindow);
    EXPECT_EQ(adjustments, QPointF(1030 - 150 - 24, 300 - 95 - 18));
    EXPECT_EQ(button, QPointF(1030 - 150 - 18, 620 - 95 - 18));
    EXPECT_LT(adjustments.x(), button.x());
    EXPECT_GT(button.y() - adjustments.y(), kOnboardingCardHeight);
}

TEST(OnboardingCards, OfAdjustmentsCountTheirVisiblePartAndStayInside)
{
    const OnboardingAnchors anchors{{step4Adjustments, {-200, 300, 350, 280}}};
    EXPECT_EQ(simultaneousCardPosition(step4Adjustments, anchors, kWindow).x(), 174);
}

// The place that is computed is that of a card of the usual height.

TEST(OnboardingCardFrame, IsAroundItsMiddle)
{
    EXPECT_EQ(cardFrame({700, 450}, 120, std::nullopt, kWindow), QRectF(550, 355, 300, 190));
}

TEST(OnboardingCardFrame, GrowsAwayFromATargetBelowIt)
{
    const QRectF target(1030, 500, 350, 48);
    EXPECT_EQ(cardFrame({862, 387}, 250, target, kWindow), QRectF(712, 232, 300, 250));
}

TEST(OnboardingCardFrame, GrowsAwayFromATargetAboveIt)
{
    const QRectF target(1030, 100, 350, 48);
    EXPECT_EQ(cardFrame({862, 261}, 250, target, kWindow), QRectF(712, 166, 300, 250));
}

TEST(OnboardingCardFrame, OnItsTargetGrowsDownward)
{
    const QRectF picture(0, 169, 1010, 568);
    EXPECT_EQ(cardFrame({836, 282}, 250, picture, kWindow), QRectF(686, 187, 300, 250));
}

TEST(OnboardingCardFrame, ThatGrowsStaysInTheWindowAndClearOfTheMenuBar)
{
    EXPECT_EQ(cardFrame({862, 162}, 250, QRectF(1030, 275, 350, 48), kWindow).top(), 36);
    EXPECT_EQ(cardFrame({862, 119}, 250, QRectF(1030, 232, 350, 48), kWindow).top(), 24);
    EXPECT_EQ(cardFrame({862, 781}, 250, QRectF(1030, 600, 350, 48), kWindow).bottom(), 900 - 24);
}

}
}
