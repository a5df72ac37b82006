// SPDX-License-Identifier: GPL-3.0-or-later
#include "journeys/desktop/WholeWay.h"

namespace zumeta {
namespace {

using namespace test;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

const QString kUndo = QStringLiteral("ctrl+z");
const QString kRedo = QStringLiteral("ctrl+shift+z");

/// From the start screen to the movie, each part from where the one before it has ended.
struct TheWholeWay : WholeWay {
    void startByPointer()
    {
        openOnDesktop();
        clickItem(itemWithText(QStringLiteral("Insta360")));
        ASSERT_TRUE(waitFor([&] { return session().selectedCamera() == CameraType::insta360; }));
        clickNamed("startButton");
        ASSERT_TRUE(waitFor([&] { return item("dropInstructionCard") != nullptr; }));
    }
    void dropAbove()
    {
        const std::vector<std::filesystem::path> files = aboveChapters();
        startDragSource({1460, 20}, {files[1], files[0]});
        waitForStill("dropInstructionCard");
        dragFilesTo(onScreen(item("dropInstructionCard")));
        ASSERT_EQ(endOfDrag(), "copied");
        ASSERT_TRUE(waitFor([&] { return session().projectState().aboveVideo.has_value(); }, 15000));
        EXPECT_THAT(session().projectState().aboveVideo->fileURLs,
                    ElementsAre(FileUrl(files[0].native()), FileUrl(files[1].native())));
        waitForVideo();
    }
    void chooseBelow()
    {
        clickNamed("chooseVideoButton");
        typeFile(belowFile());
        ASSERT_TRUE(waitFor([&] { return session().projectState().belowVideo.has_value(); }, 15000));
        waitForVideo();
    }
    /// Scrubs, locks, picks the water at this height and goes on.
    void alignByPointer(double fraction, double height)
    {
        waitForStill("simpleSlider");
        const double width = item("simpleSlider")->width();
        dragPointer(placeIn("simpleSlider", 0, 15), placeIn("simpleSlider", fraction * width, 15));
        EXPECT_NEAR(session().currentTime(), fraction * session().duration(), 0.02);
        const bool isAbove = int(session().currentStep()) == 1;
        const auto locked = [&] { return isAbove ? session().manualSyncTimeAbove() : session().manualSyncTimeBelow(); };
        const auto picked = [&] { return isAbove ? session().alignmentPointAbove() : session().alignmentPointBelow(); };
        clickNamed("lockButton");
        ASSERT_TRUE(waitFor([&] { return locked().has_value(); }));
        EXPECT_NEAR(*locked(), fraction * session().duration(), 0.02);
        movePointerTo(onPicture(0.3, height));
        pressButton();
        releaseButton();
        ASSERT_TRUE(waitFor([&] { return picked().has_value(); }));
        EXPECT_NEAR(*picked(), height, 0.01);
        const int step = int(session().currentStep());
        clickNamed("nextStepButton");
        ASSERT_TRUE(waitForStep(step + 1));
    }
    void alignBoth()
    {
        ASSERT_NO_FATAL_FAILURE(startByPointer());
        ASSERT_NO_FATAL_FAILURE(dropAbove());
        ASSERT_NO_FATAL_FAILURE(alignByPointer(0.4, 0.45));
        ASSERT_NO_FATAL_FAILURE(chooseBelow());
        ASSERT_NO_FATAL_FAILURE(alignByPointer(0.3, 0.5));
    }
    void adjustByPointerAndKeys()
    {
        waitForStill("Person Height track");
        const double width = item("Person Height track")->width();
        dragPointer(placeIn("Person Height track", width / 2, 8), placeIn("Person Height track", width * 0.53, 8));
        EXPECT_NEAR(session().relativeAboveOffset(), 6, 1);
        clickNamed("Waterline Height field");
        pressKeys({QStringLiteral("ctrl+a")});
        typeText(QStringLiteral("12"));
        pressKeys({QStringLiteral("Return")});
        EXPECT_EQ(session().relativeWaterlineHeight(), 12);
        clickNamed("Horizontal Position plus");
        EXPECT_EQ(session().relativeAboveHorizontalOffset(), 1);
        clickNamed("Horizontal Position field");
        pressKeys({QStringLiteral("Right"), QStringLiteral("shift+Right"), QStringLiteral("Left")});
        EXPECT_EQ(session().relativeAboveHorizontalOffset(), 11);
    }
    void goToStep4()
    {
        clickNamed("nextStepButton");
        ASSERT_TRUE(waitForStep(4));
        waitForStill("trimmer");
        waitForStill("startHandle");
    }
    void exportTo(const std::filesystem::path& movie, const char* size)
    {
        clickNamed("exportButton");
        clickNamed(size);
        clickNamed("exportSheetExport");
        typeFile(movie);
        ASSERT_TRUE(waitFor([&] { return item("exportCancel") && item("exportPercent"); }, 10000));
    }
};

TEST_F(TheWholeWay, LeadsByPointerAndKeysToTheMovie)
{
    ASSERT_NO_FATAL_FAILURE(alignBoth());
    ASSERT_NO_FATAL_FAILURE(adjustByPointerAndKeys());
    ASSERT_NO_FATAL_FAILURE(goToStep4());
    const double end = session().duration();
    dragPointer(onTrimmer(0), onTrimmer(0.5));
    EXPECT_NEAR(session().trimStart(), 0.5, 0.02);
    clickNamed("Trim End field");
    pressKeys({QStringLiteral("ctrl+a")});
    typeText(QStringLiteral("1.5"));
    pressKeys({QStringLiteral("Return"), QStringLiteral("Escape")});
    EXPECT_NEAR(session().trimEndPosition(), 1.5, 0.01);
    ASSERT_LT(session().trimEndPosition(), end);
    ASSERT_NO_FATAL_FAILURE(exportTo(folder.file("swim.mp4"), "resolution720p"));
    ASSERT_TRUE(waitForToast());
    EXPECT_FALSE(session().exportNotification()->isError);
    EXPECT_TRUE(itemWithText(QStringLiteral("swim.mp4")));
    expectMovie(folder.file("swim.mp4"));
}

TEST_F(TheWholeWay, TakesEveryEditOfTheCompositionBack)
{
    ASSERT_NO_FATAL_FAILURE(alignBoth());
    const VideoCompositionConfig before = session().projectConfig();
    ASSERT_NO_FATAL_FAILURE(adjustByPointerAndKeys());
    const VideoCompositionConfig after = session().projectConfig();
    ASSERT_NE(after, before);
    const int edits = int(session().stepEditHistory().undoCount());
    EXPECT_GE(edits, 4);
    pressKeys(QStringList(edits, kUndo));
    EXPECT_EQ(session().projectConfig(), before);
    pressKeys(QStringList(edits, kRedo));
    EXPECT_EQ(session().projectConfig(), after);
}

TEST_F(TheWholeWay, TrimsByHandleRowAndButtonAndKeepsMarkers)
{
    ASSERT_NO_FATAL_FAILURE(alignBoth());
    ASSERT_NO_FATAL_FAILURE(goToStep4());
    const double end = session().duration();
    dragPointer(onTrimmer(0), onTrimmer(0.4));
    EXPECT_NEAR(session().trimStart(), 0.4, 0.02);
    dragPointer(onTrimmer(1), onTrimmer(1.6)); // the playhead
    EXPECT_NEAR(session().currentTime(), 1.6, 0.02);
    clickNamed("trimEndButton");
    EXPECT_NEAR(session().trimEndPosition(), 1.6, 0.02);
    pressKeys({kUndo});
    EXPECT_NEAR(session().trimEndPosition(), end, 1e-9);
    pressKeys({kUndo});
    EXPECT_EQ(session().trimStart(), 0);
    pressKeys({kRedo, kRedo});
    EXPECT_NEAR(session().trimEndPosition(), 1.6, 0.02);
    clickNamed("Trim Start field");
    pressKeys({QStringLiteral("ctrl+a")});
    typeText(QStringLiteral("0.6"));
    pressKeys({QStringLiteral("Return"), QStringLiteral("Escape")});
    EXPECT_NEAR(session().trimStart(), 0.6, 1e-9);
    pressKeys({kUndo});
    EXPECT_NEAR(session().trimStart(), 0.4, 0.02);

    dragPointer(onTrimmer(1), onTrimmer(0.8));
    pressKeys({QStringLiteral("m")});
    ASSERT_THAT(session().trimMarkers(), SizeIs(1));
    EXPECT_NEAR(session().trimMarkers().front(), 0.8, 0.02);
    ASSERT_NO_FATAL_FAILURE(waitForStill("markerM1"));
    dragPointer(onTrimmer(session().trimMarkers().front(), -12), onTrimmer(1.2, -12));
    ASSERT_THAT(session().trimMarkers(), SizeIs(1));
    EXPECT_NEAR(session().trimMarkers().front(), 1.2, 0.03);
    const bool wasSelected = session().selectedTrimMarker().has_value();
    clickNamed("markerM1");
    EXPECT_TRUE(waitFor([&] { return session().selectedTrimMarker().has_value() != wasSelected; }));
    if (wasSelected)
        clickNamed("markerM1");
    ASSERT_TRUE(waitFor([&] { return session().selectedTrimMarker().has_value(); }));
    pressKeys({QStringLiteral("Delete")});
    EXPECT_THAT(session().trimMarkers(), IsEmpty());
    pressKeys({kUndo});
    EXPECT_THAT(session().trimMarkers(), SizeIs(1));
}

TEST_F(TheWholeWay, EndsWithoutAFileWhenTheExportIsGivenUp)
{
    ASSERT_NO_FATAL_FAILURE(alignBoth());
    ASSERT_NO_FATAL_FAILURE(goToStep4());
    const std::vector<std::string> before = folder.names();
    ASSERT_NO_FATAL_FAILURE(exportTo(folder.file("given-up.mp4"), "resolution4K"));
    clickNamed("exportCancel");
    ASSERT_TRUE(waitFor([&] { return !session().isExporting(); }, 10000));
    ASSERT_TRUE(waitForToast());
    EXPECT_TRUE(session().exportNotification()->isError);
    EXPECT_EQ(folder.names(), before);
}

TEST_F(TheWholeWay, GoesOnWithAVideoThatWasMissing)
{
    ASSERT_NO_FATAL_FAILURE(alignBoth());
    const std::filesystem::path project = folder.file("swim.zumetaproj");
    pressKeys({QStringLiteral("ctrl+s")});
    ASSERT_NO_FATAL_FAILURE(typeFile(project));
    ASSERT_TRUE(waitFor([&] { return std::filesystem::exists(project); }, 10000));
    const std::optional<double> locked = session().manualSyncTimeBelow();
    std::filesystem::remove(folder.file("GX010077.MP4"));
    ASSERT_TRUE(waitFor([&] { return window().isActive(); }));
    pressKeys({QStringLiteral("ctrl+o")});
    ASSERT_NO_FATAL_FAILURE(typeFile(project));
    ASSERT_NO_FATAL_FAILURE(waitForStill("missingMediaCard"));
    EXPECT_FALSE(item("reconnectAbove"));
    clickNamed("reconnectBelow");
    const std::filesystem::path found = belowFile("found.MP4");
    ASSERT_NO_FATAL_FAILURE(typeFile(found));
    ASSERT_TRUE(waitFor([&] { return !item("missingMediaCard"); }, 15000));
    EXPECT_EQ(session().belowVideoURL(), FileUrl(found.native()));
    EXPECT_EQ(int(session().currentStep()), 3);
    EXPECT_EQ(session().manualSyncTimeBelow(), locked);
    EXPECT_TRUE(waitFor([&] { return item("previewSurface") && !item("missingMediaView"); }));
}

}
}
