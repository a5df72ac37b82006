// SPDX-License-Identifier: GPL-3.0-or-later
#include "journeys/window/WindowJourney.h"
#include "support/FootageMaker.h"
#include "support/MovieProbe.h"

#include <QTest>
#include <QUuid>
#include <fstream>

namespace zumeta {
namespace {

using namespace test;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

/// Exports of short videos in the real window, with the program's own file dialog.
struct ExportSurfaces : WindowJourney {
    TemporaryFolder folder;

    CompositorViewModel& session() { return app().session(); }

    void openSheet()
    {
        openStep(4);
        session().setShowExportSheet(true);
        ASSERT_TRUE(waitFor([&] { return hasFocus("exportSheetExport"); }));
    }
    bool hasFocus(const char* name) { return item(name) && item(name)->hasActiveFocus(); }

    bool waitForToast()
    {
        return QTest::qWaitFor([&] { return session().exportNotification() && item("exportToast"); }, 60000);
    }
    /// In the biggest size, which takes long enough to be met on its way.
    void startLongExport(const std::filesystem::path& output)
    {
        openSheet();
        session().setSelectedResolution(ExportResolutionType::uhd4k);
        press(Qt::Key_Return);
        chooseFile(output);
        ASSERT_TRUE(QTest::qWaitFor([&] { return item("exportCancel") != nullptr; }, 10000));
    }
};

TEST_F(ExportSurfaces, MakeAMovieByTheKeyboardAlone)
{
    openSheet();
    press(Qt::Key_Up); // from the 1080p of a wide project
    EXPECT_EQ(session().selectedResolution(), ExportResolutionType::hd720);
    press(Qt::Key_Down);
    EXPECT_EQ(session().selectedResolution(), ExportResolutionType::hd1080);
    press(Qt::Key_Up);
    press(Qt::Key_Return);
    EXPECT_TRUE(waitFor([&] { return !item("exportSheet"); }));
    EXPECT_FALSE(session().showExportSheet());
    chooseFile(folder.file("swim.mp4"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return session().isExporting(); }, 10000));
    std::vector<int> percents;
    const auto look = [&] {
        if (const QQuickItem* const percent = item("exportPercent"))
            percents.push_back(percent->property("text").toString().chopped(1).toInt());
        return !session().isExporting();
    };
    ASSERT_TRUE(QTest::qWaitFor(look, 60000));
    EXPECT_TRUE(std::ranges::is_sorted(percents));
    EXPECT_GT(std::ranges::count_if(percents, [](int percent) { return percent > 0 && percent < 100; }), 0);
    ASSERT_TRUE(waitForToast());
    EXPECT_TRUE(itemWithText(QStringLiteral("swim.mp4")));
    EXPECT_FALSE(session().exportNotification()->isError);
    const MovieFacts movie = MovieProbe::facts(folder.file("swim.mp4"));
    ASSERT_TRUE(movie.first("video"));
    EXPECT_EQ(movie.first("video")->number("width"), 1280);
    EXPECT_EQ(movie.first("video")->number("height"), 720);
    EXPECT_NEAR(movie.duration(), 3, 0.05);
}

TEST_F(ExportSurfaces, GoAwayWithTheToastAfterItsTime)
{
    openSheet();
    press(Qt::Key_Up);
    press(Qt::Key_Return);
    chooseFile(folder.file("swim.mp4"));
    ASSERT_TRUE(waitForToast());
    EXPECT_TRUE(waitFor([&] { return !item("exportCancel"); }));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !item("exportToast"); }, 8000));
}

TEST_F(ExportSurfaces, AreWalkedThroughByTab)
{
    openSheet();
    for (const char* const next : {"resolution720p", "resolution1080p", "resolution4K", "zumetaMarkSwitch",
                                   "exportSheetCancel", "exportSheetExport", "resolution720p"}) {
        press(Qt::Key_Tab);
        EXPECT_TRUE(hasFocus(next)) << next;
    }
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(hasFocus("exportSheetExport"));
}

TEST_F(ExportSurfaces, BeginAtTheirFirstButtonEachTimeTheyOpen)
{
    openSheet();
    press(Qt::Key_Tab);
    press(Qt::Key_Escape);
    ASSERT_TRUE(waitFor([&] { return !item("exportSheet"); }));
    session().setShowExportSheet(true);
    EXPECT_TRUE(waitFor([&] { return hasFocus("exportSheetExport"); }));
}

TEST_F(ExportSurfaces, ChooseASizeByAPress)
{
    openSheet();
    click(item("resolution4K"));
    EXPECT_EQ(session().selectedResolution(), ExportResolutionType::uhd4k);
    click(item("resolution720p"));
    EXPECT_EQ(session().selectedResolution(), ExportResolutionType::hd720);
    EXPECT_TRUE(session().showExportSheet());
}

