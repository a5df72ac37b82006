// SPDX-License-Identifier: GPL-3.0-or-later
#include "journeys/desktop/WholeWay.h"

#include "journeys/desktop/RealInput.h"
#include "render/preview/CompositePlayerNSView.h"
#include "support/BarCode.h"
#include "support/MovieProbe.h"
#include "support/ReferenceComposition.h"
#include "surfaces/timeline/TrimmerScale.h"

#include <QFileDialog>
#include <QTest>
#include <QUuid>
#include <cmath>
#include <fstream>

namespace zumeta::test {

namespace {

constexpr double kRate = 30;

/// The frames that a movie shows of either side, by their numbers. A frame that cannot be read is -1.
struct ShownNumbers {
    std::vector<int> above;
    std::vector<int> below;
};

ShownNumbers numbersOf(const std::vector<RawPicture>& frames, const ReferenceSettings& settings)
{
    const PictureFormat source = pictureFormat({});
    ShownNumbers shown;
    for (const RawPicture& frame : frames) {
        const auto above = readBarCode(frame, CodeStrip::upper, abovePlacement(settings, source));
        const auto below = readBarCode(frame, CodeStrip::lower, belowPlacement(settings, source));
        shown.above.push_back(above && above->side == Side::above ? above->number : -1);
        shown.below.push_back(below && below->side == Side::below ? below->number : -1);
    }
    return shown;
}

}

std::vector<std::filesystem::path> WholeWay::aboveChapters()
{
    std::vector<std::filesystem::path> files;
    for (const int chapter : {1, 2}) {
        FootageSpec spec;
        spec.frames = 45;
        spec.firstNumber = (chapter - 1) * 45;
        files.push_back(folder.file("GX0" + std::to_string(chapter) + "0042.MP4"));
        std::filesystem::copy_file(FootageMaker::make(spec), files.back());
    }
    return files;
}

std::filesystem::path WholeWay::belowFile(const char* name)
{
    FootageSpec spec;
    spec.side = Side::below;
    spec.frames = 90;
    spec.firstNumber = 1000;
    spec.encoder = {"-c:v", "libx264", "-preset", "veryfast", "-crf", "30", "-g", "12"};
    const std::filesystem::path file = folder.file(name);
    std::filesystem::copy_file(FootageMaker::make(spec), file);
    const QByteArray space = QByteArrayLiteral("\0\0\0\x18"
                                               "free") +
                             QUuid::createUuid().toRfc4122();
    std::ofstream(file, std::ios::app | std::ios::binary).write(space.data(), space.size());
    return file;
}

void WholeWay::waitForStill(const char* name)
{
    ASSERT_TRUE(waitFor([&] { return item(name) != nullptr; }, 15000)) << name;
    QPoint place;
    ASSERT_TRUE(waitFor([&] {
        QTest::qWait(60);
        return item(name) && std::exchange(place, onScreen(item(name))) == onScreen(item(name));
    })) << name;
}

void WholeWay::clickNamed(const char* name)
{
    ASSERT_NO_FATAL_FAILURE(waitForStill(name));
    clickItem(item(name));
}

void WholeWay::dragPointer(QPoint from, QPoint to)
{
    constexpr int kSteps = 6;
    movePointerTo(from);
    pressButton();
    for (int step = 1; step <= kSteps; ++step)
        movePointerTo(from + (to - from) * step / kSteps);
    releaseButton();
    QTest::qWait(50);
}

QPoint WholeWay::placeIn(const char* name, double x, double y)
{
    return window().mapToGlobal(item(name)->mapToScene({x, y}).toPoint());
}

QPoint WholeWay::onTrimmer(double time, double y)
{
    const TrimmerScale scale{item("trimmer")->width(), session().duration()};
    return placeIn("trimmer", scale.xPosition(time), y);
}

QPoint WholeWay::onPicture(double x, double height)
{
    const auto* const picture = item("previewSurface")->findChild<CompositePlayerNSView*>();
    return window().mapToGlobal(
        picture->mapToScene({x * picture->width(), (1 - height) * picture->height()}).toPoint());
}

void WholeWay::typeText(const QString& text)
{
    realinput::type(text);
    QTest::qWait(50);
}

void WholeWay::typeIntoDialog(const QString& names)
{
    ASSERT_TRUE(waitFor([] { return fileDialog() && fileDialog()->isActiveWindow(); }));
    pressKeys({QStringLiteral("alt+n"), QStringLiteral("ctrl+a")}); // the name's field
    typeText(names);
    pressKeys({QStringLiteral("Return")});
    ASSERT_TRUE(waitFor([] { return fileDialog() == nullptr; }));
}

void WholeWay::tabTo(const char* name)
{
    ASSERT_TRUE(waitFor([&] { return item(name) && window().isActive(); }, 15000)) << name;
    for (int i = 0; i < 60 && !hasFocus(name); ++i)
        pressKeys({QStringLiteral("Tab")});
    ASSERT_TRUE(hasFocus(name)) << name;
}

void WholeWay::tabAndPress(const char* name)
{
    ASSERT_NO_FATAL_FAILURE(tabTo(name));
    pressKeys({QStringLiteral("Return")});
}

void WholeWay::waitForVideo()
{
    ASSERT_TRUE(waitFor(
        [&] {
            return session().duration() > 2.9 && item("simpleSlider") && item("simpleSlider")->isEnabled() &&
                   item("previewSurface") && item("previewSurface")->findChild<CompositePlayerNSView*>();
        },
        15000));
    ASSERT_TRUE(waitFor([&] { return window().isActive(); }));
    QTest::qWait(300); // what a load still does once the video is shown
}

bool WholeWay::waitForStep(int step)
{
    return waitFor([&] { return int(session().currentStep()) == step; });
}

bool WholeWay::waitForToast()
{
    return waitFor([&] { return session().exportNotification() && item("exportToast"); }, 30000);
}

void WholeWay::expectMovie(const std::filesystem::path& movie, double toleranceInFrames)
{
    const VideoCompositionConfig config = session().projectConfig();
    const double length = session().trimEndPosition() - session().trimStart();
    ReferenceSettings settings;
    settings.waterlineHeight = config.waterlineHeight;
    settings.aboveZoom = config.aboveZoom + baseZoom(session().selectedCamera());
    settings.aboveOffset = config.aboveOffset;
    settings.aboveHorizontalOffset = config.aboveHorizontalOffset;
    settings.blendAmount = config.blendAmount;
    PictureFormat format;
    format.width = settings.width;
    format.height = settings.height;
    const ShownNumbers shown = numbersOf(MovieProbe::frames(movie, format), settings);
    ASSERT_FALSE(shown.above.empty());
    // Whole frames only. Where the range ends with a frame, rounding may put it a hair before that end.
    constexpr double kHair = 1e-6;
    const auto count = double(shown.above.size());
    EXPECT_GE(count, std::floor(length * kRate - kHair));
    EXPECT_LE(count, std::floor(length * kRate + kHair));
    const double ahead = config.belowStartTime - config.aboveStartTime - config.timingOffset * 0.01;
    EXPECT_NEAR(shown.above.front(), (session().trimStart() + std::max(-ahead, 0.0)) * kRate, toleranceInFrames);
    EXPECT_NEAR(shown.below.front(), 1000 + (session().trimStart() + std::max(ahead, 0.0)) * kRate, toleranceInFrames);
    for (size_t i = 0; i < shown.above.size(); ++i) {
        EXPECT_EQ(shown.above[i], shown.above[0] + int(i));
        EXPECT_EQ(shown.below[i], shown.below[0] + int(i));
    }
}

}
