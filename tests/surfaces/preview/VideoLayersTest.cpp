// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/preview/VideoLayers.h"

#include <gtest/gtest.h>

namespace zumeta {
namespace {

using ViewMode = PublishedFields::ViewMode;
using AlignmentState = PublishedFields::AlignmentState;

constexpr Size kBounds{800, 450};
constexpr Sides<bool> kBoth{true, true};

SurfaceValues splitValues()
{
    SurfaceValues values;
    values.waterlineHeight = 240;
    values.aboveZoom = 22;
    values.aboveOffset = 30;
    values.aboveHorizontalOffset = -20;
    return values;
}

SurfaceValues valuesIn(ViewMode viewMode)
{
    SurfaceValues values = splitValues();
    values.viewMode = viewMode;
    return values;
}

void expectNear(Rect actual, Rect expected)
{
    EXPECT_NEAR(actual.x, expected.x, 1e-9);
    EXPECT_NEAR(actual.y, expected.y, 1e-9);
    EXPECT_NEAR(actual.width, expected.width, 1e-9);
    EXPECT_NEAR(actual.height, expected.height, 1e-9);
}

// k = 0.75, s = 1.22.
constexpr Rect kAboveFrame{-20 * 0.75 - 0.11 * 800, 30 * 0.75 - 0.11 * 450, 976, 549};

TEST(VideoLayers, TheBelowLayerFillsTheSurface)
{
    const VideoLayer below = *videoLayers(kBounds, splitValues(), kBoth)->below;
    EXPECT_EQ(below.frame, (Rect{0, 0, 800, 450}));
    EXPECT_EQ(below.mask, std::nullopt);
}

TEST(VideoLayers, TheAboveLayerIsEnlargedAboutTheMiddleAndShifted)
{
    expectNear(videoLayers(kBounds, splitValues(), kBoth)->above->frame, kAboveFrame);
}

TEST(VideoLayers, TheAboveLayerIsMaskedAcrossTheBand)
{
    const MaskStops mask = *videoLayers(kBounds, splitValues(), kBoth)->above->mask;
    const double lineInLayer = 1.22 * 0.75 * 240 - kAboveFrame.y;
    const double half = 1.22 * 0.75 * 15 / 2;
    EXPECT_NEAR(mask.l0, (lineInLayer - half) / 549, 1e-12);
    EXPECT_NEAR(mask.l1, (lineInLayer + half) / 549, 1e-12);
}

TEST(VideoLayers, AWaterlineOverTheAboveLayerLeavesNothingOfIt)
{
    SurfaceValues values = splitValues();
    values.waterlineHeight = 5000;
    EXPECT_EQ(videoLayers(kBounds, values, kBoth)->above->mask, (MaskStops{1, 1}));
}

TEST(VideoLayers, AWaterlineUnderTheAboveLayerLeavesAllOfIt)
{
    SurfaceValues values = splitValues();
    values.waterlineHeight = -5000;
    EXPECT_EQ(videoLayers(kBounds, values, kBoth)->above->mask, (MaskStops{0, 0}));
}

TEST(VideoLayers, TheScaleIsToldForThePick)
{
    EXPECT_DOUBLE_EQ(videoLayers(kBounds, splitValues(), kBoth)->scaleFactor, 1.22);
}

TEST(VideoLayers, WithoutAMaskTheAboveLayerAloneHasTheSameFrame)
{
    const VideoLayer above = *videoLayers(kBounds, valuesIn(ViewMode::aboveOnly), kBoth)->above;
    expectNear(above.frame, kAboveFrame);
    EXPECT_EQ(above.mask, std::nullopt);
}

TEST(VideoLayers, TheBelowLayerAloneFillsTheSurface)
{
    const VideoLayers layers = *videoLayers(kBounds, valuesIn(ViewMode::belowOnly), kBoth);
    EXPECT_EQ(layers.below, (VideoLayer{{0, 0, 800, 450}, false, std::nullopt}));
}

// The whole table: which layers are seen in which view, pick and blackness.
TEST(VideoLayers, AreHiddenByViewPickAndBlackness)
{
    for (const ViewMode viewMode : {ViewMode::split, ViewMode::aboveOnly, ViewMode::belowOnly}) {
        for (const AlignmentState state :
             {AlignmentState::none, AlignmentState::pickingAbove, AlignmentState::pickingBelow}) {
            for (int black = 0; black < 4; ++black) {
                SurfaceValues values = valuesIn(viewMode);
                values.alignmentState = state;
                values.isAboveVideoBlack = (black & 1) != 0;
                values.isBelowVideoBlack = (black & 2) != 0;
                bool seesAbove = viewMode == ViewMode::aboveOnly;
                bool seesBelow = viewMode == ViewMode::belowOnly;
                if (viewMode == ViewMode::split) {
                    seesAbove = (black == 0 || black == 2) && state != AlignmentState::pickingBelow;
                    seesBelow = black == 0 || black == 1;
                }
                const VideoLayers layers = *videoLayers(kBounds, values, kBoth);
                EXPECT_EQ(layers.shows(Side::above), seesAbove) << int(viewMode) << int(state) << black;
                EXPECT_EQ(layers.shows(Side::below), seesBelow) << int(viewMode) << int(state) << black;
            }
        }
    }
}

TEST(VideoLayers, BlacknessHasNoEffectWhereOneVideoIsShownAlone)
{
    SurfaceValues values = valuesIn(ViewMode::aboveOnly);
    values.isAboveVideoBlack = true;
    EXPECT_TRUE(videoLayers(kBounds, values, kBoth)->shows(Side::above));
    values = valuesIn(ViewMode::belowOnly);
    values.isBelowVideoBlack = true;
    EXPECT_TRUE(videoLayers(kBounds, values, kBoth)->shows(Side::below));
}

TEST(VideoLayers, TheAboveLayerIsHiddenWhileTheBelowWaterIsPickedAndComesBack)
{
    SurfaceValues values = splitValues();
    values.alignmentState = AlignmentState::pickingBelow;
    EXPECT_TRUE(videoLayers(kBounds, values, kBoth)->above->isHidden);
    values.alignmentState = AlignmentState::none;
    EXPECT_FALSE(videoLayers(kBounds, values, kBoth)->above->isHidden);
}

TEST(VideoLayers, ASideWithoutAnItemHasNoLayerAndTheOtherStays)
{
    const VideoLayers both = *videoLayers(kBounds, splitValues(), kBoth);
    const VideoLayers belowAlone = *videoLayers(kBounds, splitValues(), {false, true});
    EXPECT_FALSE(belowAlone.above);
    EXPECT_EQ(belowAlone.below, both.below);
    const VideoLayers aboveAlone = *videoLayers(kBounds, splitValues(), {true, false});
    EXPECT_EQ(aboveAlone.above, both.above);
    EXPECT_FALSE(aboveAlone.below);
    EXPECT_FALSE(aboveAlone.shows(Side::below));
}

TEST(VideoLayers, AnEmptySurfaceLaysNothingOut)
{
    EXPECT_FALSE(videoLayers({800, 0}, splitValues(), kBoth));
    EXPECT_FALSE(videoLayers({0, 450}, splitValues(), kBoth));
    EXPECT_FALSE(videoLayers({}, splitValues(), kBoth));
}

TEST(VideoLayers, TimesDoNotMoveThem)
{
    SurfaceValues values = splitValues();
    values.timingOffset = 12;
    values.currentTime = 3;
    values.aboveStartTime = 4;
    values.belowStartTime = 5;
    EXPECT_EQ(videoLayers(kBounds, values, kBoth), videoLayers(kBounds, splitValues(), kBoth));
}

}
}
