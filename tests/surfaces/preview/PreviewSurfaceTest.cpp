// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/preview/PreviewSurface.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace zumeta {
namespace {

constexpr AspectRatio kWide{16, 9};
constexpr AspectRatio kClassic{4, 3};
constexpr double kScaleFactors[] = {1, 1.25, 1.5, 2};

bool isWhole(double pixels)
{
    return std::abs(pixels - std::round(pixels)) < 1e-9;
}

TEST(FittedSurface, TakesTheWholeOfAnAreaOfItsShape)
{
    const FittedSurface surface = *fittedSurface({0, 0, 1280, 720}, kWide, 1);
    EXPECT_EQ(surface.frame, QRectF(0, 0, 1280, 720));
    EXPECT_EQ(surface.devicePixels, QSize(1280, 720));
}

TEST(FittedSurface, StandsInTheMiddleOfAWideArea)
{
    EXPECT_EQ(fittedSurface({10, 20, 1000, 450}, kWide, 1)->frame, QRectF(110, 20, 800, 450));
}

TEST(FittedSurface, StandsInTheMiddleOfATallArea)
{
    EXPECT_EQ(fittedSurface({10, 20, 800, 650}, kWide, 1)->frame, QRectF(10, 120, 800, 450));
}

TEST(FittedSurface, HasTheRenderSizesAtEveryScaleFactor)
{
    for (const QSize size : {QSize(1280, 720), QSize(1920, 1080), QSize(3840, 2160)}) {
        for (const double factor : kScaleFactors)
            EXPECT_EQ(fittedSurface({0, 0, size.width() / factor, size.height() / factor}, kWide, factor)->devicePixels,
                      size)
                << factor;
    }
    for (const QSize size : {QSize(1280, 960), QSize(1920, 1440)}) {
        for (const double factor : kScaleFactors)
            EXPECT_EQ(
                fittedSurface({0, 0, size.width() / factor, size.height() / factor}, kClassic, factor)->devicePixels,
                size)
                << factor;
    }
}

/// Every size from tiny to large, at all scale factors, in both shapes.
template <typename Check> void forManyAreas(Check check)
{
    for (const double factor : kScaleFactors) {
        for (const AspectRatio shape : {kWide, kClassic}) {
            for (double width = 2; width < 1400; width += 23.5) {
                for (double height = 2; height < 1000; height += 17.25)
                    check(QRectF(17.5, 41.25, width, height), shape, factor);
            }
        }
    }
}

TEST(FittedSurface, IsMadeOfWholeAndEvenPixels)
{
    forManyAreas([](const QRectF& area, AspectRatio shape, double factor) {
        const std::optional<FittedSurface> surface = fittedSurface(area, shape, factor);
        if (!surface)
            return;
        ASSERT_EQ(surface->devicePixels.width() % 2, 0);
        ASSERT_EQ(surface->devicePixels.height() % 2, 0);
        ASSERT_TRUE(isWhole(surface->frame.left() * factor));
        ASSERT_TRUE(isWhole(surface->frame.top() * factor));
        ASSERT_NEAR(surface->frame.width() * factor, surface->devicePixels.width(), 1e-9);
        ASSERT_NEAR(surface->frame.height() * factor, surface->devicePixels.height(), 1e-9);
    });
}

TEST(FittedSurface, StaysInItsAreaAndFillsItOneWay)
{
    forManyAreas([](const QRectF& area, AspectRatio shape, double factor) {
        const std::optional<FittedSurface> surface = fittedSurface(area, shape, factor);
        if (!surface)
            return;
        const QRectF frame = surface->frame;
        ASSERT_TRUE(frame.left() >= area.left() - 1e-9 && frame.right() <= area.right() + 1e-9);
        ASSERT_TRUE(frame.top() >= area.top() - 1e-9 && frame.bottom() <= area.bottom() + 1e-9);
        const double freeWidth = (area.width() - frame.width()) * factor;
        const double freeHeight = (area.height() - frame.height()) * factor;
        ASSERT_LT(std::min(freeWidth, freeHeight), 3) << "lost to whole and even pixels alone";
    });
}

TEST(FittedSurface, HasTheProjectsShapeButForLessThanTwoPixels)
{
    forManyAreas([](const QRectF& area, AspectRatio shape, double factor) {
        const std::optional<FittedSurface> surface = fittedSurface(area, shape, factor);
        if (!surface)
            return;
        const double width = surface->devicePixels.width();
        const double height = surface->devicePixels.height();
        ASSERT_LT(std::min(std::abs(width - height * shape.ratio()), std::abs(height - width / shape.ratio())), 2);
    });
}

TEST(FittedSurface, AnAreaOnDevicePixelsLosesNoneToRounding)
{
    for (const double factor : {1.0, 1.1, 1.25, 1.5, 1.75, 2.0}) {
        for (int pixel = 0; pixel < 2000; ++pixel) {
            const QRectF area(pixel / factor, pixel / factor, 320 / factor, 180 / factor);
            const FittedSurface surface = *fittedSurface(area, kWide, factor);
            ASSERT_EQ(surface.devicePixels, QSize(320, 180)) << factor << ' ' << pixel;
            ASSERT_NEAR(surface.frame.left() * factor, pixel, 1e-6) << factor;
            ASSERT_NEAR(surface.frame.top() * factor, pixel, 1e-6) << factor;
        }
    }
}

TEST(FittedSurface, IsInTheMiddleToThePixel)
{
    forManyAreas([](const QRectF& area, AspectRatio shape, double factor) {
        const std::optional<FittedSurface> surface = fittedSurface(area, shape, factor);
        if (!surface)
            return;
        const QRectF frame = surface->frame;
        ASSERT_LT(std::abs((frame.left() - area.left()) - (area.right() - frame.right())) * factor, 2.5);
        ASSERT_LT(std::abs((frame.top() - area.top()) - (area.bottom() - frame.bottom())) * factor, 2.5);
    });
}

TEST(FittedSurface, ThePictureIsAllOfIt)
{
    forManyAreas([](const QRectF& area, AspectRatio shape, double factor) {
        const std::optional<FittedSurface> surface = fittedSurface(area, shape, factor);
        if (!surface)
            return;
        const Rect content = calculateVideoContentRect(surface->bounds(), surface->shape());
        ASSERT_NEAR(content.x, 0, 1e-9);
        ASSERT_NEAR(content.y, 0, 1e-9);
        ASSERT_NEAR(content.width, surface->frame.width(), 1e-9);
        ASSERT_NEAR(content.height, surface->frame.height(), 1e-9);
    });
}

TEST(FittedSurface, ThereIsNoneWithoutRoom)
{
    EXPECT_FALSE(fittedSurface({}, kWide, 1));
    EXPECT_FALSE(fittedSurface({0, 0, 1, 500}, kWide, 1));
    EXPECT_FALSE(fittedSurface({0, 0, 500, 1.9}, kWide, 1));
    EXPECT_FALSE(fittedSurface({0, 0, -20, 500}, kWide, 1));
    EXPECT_EQ(fittedSurface({0, 0, 2, 2}, kWide, 1)->devicePixels, QSize(2, 2));
}

TEST(ContentRect, AnEmptySurfaceHasNone)
{
    EXPECT_EQ(calculateVideoContentRect({0, 450}, kWide), Rect{});
    EXPECT_EQ(calculateVideoContentRect({800, 0}, kWide), Rect{});
    EXPECT_EQ(calculateVideoContentRect({-800, 450}, kWide), Rect{});
    EXPECT_EQ(calculateVideoContentRect({std::numeric_limits<double>::quiet_NaN(), 450}, kWide), Rect{});
}

TEST(ContentRect, ATallSurfaceHasItAcrossItsMiddle)
{
    EXPECT_EQ(calculateVideoContentRect({800, 600}, kWide), (Rect{0, 75, 800, 450}));
}

TEST(ContentRect, AWideSurfaceHasItUprightInItsMiddle)
{
    EXPECT_EQ(calculateVideoContentRect({1000, 600}, kClassic), (Rect{100, 0, 800, 600}));
}

TEST(ContentRect, ASurfaceOfTheProjectsShapeIsAllPicture)
{
    EXPECT_EQ(calculateVideoContentRect({1600, 900}, kWide), (Rect{0, 0, 1600, 900}));
    EXPECT_EQ(calculateVideoContentRect({1024, 768}, kClassic), (Rect{0, 0, 1024, 768}));
}

TEST(SurfacePoint, CountsFromTheBottomLeft)
{
    EXPECT_EQ(surfacePoint({30, 0}, {800, 450}), (SurfacePoint{30, 450}));
    EXPECT_EQ(surfacePoint({30, 440}, {800, 450}), (SurfacePoint{30, 10}));
}

TEST(SurfacePoint, AHeightComesBackToTheItemsY)
{
    for (const double y : {0.0, 12.5, 449.0, 450.0})
        EXPECT_EQ(itemY(surfacePoint({0, y}, {800, 450}).y, {800, 450}), y);
}

}
}
