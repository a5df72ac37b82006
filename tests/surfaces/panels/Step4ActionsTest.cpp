// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/panels/PanelHarness.h"

namespace zumeta {
namespace {

using namespace test;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

/// A composite of 30 seconds.
struct StepFourPanel : PanelTest {
    StepFourPanel() { enterComposite(WorkflowStep::step4, {60, 10}, {30, 4}); }
};

TEST_F(StepFourPanel, ShowsTheLengthOfTheExportInMinutesAndSeconds)
{
    EXPECT_EQ(step4.exportDuration(), QStringLiteral("00:30"));
    session->setTrimStart(11.5);
    EXPECT_EQ(step4.exportDuration(), QStringLiteral("00:18"));
}

TEST_F(StepFourPanel, SetsTheRangeToThePlayhead)
{
    session->seek(3, true);
    step4.setTrimStartToPlayhead();
    EXPECT_EQ(session->trimStart(), 3);
    session->seek(20, true);
    step4.setTrimEndToPlayhead();
    EXPECT_EQ(session->trimEndPosition(), 20);
    EXPECT_TRUE(session->hasInteractedWithStep4ExportControls());
}

TEST_F(StepFourPanel, TheStartIsNotPutOnTheEnd)
{
    session->setTrimEndPosition(20);
    session->seek(20.004, true); // the same hundredth
    EXPECT_TRUE(step4.isTrimStartDimmed());
    EXPECT_FALSE(step4.isTrimEndDimmed());
    const std::size_t before = undoCount();
    step4.setTrimStartToPlayhead();
    EXPECT_EQ(session->trimStart(), 0);
    EXPECT_EQ(undoCount(), before);
    session->seek(20.01, true);
    EXPECT_FALSE(step4.isTrimStartDimmed());
}

TEST_F(StepFourPanel, TheEndIsNotPutOnTheStart)
{
    session->setTrimStart(5);
    session->seek(5.004, true);
    EXPECT_TRUE(step4.isTrimEndDimmed());
    EXPECT_FALSE(step4.isTrimStartDimmed());
    step4.setTrimEndToPlayhead();
    EXPECT_EQ(session->trimEndPosition(), 30);
}

TEST_F(StepFourPanel, TheKeysChangeNothingWhereTheButtonsAreDimmed)
{
    session->setTrimEndPosition(20);
    session->seek(20, true);
    post(notifications::kSetTrimPointToPlayhead, {{QStringLiteral("point"), QStringLiteral("start")}});
    EXPECT_EQ(session->trimStart(), 0);
    session->setTrimStart(5);
    session->seek(5, true);
    post(notifications::kSetTrimPointToPlayhead, {{QStringLiteral("point"), QStringLiteral("end")}});
    EXPECT_EQ(session->trimEndPosition(), 20);
}

TEST_F(StepFourPanel, AKeyAddsOneMarkerAndNotOneForEachObserver)
{
    session->seek(7, true);
    post(notifications::kMarkSyncPoint);
    EXPECT_THAT(session->trimMarkers(), ElementsAre(7));
    EXPECT_EQ(undoCount(), 1u);
}

TEST_F(StepFourPanel, AddsAMarkerAtThePlayhead)
{
    session->seek(7, true);
    step4.addMarker();
    EXPECT_THAT(session->trimMarkers(), ElementsAre(7));
    EXPECT_EQ(session->selectedTrimMarker(), 7);
    EXPECT_TRUE(session->hasInteractedWithStep4ExportControls());
}

TEST_F(StepFourPanel, DeletingAllMarkersAsksAndCanBeUndone)
{
    session->seek(7, true);
    step4.addMarker();
    step4.clearMarkers();
    ASSERT_THAT(dialogs.alerts, SizeIs(1));
    EXPECT_EQ(dialogs.alerts[0].title, QStringLiteral("Delete all markers?"));
    EXPECT_EQ(dialogs.alerts[0].message,
              QStringLiteral("All added markers will be deleted. The start and end positions will stay as they are."));
    EXPECT_EQ(dialogs.alerts[0].buttons, (QStringList{QStringLiteral("Delete All"), QStringLiteral("Cancel")}));
    EXPECT_TRUE(dialogs.alerts[0].isDestructive);
    EXPECT_THAT(session->trimMarkers(), SizeIs(1));
    const std::size_t before = undoCount();
    answer(0);
    EXPECT_THAT(session->trimMarkers(), IsEmpty());
    EXPECT_EQ(undoCount(), before + 1);
    session->undoLastStepEdit();
    EXPECT_THAT(session->trimMarkers(), ElementsAre(7));
}

TEST_F(StepFourPanel, MarkersStayWhenTheirDeletionIsCancelled)
{
    session->seek(7, true);
    step4.addMarker();
    step4.clearMarkers();
    answer(1);
    EXPECT_THAT(session->trimMarkers(), ElementsAre(7));
}

TEST_F(StepFourPanel, ResettingTheTrimsKeepsTheMarkersAndGoesToTheBeginning)
{
    session->seek(7, true);
    step4.addMarker();
    session->setTrimStart(3);
    session->setTrimEndPosition(20);
    step4.resetTrims();
    EXPECT_THAT(dialogs.alerts, IsEmpty());
    EXPECT_EQ(session->trimStart(), 0);
    EXPECT_EQ(session->trimEndPosition(), 30);
    EXPECT_EQ(session->currentTime(), 0);
    EXPECT_THAT(session->trimMarkers(), ElementsAre(7));
    session->undoLastStepEdit();
    EXPECT_EQ(session->trimStart(), 3);
    EXPECT_EQ(session->trimEndPosition(), 20);
}

TEST_F(StepFourPanel, TheExportButtonOpensTheSheetAndTellsOfAnExport)
{
    EXPECT_EQ(step4.exportTitleKey(), QStringLiteral("Export"));
    step4.openExportSheet();
    EXPECT_TRUE(session->showExportSheet());
    dialogs.savePlace = FileUrl("/out.mp4");
    dialogs.delay = 0.1;
    session->exportVideo(false);
    advance(0.5);
    ASSERT_TRUE(session->isExporting());
    EXPECT_TRUE(step4.isExporting());
    EXPECT_EQ(step4.exportTitleKey(), QStringLiteral("Exporting..."));
    session->cancelExport();
    advance(1);
    EXPECT_FALSE(step4.isExporting());
}

TEST_F(StepFourPanel, SaysWhatBecameOfTheExport)
{
    EXPECT_EQ(step4.statusMessage(), QString());
    dialogs.savePlace = FileUrl("/out.mp4");
    dialogs.delay = 0.1;
    session->exportVideo(false);
    advance(60);
    ASSERT_FALSE(session->isExporting());
    EXPECT_EQ(step4.statusMessage(), session->syncStatusMessage().value_or(QString()));
    EXPECT_NE(step4.statusMessage(), QString());
    EXPECT_EQ(step4.isStatusError(), session->syncStatusIsError());
}

TEST_F(StepFourPanel, TellsOfChangesAlone)
{
    session->seek(3, true);
    int told = 0;
    QObject::connect(&step4, &Step4Actions::changed, [&] { ++told; });
    session->seek(4, true);
    EXPECT_EQ(told, 0);
    session->seek(0, true);
    EXPECT_EQ(told, 1);
}

}
}