TEST_F(ExportSurfaces, HaveTheMarkOffInEveryNewSheet)
{
    openSheet();
    const auto isOn = [&] { return item("zumetaMarkSwitch")->property("isOn").toBool(); };
    EXPECT_FALSE(isOn());
    click(item("zumetaMarkSwitch"));
    EXPECT_TRUE(isOn());
    click(itemWithText(app().languages().localized(QStringLiteral("Show Zumeta Mark"))));
    EXPECT_FALSE(isOn());
    click(item("zumetaMarkSwitch"));
    press(Qt::Key_Escape);
    ASSERT_TRUE(waitFor([&] { return !item("exportSheet"); }));
    session().setShowExportSheet(true);
    ASSERT_TRUE(waitFor([&] { return item("zumetaMarkSwitch") != nullptr; }));
    EXPECT_FALSE(isOn());
}

TEST_F(ExportSurfaces, CloseByCancelAndEscapeAndNotByAPressBesideThem)
{
    openSheet();
    QTest::mouseClick(&window(), Qt::LeftButton, {}, QPoint(20, 450));
    QTest::qWait(300);
    EXPECT_TRUE(session().showExportSheet());
    click(item("exportSheetCancel"));
    EXPECT_FALSE(session().showExportSheet());
    EXPECT_TRUE(waitFor([&] { return !item("exportSheet"); }));
    session().setShowExportSheet(true);
    ASSERT_TRUE(waitFor([&] { return hasFocus("exportSheetExport"); }));
    press(Qt::Key_Escape);
    EXPECT_FALSE(session().showExportSheet());
    EXPECT_TRUE(waitFor([&] { return !item("exportSheet"); }));
}

TEST_F(ExportSurfaces, AskForTheOtherVideoAndStay)
{
    open();
    confirmCamera();
    loadVideo(zumeta::Side::above);
    session().setShowExportSheet(true);
    ASSERT_TRUE(waitFor([&] { return hasFocus("exportSheetExport"); }));
    press(Qt::Key_Return);
    ASSERT_TRUE(waitFor([&] { return hasFocus("alertButton0"); }));
    EXPECT_TRUE(itemWithText(app().languages().localized(QStringLiteral("Export Missing Media Title"))));
    press(Qt::Key_Escape);
    ASSERT_TRUE(waitFor([&] { return !item("alertButton0"); }));
    EXPECT_TRUE(session().showExportSheet());
    // The keys are the sheet's again.
    EXPECT_TRUE(waitFor([&] { return hasFocus("exportSheetExport"); }));
    press(Qt::Key_Escape);
    EXPECT_FALSE(session().showExportSheet());
}

TEST_F(ExportSurfaces, GiveAnExportUpByTheirButtonAndNotByEscape)
{
    startLongExport(folder.file("long.mp4"));
    press(Qt::Key_Escape);
    QTest::qWait(100);
    EXPECT_TRUE(session().isExporting());
    click(item("exportCancel"));
    EXPECT_FALSE(session().isExporting());
    EXPECT_TRUE(waitFor([&] { return !item("exportCancel"); }));
    ASSERT_TRUE(waitForToast());
    EXPECT_TRUE(session().exportNotification()->isError);
    EXPECT_THAT(folder.names(), IsEmpty());
}

TEST_F(ExportSurfaces, CoverThePictureAndItsTimelineAndInFullScreenAllOfTheWindow)
{
    startLongExport(folder.file("long.mp4"));
    QQuickItem* const overlay = item("exportOverlay");
    ASSERT_TRUE(overlay);
    // Not the menu bar and not the panel.
    EXPECT_EQ(overlay->mapRectToScene(QRectF(QPointF(), overlay->size())), QRectF(0, 30, 1010, 870));
    session().setFullScreen(true);
    EXPECT_TRUE(waitFor(
        [&] { return overlay->mapRectToScene(QRectF(QPointF(), overlay->size())) == QRectF(0, 0, 1400, 900); }));
    session().cancelExport();
}

TEST_F(ExportSurfaces, TellOfAnExportThatFails)
{
    openSheet();
    press(Qt::Key_Return);
    chooseFile("/sys/swim.mp4"); // a folder that takes no files from anybody
    ASSERT_TRUE(waitForToast());
    EXPECT_TRUE(session().exportNotification()->isError);
    EXPECT_TRUE(itemWithText(session().exportNotification()->message));
    EXPECT_TRUE(itemWithText(app().languages().localized(QStringLiteral("Export Notification Failure Title"))));
    // A press anywhere on it sends it away.
    click(itemWithText(session().exportNotification()->message));
    EXPECT_FALSE(session().exportNotification());
    EXPECT_TRUE(waitFor([&] { return !item("exportToast"); }));
}

