// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/preview/PreviewPointer.h"

#include <gtest/gtest.h>

namespace zumeta {
namespace {

using AlignmentState = PublishedFields::AlignmentState;

constexpr AlignmentState kPicks[] = {AlignmentState::pickingAbove, AlignmentState::pickingBelow};

/// A picture of 800 x 450 with 75 of bar above and below it.
PickSurface tallSurface(AlignmentState state = AlignmentState::pickingAbove)
{
    return {{800, 600}, {16, 9}, state};
}

TEST(MouseDown, WithoutAPickIsPassedOn)
{
    EXPECT_EQ(mouseDown(tallSurface(AlignmentState::none), {400, 300}), PressAnswer{.isPassedOn = true});
    EXPECT_EQ(mouseDown(tallSurface(AlignmentState::none), {400, 10}), PressAnswer{.isPassedOn = true});
}

TEST(MouseDown, InAPickGivesTheHeightInThePicture)
{
    for (const AlignmentState state : kPicks) {
        EXPECT_EQ(mouseDown(tallSurface(state), {400, 300}), PressAnswer{.onPickWaterline = 0.5});
        EXPECT_EQ(mouseDown(tallSurface(state), {1, 75 + 112.5}), PressAnswer{.onPickWaterline = 0.25});
    }
}

TEST(MouseDown, ThePicturesEdgesAreZeroAndOne)
{
    EXPECT_EQ(mouseDown(tallSurface(), {0, 75}), PressAnswer{.onPickWaterline = 0});
    EXPECT_EQ(mouseDown(tallSurface(), {800, 525}), PressAnswer{.onPickWaterline = 1});
}

TEST(MouseDown, OutsideThePictureChangesNothingAndReachesNoOtherHandler)
{
    for (const AlignmentState state : kPicks) {
        for (const SurfacePoint point :
             {SurfacePoint{400, 74.5}, SurfacePoint{400, 525.5}, SurfacePoint{-1, 300}, SurfacePoint{801, 300}})
            EXPECT_EQ(mouseDown(tallSurface(state), point), PressAnswer{}) << point.x << ' ' << point.y;
    }
}

TEST(MouseDown, BesideAnUprightPictureIsOutside)
{
    const PickSurface surface{{1000, 600}, {4, 3}, AlignmentState::pickingBelow};
    EXPECT_EQ(mouseDown(surface, {99, 300}), PressAnswer{});
    EXPECT_EQ(mouseDown(surface, {901, 300}), PressAnswer{});
    EXPECT_EQ(mouseDown(surface, {101, 300}), PressAnswer{.onPickWaterline = 0.5});
}

TEST(MouseDown, AnEmptySurfaceHasNoInside)
{
    EXPECT_EQ(mouseDown({{800, 0}, {16, 9}, AlignmentState::pickingAbove}, {0, 0}), PressAnswer{});
}

TEST(MouseDown, AClickInTheItemsCoordinatesIsTurnedOverOnce)
{
    const FittedSurface surface = *fittedSurface({0, 0, 800, 450}, {16, 9}, 1);
    const PickSurface pick{surface.bounds(), surface.shape(), AlignmentState::pickingAbove};
    EXPECT_EQ(mouseDown(pick, surfacePoint({400, 90}, surface.bounds())), PressAnswer{.onPickWaterline = 0.8});
}

TEST(MouseMoved, ReportsTheHeightOnTheSurfaceInsideThePicture)
{
    for (const AlignmentState state : kPicks) {
        EXPECT_DOUBLE_EQ(*mouseMoved(tallSurface(state), {400, 300}), 300);
        EXPECT_DOUBLE_EQ(*mouseMoved(tallSurface(state), {400, 80.5}), 80.5);
    }
}

TEST(MouseMoved, ReportsNothingOutsideThePicture)
{
    EXPECT_EQ(mouseMoved(tallSurface(), {400, 74}), std::nullopt);
    EXPECT_EQ(mouseMoved(tallSurface(), {400, 526}), std::nullopt);
}

TEST(MouseMoved, ReportsNothingWithoutAPick)
{
    EXPECT_EQ(mouseMoved(tallSurface(AlignmentState::none), {400, 300}), std::nullopt);
}

TEST(MouseMoved, ReportsNothingOnAnEmptySurface)
{
    EXPECT_EQ(mouseMoved({{0, 450}, {16, 9}, AlignmentState::pickingAbove}, {0, 0}), std::nullopt);
}

TEST(Crosshair, ShowsWhileAPickIsOpenUnderThePointer)
{
    for (const AlignmentState state : kPicks) {
        EXPECT_TRUE(showsCrosshair(state, true));
        EXPECT_FALSE(showsCrosshair(state, false));
    }
    EXPECT_FALSE(showsCrosshair(AlignmentState::none, true));
    EXPECT_FALSE(showsCrosshair(AlignmentState::none, false));
}

TEST(PickHeights, GoThereAndBack)
{
    const Rect content{0, 75, 800, 450};
    for (const double height : {0.0, 0.25, 0.5, 1.0})
        EXPECT_DOUBLE_EQ(normalizedHeight(hoverHeight(height, content), content), height);
    EXPECT_DOUBLE_EQ(hoverHeight(0.25, content), 187.5);
}

}
}
