// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/CompositeGeometry.h"

#include <gtest/gtest.h>
#include <limits>

namespace zumeta {

namespace {

constexpr double kGoproBase = 22;
constexpr double kInsta360Base = 65;
constexpr AspectRatio kWide{16, 9};
constexpr AspectRatio kClassic{4, 3};

VideoCompositionConfig configWithZoom(double zoom)
{
    VideoCompositionConfig config;
    config.aboveZoom = zoom;
    return config;
}

}

TEST(CompositeGeometry, TheCamerasBaseZoomMakesTheScale)
{
    EXPECT_DOUBLE_EQ(exportLayout({1920, 1080}, kWide, configWithZoom(kGoproBase))->scale, 1.22);
    EXPECT_DOUBLE_EQ(exportLayout({1920, 1080}, kWide, configWithZoom(kInsta360Base))->scale, 1.65);
}

TEST(CompositeGeometry, AWaterlineOfThreeHundredLiesAtHalfHeightWithoutZoom)
{
    VideoCompositionConfig config;
    config.waterlineHeight = 300;
    EXPECT_DOUBLE_EQ(exportLayout({1920, 1080}, kWide, config)->waterY, 540);
    EXPECT_DOUBLE_EQ(previewLayout({800, 450}, config)->layout.waterY, 225);
}

TEST(CompositeGeometry, TheBandIsCentredOnTheWaterlineAndZoomed)
{
    VideoCompositionConfig config = configWithZoom(kGoproBase);
    config.waterlineHeight = 250;
    const CompositeLayout layout = *exportLayout({1920, 1080}, kWide, config);
    EXPECT_DOUBLE_EQ(layout.unit, 1.8);
    EXPECT_NEAR(layout.bandTop - layout.bandBottom, 32.94, 1e-9);
    EXPECT_NEAR((layout.bandTop + layout.bandBottom) / 2, layout.waterY, 1e-9);
    EXPECT_NEAR(layout.waterY, 1.22 * 1.8 * 250, 1e-9);
}

TEST(CompositeGeometry, AProjectTallerThanTheRenderSizeLowersTheWaterlineButNotTheOffsets)
{
    VideoCompositionConfig config;
    config.waterlineHeight = 300;
    config.aboveOffset = 10;
    config.aboveHorizontalOffset = -20;
    const CompositeLayout layout = *exportLayout({1920, 1080}, kClassic, config);
    EXPECT_DOUBLE_EQ(layout.contentHeight, 1440);
    EXPECT_DOUBLE_EQ(layout.margin, -180);
    EXPECT_DOUBLE_EQ(layout.waterY, 2.4 * 300 - 180);
    EXPECT_DOUBLE_EQ(layout.above.x, -48);
    EXPECT_DOUBLE_EQ(layout.above.y, 24);
}

TEST(CompositeGeometry, AProjectWiderThanTheRenderSizeLiftsTheWaterline)
{
    VideoCompositionConfig config;
    config.waterlineHeight = 0;
    const CompositeLayout layout = *exportLayout({1440, 1080}, kWide, config);
    EXPECT_DOUBLE_EQ(layout.contentHeight, 810);
    EXPECT_DOUBLE_EQ(layout.waterY, 135);
}

TEST(CompositeGeometry, TheAboveLayerIsCentredThenShiftedInReferenceUnits)
{
    VideoCompositionConfig config = configWithZoom(kGoproBase);
    config.aboveOffset = 30;
    config.aboveHorizontalOffset = -15;
    const Rect above = exportLayout({1920, 1080}, kWide, config)->above;
    EXPECT_NEAR(above.width, 1.22 * 1920, 1e-9);
    EXPECT_NEAR(above.height, 1.22 * 1080, 1e-9);
    EXPECT_NEAR(above.x, -15 * 1.8 - 0.11 * 1920, 1e-9);
    EXPECT_NEAR(above.y, 30 * 1.8 - 0.11 * 1080, 1e-9);
}

TEST(CompositeGeometry, TheOffsetOfTheAbovePictureDoesNotMoveTheWaterline)
{
    VideoCompositionConfig config = configWithZoom(kGoproBase);
    config.waterlineHeight = 200;
    const double line = exportLayout({1920, 1080}, kWide, config)->waterY;
    config.aboveOffset = 77;
    EXPECT_EQ(exportLayout({1920, 1080}, kWide, config)->waterY, line);
}

TEST(CompositeGeometry, OpacityRisesLinearlyInsideTheBand)
{
    VideoCompositionConfig config;
    config.waterlineHeight = 300;
    config.blendAmount = 20;
    const CompositeLayout layout = *exportLayout({1920, 1080}, kWide, config);
    EXPECT_EQ(layout.opacityAt(522 - 0.001), 0);
    EXPECT_NEAR(layout.opacityAt(531), 0.25, 1e-12);
    EXPECT_NEAR(layout.opacityAt(540), 0.5, 1e-12);
    EXPECT_EQ(layout.opacityAt(558.001), 1);
}

TEST(CompositeGeometry, WithoutABandTheEdgeIsHard)
{
    VideoCompositionConfig config;
    config.waterlineHeight = 300;
    config.blendAmount = 0;
    const CompositeLayout layout = *exportLayout({1920, 1080}, kWide, config);
    EXPECT_EQ(layout.opacityAt(539.5), 0);
    EXPECT_EQ(layout.opacityAt(540.5), 1);
}

TEST(CompositeGeometry, AspectFillCoversTheTargetAndIsCentred)
{
    EXPECT_EQ(aspectFill({1920, 1440}, {1920, 1080}), (Placement{1, 0, -180}));
    EXPECT_EQ(aspectFill({3840, 2160}, {1440, 1080}), (Placement{0.5, -240, 0}));
    EXPECT_EQ(aspectFill({1, 1}, {1920, 1080}), (Placement{1920, 0, -420}));
}

TEST(CompositeGeometry, PlacingTheAbovePictureIsFillingItsLayer)
{
    VideoCompositionConfig config = configWithZoom(kInsta360Base);
    config.aboveOffset = -41;
    config.aboveHorizontalOffset = 12;
    const CompositeLayout layout = *exportLayout({1440, 1080}, kWide, config);
    for (const Size source : {Size{1920, 1080}, Size{1920, 1440}, Size{720 * 16.0 / 15, 576}}) {
        const Placement direct = layout.placeAbove(source);
        const Placement inLayer = aspectFill(source, {layout.above.width, layout.above.height});
        EXPECT_NEAR(direct.scale, inLayer.scale, 1e-12);
        EXPECT_NEAR(direct.x, layout.above.x + inLayer.x, 1e-9);
        EXPECT_NEAR(direct.y, layout.above.y + inLayer.y, 1e-9);
    }
}

TEST(CompositeGeometry, AnEmptyPictureHasNoLayout)
{
    EXPECT_FALSE(exportLayout({0, 1080}, kWide, {}));
    EXPECT_FALSE(previewLayout({800, 0}, {}));
    EXPECT_FALSE(previewLayout({-1, 450}, {}));
    EXPECT_FALSE(previewLayout({std::numeric_limits<double>::quiet_NaN(), 450}, {}));
}

TEST(CompositeGeometry, PreviewAndExportAgreeWhereTheShapesAgree)
{
    VideoCompositionConfig config = configWithZoom(kGoproBase);
    config.waterlineHeight = 210;
    config.aboveOffset = 18;
    config.aboveHorizontalOffset = -9;
    const CompositeLayout small = previewLayout({960, 540}, config)->layout;
    const CompositeLayout large = *exportLayout({1920, 1080}, kWide, config);
    EXPECT_EQ(large.margin, 0);
    EXPECT_NEAR(large.waterY, 2 * small.waterY, 1e-9);
    EXPECT_NEAR(large.bandTop, 2 * small.bandTop, 1e-9);
    EXPECT_NEAR(large.above.x, 2 * small.above.x, 1e-9);
    EXPECT_NEAR(large.above.y, 2 * small.above.y, 1e-9);
}

TEST(CompositeGeometry, TheFirstStepShowsTheAbovePictureCentred)
{
    VideoCompositionConfig config = configWithZoom(kGoproBase);
    config.aboveOffset = 18;
    config.aboveHorizontalOffset = -9;
    const Rect above = previewLayout({960, 540}, config, PreviewOffsets::centred)->layout.above;
    EXPECT_NEAR(above.x, (960 - 1.22 * 960) / 2, 1e-9);
    EXPECT_NEAR(above.y, (540 - 1.22 * 540) / 2, 1e-9);
}

TEST(CompositeGeometry, MaskStopsLieWhereTheBandCutsTheLayer)
{
    VideoCompositionConfig config = configWithZoom(kGoproBase);
    config.waterlineHeight = 250;
    config.aboveOffset = 40;
    const PreviewLayout preview = *previewLayout({1920, 1080}, config);
    const double layerHeight = 1.22 * 1080;
    const double layerBottom = 40 * 1.8 - 0.11 * 1080;
    const double local = 1.22 * 1.8 * 250 - layerBottom;
    EXPECT_NEAR(preview.mask.l0, (local - 16.47) / layerHeight, 1e-9);
    EXPECT_NEAR(preview.mask.l1, (local + 16.47) / layerHeight, 1e-9);
}

TEST(CompositeGeometry, MaskStopsNeverLeaveTheLayer)
{
    VideoCompositionConfig config;
    config.waterlineHeight = 900;
    EXPECT_EQ(previewLayout({960, 540}, config)->mask, (MaskStops{1, 1}));
    config.waterlineHeight = -100;
    EXPECT_EQ(previewLayout({960, 540}, config)->mask, (MaskStops{0, 0}));
    config.waterlineHeight = 0;
    config.blendAmount = 60;
    EXPECT_EQ(previewLayout({960, 540}, config)->mask, (MaskStops{0, 0.05}));
}

TEST(CompositeGeometry, ALayerShrunkToNothingIsWhollyTransparent)
{
    EXPECT_EQ(previewLayout({960, 540}, configWithZoom(-100))->mask, (MaskStops{1, 1}));
}

TEST(CompositeGeometry, AClickedWaterlineRunsThroughTheClick)
{
    VideoCompositionConfig config = configWithZoom(kGoproBase);
    config.waterlineHeight = waterlineHeightAt(0.4, config.scaleFactor());
    EXPECT_NEAR(previewLayout({960, 540}, config)->layout.waterY, 0.4 * 540, 1e-9);
    EXPECT_NEAR(heightOfWaterline(config.waterlineHeight, config.scaleFactor()), 0.4, 1e-12);
}

TEST(CompositeGeometry, TheShiftBetweenTwoClicksBringsTheLandmarksTogether)
{
    VideoCompositionConfig config;
    config.aboveOffset = aboveOffsetBetween(0.7, 0.4);
    EXPECT_NEAR(config.aboveOffset, -180, 1e-9);
    EXPECT_NEAR(previewLayout({960, 540}, config)->layout.shiftY, -0.3 * 540, 1e-9);
    EXPECT_NEAR(heightOfAboveOffset(config.aboveOffset), -0.3, 1e-12);
}

TEST(CompositeGeometry, TurningOverTwiceGivesTheSameHeight)
{
    EXPECT_EQ(turnedOver(100, 1080), 980);
    EXPECT_EQ(turnedOver(turnedOver(17.25, 1080), 1080), 17.25);
}

}
