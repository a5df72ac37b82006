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



struct ExportPictures : ExportScene {
    /// At both widths, and in the languages of the longest words and of other letters.
    void expectPictures(const std::string& name)
    {
        struct Look {
            QSize size;
            AppLanguage language;
            const char* suffix;
        };
        for (const Look& look : {Look{kWide, AppLanguage::english, "-1400"}, Look{kNarrow, AppLanguage::english, "-1024"},
                                 Look{kNarrow, AppLanguage::german, "-1024-german"},
                                 Look{kWide, AppLanguage::japanese, "-1400-japanese"}}) {
            languages.setLanguage(look.language);
            window().resize(look.size);
            ASSERT_TRUE(waitFor([&] { return window().contentItem()->size() == QSizeF(look.size); }));
            expectPicture((name + look.suffix).c_str());
        }
        window().resize(kNarrow);
        expectNoFaults();
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
    ASSERT_TRUE(waitFor([&] { return item("exportToast") != nullptr; }));
    expectPictures("export-toast");
    harness.exportScript.error = ExportError(ExportError::Case::exportCancelled);
    languages.setLanguage(AppLanguage::english);
    harness.session->exportVideo(false);
    advance(12);
    ASSERT_TRUE(waitFor([&] { return itemWithText(harness.exportScript.error->errorDescription()) != nullptr; }));
    expectPictures("export-toast-error");
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
