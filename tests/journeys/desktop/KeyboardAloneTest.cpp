// SPDX-License-Identifier: GPL-3.0-or-later
#include "journeys/desktop/WholeWay.h"

namespace zumeta {
namespace {

using namespace test;

const QString kReturn = QStringLiteral("Return");
const QString kTab = QStringLiteral("Tab");
const QString kHome = QStringLiteral("Home");
const QString kLeft = QStringLiteral("Left");
const QString kRight = QStringLiteral("Right");
const QString kPageUp = QStringLiteral("Page_Up");
const QString kFinePageUp = QStringLiteral("shift+Page_Up");
const QString kFinePageDown = QStringLiteral("shift+Page_Down");

constexpr double kFrame = 1 / 30.0;
constexpr double kExact = 1e-6;

/// The whole way without the pointer, which stands in a corner.
struct KeyboardAlone : WholeWay {
    /// Keys take a while to arrive.
    bool comesTo(double (CompositorViewModel::*value)() const, double expected)
    {
        return waitFor([&] { return std::abs((session().*value)() - expected) < kExact; });
    }
    void start()
    {
        openOnDesktop();
        const auto isOnCamera = [&] {
            const QQuickItem* const focused = window().activeFocusItem();
            return focused && focused->property("title") == QStringLiteral("Insta360");
        };
        for (int i = 0; i < 10 && !isOnCamera(); ++i)
            pressKeys({kTab});
        ASSERT_TRUE(isOnCamera());
        pressKeys({kReturn});
        EXPECT_TRUE(waitFor([&] { return session().selectedCamera() == CameraType::insta360; }));
        tabAndPress("startButton");
    }
    void choose(const QString& names)
    {
        ASSERT_NO_FATAL_FAILURE(tabAndPress("chooseVideoButton"));
        ASSERT_NO_FATAL_FAILURE(typeIntoDialog(names));
        waitForVideo();
    }
    /// To the frame of one second and so many more.
    void scrubTo(int frames, const QString& step)
    {
        ASSERT_NO_FATAL_FAILURE(tabTo("simpleSlider"));
        pressKeys({QStringLiteral("End")});
        EXPECT_TRUE(waitFor([&] { return session().currentTime() == session().duration(); }));
        pressKeys({kHome, kFinePageUp});
        pressKeys(QStringList(std::abs(frames), step));
        EXPECT_TRUE(comesTo(&CompositorViewModel::currentTime, 1 + frames * kFrame));
    }
    void pickWater()
    {
        for (int i = 0; i < 60 && !item("previewFocusRing"); ++i)
            pressKeys({kTab});
        ASSERT_TRUE(item("previewFocusRing"));
        pressKeys({kPageUp, kPageUp, kFinePageDown, kReturn});
    }
    void alignBoth()
    {
        ASSERT_NO_FATAL_FAILURE(start());
        const std::vector<std::filesystem::path> files = aboveChapters();
        ASSERT_NO_FATAL_FAILURE(
            choose(QStringLiteral("\"%1\" \"%2\"")
                       .arg(QString::fromStdString(files[0].native()), QString::fromStdString(files[1].native()))));
        ASSERT_NO_FATAL_FAILURE(scrubTo(3, kRight));
        pressKeys({QStringLiteral("m")});
        ASSERT_TRUE(waitFor([&] { return session().manualSyncTimeAbove().has_value(); }));
        ASSERT_NO_FATAL_FAILURE(pickWater());
        ASSERT_TRUE(waitFor([&] { return session().alignmentPointAbove().has_value(); }));
        EXPECT_NEAR(*session().alignmentPointAbove(), 339.0 / 600, kExact);
        ASSERT_NO_FATAL_FAILURE(tabAndPress("nextStepButton"));
        ASSERT_TRUE(waitForStep(2));
        ASSERT_NO_FATAL_FAILURE(choose(QString::fromStdString(belowFile().native())));
        ASSERT_NO_FATAL_FAILURE(scrubTo(-5, kLeft));
        ASSERT_NO_FATAL_FAILURE(tabAndPress("lockButton"));
        ASSERT_TRUE(waitFor([&] { return session().manualSyncTimeBelow().has_value(); }));
        ASSERT_NO_FATAL_FAILURE(pickWater());
        ASSERT_TRUE(waitFor([&] { return session().alignmentPointBelow().has_value(); }));
        ASSERT_NO_FATAL_FAILURE(tabAndPress("nextStepButton"));
        ASSERT_TRUE(waitForStep(3));
    }
    void adjust()
    {
        ASSERT_NO_FATAL_FAILURE(tabTo("Waterline Height field"));
        typeText(QStringLiteral("9"));
        pressKeys({kTab});
        EXPECT_TRUE(comesTo(&CompositorViewModel::relativeWaterlineHeight, 9));
        ASSERT_TRUE(hasFocus("Person Height field"));
        typeText(QStringLiteral("4"));
        pressKeys({kTab, kRight, kRight});
        EXPECT_TRUE(comesTo(&CompositorViewModel::relativeAboveOffset, 4));
        EXPECT_TRUE(comesTo(&CompositorViewModel::relativeAboveHorizontalOffset, 2));
        pressKeys({QStringLiteral("Escape"), QStringLiteral("ctrl+z")});
        EXPECT_TRUE(waitFor([&] { return session().relativeAboveHorizontalOffset() < 2; }));
        pressKeys({QStringLiteral("ctrl+shift+z")});
        EXPECT_TRUE(comesTo(&CompositorViewModel::relativeAboveHorizontalOffset, 2));
    }
    void trim()
    {
        ASSERT_NO_FATAL_FAILURE(tabTo("trimmer"));
        pressKeys(QStringList(kHome) + QStringList(6, kRight));
        pressKeys({QStringLiteral("i")});
        EXPECT_TRUE(comesTo(&CompositorViewModel::trimStart, 6 * kFrame));
        pressKeys({QStringLiteral("shift+Right"), QStringLiteral("shift+Right"), QStringLiteral("m")});
        ASSERT_TRUE(waitFor([&] { return session().trimMarkers().size() == 1; }));
        EXPECT_NEAR(session().trimMarkers().front(), 26 * kFrame, kExact);
        pressKeys({QStringLiteral("o"), QStringLiteral("Up"), QStringLiteral("Down")});
        EXPECT_TRUE(comesTo(&CompositorViewModel::trimEndPosition, 26 * kFrame));
    }
};

TEST_F(KeyboardAlone, LeadsTheWholeWayToTheMovie)
{
    ASSERT_NO_FATAL_FAILURE(alignBoth());
    ASSERT_NO_FATAL_FAILURE(adjust());
    ASSERT_NO_FATAL_FAILURE(tabAndPress("nextStepButton"));
    ASSERT_TRUE(waitForStep(4));
    ASSERT_NO_FATAL_FAILURE(trim());
    ASSERT_NO_FATAL_FAILURE(tabAndPress("exportButton"));
    ASSERT_TRUE(waitFor([&] { return hasFocus("exportSheetExport"); }));
    pressKeys({QStringLiteral("Up")});
    ASSERT_TRUE(waitFor([&] { return session().selectedResolution() == ExportResolutionType::hd720; }));
    pressKeys({kReturn});
    ASSERT_NO_FATAL_FAILURE(typeFile(folder.file("swim.mp4")));
    ASSERT_TRUE(waitForToast());
    EXPECT_FALSE(session().exportNotification()->isError);
    expectMovie(folder.file("swim.mp4"), 0.01);
}

TEST_F(KeyboardAlone, SetsAndDeletesMarkers)
{
    ASSERT_NO_FATAL_FAILURE(alignBoth());
    ASSERT_NO_FATAL_FAILURE(tabAndPress("nextStepButton"));
    ASSERT_TRUE(waitForStep(4));
    ASSERT_NO_FATAL_FAILURE(tabTo("trimmer"));
    pressKeys(QStringList(kHome) + QStringList(6, kRight));
    pressKeys({QStringLiteral("m"), kRight, kRight});
    ASSERT_TRUE(waitFor([&] { return session().trimMarkers().size() == 1; }));
    pressKeys({QStringLiteral("Up")});
    EXPECT_TRUE(comesTo(&CompositorViewModel::currentTime, 0)) << "the range's start stands before the marker";
    EXPECT_FALSE(session().selectedTrimMarker());
    pressKeys({QStringLiteral("Down")});
    EXPECT_TRUE(comesTo(&CompositorViewModel::currentTime, 6 * kFrame));
    EXPECT_TRUE(session().selectedTrimMarker().has_value());
    pressKeys({QStringLiteral("Delete")});
    EXPECT_TRUE(waitFor([&] { return session().trimMarkers().empty(); }));
    pressKeys({QStringLiteral("ctrl+z")});
    EXPECT_TRUE(waitFor([&] { return session().trimMarkers().size() == 1; }));
}

}
}
