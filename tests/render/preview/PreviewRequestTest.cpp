// SPDX-License-Identifier: GPL-3.0-or-later
#include "PreviewSources.h"

#include <gtest/gtest.h>

namespace zumeta::test {

namespace {

PictureFormat formatOf(int width, int height, double pixelAspect = 1)
{
    PictureFormat format;
    format.width = width;
    format.height = height;
    format.pixelAspect = pixelAspect;
    return format;
}

struct Seen {
    bool below = false;
    bool above = false;
    friend bool operator==(const Seen&, const Seen&) = default;
};

Seen seenIn(const PreviewSituation& situation)
{
    const std::optional<PreviewRequest> request = previewRequest(situation);
    return request ? Seen{request->below.has_value(), request->above.has_value()} : Seen{};
}

}

TEST(PreviewSize, FillsASurfaceOfTheProjectsShape)
{
    for (const PixelSize size : {PixelSize{1280, 720}, PixelSize{1920, 1080}, PixelSize{3840, 2160}})
        EXPECT_EQ(pictureSizeOn(size, {16, 9}), size);
    for (const PixelSize size : {PixelSize{1280, 960}, PixelSize{1920, 1440}})
        EXPECT_EQ(pictureSizeOn(size, {4, 3}), size);
}

TEST(PreviewSize, IsFittedIntoASurfaceOfAnotherShape)
{
    EXPECT_EQ(pictureSizeOn({1400, 900}, {16, 9}), (PixelSize{1400, 786}));
    EXPECT_EQ(pictureSizeOn({1400, 600}, {16, 9}), (PixelSize{1066, 600}));
    EXPECT_EQ(pictureSizeOn({1920, 1080}, {4, 3}), (PixelSize{1440, 1080}));
}

TEST(PreviewSize, IsEvenAndNeverPastTheSurface)
{
    EXPECT_EQ(pictureSizeOn({1919, 1079}, {16, 9}), (PixelSize{1918, 1078}));
    EXPECT_EQ(pictureSizeOn({3, 3}, {4, 3}), (PixelSize{2, 2}));
}

TEST(PreviewSize, IsEmptyOnASurfaceWithoutExtent)
{
    EXPECT_TRUE(pictureSizeOn({0, 720}, {16, 9}).isEmpty());
    EXPECT_TRUE(pictureSizeOn({1280, 0}, {16, 9}).isEmpty());
    EXPECT_TRUE(pictureSizeOn({1, 1}, {16, 9}).isEmpty());
}

TEST(PreviewSize, IsNoPixelSmallerAtAnyScaleOfTheScreen)
{
    for (const double ratio : {1.0, 1.1, 1.25, 4.0 / 3, 1.5, 1.75, 2.0}) {
        for (int pixels = 2; pixels < 4000; ++pixels)
            ASSERT_EQ(devicePixels({pixels / ratio, 1 / ratio}, ratio), (PixelSize{pixels, 1})) << ratio;
    }
}

TEST(PreviewSize, IsComposedAsShownWhereASourceIsAsLarge)
{
    const PictureFormat large = formatOf(1920, 1080);
    const PictureFormat small = formatOf(640, 360);
    EXPECT_EQ(composedSize({1400, 786}, &large, &small), (PixelSize{1400, 786}));
    EXPECT_EQ(composedSize({1400, 786}, &small, &large), (PixelSize{1400, 786}));
    EXPECT_EQ(composedSize({1920, 1080}, &large, nullptr), (PixelSize{1920, 1080}));
}

TEST(PreviewSize, IsComposedNoLargerThanTheLargerSource)
{
    const PictureFormat proxy = formatOf(1280, 720);
    const PictureFormat smaller = formatOf(640, 360);
    EXPECT_EQ(composedSize({3840, 2160}, &proxy, &smaller), (PixelSize{1280, 720}));
    EXPECT_EQ(composedSize({1440, 1080}, &proxy, nullptr), (PixelSize{960, 720})) << "a source of another shape is cut";
    const PictureFormat anamorphic = formatOf(960, 1080, 2);
    EXPECT_EQ(composedSize({3840, 2160}, &anamorphic, nullptr), (PixelSize{1920, 1080}));
}

TEST(PreviewSize, IsComposedWithinASourceOfOddSizeToo)
{
    for (int width = 101; width < 400; width += 2) {
        const PictureFormat odd = formatOf(width, 4000);
        EXPECT_LE(composedSize({400, 200}, &odd, nullptr).width, width);
    }
}

TEST(PreviewSize, IsComposedEvenAndNeverPastSurfaceAndSource)
{
    for (int width = 2; width < 400; width += 7) {
        for (int height = 2; height < 300; height += 11) {
            const PixelSize size = composedSize({320, 180}, Size{double(width), double(height)}, std::nullopt);
            ASSERT_EQ(size.width % 2, 0);
            ASSERT_EQ(size.height % 2, 0);
            ASSERT_TRUE(size.width >= 2 && size.height >= 2);
            ASSERT_TRUE(size.width <= std::min(320, width) && size.height <= std::min(180, height))
                << width << " x " << height;
        }
    }
}

TEST(PreviewSize, IsComposedInTheShapeOfTheSurfaceButForAPixel)
{
    for (int width = 20; width < 400; ++width) {
        const PixelSize size = composedSize({320, 180}, std::nullopt, Size{double(width), 1000});
        ASSERT_NEAR(size.width, std::min(320, width), 1) << width;
        ASSERT_NEAR(size.height, std::min(320, width) * 180.0 / 320, 1) << width;
    }
}

TEST(PreviewSize, OfAHiddenSideIsOfNoAccount)
{
    PreviewSituation situation = bothSides();
    situation.above = drawnPicture(Side::above, 7, 640, 360);
    situation.shownSize = {640, 360};
    EXPECT_EQ(previewRequest(situation)->layout.picture, (Size{640, 360}));
    situation.mode = PreviewMode::belowOnly;
    EXPECT_EQ(previewRequest(situation)->layout.picture, (Size{320, 180}));
}

TEST(PreviewRequest, SplitShowsBothSidesUnderTheMask)
{
    const PreviewSituation situation = bothSides();
    EXPECT_EQ(seenIn(situation), (Seen{true, true}));
    const CompositeLayout layout = previewRequest(situation)->layout;
    EXPECT_EQ(layout, previewLayout({320, 180}, situation.values)->layout);
    EXPECT_DOUBLE_EQ(layout.waterY, 90);
}

TEST(PreviewRequest, HiddenSidesAreNotSeenInSplit)
{
    PreviewSituation situation = bothSides();
    situation.isAboveHidden = true;
    EXPECT_EQ(seenIn(situation), (Seen{true, false}));
    situation.isBelowHidden = true;
    EXPECT_EQ(seenIn(situation), (Seen{false, false}));
    situation.isAboveHidden = false;
    EXPECT_EQ(seenIn(situation), (Seen{false, true}));
}

TEST(PreviewRequest, BlackFlagsHaveNoEffectOnASideAlone)
{
    PreviewSituation situation = bothSides();
    situation.isAboveHidden = true;
    situation.isBelowHidden = true;
    situation.mode = PreviewMode::aboveOnly;
    EXPECT_EQ(seenIn(situation), (Seen{false, true}));
    situation.mode = PreviewMode::belowOnly;
    EXPECT_EQ(seenIn(situation), (Seen{true, false}));
}

TEST(PreviewRequest, ASideWithoutPictureIsLeftOutAndTheOtherStays)
{
    PreviewSituation situation = bothSides();
    situation.above.reset();
    EXPECT_EQ(seenIn(situation), (Seen{true, false}));
    situation = bothSides();
    situation.below.reset();
    EXPECT_EQ(seenIn(situation), (Seen{false, true}));
    EXPECT_DOUBLE_EQ(previewRequest(situation)->layout.waterY, 90) << "its mask stays too";
    situation.mode = PreviewMode::belowOnly;
    EXPECT_FALSE(previewRequest(situation)) << "the other side is no substitute";
}

TEST(PreviewRequest, TheAboveSideAloneLiesAsInSplitWithoutAMask)
{
    PreviewSituation situation = bothSides();
    situation.values.aboveOffset = 40;
    situation.values.aboveHorizontalOffset = -25;
    const Rect inSplit = previewRequest(situation)->layout.above;
    situation.mode = PreviewMode::aboveOnly;
    const CompositeLayout alone = previewRequest(situation)->layout;
    EXPECT_EQ(alone.above, inSplit);
    EXPECT_EQ(alone.opacityAt(0.25), 1) << "the lowest site of a sample";
    EXPECT_EQ(alone.opacityAt(179.5), 1);
}

TEST(PreviewRequest, HoldsItsPicturesSoThatNoLaterOneTakesTheirPlace)
{
    PreviewSituation situation = bothSides();
    const std::weak_ptr<const void> above = situation.above->owner;
    const std::optional<PreviewRequest> request = previewRequest(situation);
    situation = {};
    EXPECT_FALSE(above.expired());
}

TEST(PreviewRequest, AnEmptySizeAsksForNothing)
{
    PreviewSituation situation = bothSides();
    situation.shownSize = {320, 0};
    EXPECT_FALSE(previewRequest(situation));
}

TEST(PreviewRequest, TheSamePicturesAndValuesAskForTheSame)
{
    const PreviewSituation situation = bothSides();
    EXPECT_TRUE(asksForTheSame(*previewRequest(situation), *previewRequest(situation)));
}

TEST(PreviewRequest, AnotherPictureValueOrSizeAsksForSomethingElse)
{
    const PreviewSituation situation = bothSides();
    const PreviewRequest request = *previewRequest(situation);
    PreviewSituation other = situation;
    other.above = drawnPicture(Side::above, 7);
    EXPECT_FALSE(asksForTheSame(request, *previewRequest(other))) << "another picture, though of the same content";
    other = situation;
    other.below.reset();
    EXPECT_FALSE(asksForTheSame(request, *previewRequest(other)));
    other = situation;
    other.values.waterlineHeight += 0.1;
    EXPECT_FALSE(asksForTheSame(request, *previewRequest(other)));
    other = situation;
    other.shownSize = {318, 178};
    EXPECT_FALSE(asksForTheSame(request, *previewRequest(other)));
    other = situation;
    other.mode = PreviewMode::aboveOnly;
    EXPECT_FALSE(asksForTheSame(request, *previewRequest(other)));
}

TEST(PreviewRequest, ValuesThatCannotBeSeenChangeNothing)
{
    PreviewSituation situation = bothSides();
    situation.mode = PreviewMode::belowOnly;
    const PreviewRequest below = *previewRequest(situation);
    situation.values.aboveZoom = 80;
    situation.values.waterlineHeight = 12;
    EXPECT_TRUE(asksForTheSame(below, *previewRequest(situation)));
    situation.mode = PreviewMode::aboveOnly;
    const PreviewRequest above = *previewRequest(situation);
    situation.values.waterlineHeight = 400;
    situation.values.blendAmount = 90;
    situation.values.timingOffset = 3;
    situation.values.aboveStartTime = 4;
    situation.values.belowStartTime = 5;
    EXPECT_TRUE(asksForTheSame(above, *previewRequest(situation)));
    situation.values.aboveOffset = 5;
    EXPECT_FALSE(asksForTheSame(above, *previewRequest(situation)));
}

}
