// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/BarCode.h"
#include "support/Drawing.h"
#include "support/ReferenceComposition.h"

#include <gtest/gtest.h>

namespace zumeta::test {

namespace {

PictureFormat small()
{
    PictureFormat format;
    format.width = 320;
    format.height = 180;
    return format;
}

}

TEST(BarCode, ComesBackFromBothStripsOfADrawnPicture)
{
    for (const int number : {0, 1, 2, 29, 4095, 8192, 16383}) {
        for (const Side side : {Side::above, Side::below, Side::other}) {
            const RawPicture picture = draw({{side, number}, Scene::texture, false}, small());
            EXPECT_EQ(readBarCode(picture, CodeStrip::upper), (BarCode{side, number}));
            EXPECT_EQ(readBarCode(picture, CodeStrip::lower), (BarCode{side, number}));
        }
    }
}

TEST(BarCode, IsNotFoundInAPictureWithoutOne)
{
    RawPicture grey(small());
    std::fill(grey.bytes().begin(), grey.bytes().end(), uint8_t(128));
    EXPECT_FALSE(readBarCode(grey));
    std::fill(grey.bytes().begin(), grey.bytes().end(), uint8_t(16));
    EXPECT_FALSE(readBarCode(grey));
    std::fill(grey.bytes().begin(), grey.bytes().end(), uint8_t(235));
    EXPECT_FALSE(readBarCode(grey));
}

TEST(BarCode, OneFlippedBlockIsNoticed)
{
    const RawPicture drawn = draw({{Side::above, 77}, Scene::plain, false}, small());
    for (int column = 0; column < 10; ++column) {
        RawPicture damaged(drawn.view());
        const int left = int((0.20 + 0.06 * column) * 320);
        const int top = int(0.22 * 180);
        const int before = damaged.sample(0, left + 9, top + 5);
        for (int y = top - 1; y < top + 11; ++y) {
            for (int x = left - 1; x < left + 20; ++x)
                damaged.setSample(0, x, y, before > 128 ? 30 : 220);
        }
        EXPECT_NE(readBarCode(damaged), (BarCode{Side::above, 77})) << column;
    }
}

TEST(BarCode, IsReadInEachPartOfACompositeWithBothCamerasZooms)
{
    const RawPicture above = draw({{Side::above, 1234}, Scene::texture, false}, small());
    const RawPicture below = draw({{Side::below, 431}, Scene::texture, false}, small());
    for (const double zoom : {0.0, 22.0, 65.0}) {
        ReferenceSettings settings;
        settings.aboveZoom = zoom;
        settings.waterlineHeight = 300 / (1 + zoom / 100);
        const RawPicture composite = referenceComposite(settings, &above, below);
        EXPECT_EQ(readBarCode(composite, CodeStrip::upper, abovePlacement(settings, small())),
                  (BarCode{Side::above, 1234}));
        EXPECT_EQ(readBarCode(composite, CodeStrip::lower, belowPlacement(settings, small())),
                  (BarCode{Side::below, 431}));
    }
}

TEST(BarCode, IsReadInBothShapesOfComposite)
{
    PictureFormat tall = small();
    tall.width = 240;
    const RawPicture above = draw({{Side::above, 9}, Scene::texture, false}, small());
    const RawPicture below = draw({{Side::below, 10}, Scene::texture, false}, tall);
    ReferenceSettings settings;
    settings.width = 960;
    settings.aspectWidth = 4;
    settings.aspectHeight = 3;
    settings.waterlineHeight = 300 / 1.22;
    const RawPicture composite = referenceComposite(settings, &above, below);
    EXPECT_EQ(readBarCode(composite, CodeStrip::upper, abovePlacement(settings, small())), (BarCode{Side::above, 9}));
    EXPECT_EQ(readBarCode(composite, CodeStrip::lower, belowPlacement(settings, tall)), (BarCode{Side::below, 10}));
}

}
