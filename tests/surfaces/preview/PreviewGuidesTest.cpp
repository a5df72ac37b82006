// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/preview/PreviewGuides.h"
#include "languages/Translations.h"
#include "surfaces/preview/PreviewPointer.h"

#include <gtest/gtest.h>

namespace zumeta {
namespace {

using WorkflowStep = PublishedFields::WorkflowStep;

constexpr AspectRatio kWide{16, 9};
constexpr WorkflowStep kAllSteps[] = {WorkflowStep::step1, WorkflowStep::step2, WorkflowStep::step3,
                                      WorkflowStep::step4};

bool isSideStep(WorkflowStep step)
{
    return step == WorkflowStep::step1 || step == WorkflowStep::step2;
}

AlignmentFacts factsIn(WorkflowStep step)
{
    return {.currentStep = step, .overlay = {800, 450}, .projectAspectRatio = kWide};
}

TEST(FixedPoint, IsTheOneOfTheStepsOwnVideo)
{
    const AlignmentPoints points{0.25, 0.75};
    EXPECT_EQ(getFixedNormalizedPoint(WorkflowStep::step1, points), 0.25);
    EXPECT_EQ(getFixedNormalizedPoint(WorkflowStep::step2, points), 0.75);
    EXPECT_EQ(getFixedNormalizedPoint(WorkflowStep::step3, points), std::nullopt);
    EXPECT_EQ(getFixedNormalizedPoint(WorkflowStep::step4, points), std::nullopt);
    EXPECT_EQ(getFixedNormalizedPoint(WorkflowStep::step1, {std::nullopt, 0.75}), std::nullopt);
}

TEST(NormalizedToScreenY, InATallOverlayStaysOnThePicture)
{
    EXPECT_DOUBLE_EQ(normalizedToScreenY(0, {800, 600}, kWide), 75);
    EXPECT_DOUBLE_EQ(normalizedToScreenY(0.5, {800, 600}, kWide), 300);
    EXPECT_DOUBLE_EQ(normalizedToScreenY(1, {800, 600}, kWide), 525);
}

TEST(NormalizedToScreenY, InAWideOverlayIsAFractionOfItsHeight)
{
    EXPECT_DOUBLE_EQ(normalizedToScreenY(0.25, {2000, 600}, kWide), 150);
}

TEST(NormalizedToScreenY, InAnOverlayOfTheSameShapeIsAFractionOfItsHeight)
{
    EXPECT_DOUBLE_EQ(normalizedToScreenY(0.25, {1600, 900}, kWide), 225);
}

TEST(AlignmentLines, ThereIsNoneWithoutPointAndPointer)
{
    for (const WorkflowStep step : kAllSteps)
        EXPECT_TRUE(alignmentLines(factsIn(step)).empty()) << int(step);
}

TEST(AlignmentLines, AFixedPointIsTurnedOverIntoALine)
{
    AlignmentFacts facts = factsIn(WorkflowStep::step1);
    facts.alignmentPoints.above = 0.8;
    EXPECT_EQ(alignmentLines(facts), (std::vector<AlignmentLine>{{90, true}}));
}

TEST(AlignmentLines, ThePointerHasALineOfItsOwn)
{
    AlignmentFacts facts = factsIn(WorkflowStep::step2);
    facts.alignmentPoints.below = 0.5;
    facts.hoverY = 50;
    EXPECT_EQ(alignmentLines(facts), (std::vector<AlignmentLine>{{225, true}, {400, false}}));
}

TEST(AlignmentLines, ThePointerHasALineWithoutAFixedPoint)
{
    AlignmentFacts facts = factsIn(WorkflowStep::step1);
    facts.hoverY = 50;
    EXPECT_EQ(alignmentLines(facts), (std::vector<AlignmentLine>{{400, false}}));
}

TEST(AlignmentLines, RightAfterTheClickTheTwoAreOne)
{
    for (int y = 0; y <= 450; ++y) {
        const PickSurface surface{{800, 450}, kWide, PublishedFields::AlignmentState::pickingAbove};
        const SurfacePoint pointer{400, double(y)};
        AlignmentFacts facts = factsIn(WorkflowStep::step1);
        facts.alignmentPoints.above = mouseDown(surface, pointer).onPickWaterline;
        facts.hoverY = mouseMoved(surface, pointer);
        EXPECT_EQ(alignmentLines(facts).size(), 1U) << y;
    }
}

TEST(AlignmentLines, HalfAPixelOfAFineDisplayAwayTheyAreTwo)
{
    AlignmentFacts facts = factsIn(WorkflowStep::step1);
    facts.alignmentPoints.above = 0.5;
    for (const double hoverY : {224.5, 224.75, 225.25, 225.5}) {
        facts.hoverY = hoverY;
        EXPECT_EQ(alignmentLines(facts).size(), 2U) << hoverY;
    }
}

TEST(AlignmentLines, WhatNoDisplayCanShowApartIsOne)
{
    AlignmentFacts facts = factsIn(WorkflowStep::step1);
    facts.alignmentPoints.above = 0.5;
    for (const double hoverY : {224.9, 224.9999999, 225.0, 225.0000001, 225.1}) {
        facts.hoverY = hoverY;
        EXPECT_EQ(alignmentLines(facts).size(), 1U) << hoverY;
    }
}

TEST(AlignmentLines, DoNotAppearInStepsThreeAndFour)
{
    for (const WorkflowStep step : {WorkflowStep::step3, WorkflowStep::step4}) {
        AlignmentFacts facts = factsIn(step);
        facts.alignmentPoints = {0.3, 0.6};
        facts.hoverY = 50;
        EXPECT_TRUE(alignmentLines(facts).empty()) << int(step);
    }
}

TEST(AlignmentLines, InATallOverlayStayOnThePicture)
{
    AlignmentFacts facts = factsIn(WorkflowStep::step1);
    facts.overlay = {800, 600};
    facts.alignmentPoints.above = 1;
    EXPECT_EQ(alignmentLines(facts), (std::vector<AlignmentLine>{{75, true}}));
}

TEST(AlignmentLines, AreLabelledWithTheirVideo)
{
    const Translations& texts = Translations::compiled();
    EXPECT_EQ(texts.text(alignmentLabelKey(WorkflowStep::step1), AppLanguage::english), QStringLiteral("Above"));
    EXPECT_EQ(texts.text(alignmentLabelKey(WorkflowStep::step2), AppLanguage::english), QStringLiteral("Below"));
    EXPECT_TRUE(texts.data.contains(QStringLiteral("Above")) && texts.data.contains(QStringLiteral("Below")));
    EXPECT_TRUE(alignmentLabelKey(WorkflowStep::step3).isEmpty());
    EXPECT_TRUE(alignmentLabelKey(WorkflowStep::step4).isEmpty());
}

TEST(AlignmentLines, HaveTheirMeasures)
{
    EXPECT_EQ(kAlignmentBandHeight, 8);
    EXPECT_EQ(kAlignmentBandOpacity, 0.3);
    EXPECT_EQ(kAlignmentLineHeight, 2);
    EXPECT_EQ(kAlignmentLabelOpacity, 0.8);
}

TEST(WaterlineIndicator, StandsWhereTheZoomedWaterlineIs)
{
    SurfaceValues values;
    values.waterlineHeight = 200;
    values.aboveZoom = 22;
    EXPECT_DOUBLE_EQ(waterlineIndicatorY({800, 450}, values), 450 - 1.22 * 0.75 * 200);
}

TEST(WaterlineIndicator, StaysWhereTheAbovePictureMoves)
{
    SurfaceValues values;
    const double before = waterlineIndicatorY({800, 450}, values);
    values.aboveOffset = 120;
    values.aboveHorizontalOffset = 40;
    EXPECT_EQ(waterlineIndicatorY({800, 450}, values), before);
}

TEST(WaterlineIndicator, RunsThroughTheClickOnTheBelowVideo)
{
    VideoCompositionConfig config;
    AlignmentPoints points{0.4, std::nullopt};
    pickWaterline(Side::below, 0.7, points, config, CameraType::insta360);
    PreviewFacts facts;
    facts.projectConfig = config;
    facts.selectedCamera = CameraType::insta360;
    EXPECT_NEAR(waterlineIndicatorY({800, 450}, surfaceValues(facts)), 450 - 0.7 * 450, 1e-9);
}

TEST(VerticalGuideLine, IsLockedByTheSyncPointOfTheStepsOwnVideo)
{
    for (int locked = 0; locked < 4; ++locked) {
        Sides<std::optional<double>> times;
        if (locked & 1)
            times.above = 0;
        if (locked & 2)
            times.below = 4.5;
        EXPECT_EQ(verticalGuideLineLocked(WorkflowStep::step1, times), (locked & 1) != 0) << locked;
        EXPECT_EQ(verticalGuideLineLocked(WorkflowStep::step2, times), (locked & 2) != 0) << locked;
        EXPECT_FALSE(verticalGuideLineLocked(WorkflowStep::step3, times)) << locked;
        EXPECT_FALSE(verticalGuideLineLocked(WorkflowStep::step4, times)) << locked;
    }
}

TEST(VerticalGuideLine, AtRestIsThinAndWithoutABand)
{
    const VerticalGuideLook look = verticalGuideLook(false, false);
    EXPECT_FALSE(look.isActive);
    EXPECT_FALSE(look.hasLockBadge);
    EXPECT_EQ(look.lineWidth, 1);
    EXPECT_EQ(look.lineOpacity, 0.8);
    EXPECT_EQ(look.bandOpacity, 0);
}

TEST(VerticalGuideLine, IsActiveWhileTheTimelineIsDraggedOrTheSideIsLocked)
{
    for (const bool isDragging : {false, true}) {
        for (const bool isLocked : {false, true}) {
            if (!isDragging && !isLocked)
                continue;
            const VerticalGuideLook look = verticalGuideLook(isDragging, isLocked);
            EXPECT_TRUE(look.isActive);
            EXPECT_EQ(look.lineWidth, 2);
            EXPECT_EQ(look.lineOpacity, 1);
            EXPECT_EQ(look.bandOpacity, 0.28);
            EXPECT_EQ(look.hasLockBadge, isLocked);
        }
    }
    EXPECT_EQ(kVerticalGuideBandWidth, 8);
}

TEST(VerticalGuideLine, StandsInTheMiddle)
{
    EXPECT_EQ(verticalGuideX({801, 450}), 400.5);
}

TEST(PreviewGuides, FollowTheTwoFirstStepsAlone)
{
    for (const WorkflowStep step : kAllSteps)
        EXPECT_EQ(!alignmentLabelKey(step).isEmpty(), isSideStep(step)) << int(step);
}

}
}
