// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/VideoCompositionConfig.h"
#include "session/FrameRateFamily.h"
#include "session/PictureShape.h"
#include "session/ShuttleRate.h"
#include "session/WaterlinePick.h"

#include <gtest/gtest.h>
#include <limits>
#include <numbers>

namespace zumeta {
namespace {

TEST(FrameRateFamily, ExactThirtyAndTwentyFourAreNtsc)
{
    for (const double rate : {23.976, 24.0, 29.97, 30.0, 29.88, 59.94, 60.0, 119.88, 120.0, 240.0, 47.952, 48.0})
        EXPECT_EQ(getFrameRateFamily(rate), FrameRateFamily::ntsc) << rate;
}

TEST(FrameRateFamily, IntegerIsJustAboveTheNominalRates)
{
    for (const double rate : {24.09, 30.09, 60.18})
        EXPECT_EQ(getFrameRateFamily(rate), FrameRateFamily::integer) << rate;
}

TEST(FrameRateFamily, HighRatesFoldDown)
{
    for (const double rate : {25.0, 24.95, 50.0, 100.0})
        EXPECT_EQ(getFrameRateFamily(rate), FrameRateFamily::pal) << rate;
}

TEST(FrameRateFamily, OddRatesAreUnknown)
{
    for (const double rate : {0.0, -30.0, 15.0, 27.0, 35.0, 70.0, 31.0, std::numeric_limits<double>::infinity()})
        EXPECT_EQ(getFrameRateFamily(rate), FrameRateFamily::unknown) << rate;
}

TEST(FrameRateFamily, TheToleranceIsStrict)
{
    EXPECT_EQ(getFrameRateFamily(25.1), FrameRateFamily::unknown);
    EXPECT_EQ(getFrameRateFamily(25.0999), FrameRateFamily::pal);
}

TEST(FrameRateFamily, IsCalledAsItsCase)
{
    EXPECT_EQ(rawValue(FrameRateFamily::ntsc), QStringLiteral("ntsc"));
    EXPECT_EQ(rawValue(FrameRateFamily::integer), QStringLiteral("integer"));
    EXPECT_EQ(rawValue(FrameRateFamily::pal), QStringLiteral("pal"));
    EXPECT_EQ(rawValue(FrameRateFamily::unknown), QStringLiteral("unknown"));
}

PreferredTransform turnedBy(double angle)
{
    return {std::cos(angle), std::sin(angle), -std::sin(angle), std::cos(angle)};
}

VideoTrack trackOf(double width, double height, double angle)
{
    VideoTrack track;
    track.naturalWidth = width;
    track.naturalHeight = height;
    track.preferredTransform = turnedBy(angle);
    return track;
}

constexpr double kPi = std::numbers::pi;

TEST(PictureShape, AQuarterTurnEitherWayExchangesTheSides)
{
    EXPECT_EQ(displaySize(trackOf(1920, 1080, kPi / 2)), (Size{1080, 1920}));
    EXPECT_EQ(displaySize(trackOf(1920, 1080, -kPi / 2)), (Size{1080, 1920}));
    EXPECT_EQ(aspectRatio(trackOf(1920, 1080, kPi / 2)), 0.5625);
}

TEST(PictureShape, UprightAndHeadDownKeepTheSides)
{
    EXPECT_EQ(displaySize(trackOf(1920, 1080, 0)), (Size{1920, 1080}));
    EXPECT_EQ(displaySize(trackOf(1920, 1080, kPi)), (Size{1920, 1080}));
}

TEST(PictureShape, TheBoundsOfTheRotationAreUpright)
{
    EXPECT_FALSE(isRotated({1, 1, -1, 1}));
    EXPECT_FALSE(isRotated({-1, 1, -1, -1}));
    EXPECT_TRUE(isRotated({1, 1.001, -1.001, 1}));
}

TEST(PictureShape, WithoutAHeightThereIsNoRatio)
{
    EXPECT_EQ(aspectRatio(trackOf(1920, 0, 0)), std::nullopt);
    EXPECT_EQ(aspectRatio(trackOf(0, 1080, kPi / 2)), std::nullopt);
    EXPECT_EQ(aspectRatio(trackOf(1920, -1, 0)), std::nullopt);
}

TEST(ShuttleRate, FasterDoublesUpToThirtyTwo)
{
    EXPECT_EQ(fasterRate(1), 2);
    EXPECT_EQ(fasterRate(0.5), 1);
    EXPECT_EQ(fasterRate(16), 32);
    EXPECT_EQ(fasterRate(32), 32);
    EXPECT_EQ(fasterRate(24), 32);
}

TEST(ShuttleRate, FasterTurnsBackwardPlayIntoNormalPlay)
{
    EXPECT_EQ(fasterRate(-4), 1);
    EXPECT_EQ(fasterRate(0), 1);
}

TEST(ShuttleRate, SlowerMirrorsFaster)
{
    EXPECT_EQ(slowerRate(0), -1);
    EXPECT_EQ(slowerRate(4), -1);
    EXPECT_EQ(slowerRate(-1), -2);
    EXPECT_EQ(slowerRate(-32), -32);
}

TEST(WaterlinePick, BothClicksGiveTheShiftAndTheWaterline)
{
    AlignmentPoints points;
    VideoCompositionConfig config;
    pickWaterline(Side::above, 0.4, points, config, CameraType::gopro);
    EXPECT_EQ(config, VideoCompositionConfig());
    pickWaterline(Side::below, 0.6, points, config, CameraType::gopro);
    EXPECT_NEAR(config.aboveOffset, 120, 1e-9);
    EXPECT_NEAR(config.waterlineHeight, 295.0819672131, 1e-9);
}

TEST(WaterlinePick, TheClickOnTheAbovePictureNeverMovesTheWaterline)
{
    AlignmentPoints points;
    VideoCompositionConfig config;
    config.waterlineHeight = 77;
    pickWaterline(Side::below, 0.6, points, config, CameraType::gopro);
    EXPECT_EQ(config.aboveOffset, 0);
    EXPECT_EQ(config.waterlineHeight, 77);
    pickWaterline(Side::above, 0.4, points, config, CameraType::gopro);
    EXPECT_NEAR(config.aboveOffset, 120, 1e-9);
    EXPECT_EQ(config.waterlineHeight, 77);
}

TEST(WaterlinePick, TheScaleHoldsTheZoomAndTheCamera)
{
    VideoCompositionConfig config;
    config.aboveZoom = 13;
    EXPECT_DOUBLE_EQ(aboveScale(config, CameraType::insta360), 1.78);
    AlignmentPoints points{0.5, {}};
    pickWaterline(Side::below, 0.5, points, config, CameraType::insta360);
    EXPECT_DOUBLE_EQ(config.waterlineHeight, 300 / 1.78);
}

}
}
