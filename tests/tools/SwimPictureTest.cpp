// SPDX-License-Identifier: GPL-3.0-or-later
#include "AboveScene.h"
#include "BelowScene.h"
#include "PictureConversion.h"

#include <gtest/gtest.h>

namespace zumeta::swim {

namespace {

constexpr int kWidth = 1280;
constexpr int kHeight = 720;

/// One drawing of both views at the landmark for all tests: it takes a moment.
struct Landmark {
    RowPool pool;
    WaterTextures water;
    AboveScene aboveScene{aboveView(kWidth, kHeight), water, pool};
    BelowScene belowScene{belowView(kWidth, kHeight), water, pool};
    Canvas above{kWidth, kHeight};
    Canvas below{kWidth, kHeight};

    Landmark()
    {
        aboveScene.draw(0, above);
        belowScene.draw(0, below);
    }
    static Landmark& get()
    {
        static Landmark landmark;
        return landmark;
    }
};

float luma(Colour c)
{
    return .2126f * c.r + .7152f * c.g + .0722f * c.b;
}

/// Middle of the columns with the cap's orange within the rows, in units of the scene.
float capPosition(const Canvas& canvas, const View& view, float fromY, float toY)
{
    double sum = 0;
    int count = 0;
    for (int y = int(view.row(fromY)); y < int(view.row(toY)); ++y) {
        for (int x = 0; x < canvas.width(); ++x) {
            const Colour c = canvas.row(y)[x];
            if (c.r > .45f && c.g < c.r * .55f && c.b < c.r * .42f) {
                sum += x;
                ++count;
            }
        }
    }
    EXPECT_GT(count, 100);
    return view.x(float(sum / std::max(1, count)), float(cameraPosition(0)));
}

/// Mean brightness at a distance from the water's edge, in units, with its waves taken out.
float brightnessAlongEdge(const Canvas& canvas, const View& view, double swimTime, float fromX, float toX,
                          float distance)
{
    const auto camera = float(cameraPosition(swimTime));
    double sum = 0;
    int count = 0;
    for (float x = fromX; x < toX; x += 1 / view.pixelsPerUnit) {
        const float edge = -waterHeight(x, swimTime);
        sum += double(luma(bilinear(canvas, view.column(x, camera), view.row(edge + distance))));
        ++count;
    }
    return float(sum / count);
}

}

TEST(SwimPicture, TheHeadIsAtTheRopesChangeOfColourInTheAbovePicture)
{
    const Landmark& landmark = Landmark::get();
    // The cap is a little before the middle of the head: it covers no face.
    EXPECT_NEAR(capPosition(landmark.above, landmark.aboveScene.view(), -70, -32), 0, 25);
}

TEST(SwimPicture, TheRopeChangesItsColourAtTheSamePlaceInBothPictures)
{
    const Landmark& landmark = Landmark::get();
    // Before the swimmer comes nothing hides the rope.
    const double early = -4;
    const auto camera = float(cameraPosition(early));
    const auto lastRed = [&](const Canvas& canvas, const View& view, float y) {
        int last = 0;
        for (int x = 0; x < canvas.width(); ++x) {
            const Colour c = canvas.row(int(view.row(y)))[x];
            if (c.r > c.b * 1.5f)
                last = x;
        }
        return view.x(float(last), camera);
    };
    Canvas above(kWidth, kHeight);
    Canvas below(kWidth, kHeight);
    Landmark::get().aboveScene.draw(early, above);
    Landmark::get().belowScene.draw(early, below);
    EXPECT_NEAR(lastRed(above, landmark.aboveScene.view(), -16), 0, 5);
    EXPECT_NEAR(lastRed(below, landmark.belowScene.view(), -8), 0, 5);
}

TEST(SwimPicture, TheSurfaceIsDrawnAtThePrintedHeightBelow)
{
    Landmark& landmark = Landmark::get();
    Canvas canvas(kWidth, kHeight);
    landmark.belowScene.draw(-4, canvas);
    View printed = landmark.belowScene.view();
    printed.surfaceRow = float((1 - printed.surfaceHeight()) * kHeight);
    const auto brightness = [&](float distance) {
        return brightnessAlongEdge(canvas, printed, -4, -1200, -100, distance);
    };
    // The bright line where water meets air stands out of the rope behind it just there.
    const float line = brightness(1);
    EXPECT_GT(line, brightness(-8) + .05f);
    EXPECT_GT(line, brightness(10) + .05f);
}

TEST(SwimPicture, TheSurfaceIsDrawnAtThePrintedHeightAbove)
{
    Landmark& landmark = Landmark::get();
    View printed = landmark.aboveScene.view();
    printed.surfaceRow = float((1 - printed.surfaceHeight()) * kHeight);
    // The white wash runs along the swimmer's dark suit, where it comes out of the water.
    const auto brightness = [&](float distance) {
        return brightnessAlongEdge(landmark.above, printed, 0, -560, -420, distance);
    };
    const float wash = brightness(0);
    EXPECT_GT(wash, brightness(-16) + .1f);
    EXPECT_GT(wash, brightness(22) + .1f);
}

TEST(SwimPicture, AFrameDoesNotDependOnTheFramesBefore)
{
    Landmark& landmark = Landmark::get();
    Canvas again(kWidth, kHeight);
    landmark.aboveScene.draw(.8, again);
    landmark.aboveScene.draw(0, again);
    landmark.belowScene.draw(.8, landmark.below);
    landmark.belowScene.draw(0, landmark.below);
    RowPool alone(1);
    AboveScene other(aboveView(kWidth, kHeight), landmark.water, alone);
    Canvas drawnAlone(kWidth, kHeight);
    other.draw(0, drawnAlone);
    float difference = 0;
    for (int y = 0; y < kHeight; ++y) {
        for (int x = 0; x < kWidth; ++x) {
            difference = std::max(difference, std::abs(luma(again.row(y)[x]) - luma(landmark.above.row(y)[x])));
            difference = std::max(difference, std::abs(luma(drawnAlone.row(y)[x]) - luma(landmark.above.row(y)[x])));
        }
    }
    EXPECT_EQ(difference, 0);
}

TEST(SwimPicture, TheWaterMoves)
{
    Landmark& landmark = Landmark::get();
    Canvas first(kWidth, kHeight);
    Canvas second(kWidth, kHeight);
    landmark.belowScene.draw(-4, first);
    landmark.belowScene.draw(-3.5, second);
    double change = 0;
    for (int y = kHeight * 7 / 8; y < kHeight; ++y) // the light on the floor
        for (int x = 0; x < kWidth; ++x)
            change += double(std::abs(luma(first.row(y)[x]) - luma(second.row(y)[x]))) / (kWidth * double(kHeight) / 8);
    EXPECT_GT(change, .01);
}

TEST(PictureConversion, CodesTheCornersOfTheColourCube)
{
    struct Case {
        Colour colour;
        int y, cb, cr;
    };
    // Limited range, BT.709; computed by hand from its three weights.
    const Case cases[] = {{{0, 0, 0}, 16, 128, 128}, {{1, 1, 1}, 235, 128, 128}, {{1, 0, 0}, 63, 102, 240},
                          {{0, 1, 0}, 173, 42, 26},  {{0, 0, 1}, 32, 240, 118},  {{2, -1, 0}, 63, 102, 240}};
    RowPool pool(1);
    for (const Case& c : cases) {
        const Canvas canvas(16, 8, c.colour);
        const WritablePicture picture = WritablePicture::allocate(16, 8);
        convert(canvas, picture, pool);
        for (int x = 0; x < 16; ++x)
            EXPECT_NEAR(picture.planes[0].data[picture.planes[0].stride * 3 + x], c.y, 1);
        EXPECT_NEAR(picture.planes[1].data[5], c.cb, 1);
        EXPECT_NEAR(picture.planes[2].data[5], c.cr, 1);
    }
}

TEST(PictureConversion, ChromaIsSitedOnTheLeftColumnOfEachPair)
{
    // Red up to and with column 7, then black: the chroma sample at column 8 takes a quarter of red from column 7.
    Canvas canvas(16, 2);
    for (int y = 0; y < 2; ++y)
        for (int x = 0; x < 8; ++x)
            canvas.row(y)[x] = {1, 0, 0};
    const WritablePicture picture = WritablePicture::allocate(16, 2);
    RowPool pool(1);
    convert(canvas, picture, pool);
    EXPECT_NEAR(picture.planes[2].data[3], 240, 1);
    EXPECT_NEAR(picture.planes[2].data[4], 128 + 28, 1);
    EXPECT_NEAR(picture.planes[2].data[5], 128, 1);
}

}
