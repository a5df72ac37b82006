// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/Watermark.h"

#include <QGuiApplication>
#include <gmock/gmock.h>

namespace zumeta {

namespace {

struct Bounds {
    int left = 1 << 20, top = 1 << 20, right = -1, bottom = -1;
};

template <class Touches> Bounds boundsWhere(const MarkImage& mark, Touches touches)
{
    Bounds bounds;
    for (int y = 0; y < mark.height; ++y) {
        for (int x = 0; x < mark.width; ++x) {
            if (!touches(mark.pixel(x, y)))
                continue;
            bounds.left = std::min(bounds.left, x);
            bounds.right = std::max(bounds.right, x);
            bounds.top = std::min(bounds.top, y);
            bounds.bottom = std::max(bounds.bottom, y);
        }
    }
    return bounds;
}

bool isWhite(const uint8_t* pixel)
{
    return pixel[0] > 150;
}

}

TEST(Watermark, ASizeWithoutAWholePixelHasNoMark)
{
    EXPECT_FALSE(createWatermarkImage({0.4, 1080}));
    EXPECT_FALSE(createWatermarkImage({1920, 0}));
}

TEST(Watermark, StandsInTheLowerRightCorner)
{
    const MarkImage mark = *createWatermarkImage({1920, 1080});
    ASSERT_EQ(mark.width, 1920);
    ASSERT_EQ(mark.height, 1080);
    const Bounds letters = boundsWhere(mark, isWhite);
    // 27 pixels from the edges; the last letter has a little room of its own, and no letter goes below the baseline.
    EXPECT_GE(letters.right, 1920 - 27 - 12);
    EXPECT_LE(letters.right, 1920 - 27);
    EXPECT_LE(letters.bottom, 1080 - 27);
    EXPECT_GE(letters.bottom, 1080 - 27 - 50);
    // A line is 119 high; what hangs below it belongs to the font that stands in for the wanted one.
    EXPECT_GT(letters.top, 1080 - 27 - 119 - 40);
    EXPECT_GT(letters.left, 1920 / 2);
}

TEST(Watermark, LettersAreTranslucentWhite)
{
    const MarkImage mark = *createWatermarkImage({1920, 1080});
    int most = 0;
    for (size_t i = 0; i < mark.rgba.size(); i += 4) {
        ASSERT_LE(mark.rgba[i], mark.rgba[i + 3]) << "colours are premultiplied";
        ASSERT_TRUE(mark.rgba[i] == mark.rgba[i + 1] && mark.rgba[i] == mark.rgba[i + 2]);
        most = std::max(most, int(mark.rgba[i]));
    }
    EXPECT_EQ(most, 158); // 0.62 of 255
}

TEST(Watermark, AShadowReachesPastTheLettersMostlyDownward)
{
    const MarkImage mark = *createWatermarkImage({1920, 1080});
    const Bounds letters = boundsWhere(mark, [](const uint8_t* pixel) { return pixel[0] > 8; });
    const Bounds all = boundsWhere(mark, [](const uint8_t* pixel) { return pixel[3] > 8; });
    EXPECT_GT(all.bottom - letters.bottom, letters.top - all.top);
    EXPECT_GT(letters.left, all.left);
    EXPECT_GT(all.right, letters.right);
}

TEST(Watermark, ScalesWithTheShorterSide)
{
    const Bounds large = boundsWhere(*createWatermarkImage({1920, 1080}), isWhite);
    const Bounds small = boundsWhere(*createWatermarkImage({720, 540}), isWhite);
    EXPECT_NEAR((large.right - large.left) / 2.0, small.right - small.left, 2);
    EXPECT_NEAR((large.bottom - large.top) / 2.0, small.bottom - small.top, 2);
}

}

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");       // the build runs this too, to list the tests
    const QGuiApplication application(argc, argv); // fonts need one
    ::testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
