// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/ReferenceComposition.h"
#include "support/Drawing.h"

#include <gtest/gtest.h>

namespace zumeta::test {

namespace {

PictureFormat formatOf(int width, int height)
{
    PictureFormat format;
    format.width = width;
    format.height = height;
    return format;
}

ReferenceSettings plainSettings()
{
    ReferenceSettings settings;
    settings.width = 320;
    settings.height = 180;
    settings.aboveZoom = 0;
    settings.blendAmount = 0;
    return settings;
}

RawPicture filled(const PictureFormat& format, int y, int cb, int cr)
{
    RawPicture picture(format);
    const int values[] = {y, cb, cr};
    for (int plane = 0; plane < 3; ++plane) {
        for (int row = 0; row < picture.planeHeight(plane); ++row) {
            for (int column = 0; column < picture.planeWidth(plane); ++column)
                picture.setSample(plane, column, row, values[plane]);
        }
    }
    return picture;
}

}

TEST(ReferenceComposition, OfAPictureOfTheCompositesOwnSizeIsThatPicture)
{
    const RawPicture below = draw({{Side::below, 3}, Scene::texture, false}, formatOf(320, 180));
    EXPECT_EQ(largestDifference(referenceComposite(plainSettings(), nullptr, below), below), 0);
}

TEST(ReferenceComposition, PutsTheAbovePictureOverTheWaterline)
{
    const RawPicture above = filled(formatOf(320, 180), 200, 100, 150);
    const RawPicture below = filled(formatOf(320, 180), 50, 140, 120);
    const RawPicture result = referenceComposite(plainSettings(), &above, below);
    EXPECT_EQ(result.sample(0, 10, 89), 200);
    EXPECT_EQ(result.sample(0, 10, 90), 50);
    EXPECT_EQ(result.sample(1, 10, 44), 100);
    EXPECT_EQ(result.sample(1, 10, 45), 140);
    EXPECT_EQ(result.sample(2, 10, 44), 150);
}

TEST(ReferenceComposition, RampsLinearlyThroughTheBand)
{
    ReferenceSettings settings = plainSettings();
    settings.blendAmount = 100; // 30 rows around the middle
    const RawPicture above = filled(formatOf(320, 180), 216, 128, 128);
    const RawPicture below = filled(formatOf(320, 180), 16, 128, 128);
    const RawPicture result = referenceComposite(settings, &above, below);
    for (int row = 75; row < 105; ++row)
        EXPECT_NEAR(result.sample(0, 0, row), 16 + 200 * (105 - row - 0.5) / 30, 0.51) << row;
    EXPECT_EQ(result.sample(0, 0, 74), 216);
    EXPECT_EQ(result.sample(0, 0, 105), 16);
}

TEST(ReferenceComposition, ShowsTheBelowPictureWhereAMovedAboveOneDoesNotReach)
{
    ReferenceSettings settings = plainSettings();
    settings.waterlineHeight = -100;
    settings.aboveHorizontalOffset = 100; // 30 pixels at k = 0.3
    settings.aboveOffset = -100;
    const RawPicture above = filled(formatOf(320, 180), 200, 128, 128);
    const RawPicture below = filled(formatOf(320, 180), 50, 128, 128);
    const RawPicture result = referenceComposite(settings, &above, below);
    EXPECT_EQ(result.sample(0, 29, 100), 50);
    EXPECT_EQ(result.sample(0, 30, 100), 200);
    EXPECT_EQ(result.sample(0, 100, 29), 50);
    EXPECT_EQ(result.sample(0, 100, 30), 200);
}

TEST(ReferenceComposition, FillsACompositeOfAnotherShape)
{
    ReferenceSettings settings = plainSettings();
    settings.width = 240;
    const Placement placement = belowPlacement(settings, formatOf(640, 360));
    EXPECT_DOUBLE_EQ(placement.left, -40);
    EXPECT_DOUBLE_EQ(placement.top, 0);
    EXPECT_DOUBLE_EQ(placement.width, 320);
    EXPECT_DOUBLE_EQ(placement.height, 180);
}

TEST(ReferenceComposition, KeepsGreysAndColoursThroughMatrixAndRange)
{
    PictureFormat full = formatOf(320, 180);
    full.range = ColourRange::full;
    full.matrix = ColourMatrix::bt601;
    const RawPicture white = filled(full, 255, 128, 128);
    EXPECT_EQ(referenceComposite(plainSettings(), nullptr, white).sample(0, 5, 5), 235);
    // Pure red: BT.601 full range (76, 85, 255) is BT.709 limited range (63, 102, 240).
    const RawPicture result = referenceComposite(plainSettings(), nullptr, filled(full, 76, 85, 255));
    EXPECT_NEAR(result.sample(0, 5, 5), 63, 1);
    EXPECT_NEAR(result.sample(1, 5, 5), 102, 1);
    EXPECT_NEAR(result.sample(2, 5, 5), 240, 1);
}

TEST(ReferenceComposition, BandFollowsTheExportsMargin)
{
    ReferenceSettings settings;
    settings.width = 1920;
    settings.height = 1080;
    settings.aspectWidth = 4;
    settings.aspectHeight = 3;
    settings.aboveZoom = 0;
    settings.blendAmount = 10;
    const ReferenceBand band = bandOf(settings); // content 1440 high, k 2.4, margin -180
    EXPECT_DOUBLE_EQ(band.bottom, 2.4 * 300 - 180 - 12);
    EXPECT_DOUBLE_EQ(band.top, 2.4 * 300 - 180 + 12);
}

}
