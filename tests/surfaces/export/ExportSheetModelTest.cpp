// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/export/ExportSheetModel.h"

#include "languages/LanguageManager.h"
#include "session/SessionHarness.h"
#include "support/MemoryUserDefaults.h"

#include <QSignalSpy>

namespace zumeta {
namespace {

using namespace test;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

constexpr Size kFourByThree{1440, 1080};

struct ExportSheet : SessionTest {
    MemoryUserDefaults defaults;
    LanguageManager languages{defaults, [] { return QStringList{QStringLiteral("en")}; }};
    ExportSheetModel sheet{*session, dialogs, languages};

    void show() { session->setShowExportSheet(true); }
    void hide() { session->setShowExportSheet(false); }
};

TEST_F(ExportSheet, IsShownWhileTheSessionAsksForIt)
{
    const QSignalSpy told(&sheet, &ExportSheetModel::isShownChanged);
    EXPECT_FALSE(sheet.isShown());
    show();
    EXPECT_TRUE(sheet.isShown());
    hide();
    EXPECT_FALSE(sheet.isShown());
    EXPECT_EQ(told.count(), 2);
}

TEST_F(ExportSheet, ThatIsAskedForBeforeItIsMadeIsShown)
{
    session->setSelectedResolution(ExportResolutionType::hd960);
    show();
    const ExportSheetModel late(*session, dialogs, languages);
    EXPECT_TRUE(late.isShown());
    EXPECT_EQ(late.selected(), 0);
}

TEST_F(ExportSheet, OffersThreeSizesToAWideProject)
{
    loadAbove("/above.mp4");
    EXPECT_THAT(sheet.sizes(), ElementsAre(text("720p"), text("1080p"), text("4K")));
    EXPECT_THAT(sheet.pixelSizes(), ElementsAre(text("1280 × 720"), text("1920 × 1080"), text("3840 × 2160")));
}

TEST_F(ExportSheet, OffersTwoSizesToAFourByThreeProject)
{
    const QSignalSpy told(&sheet, &ExportSheetModel::sizesChanged);
    loadAbove("/above.mp4", {.size = kFourByThree});
    EXPECT_THAT(sheet.sizes(), ElementsAre(text("960p"), text("1440p")));
    EXPECT_THAT(sheet.pixelSizes(), ElementsAre(text("960 × 720"), text("1440 × 1080")));
    EXPECT_EQ(told.count(), 1);
}

TEST_F(ExportSheet, IsNotToldOfItsSizesByEveryValueOfTheProject)
{
    const QSignalSpy told(&sheet, &ExportSheetModel::sizesChanged);
    session->setBlendAmount(33);
    EXPECT_EQ(told.count(), 0);
}

TEST_F(ExportSheet, ThatAppearsTakesTheFirstSizeForOneThatIsNotOffered)
{
    session->setSelectedResolution(ExportResolutionType::hd1440);
    EXPECT_EQ(sheet.selected(), -1);
    show();
    EXPECT_EQ(session->selectedResolution(), ExportResolutionType::hd720);
    EXPECT_EQ(sheet.selected(), 0);
}

TEST_F(ExportSheet, ThatAppearsLeavesASizeThatIsOffered)
{
    session->setSelectedResolution(ExportResolutionType::uhd4k);
    show();
    EXPECT_EQ(session->selectedResolution(), ExportResolutionType::uhd4k);
    EXPECT_EQ(sheet.selected(), 2);
}

TEST_F(ExportSheet, WritesAChosenSizeToTheSessionAndNowhereElse)
{
    const ProjectState before = session->projectState();
    const QSignalSpy told(&sheet, &ExportSheetModel::selectedChanged);
    show();
    sheet.select(1);
    EXPECT_EQ(session->selectedResolution(), ExportResolutionType::hd1080);
    EXPECT_EQ(sheet.selected(), 1);
    EXPECT_EQ(told.count(), 1);
    EXPECT_TRUE(session->projectState() == before);
}

TEST_F(ExportSheet, KnowsNoSizesBeyondItsOffer)
{
    show();
    sheet.select(3);
    sheet.select(-1);
    EXPECT_EQ(session->selectedResolution(), ExportResolutionType::hd720);
}

TEST_F(ExportSheet, GoesFromSizeToSizeAndStopsAtEitherEnd)
{
    show();
    sheet.selectNeighbour(-1);
    EXPECT_EQ(sheet.selected(), 0);
    for (const int expected : {1, 2, 2}) {
        sheet.selectNeighbour(1);
        EXPECT_EQ(sheet.selected(), expected);
    }
    sheet.selectNeighbour(-1);
    EXPECT_EQ(sheet.selected(), 1);
}

TEST_F(ExportSheet, HasTheMarkSwitchOffEveryTimeItOpens)
{
    show();
    EXPECT_FALSE(sheet.showZumetaMarkOnExport());
    sheet.toggleZumetaMark();
    EXPECT_TRUE(sheet.showZumetaMarkOnExport());
    sheet.toggleZumetaMark();
    EXPECT_FALSE(sheet.showZumetaMarkOnExport());
    sheet.toggleZumetaMark();
    hide();
    const QSignalSpy told(&sheet, &ExportSheetModel::showZumetaMarkOnExportChanged);
    show();
    EXPECT_FALSE(sheet.showZumetaMarkOnExport());
    EXPECT_EQ(told.count(), 1);
}

TEST_F(ExportSheet, StoresNothingOfTheMarkInTheProject)
{
    show();
    const ProjectState before = session->projectState();
    sheet.toggleZumetaMark();
    EXPECT_TRUE(session->projectState() == before);
}

TEST_F(ExportSheet, RefusesWithAnAlertWhileAVideoIsMissing)
{
    for (const bool hasAbove : {true, false}) {
        session->resetProject();
        dialogs.alerts.clear();
        hasAbove ? loadAbove("/above.mp4") : loadBelow("/below.mp4");
        ASSERT_TRUE(session->canExport());
        show();
        sheet.exportVideo();
        ASSERT_THAT(dialogs.alerts, SizeIs(1));
        EXPECT_EQ(dialogs.alerts[0].title, text("Videos are missing"));
        EXPECT_EQ(dialogs.alerts[0].message,
                  text("Export requires both an above-water video and an underwater video. Load videos in Step 1 and "
                       "Step 2 before exporting."));
        EXPECT_THAT(dialogs.alerts[0].buttons, ElementsAre(text("OK")));
        EXPECT_FALSE(dialogs.alerts[0].isDestructive);
        EXPECT_TRUE(sheet.showExportMissingMediaAlert());
        advance(2);
        EXPECT_FALSE(sheet.showExportMissingMediaAlert());
        EXPECT_TRUE(sheet.isShown());
        EXPECT_THAT(dialogs.savePanels, IsEmpty());
        hide();
    }
}

TEST_F(ExportSheet, SaysOnceAtATimeThatAVideoIsMissing)
{
    show();
    sheet.exportVideo();
    sheet.exportVideo();
    EXPECT_THAT(dialogs.alerts, SizeIs(1));
    advance(2);
    sheet.exportVideo();
    EXPECT_THAT(dialogs.alerts, SizeIs(2));
    advance(2);
}

TEST_F(ExportSheet, MayGoWhileItSaysThatAVideoIsMissing)
{
    auto brief = std::make_unique<ExportSheetModel>(*session, dialogs, languages);
    brief->exportVideo();
    brief.reset();
    advance(2);
    EXPECT_THAT(dialogs.alerts, SizeIs(1));
}

TEST_F(ExportSheet, ExportsBothVideosAndCloses)
{
    loadBoth();
    show();
    sheet.exportVideo();
    EXPECT_FALSE(sheet.isShown());
    EXPECT_THAT(dialogs.alerts, IsEmpty());
    EXPECT_THAT(dialogs.savePanels, SizeIs(1));
    advance(2);
}

TEST_F(ExportSheet, GivesAnExportTheSameInputWithTheMarkOnAndOff)
{
    enterComposite(WorkflowStep::step4, {20, 5}, {18, 3});
    dialogs.savePlace = FileUrl("/nowhere/swim.mp4");
    std::vector<bool> marks;
    for (const bool isMarked : {false, true}) {
        show();
        if (isMarked)
            sheet.toggleZumetaMark();
        sheet.exportVideo();
        advance(15);
        ASSERT_TRUE(exporters.back()->params);
        marks.push_back(exporters.back()->params->showWatermark);
    }
    EXPECT_THAT(marks, ElementsAre(false, false));
}

TEST_F(ExportSheet, ThatIsDismissedSaysSoToTheSession)
{
    show();
    sheet.dismiss();
    EXPECT_FALSE(session->showExportSheet());
    EXPECT_FALSE(sheet.isShown());
    sheet.dismiss();
    EXPECT_FALSE(session->showExportSheet());
}

}
}