TEST_F(ExportSurfaces, SendTheToastAwayByItsButton)
{
    openSheet();
    press(Qt::Key_Return);
    chooseFile("/sys/swim.mp4");
    ASSERT_TRUE(waitForToast());
    click(item("exportToastClose"));
    EXPECT_FALSE(session().exportNotification());
    EXPECT_TRUE(waitFor([&] { return !item("exportToast"); }));
}

/// A kept composition whose videos have gone since.
struct MissingVideos : ExportSurfaces {
    std::filesystem::path copyOf(zumeta::Side side, const char* name)
    {
        FootageSpec spec;
        spec.side = side == zumeta::Side::above ? test::Side::above : test::Side::below;
        spec.frames = 60;
        spec.encoder = {"-c:v", "libx264", "-preset", "veryfast", "-crf", "36", "-g", "12"};
        std::filesystem::copy_file(FootageMaker::make(spec), folder.file(name));
        // Its bytes are its own, in the mebibyte by which files are known: a copy, wherever another run has left it,
        // would be found in its stead.
        const QByteArray space = QByteArrayLiteral("\0\0\0\x18"
                                                   "free") +
                                 QUuid::createUuid().toRfc4122();
        std::ofstream(folder.file(name), std::ios::app | std::ios::binary).write(space.data(), space.size());
        EXPECT_LT(std::filesystem::file_size(folder.file(name)), 1'000'000U);
        return folder.file(name);
    }
    void openProjectWithoutItsVideos()
    {
        open();
        confirmCamera();
        load(zumeta::Side::above, copyOf(zumeta::Side::above, "above.mp4"));
        session().seek(1, true);
        session().toggleAboveLock();
        session().setCurrentStep(CompositorViewModel::WorkflowStep::step2);
        load(zumeta::Side::below, copyOf(zumeta::Side::below, "below.mp4"));
        session().seek(1, true);
        session().toggleBelowLock();
        ASSERT_TRUE(session().projectConfig().isSynced);
        session().setCurrentStep(CompositorViewModel::WorkflowStep::step3);
        session().prepareProjectForSave();
        chooseFile(folder.file("swim.zumetaproj"));
        ASSERT_TRUE(QTest::qWaitFor([&] { return std::filesystem::exists(folder.file("swim.zumetaproj")); }, 10000));
        session().resetProject();
        std::filesystem::remove(folder.file("above.mp4"));
        std::filesystem::remove(folder.file("below.mp4"));
        session().loadProject(folder.url("swim.zumetaproj"));
        ASSERT_TRUE(QTest::qWaitFor([&] { return hasFocus("reconnectAbove"); }, 15000));
    }
};

TEST_F(MissingVideos, AreReconnectedOneAfterTheOtherByTheKeyboardAlone)
{
    openProjectWithoutItsVideos();
    EXPECT_TRUE(item("reconnectBelow"));
    press(Qt::Key_Escape); // the card has no way back
    press(Qt::Key_Return);
    const std::filesystem::path above = copyOf(zumeta::Side::above, "found-above.mp4");
    chooseFile(above);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !item("reconnectAbove"); }, 15000));
    EXPECT_TRUE(waitFor([&] { return hasFocus("reconnectBelow"); }));
    press(Qt::Key_Return);
    chooseFile(copyOf(zumeta::Side::below, "found-below.mp4"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return !item("missingMediaCard"); }, 15000));
    EXPECT_EQ(session().aboveVideoURL(), FileUrl(above.native()));
    EXPECT_EQ(session().currentStep(), CompositorViewModel::WorkflowStep::step3);
    EXPECT_EQ(session().manualSyncTimeAbove(), 1);
}

TEST_F(MissingVideos, AreGivenUpByTheLastButton)
{
    openProjectWithoutItsVideos();
    for (const char* const next : {"reconnectBelow", "missingMediaStartOver", "reconnectAbove", "reconnectBelow"}) {
        press(Qt::Key_Tab);
        EXPECT_TRUE(hasFocus(next)) << next;
    }
    click(item("missingMediaStartOver"));
    EXPECT_TRUE(waitFor([&] { return !item("missingMediaCard"); }));
    EXPECT_FALSE(session().showMissingFileAlert());
    EXPECT_EQ(session().currentStep(), CompositorViewModel::WorkflowStep::step1);
}

TEST_F(MissingVideos, HaveTheirCardOverTheMiddleOfThePicture)
{
    openProjectWithoutItsVideos();
    ASSERT_TRUE(item("missingMediaCard"));
    const QQuickItem* const card = item("missingMediaCard")->parentItem();
    EXPECT_EQ(card->width(), 420);
    EXPECT_NEAR(middleOf(card).x(), (1400 - 390) / 2, 1);
    EXPECT_FALSE(item("startButton"));
}

}
}
