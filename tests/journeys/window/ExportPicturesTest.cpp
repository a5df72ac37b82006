// SPDX-License-Identifier: GPL-3.0-or-later
#include "journeys/window/ExportScene.h"
#include "journeys/window/LayoutWalk.h"

#include <QTest>

namespace zumeta {
namespace {

using namespace test;
using testing::IsEmpty;

constexpr QSize kWide{1400, 900};
constexpr QSize kNarrow{1024, 680};

struct Look {
    QSize size;
    AppLanguage language;
    const char* suffix;
};
/// At both widths, and in the languages of the longest words and of other letters.
constexpr Look kLooks[] = {{kWide, AppLanguage::english, "-1400"},
                           {kNarrow, AppLanguage::english, "-1024"},
                           {kNarrow, AppLanguage::german, "-1024-german"},
                           {kWide, AppLanguage::japanese, "-1400-japanese"}};

struct ExportPictures : ExportScene {
    void take(const Look& look)
    {
        languages.setLanguage(look.language);
        window().resize(look.size);
        ASSERT_TRUE(waitFor([&] { return window().contentItem()->size() == QSizeF(look.size); }));
    }
    void expectPictures(const std::string& name)
    {
        for (const Look& look : kLooks) {
            take(look);
            expectPicture((name + look.suffix).c_str());
        }
        window().resize(kNarrow);
        expectNoFaults();
    }
    /// The words of a message are those of the moment at which it came.
    void expectPicturesOfToast(const std::string& name)
    {
        for (const Look& look : kLooks) {
            take(look);
            harness.session->exportVideo(false);
            advance(12);
            ASSERT_TRUE(waitFor([&] { return item("exportToast") != nullptr; }));
            expectPicture((name + look.suffix).c_str());
            EXPECT_THAT(layoutFaults(window()), IsEmpty());
        }
    }

    void expectNoFaults()
    {
        for (const AppLanguage language : kAllAppLanguages) {
            languages.setLanguage(language);
            QStringList faults;
            waitFor([&] {
                QTest::qWait(20);
                faults = layoutFaults(window());
                return faults.isEmpty();
            });
            EXPECT_THAT(faults, IsEmpty()) << rawValue(language).toStdString();
        }
    }
};

using ExportOverlay = ExportScene;

TEST_F(ExportOverlay, KeepsThePointerFromThePicture)
{
    openScene(kWide);
    const QPoint place(200, 200);
    const auto touch = [&] {
        movePointer({1200, 20});
        movePointer(place);
        QTest::mouseClick(&window(), Qt::LeftButton, {}, place);
        QTest::mouseClick(&window(), Qt::RightButton, {}, place);
        QWheelEvent wheel(place, window().mapToGlobal(place), {}, {0, 120}, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&window(), &wheel);
        return item("preview")->property("touched").toInt();
    };
    const int withoutOverlay = touch();
    EXPECT_GE(withoutOverlay, 4);
    movePointer({1200, 20});
    exportUpTo(0.3);
    ASSERT_TRUE(waitFor([&] { return item("exportRing") != nullptr; }));
    EXPECT_EQ(touch(), withoutOverlay);
    harness.session->cancelExport();
    ASSERT_TRUE(waitFor([&] { return item("exportRing") == nullptr; }));
    EXPECT_EQ(touch(), 2 * withoutOverlay);
}

TEST_F(ExportOverlay, BeginsEachExportWithAnEmptyRing)
{
    openScene(kWide);
    exportUpTo(0.9);
    ASSERT_TRUE(waitFor([&] { return item("exportRing") != nullptr; }));
    EXPECT_EQ(item("exportRing")->property("progress").toDouble(), 0.9);
    advance(2);
    ASSERT_TRUE(waitFor([&] { return item("exportRing") == nullptr; }));
    harness.session->exportVideo(false);
    advance(1.15);
    ASSERT_TRUE(waitFor([&] { return item("exportRing") != nullptr; }));
    EXPECT_EQ(item("exportRing")->property("progress").toDouble(), 0);
}

TEST_F(ExportPictures, OfTheSheet)
{
    openScene(kWide);
    harness.enterComposite(WorkflowStep::step4, {20, 5}, {18, 3});
    harness.session->setSelectedResolution(ExportResolutionType::hd1080);
    harness.session->setShowExportSheet(true);
    ASSERT_TRUE(waitFor([&] { return item("exportSheet") != nullptr; }));
    expectPictures("export-sheet");
}

TEST_F(ExportPictures, OfTheProgress)
{
    openScene(kWide);
    exportUpTo(0.6);
    ASSERT_TRUE(waitFor([&] { return item("exportRing") != nullptr; }));
    expectPictures("export-progress");
}

TEST_F(ExportPictures, OfTheToasts)
{
    openScene(kWide);
    exportUpTo(0.9);
    advance(1.5);
    expectPicturesOfToast("export-toast");
    harness.exportScript.error = ExportError(ExportError::Case::exportCancelled);
    expectPicturesOfToast("export-toast-error");
}

TEST_F(ExportPictures, OfTheCardOfMissingVideos)
{
    openScene(kWide);
    openWithoutVideos();
    ASSERT_TRUE(waitFor([&] { return item("missingMediaCard") != nullptr; }));
    expectPictures("missing-media");
}

TEST_F(ExportPictures, OfAnAlertOverTheSheet)
{
    openScene(kWide);
    harness.loadAbove("/above.mp4");
    harness.session->setShowExportSheet(true);
    ASSERT_TRUE(waitFor([&] { return item("exportSheetExport") != nullptr; }));
    click(item("exportSheetExport"));
    ASSERT_TRUE(waitFor([&] { return item("alertButton0") != nullptr; }));
    expectPicture("export-missing-alert");
    expectNoFaults();
    alerts.close();
}

}
}
