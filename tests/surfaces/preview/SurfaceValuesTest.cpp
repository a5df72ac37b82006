// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/preview/SurfaceValues.h"

#include <gtest/gtest.h>

namespace zumeta {
namespace {

using WorkflowStep = PublishedFields::WorkflowStep;
using ViewMode = PublishedFields::ViewMode;
using AlignmentState = PublishedFields::AlignmentState;

/// Every value another, and none a default.
PreviewFacts distinctFacts(WorkflowStep step)
{
    PreviewFacts facts;
    facts.projectConfig = {.waterlineHeight = 211,
                           .aboveZoom = -7,
                           .aboveOffset = 41,
                           .aboveHorizontalOffset = -13,
                           .timingOffset = 5,
                           .blendAmount = 22,
                           .belowStartTime = 3.5,
                           .aboveStartTime = 8.25};
    facts.projectAspectRatio = {4, 3};
    facts.currentStep = step;
    facts.selectedCamera = CameraType::insta360;
    facts.viewMode = ViewMode::belowOnly;
    facts.alignmentState = AlignmentState::pickingBelow;
    facts.currentTime = 1.75;
    facts.isVideoBlack = {true, false};
    return facts;
}

TEST(SurfaceValues, BeforeTheFirstUpdateTheyAreTheSurfacesOwn)
{
    const SurfaceValues values;
    EXPECT_EQ(values.waterlineHeight, 350);
    EXPECT_EQ(values.aboveZoom, 0);
    EXPECT_EQ(values.aboveOffset, 0);
    EXPECT_EQ(values.aboveHorizontalOffset, 0);
    EXPECT_EQ(values.timingOffset, 0);
    EXPECT_EQ(values.blendAmount, 15);
    EXPECT_EQ(values.viewMode, ViewMode::split);
    EXPECT_EQ(values.alignmentState, AlignmentState::none);
    EXPECT_EQ(values.projectAspectRatio, (AspectRatio{16, 9}));
    EXPECT_EQ(values.currentTime, 0);
    EXPECT_EQ(values.aboveStartTime, 0);
    EXPECT_EQ(values.belowStartTime, 0);
    EXPECT_FALSE(values.isAboveVideoBlack);
    EXPECT_FALSE(values.isBelowVideoBlack);
}

TEST(SurfaceValues, EachIsCopiedFromItsOwn)
{
    const SurfaceValues values = surfaceValues(distinctFacts(WorkflowStep::step3));
    EXPECT_EQ(values.waterlineHeight, 211);
    EXPECT_EQ(values.aboveOffset, 41);
    EXPECT_EQ(values.aboveHorizontalOffset, -13);
    EXPECT_EQ(values.timingOffset, 5);
    EXPECT_EQ(values.blendAmount, 22);
    EXPECT_EQ(values.viewMode, ViewMode::belowOnly);
    EXPECT_EQ(values.alignmentState, AlignmentState::pickingBelow);
    EXPECT_EQ(values.projectAspectRatio, (AspectRatio{4, 3}));
    EXPECT_EQ(values.currentTime, 1.75);
    EXPECT_EQ(values.aboveStartTime, 8.25);
    EXPECT_EQ(values.belowStartTime, 3.5);
    EXPECT_TRUE(values.isAboveVideoBlack);
    EXPECT_FALSE(values.isBelowVideoBlack);
}

TEST(SurfaceValues, EachBlackFlagIsItsOwnSides)
{
    PreviewFacts facts = distinctFacts(WorkflowStep::step3);
    facts.isVideoBlack = {false, true};
    EXPECT_FALSE(surfaceValues(facts).isAboveVideoBlack);
    EXPECT_TRUE(surfaceValues(facts).isBelowVideoBlack);
}

TEST(SurfaceValues, TheZoomIsRaisedByTheCamerasBase)
{
    PreviewFacts facts = distinctFacts(WorkflowStep::step3);
    EXPECT_EQ(surfaceValues(facts).aboveZoom, 58);
    facts.selectedCamera = CameraType::gopro;
    EXPECT_EQ(surfaceValues(facts).aboveZoom, 15);
}

TEST(SurfaceValues, InStepOneTheAbovePictureIsCentredAndFromStepTwoOnItMovesToItsOffset)
{
    const SurfaceValues inStep1 = surfaceValues(distinctFacts(WorkflowStep::step1));
    EXPECT_EQ(inStep1.aboveOffset, 0);
    EXPECT_EQ(inStep1.aboveHorizontalOffset, 0);
    for (const WorkflowStep step : {WorkflowStep::step2, WorkflowStep::step3, WorkflowStep::step4}) {
        EXPECT_EQ(surfaceValues(distinctFacts(step)).aboveOffset, 41) << int(step);
        EXPECT_EQ(surfaceValues(distinctFacts(step)).aboveHorizontalOffset, -13) << int(step);
    }
}

TEST(SurfaceValues, OnlyTheOffsetsDependOnTheStep)
{
    SurfaceValues inStep1 = surfaceValues(distinctFacts(WorkflowStep::step1));
    inStep1.aboveOffset = 41;
    inStep1.aboveHorizontalOffset = -13;
    EXPECT_EQ(inStep1, surfaceValues(distinctFacts(WorkflowStep::step2)));
}

}
}
