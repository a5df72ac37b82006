// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/preview/PictureRequest.h"
#include "render/FrameCompositor.h"

#include <functional>
#include <gtest/gtest.h>
#include <random>

namespace zumeta {
namespace {

using ViewMode = PublishedFields::ViewMode;
using AlignmentState = PublishedFields::AlignmentState;
using Pictures = Sides<std::optional<VideoPicture>>;

constexpr QSize kSurface(640, 360);

VideoPicture picture(int width = 640, int height = 360)
{
    return WritablePicture::allocate(width, height).view();
}

VideoPicture flatPicture(int width, int height, uint8_t value)
{
    const WritablePicture picture = WritablePicture::allocate(width, height);
    for (size_t plane = 0; plane < 3; ++plane) {
        const int shift = plane == 0 ? 0 : 1;
        for (int row = 0; row < height >> shift; ++row)
            std::fill_n(picture.planes[plane].data + row * picture.planes[plane].stride, width >> shift, value);
    }
    return picture.view();
}

SurfaceValues valuesIn(ViewMode viewMode)
{
    SurfaceValues values;
    values.waterlineHeight = 240;
    values.aboveZoom = 22;
    values.aboveOffset = 30;
    values.aboveHorizontalOffset = -20;
    values.viewMode = viewMode;
    return values;
}

struct Change {
    const char* name;
    std::function<void(SurfaceValues&)> apply;
};

const std::vector<Change>& geometryChanges()
{
    static const std::vector<Change> changes{
        {"zoom", [](SurfaceValues& values) { values.aboveZoom += 1; }},
        {"offset", [](SurfaceValues& values) { values.aboveOffset += 1; }},
        {"horizontal offset", [](SurfaceValues& values) { values.aboveHorizontalOffset += 1; }}};
    return changes;
}

const std::vector<Change>& maskChanges()
{
    static const std::vector<Change> changes{{"waterline", [](SurfaceValues& values) { values.waterlineHeight += 1; }},
                                             {"blend", [](SurfaceValues& values) { values.blendAmount += 1; }}};
    return changes;
}

bool isNewPicture(const Change& change, ViewMode viewMode, const Pictures& pictures)
{
    SurfaceValues changed = valuesIn(viewMode);
    change.apply(changed);
    return pictureRequest(kSurface, changed, pictures) != pictureRequest(kSurface, valuesIn(viewMode), pictures);
}

TEST(PictureRequest, TheSameValuesAndPicturesNeedNoNewPicture)
{
    const Pictures pictures{picture(), picture()};
    const auto request = pictureRequest(kSurface, valuesIn(ViewMode::split), pictures);
    ASSERT_TRUE(request);
    EXPECT_EQ(request, pictureRequest(kSurface, valuesIn(ViewMode::split), pictures));
}

TEST(PictureRequest, ANewFrameOfASeenSideIsANewPicture)
{
    const Pictures pictures{picture(), picture()};
    const auto shown = pictureRequest(kSurface, valuesIn(ViewMode::split), pictures);
    EXPECT_NE(pictureRequest(kSurface, valuesIn(ViewMode::split), {picture(), pictures.below}), shown);
    EXPECT_NE(pictureRequest(kSurface, valuesIn(ViewMode::split), {pictures.above, picture()}), shown);
}

TEST(PictureRequest, ANewFrameOfAHiddenSideIsNone)
{
    const Pictures pictures{picture(), picture()};
    EXPECT_EQ(pictureRequest(kSurface, valuesIn(ViewMode::aboveOnly), {pictures.above, picture()}),
              pictureRequest(kSurface, valuesIn(ViewMode::aboveOnly), pictures));
    EXPECT_EQ(pictureRequest(kSurface, valuesIn(ViewMode::belowOnly), {picture(), pictures.below}),
              pictureRequest(kSurface, valuesIn(ViewMode::belowOnly), pictures));
}

TEST(PictureRequest, AFrameThatComesOrGoesIsANewPicture)
{
    const Pictures both{picture(), picture()};
    const auto shown = pictureRequest(kSurface, valuesIn(ViewMode::split), both);
    EXPECT_NE(pictureRequest(kSurface, valuesIn(ViewMode::split), {std::nullopt, both.below}), shown);
    EXPECT_NE(pictureRequest(kSurface, valuesIn(ViewMode::split), {both.above, std::nullopt}), shown);
}

TEST(PictureRequest, HoldsItsFramesSoThatNoLaterOneTakesTheirPlace)
{
    Pictures pictures{picture(), picture()};
    const std::weak_ptr<const void> above = pictures.above->owner;
    const auto request = pictureRequest(kSurface, valuesIn(ViewMode::split), pictures);
    pictures = {};
    EXPECT_FALSE(above.expired());
}

TEST(PictureRequest, EveryValueOfTheCompositeIsANewPictureInSplit)
{
    const Pictures pictures{picture(), picture()};
    for (const Change& change : geometryChanges())
        EXPECT_TRUE(isNewPicture(change, ViewMode::split, pictures)) << change.name;
    for (const Change& change : maskChanges())
        EXPECT_TRUE(isNewPicture(change, ViewMode::split, pictures)) << change.name;
}

TEST(PictureRequest, TheWaterlineIsNoneWhereTheAboveVideoIsAlone)
{
    const Pictures pictures{picture(), picture()};
    for (const Change& change : geometryChanges())
        EXPECT_TRUE(isNewPicture(change, ViewMode::aboveOnly, pictures)) << change.name;
    for (const Change& change : maskChanges())
        EXPECT_FALSE(isNewPicture(change, ViewMode::aboveOnly, pictures)) << change.name;
}

TEST(PictureRequest, NoValueIsANewPictureWhereTheBelowVideoIsAlone)
{
    const Pictures pictures{picture(), picture()};
    for (const Change& change : geometryChanges())
        EXPECT_FALSE(isNewPicture(change, ViewMode::belowOnly, pictures)) << change.name;
    for (const Change& change : maskChanges())
        EXPECT_FALSE(isNewPicture(change, ViewMode::belowOnly, pictures)) << change.name;
}

TEST(PictureRequest, TimesAreNoNewPicture)
{
    const Pictures pictures{picture(), picture()};
    const std::vector<Change> changes{{"timing offset", [](SurfaceValues& values) { values.timingOffset += 1; }},
                                      {"current time", [](SurfaceValues& values) { values.currentTime += 1; }},
                                      {"above start", [](SurfaceValues& values) { values.aboveStartTime += 1; }},
                                      {"below start", [](SurfaceValues& values) { values.belowStartTime += 1; }},
                                      {"pick in the above video", [](SurfaceValues& values) {
                                           values.alignmentState = AlignmentState::pickingAbove;
                                       }}};
    for (const Change& change : changes)
        EXPECT_FALSE(isNewPicture(change, ViewMode::split, pictures)) << change.name;
}

TEST(PictureRequest, WhatHidesASideIsANewPicture)
{
    const Pictures pictures{picture(), picture()};
    const std::vector<Change> changes{
        {"above black", [](SurfaceValues& values) { values.isAboveVideoBlack = true; }},
        {"below black", [](SurfaceValues& values) { values.isBelowVideoBlack = true; }},
        {"pick in the below video",
         [](SurfaceValues& values) { values.alignmentState = AlignmentState::pickingBelow; }},
        {"above alone", [](SurfaceValues& values) { values.viewMode = ViewMode::aboveOnly; }},
        {"below alone", [](SurfaceValues& values) { values.viewMode = ViewMode::belowOnly; }}};
    for (const Change& change : changes)
        EXPECT_TRUE(isNewPicture(change, ViewMode::split, pictures)) << change.name;
}

TEST(PictureRequest, AnotherSizeIsANewPicture)
{
    const Pictures pictures{picture(), picture()};
    EXPECT_NE(pictureRequest({480, 270}, valuesIn(ViewMode::split), pictures),
              pictureRequest(kSurface, valuesIn(ViewMode::split), pictures));
}

TEST(PictureRequest, IsNoneWithNothingToDraw)
{
    const Pictures both{picture(), picture()};
    EXPECT_FALSE(pictureRequest(kSurface, valuesIn(ViewMode::split), {}));
    EXPECT_FALSE(pictureRequest(kSurface, valuesIn(ViewMode::aboveOnly), {std::nullopt, both.below}));
    EXPECT_FALSE(pictureRequest(kSurface, valuesIn(ViewMode::belowOnly), {both.above, std::nullopt}));
    SurfaceValues black = valuesIn(ViewMode::split);
    black.isAboveVideoBlack = true;
    black.isBelowVideoBlack = true;
    EXPECT_FALSE(pictureRequest(kSurface, black, both));
    EXPECT_FALSE(pictureRequest({640, 0}, valuesIn(ViewMode::split), both));
}

TEST(PictureRequest, DrawsTheSidesThatAreSeen)
{
    const Pictures both{picture(), picture()};
    const PictureRequest above = *pictureRequest(kSurface, valuesIn(ViewMode::aboveOnly), both);
    EXPECT_TRUE(above.pictures.above);
    EXPECT_FALSE(above.pictures.below);
    const PictureRequest below = *pictureRequest(kSurface, valuesIn(ViewMode::belowOnly), both);
    EXPECT_FALSE(below.pictures.above);
    EXPECT_TRUE(below.pictures.below);
}

TEST(PictureRequest, TheAboveVideoAloneIsOpaqueAllTheWayDown)
{
    const PictureRequest request = *pictureRequest(kSurface, valuesIn(ViewMode::aboveOnly), {picture(), picture()});
    for (int row = 0; row < kSurface.height(); ++row)
        EXPECT_EQ(request.layout.opacityAt(row + 0.5), 1) << row;
    const CompositeLayout split = pictureRequest(kSurface, valuesIn(ViewMode::split), {picture(), picture()})->layout;
    EXPECT_EQ(request.layout.above, split.above);
    EXPECT_EQ(split.opacityAt(0.5), 0);
}

TEST(PictureRequest, TheAboveVideoAloneIsComposedWithoutATraceOfWhatLiesUnderIt)
{
    const VideoPicture above = flatPicture(640, 360, 90);
    const PictureRequest request = *pictureRequest(kSurface, valuesIn(ViewMode::aboveOnly), {above, std::nullopt});
    const auto composedOver = [&](uint8_t brightness) {
        const WritablePicture result = WritablePicture::allocate(kSurface.width(), kSurface.height());
        FrameCompositor(request.layout).compose(flatPicture(2, 2, brightness), &above, result);
        std::vector<uint8_t> luma;
        for (int row = 0; row < result.height; ++row) {
            const uint8_t* const begin = result.planes[0].data + row * result.planes[0].stride;
            luma.insert(luma.end(), begin, begin + result.width);
        }
        return luma;
    };
    EXPECT_EQ(composedOver(20), std::vector<uint8_t>(640 * 360, 90));
    EXPECT_EQ(composedOver(230), composedOver(20));
}

TEST(PictureRequest, InSplitAtARenderSizeTheLayoutIsTheExports)
{
    std::mt19937 random(20);
    const auto between = [&random](double low, double high) {
        return std::uniform_real_distribution<double>(low, high)(random);
    };
    struct Render {
        QSize size;
        AspectRatio shape;
    };
    const Render renders[] = {{{1280, 720}, {16, 9}},
                              {{1920, 1080}, {16, 9}},
                              {{3840, 2160}, {16, 9}},
                              {{1280, 960}, {4, 3}},
                              {{1920, 1440}, {4, 3}}};
    const Pictures pictures{picture(3840, 2160), picture(1920, 1440)};
    for (const auto& [size, shape] : renders) {
        for (int setting = 0; setting < 20; ++setting) {
            PreviewFacts facts;
            facts.currentStep =
                setting % 2 ? PublishedFields::WorkflowStep::step3 : PublishedFields::WorkflowStep::step4;
            facts.selectedCamera = setting % 3 ? CameraType::gopro : CameraType::insta360;
            facts.projectAspectRatio = shape;
            facts.projectConfig = {.waterlineHeight = between(-50, 650),
                                   .aboveZoom = between(-60, 80),
                                   .aboveOffset = between(-300, 300),
                                   .aboveHorizontalOffset = between(-300, 300),
                                   .blendAmount = setting % 5 ? between(0, 100) : 0};
            VideoCompositionConfig raised = facts.projectConfig;
            raised.aboveZoom += baseZoom(facts.selectedCamera);
            EXPECT_EQ(pictureRequest(size, surfaceValues(facts), pictures)->layout,
                      exportLayout({double(size.width()), double(size.height())}, shape, raised))
                << size.width() << " setting " << setting;
        }
    }
}

TEST(ComposedSize, IsTheSurfacesWhereASourceHasAsMuch)
{
    EXPECT_EQ(composedSize({1920, 1080}, {Size{1920, 1080}, std::nullopt}), QSize(1920, 1080));
    EXPECT_EQ(composedSize({1010, 758}, {Size{3840, 2160}, Size{640, 480}}), QSize(1010, 758));
}

TEST(ComposedSize, IsTheSourcesWhereTheSurfaceHasMore)
{
    EXPECT_EQ(composedSize({3840, 2160}, {Size{1280, 720}, std::nullopt}), QSize(1280, 720));
    EXPECT_EQ(composedSize({3840, 2160}, {std::nullopt, Size{1920, 1080}}), QSize(1920, 1080));
}

TEST(ComposedSize, IsThatOfTheFinerSource)
{
    EXPECT_EQ(composedSize({3840, 2160}, {Size{1280, 720}, Size{2560, 1440}}), QSize(2560, 1440));
    EXPECT_EQ(composedSize({3840, 2160}, {Size{2560, 1440}, Size{1280, 720}}), QSize(2560, 1440));
}

TEST(ComposedSize, CountsOnlyWhatIsSeenOfASourceOfAnotherShape)
{
    EXPECT_EQ(composedSize({3840, 2160}, {Size{1920, 1440}, std::nullopt}), QSize(1920, 1080));
    EXPECT_EQ(composedSize({2560, 1920}, {Size{1280, 720}, std::nullopt}), QSize(960, 720));
}

TEST(ComposedSize, CountsSquarePixels)
{
    VideoPicture wide = picture(720, 576);
    wide.format.pixelAspect = 64.0 / 45;
    const PictureRequest request = *pictureRequest({1920, 1080}, valuesIn(ViewMode::belowOnly), {std::nullopt, wide});
    EXPECT_EQ(request.layout.picture, (Size{1024, 576}));
}

TEST(ComposedSize, OfAHiddenSideIsOfNoAccount)
{
    const Pictures pictures{picture(1280, 720), picture(640, 360)};
    EXPECT_EQ(pictureRequest({1280, 720}, valuesIn(ViewMode::belowOnly), pictures)->layout.picture, (Size{640, 360}));
    EXPECT_EQ(pictureRequest({1280, 720}, valuesIn(ViewMode::split), pictures)->layout.picture, (Size{1280, 720}));
}

TEST(ComposedSize, IsEvenAndNeverAboveSurfaceAndSource)
{
    for (int sourceWidth = 2; sourceWidth < 400; sourceWidth += 7) {
        for (int sourceHeight = 2; sourceHeight < 300; sourceHeight += 11) {
            const QSize size =
                composedSize({320, 180}, {Size{double(sourceWidth), double(sourceHeight)}, std::nullopt});
            ASSERT_EQ(size.width() % 2, 0);
            ASSERT_EQ(size.height() % 2, 0);
            ASSERT_TRUE(size.width() >= 2 && size.height() >= 2);
            ASSERT_TRUE(size.width() <= std::min(320, sourceWidth) && size.height() <= std::min(180, sourceHeight))
                << sourceWidth << " x " << sourceHeight;
        }
    }
}

TEST(ComposedSize, KeepsTheSurfacesShapeButForAPixel)
{
    for (int sourceWidth = 20; sourceWidth < 400; ++sourceWidth) {
        const QSize size = composedSize({320, 180}, {Size{double(sourceWidth), 1000}, std::nullopt});
        ASSERT_NEAR(size.width(), std::min(320, sourceWidth), 1) << sourceWidth;
        ASSERT_NEAR(size.height(), std::min(320, sourceWidth) * 180.0 / 320, 1) << sourceWidth;
    }
}

}
}
