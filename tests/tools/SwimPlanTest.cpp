// SPDX-License-Identifier: GPL-3.0-or-later
#include "SwimPlan.h"
#include "View.h"

#include <gtest/gtest.h>

namespace zumeta::swim {

namespace {

constexpr FrameRate kRates[] = {{30000, 1001}, {60000, 1001}, {24000, 1001}, {25, 1}, {30, 1}, {60, 1}, {120, 1}};

}

TEST(SwimPlan, TheHeadPassesTheRopesChangeOfColourAtTheLandmarkFrames)
{
    for (const FrameRate rate : kRates) {
        const SwimPlan plan = SwimPlan::make(rate, 12);
        EXPECT_NEAR(headPosition(plan.aboveSwimTime(plan.aboveLandmarkFrame)), 0, 1e-9);
        EXPECT_NEAR(headPosition(plan.belowSwimTime(plan.belowLandmarkFrame)), 0, 1e-9);
        EXPECT_LT(headPosition(plan.aboveSwimTime(plan.aboveLandmarkFrame - 1)), -1);
        EXPECT_GT(headPosition(plan.aboveSwimTime(plan.aboveLandmarkFrame + 1)), 1);
    }
}

TEST(SwimPlan, TheBelowCameraStartsEarlierByWholeFrames)
{
    for (const FrameRate rate : kRates) {
        const SwimPlan plan = SwimPlan::make(rate, 12);
        const int earlier = plan.belowLandmarkFrame - plan.aboveLandmarkFrame;
        EXPECT_NEAR(plan.secondsOf(earlier), 2.5, .05);
        EXPECT_DOUBLE_EQ(plan.aboveSwimTime(200), plan.belowSwimTime(200 + earlier));
        EXPECT_EQ(plan.belowFrames - plan.aboveFrames, earlier);
    }
}

TEST(SwimPlan, TheFirstChaptersSoundEndsWithItsPictureToTheSample)
{
    for (const FrameRate rate : kRates) {
        const SwimPlan plan = SwimPlan::make(rate, 12);
        EXPECT_EQ(int64_t(plan.firstChapterFrames) * rate.denominator * kSampleRate % rate.numerator, 0);
        EXPECT_NEAR(plan.secondsOf(plan.firstChapterFrames), 6, .2);
    }
}

TEST(SwimPlan, AShortSwimStillHoldsTheBeepTheLandmarkAndTwoChapters)
{
    const SwimPlan plan = SwimPlan::make({30000, 1001}, 1);
    EXPECT_GT(plan.beepAboveTime(), 0);
    EXPECT_LT(plan.beepAboveTime(), plan.secondsOf(plan.aboveLandmarkFrame));
    EXPECT_LT(plan.aboveLandmarkFrame, plan.aboveFrames);
    EXPECT_GT(plan.firstChapterFrames, 0);
    EXPECT_LT(plan.firstChapterFrames, plan.aboveFrames);
}

TEST(SwimPlan, TheSwimmerOnlyGoesForwardAndComesIntoThePictureFromTheLeft)
{
    EXPECT_LT(headPosition(-4.4) - cameraPosition(-4.4), -double(kViewWidth) * kCameraZoom / 2);
    for (double t = -5; t < 60; t += .01) {
        EXPECT_GT(headPosition(t + .01), headPosition(t));
        EXPECT_GE(cameraPosition(t + .01), cameraPosition(t));
    }
}

TEST(SwimPlan, TheSwimmerStaysInThePictureUntilTheEndOfALongSwim)
{
    for (double t = 0; t < 600; t += .05)
        EXPECT_LT(headPosition(t) - cameraPosition(t), 640) << t;
}

TEST(SwimPlan, TheCamerasTrolleyNeverJerks)
{
    const double step = .01;
    for (double t = -3; t < 10; t += step) {
        const double before = cameraPosition(t) - cameraPosition(t - step);
        const double after = cameraPosition(t + step) - cameraPosition(t);
        EXPECT_LT(std::abs(after - before), .1) << t; // units within a hundredth of a second
    }
}

TEST(View, BothPicturesShowTheSamePlaceInTheSameColumnOnceTheAboveOneIsEnlarged)
{
    for (const int height : {720, 960}) {
        const View above = aboveView(1280, height);
        const View below = belowView(1280, height);
        for (const float x : {-900.f, -100.f, 0.f, 333.f, 900.f}) {
            const double shown = 640 + (double(above.column(x, 50)) - 640) * kCameraZoom;
            EXPECT_NEAR(shown, double(below.column(x, 50)), .001);
        }
    }
}

TEST(View, ThePrintedHeightsBringTheSurfacesOfBothPicturesTogether)
{
    for (const int height : {720, 960}) {
        const View above = aboveView(1280, height);
        const View below = belowView(1280, height);
        // The program's own rules for heights that are picked in the two pictures, for a picture this high.
        const double offset = (below.surfaceHeight() - shownHeight(above.surfaceHeight())) * 600;
        const double waterline = below.surfaceHeight() * 600 / kCameraZoom;
        const double k = height / 600.0;
        const double lineFromBottom = kCameraZoom * k * waterline;
        const double aboveLayerBottom = k * offset + (height - kCameraZoom * height) / 2;
        const double aboveSurface = aboveLayerBottom + above.surfaceHeight() * kCameraZoom * height;
        EXPECT_NEAR(lineFromBottom, height - double(below.surfaceRow), .01);
        EXPECT_NEAR(aboveSurface, lineFromBottom, .01);
    }
}

TEST(View, TheSurfacesStandAtDifferentHeights)
{
    EXPECT_NEAR(shownHeight(aboveView(1280, 720).surfaceHeight()), .45, 1e-6);
    EXPECT_NEAR(belowView(1280, 720).surfaceHeight(), .54, 1e-6);
}

}
