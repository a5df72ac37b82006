// SPDX-License-Identifier: GPL-3.0-or-later
#include "ShownPreview.h"
#include "render/preview/PreviewCompositor.h"

#include <QGuiApplication>
#include <QTimer>
#include <gmock/gmock.h>

namespace zumeta::test {

namespace {

using ViewMode = CompositePlayerNSView::ViewMode;
using AlignmentState = CompositePlayerNSView::AlignmentState;

/// What an export of the window's size makes of the moment, for the screen.
QImage exportedPicture(ShownPreview& preview)
{
    VideoCompositionConfig values;
    values.waterlineHeight = preview.surface.waterlineHeight();
    values.aboveZoom = preview.surface.aboveZoom();
    values.aboveOffset = preview.surface.aboveOffset();
    values.aboveHorizontalOffset = preview.surface.aboveHorizontalOffset();
    values.blendAmount = preview.surface.blendAmount();
    const CompositeLayout layout = exportLayout({ShownPreview::kWidth, ShownPreview::kHeight}, {16, 9}, values).value();
    const VideoPicture below = preview.below.shownPicture(0).value().picture;
    const VideoPicture above = preview.above.shownPicture(0).value().picture;
    const WritablePicture frame = WritablePicture::allocate(ShownPreview::kWidth, ShownPreview::kHeight);
    FrameCompositor(layout).compose(below, &above, frame);
    WorkerPool workers(1);
    ScreenPicturePool pool;
    const ScreenPicture picture = pool.take(frame.width, frame.height);
    ScreenConversion().convert(frame, picture, workers);
    return QImage(reinterpret_cast<const uchar*>(picture.row(0)), picture.width, picture.height, picture.width * 4,
                  QImage::Format_RGB32)
        .copy();
}

/// A player's last news may come after it has its picture.
bool showsTheExport(ShownPreview& preview)
{
    return preview.waitUntil([&] { return preview.grab() == exportedPicture(preview); });
}

/// Frames of the display from a setter to the screen. The thread sanitizer makes composing ten times slower.
#ifdef __SANITIZE_THREAD__
constexpr int kMostFrames = 8;
#else
constexpr int kMostFrames = 2;
#endif

bool isBackdrop(QRgb pixel)
{
    const QRgb backdrop = kPreviewBackdrop;
    return std::abs(qRed(pixel) - qRed(backdrop)) <= 1 && std::abs(qGreen(pixel) - qGreen(backdrop)) <= 1 &&
           std::abs(qBlue(pixel) - qBlue(backdrop)) <= 1;
}

}

TEST(PreviewSurface, HasTheFieldsValuesThatHoldUntilTheFirstUpdate)
{
    const CompositePlayerNSView surface;
    EXPECT_EQ(surface.waterlineHeight(), 350);
    EXPECT_EQ(surface.aboveZoom(), 0);
    EXPECT_EQ(surface.blendAmount(), 15);
    EXPECT_EQ(surface.viewMode(), ViewMode::split);
    EXPECT_EQ(surface.alignmentState(), AlignmentState::none);
    EXPECT_EQ(surface.projectAspectRatio(), QSizeF(16, 9));
    EXPECT_EQ(surface.lastScaleFactor(), 1);
}

TEST(PreviewSurface, ShowsBothSidesOfOneMoment)
{
    ShownPreview preview;
    ASSERT_TRUE(preview.waitForCodes({0, 0}));
    preview.seek(41);
    EXPECT_TRUE(preview.waitForCodes({41, 41}));
}

TEST(PreviewSurface, IsTheExportsPictureToTheBit)
{
    ShownPreview preview;
    preview.surface.setAboveOffset(12.5);
    preview.surface.setAboveHorizontalOffset(-31.3);
    preview.surface.setBlendAmount(44);
    preview.seek(25);
    ASSERT_TRUE(preview.settle());
    EXPECT_TRUE(showsTheExport(preview));
}

TEST(PreviewSurface, ANewValueIsOnTheScreenWithinTwoFrames)
{
    ShownPreview preview;
    ASSERT_TRUE(preview.settle());
    // Something else in the window is animated: a frame for each of a display's.
    QTimer display;
    display.setTimerType(Qt::PreciseTimer);
    QObject::connect(&display, &QTimer::timeout, [&] { preview.window.update(); });
    display.start(16);
    std::vector<int> frames;
    for (int i = 0; i < 30; ++i) {
        const int shown = preview.picturesShown;
        const int swaps = preview.swaps;
        preview.surface.setWaterlineHeight(200 + i);
        ASSERT_TRUE(preview.waitUntil([&] { return preview.picturesShown != shown; }));
        frames.push_back(preview.swaps - swaps);
    }
    // A machine that is busy with other work may miss one.
    std::sort(frames.begin(), frames.end());
    EXPECT_GE(frames.front(), 1);
    EXPECT_LE(frames[frames.size() * 9 / 10], kMostFrames);
}

TEST(PreviewSurface, ManyNewValuesInOneTurnAreOnePicture)
{
    ShownPreview preview;
    ASSERT_TRUE(preview.settle());
    const uint64_t asked = preview.surface.picturesAskedFor();
    for (int i = 0; i < 10; ++i) {
        preview.surface.setAboveOffset(i + 1);
        preview.surface.setAboveZoom(30 + i);
    }
    ASSERT_TRUE(preview.settle());
    EXPECT_EQ(preview.surface.picturesAskedFor(), asked + 1);
    EXPECT_TRUE(showsTheExport(preview));
}

TEST(PreviewSurface, DrawsNothingWhileNothingChanges)
{
    ShownPreview preview;
    ASSERT_TRUE(preview.settle());
    const int swaps = preview.swaps;
    ASSERT_GT(swaps, 0);
    const uint64_t asked = preview.surface.picturesAskedFor();
    preview.surface.setCurrentTime(3);
    preview.surface.setTimingOffset(12);
    preview.surface.setAboveStartTime(1);
    preview.surface.setBelowStartTime(2);
    preview.surface.updatePlayers(&preview.above, &preview.below);
    preview.letPass(std::chrono::milliseconds(400));
    EXPECT_EQ(preview.swaps, swaps);
    EXPECT_EQ(preview.surface.picturesAskedFor(), asked);
}

TEST(PreviewSurface, FollowsTheSidesWhileTheyPlayAndStopsWhereTheyStop)
{
    ShownPreview preview;
    ASSERT_TRUE(preview.waitForCodes({0, 0}));
    const int shown = preview.picturesShown;
    preview.above.play();
    preview.below.play();
    ASSERT_TRUE(preview.waitUntil([&] { return preview.above.currentTime().seconds() > 1.2; }));
    preview.above.pause();
    preview.below.pause();
    EXPECT_GT(preview.picturesShown - shown, 12) << "of 36 that were due";
    ASSERT_TRUE(preview.settle());
    const int frame = int(preview.above.currentTime().seconds() * 30 + 1e-3);
    EXPECT_TRUE(preview.waitForCodes({frame, frame}));
    const int swaps = preview.swaps;
    preview.letPass(std::chrono::milliseconds(300));
    EXPECT_EQ(preview.swaps, swaps) << "it still draws";
}

TEST(PreviewSurface, MakesNoPicturesOfPlayingSidesWhileItCannotBeSeen)
{
    ShownPreview preview;
    ASSERT_TRUE(preview.settle());
    preview.above.play();
    preview.below.play();
    const auto expectRest = [&] {
        preview.letPass(std::chrono::milliseconds(50)); // one may be in the making
        const uint64_t asked = preview.surface.picturesAskedFor();
        preview.letPass(std::chrono::milliseconds(150));
        EXPECT_EQ(preview.surface.picturesAskedFor(), asked);
    };
    const auto expectPictures = [&] {
        const uint64_t asked = preview.surface.picturesAskedFor();
        EXPECT_TRUE(preview.waitUntil([&] { return preview.surface.picturesAskedFor() > asked + 1; }));
    };
    expectPictures();
    preview.surface.setVisible(false);
    expectRest();
    preview.surface.setVisible(true);
    expectPictures();
    preview.window.hide();
    expectRest();
    preview.window.show();
    expectPictures();
}

TEST(PreviewSurface, TheAboveSideIsHiddenWhileThePickIsInTheBelowOne)
{
    ShownPreview preview;
    ASSERT_TRUE(preview.waitForCodes({0, 0}));
    preview.surface.setAlignmentState(AlignmentState::pickingBelow);
    EXPECT_TRUE(preview.waitForCodes({std::nullopt, 0}));
    preview.surface.setAlignmentState(AlignmentState::none);
    EXPECT_TRUE(preview.waitForCodes({0, 0}));
    preview.surface.setAlignmentState(AlignmentState::pickingAbove);
    ASSERT_TRUE(preview.settle());
    EXPECT_EQ(preview.codes(), (ShownCodes{0, 0}));
}

TEST(PreviewSurface, BlackSidesAreHiddenInSplitAlone)
{
    ShownPreview preview;
    ASSERT_TRUE(preview.waitForCodes({0, 0}));
    preview.surface.setAboveVideoBlack(true);
    EXPECT_TRUE(preview.waitForCodes({std::nullopt, 0}));
    preview.surface.setBelowVideoBlack(true);
    EXPECT_TRUE(preview.waitUntil([&] { return isBackdrop(preview.grab().pixel(150, 100)); }));
    EXPECT_TRUE(isBackdrop(preview.grab().pixel(150, 10)));
    preview.surface.setViewMode(ViewMode::aboveOnly);
    EXPECT_TRUE(preview.waitForCodes({0, std::nullopt}));
    preview.surface.setViewMode(ViewMode::belowOnly);
    EXPECT_TRUE(preview.waitForCodes({std::nullopt, 0}));
}

TEST(PreviewSurface, ASideWithoutPlayerIsGoneAndTheOtherStays)
{
    ShownPreview preview;
    ASSERT_TRUE(preview.waitForCodes({0, 0}));
    preview.updatePlayers(false, true);
    EXPECT_TRUE(preview.waitForCodes({std::nullopt, 0}));
    preview.updatePlayers(true, false);
    EXPECT_TRUE(preview.waitForCodes({0, std::nullopt}));
    EXPECT_TRUE(isBackdrop(preview.grab().pixel(160, 170)));
    preview.updatePlayers(false, false);
    EXPECT_TRUE(preview.waitForCodes({std::nullopt, std::nullopt}));
    EXPECT_TRUE(isBackdrop(preview.grab().pixel(160, 10)));
}

TEST(PreviewSurface, WithoutExtentTheOldLayoutStands)
{
    ShownPreview preview;
    ASSERT_TRUE(preview.settle());
    EXPECT_DOUBLE_EQ(preview.surface.lastScaleFactor(), 1.22);
    const uint64_t asked = preview.surface.picturesAskedFor();
    preview.surface.setHeight(0);
    preview.surface.setAboveZoom(65);
    ASSERT_TRUE(preview.settle());
    EXPECT_DOUBLE_EQ(preview.surface.lastScaleFactor(), 1.22);
    EXPECT_EQ(preview.surface.picturesAskedFor(), asked);
    preview.surface.setHeight(ShownPreview::kHeight);
    EXPECT_DOUBLE_EQ(preview.surface.lastScaleFactor(), 1.65);
}

TEST(PreviewSurface, StandsInTheMiddleOfASurfaceOfAnotherShape)
{
    ShownPreview preview;
    ASSERT_TRUE(preview.waitForCodes({0, 0}));
    preview.window.resize(320, 240);
    preview.surface.setSize({320, 240});
    ASSERT_TRUE(preview.settle());
    const QImage shown = preview.grab();
    ASSERT_EQ(shown.size(), QSize(320, 240));
    EXPECT_TRUE(isBackdrop(shown.pixel(5, 29)));
    EXPECT_TRUE(isBackdrop(shown.pixel(5, 210)));
    EXPECT_EQ(shown.copy(0, 30, 320, 180), exportedPicture(preview));
}

TEST(PreviewSurface, ShowsItsPictureWhereItStandsInTheWindow)
{
    ShownPreview preview;
    QQuickItem area(preview.window.contentItem());
    area.setPosition({20, 50});
    preview.surface.setParentItem(&area);
    preview.surface.setPosition({4, 6});
    preview.window.resize(400, 300);
    ASSERT_TRUE(preview.settle());
    EXPECT_EQ(preview.grab().copy(24, 56, 320, 180), exportedPicture(preview));
    EXPECT_EQ(preview.grab().pixel(10, 10), QColor(Qt::magenta).rgb());
    preview.surface.setParentItem(preview.window.contentItem());
}

TEST(PreviewSurface, IsEnlargedByTheWindowWhereTheSourcesAreSmaller)
{
    ShownPreview preview;
    ASSERT_TRUE(preview.waitForCodes({0, 0}));
    preview.window.resize(480, 270);
    preview.surface.setSize({480, 270});
    ASSERT_TRUE(preview.settle());
    const QImage shown = preview.grab();
    EXPECT_EQ(ShownPreview::codesIn(shown), (ShownCodes{0, 0}));
    EXPECT_FALSE(isBackdrop(shown.pixel(475, 265)));
}

TEST(PreviewSurface, ShowsItsPictureAgainInANewSceneGraph)
{
    ShownPreview preview;
    ASSERT_TRUE(preview.waitForCodes({0, 0}));
    preview.window.hide();
    preview.window.releaseResources();
    preview.window.show();
    EXPECT_TRUE(preview.waitForCodes({0, 0}));
}

TEST(PreviewSurface, GoesWhileItsPicturesAreInTheMaking)
{
    for (int i = 0; i < 5; ++i) {
        ShownPreview preview;
        ASSERT_TRUE(preview.waitUntil([&] { return preview.surface.picturesAskedFor() > 0; }));
        preview.surface.setAboveOffset(i + 1);
        preview.above.play();
        preview.letPass(std::chrono::milliseconds(20 + i));
    }
}

}

int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen"); // the build runs this too, to list the tests
    const QGuiApplication application(argc, argv);
    if (QGuiApplication::platformName() == QLatin1String("offscreen"))
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    ::testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
