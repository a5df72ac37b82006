// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/RawPicture.h"
#include "support/Drawing.h"

#include <cmath>
#include <gtest/gtest.h>

namespace zumeta::test {

namespace {

PictureFormat formatOf(int width, int height, int bitDepth, int shiftX, int shiftY)
{
    PictureFormat format;
    format.width = width;
    format.height = height;
    format.bitDepth = bitDepth;
    format.chromaShiftX = shiftX;
    format.chromaShiftY = shiftY;
    return format;
}

}

TEST(RawPicture, HasTheSizeOfARawVideoFrame)
{
    EXPECT_EQ(RawPicture::byteCount(formatOf(320, 180, 8, 1, 1)), 320u * 180u * 3u / 2u);
    EXPECT_EQ(RawPicture::byteCount(formatOf(321, 181, 8, 1, 1)), 321u * 181u + 2u * 161u * 91u);
    EXPECT_EQ(RawPicture::byteCount(formatOf(4, 4, 10, 0, 0)), 4u * 4u * 3u * 2u);
    EXPECT_EQ(RawPicture::byteCount(formatOf(1, 1, 8, 1, 1)), 3u);
}

TEST(RawPicture, ViewShowsTheSamplesThatWereSet)
{
    RawPicture picture(formatOf(5, 3, 10, 1, 1));
    picture.setSample(0, 4, 2, 1023);
    picture.setSample(2, 2, 1, 517);
    const RawPicture copy(picture.view());
    EXPECT_EQ(copy.sample(0, 4, 2), 1023);
    EXPECT_EQ(copy.sample(2, 2, 1), 517);
    EXPECT_EQ(largestDifference(picture, copy), 0);
}

TEST(RawPicture, LumaGoesFromBlackToWhiteInEveryRangeAndDepth)
{
    PictureFormat format = formatOf(2, 1, 8, 0, 0);
    RawPicture limited(format);
    limited.setSample(0, 0, 0, 16);
    limited.setSample(0, 1, 0, 235);
    EXPECT_DOUBLE_EQ(limited.luma(0, 0), 0);
    EXPECT_DOUBLE_EQ(limited.luma(1, 0), 1);
    format.bitDepth = 10;
    RawPicture deep(format);
    deep.setSample(0, 0, 0, 64);
    deep.setSample(0, 1, 0, 940);
    EXPECT_DOUBLE_EQ(deep.luma(0, 0), 0);
    EXPECT_DOUBLE_EQ(deep.luma(1, 0), 1);
}

TEST(PlanePsnr, IsWhatItsDefinitionGives)
{
    RawPicture a(formatOf(4, 4, 8, 1, 1));
    RawPicture b(formatOf(4, 4, 8, 1, 1));
    EXPECT_TRUE(std::isinf(worstPsnr(a, b)));
    b.setSample(0, 1, 1, 4); // mean square 16 / 16 = 1
    EXPECT_NEAR(planePsnr(a, b, 0), 20 * std::log10(255.0), 1e-9);
    EXPECT_TRUE(std::isinf(planePsnr(a, b, 1)));
    b.setSample(1, 0, 0, 255); // one of four samples wrong by all there is
    EXPECT_NEAR(worstPsnr(a, b), 10 * std::log10(4.0), 1e-9);
    EXPECT_EQ(largestDifference(a, b), 255);
}

TEST(PlanePsnr, OfDifferentSizesIsRefused)
{
    EXPECT_THROW(planePsnr(RawPicture(formatOf(4, 4, 8, 1, 1)), RawPicture(formatOf(4, 2, 8, 1, 1)), 0),
                 std::invalid_argument);
}

TEST(Drawing, NeighbouringFramesAndTheTwoSidesAreFarApart)
{
    const PictureFormat format = formatOf(320, 180, 8, 1, 1);
    const RawPicture first = draw({{Side::above, 4}, Scene::texture, false}, format);
    const RawPicture next = draw({{Side::above, 5}, Scene::texture, false}, format);
    const RawPicture other = draw({{Side::below, 4}, Scene::texture, false}, format);
    for (int plane = 0; plane < 3; ++plane) {
        EXPECT_LT(planePsnr(first, next, plane), 26);
        EXPECT_LT(planePsnr(first, other, plane), 20);
    }
}

}
