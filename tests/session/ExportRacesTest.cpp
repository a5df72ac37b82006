// SPDX-License-Identifier: GPL-3.0-or-later
// Exports that are cancelled, followed at once by others, or outlived by nothing.
#include "session/SessionHarness.h"

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

/// Panels answer at once; the look at the disk takes 0.1 s, an export 10 s, its end after a cancel 0.03 s.
struct ExportRaces : SessionTest {
    ExportRaces()
    {
        enterComposite(WorkflowStep::step4, {20, 5}, {18, 3});
        dialogs.delay = 0;
        dialogs.savePlace = FileUrl("/nowhere/swim.mp4");
        localized = [](const QString& key) {
            return key == QLatin1String("Export Failed Format") ? text("Export failed: %@") : key;
        };
    }
    /// Presses the button and waits until the look at the disk is under way.
    FakeExporter& press()
    {
        session->exportVideo(false);
        advance(0.01);
        return *exporters.at(exporters.size() - 1);
    }
    FakeExporter& start()
    {
        FakeExporter& exporter = press();
        advance(0.1);
        EXPECT_TRUE(session->isExporting());
        return exporter;
    }
    void expectCancelledIsTold()
    {
        EXPECT_EQ(session->syncStatusMessage(), text("Export failed: Export was cancelled"));
        EXPECT_TRUE(session->syncStatusIsError());
        ASSERT_TRUE(session->exportNotification());
        EXPECT_EQ(session->exportNotification()->title, text("Export Notification Failure Title"));
        EXPECT_EQ(session->exportNotification()->message, text("Export was cancelled"));
        EXPECT_TRUE(session->exportNotification()->isError);
    }
};

TEST_F(ExportRaces, ACancelFreesTheSessionAtOnceAndIsToldWhenThePipelineHasEnded)
{
    FakeExporter& exporter = start();
    advance(3);
    session->cancelExport();
    EXPECT_TRUE(exporter.isCancelled());
    EXPECT_FALSE(session->isExporting());
    EXPECT_FALSE(session->exportNotification());
    EXPECT_FALSE(exporter.hasEnded);
    advance(0.05);
    EXPECT_TRUE(exporter.hasEnded);
    expectCancelledIsTold();
    EXPECT_TRUE(hasLogged(text("Export failed: Export was cancelled")));
}

TEST_F(ExportRaces, ACancelWithoutAnExportDoesNothing)
{
    session->cancelExport();
    advance(1);
    EXPECT_FALSE(session->exportNotification());
}

TEST_F(ExportRaces, NoProgressIsShownAfterACancel)
{
    FakeExporter& exporter = start();
    advance(3);
    session->cancelExport();
    const double shown = session->exportProgress();
    exporter.progressHandler(0.9);
    EXPECT_EQ(session->exportProgress(), shown);
    advance(1);
}

TEST_F(ExportRaces, ThePanelAfterACancelDoesNotWaitForThePipeline)
{
    exportScript.endingDelay = 60;
    start();
    session->cancelExport();
    exportScript.endingDelay = 0.03;
    FakeExporter& second = start();
    advance(11);
    EXPECT_TRUE(second.hasEnded);
    EXPECT_EQ(session->syncStatusMessage(), text("Export Complete"));
}

TEST_F(ExportRaces, TheEndOfACancelledExportTouchesNothingOfTheNextOne)
{
    exportScript.endingDelay = 2;
    FakeExporter& first = start();
    advance(3);
    session->cancelExport();
    FakeExporter& second = start();
    advance(1.01);
    ASSERT_FALSE(first.hasEnded);
    advance(1.01);
    ASSERT_TRUE(first.hasEnded);
    EXPECT_TRUE(session->isExporting());
    EXPECT_DOUBLE_EQ(session->exportProgress(), 0.2);
    EXPECT_EQ(session->exportNotification(), std::nullopt);
    EXPECT_EQ(session->syncStatusMessage(), std::nullopt);
    EXPECT_EQ(sleepInhibitor.live(), 1);
    first.progressHandler(0.99);
    EXPECT_DOUBLE_EQ(session->exportProgress(), 0.2);
    session->cancelExport();
    EXPECT_TRUE(second.isCancelled()) << "the running one can still be reached";
    advance(3);
    expectCancelledIsTold();
}

TEST_F(ExportRaces, TheEndOfACancelledExportDoesNotTakeTheWordFromOneThatIsOverAlready)
{
    exportScript.endingDelay = 30;
    FakeExporter& first = start();
    session->cancelExport();
    exportScript.seconds = 1;
    start();
    advance(29);
    const auto status = session->syncStatusMessage();
    ASSERT_EQ(status, text("Export Complete"));
    advance(5);
    ASSERT_TRUE(first.hasEnded);
    EXPECT_EQ(session->syncStatusMessage(), status);
    EXPECT_FALSE(session->exportNotification());
}

TEST_F(ExportRaces, TheEndOfACancelledExportIsToldWhileTheNextOneIsStillBeingChecked)
{
    exportScript.endingDelay = 2;
    start();
    session->cancelExport();
    exportScript.storageDelay = 5;
    FakeExporter& second = press();
    advance(3);
    expectCancelledIsTold();
    EXPECT_FALSE(second.isCancelled());
    advance(3);
    EXPECT_TRUE(session->isExporting());
    EXPECT_TRUE(second.params);
    advance(10);
    EXPECT_EQ(session->syncStatusMessage(), text("Export Complete"));
}

TEST_F(ExportRaces, AMovieThatWasFinishedInSpiteOfTheCancelIsToldOf)
{
    exportScript.finishesInSpiteOfCancel = true;
    start();
    advance(9.99);
    session->cancelExport();
    advance(1);
    EXPECT_EQ(session->syncStatusMessage(), text("Export Complete"));
    EXPECT_FALSE(session->isExporting());
}

TEST_F(ExportRaces, ACancelBeforeTheExportHasStartedIsToldAndStartsNothing)
{
    FakeExporter& exporter = press();
    session->cancelExport();
    advance(20);
    EXPECT_FALSE(exporter.params);
    EXPECT_FALSE(session->isExporting());
    EXPECT_EQ(session->syncStatusMessage(), text("Export failed: Export was cancelled"));
    EXPECT_THAT(sleepInhibitor.reasons, IsEmpty());
}

TEST_F(ExportRaces, AnExportThatIsStillBeingCheckedYieldsToTheNextWithoutAWord)
{
    exportScript.storageDelay = 60; // a disk that does not answer
    FakeExporter& first = press();
    exportScript.storageDelay = 0.1;
    dialogs.savePlace = FileUrl("/elsewhere/swim.mp4");
    FakeExporter& second = start();
    EXPECT_TRUE(first.isCancelled());
    advance(11);
    EXPECT_EQ(session->syncStatusMessage(), text("Export Complete"));
    advance(60);
    EXPECT_FALSE(first.params);
    EXPECT_TRUE(second.hasEnded);
    EXPECT_EQ(session->syncStatusMessage(), text("Export Complete"));
    EXPECT_FALSE(session->exportNotification());
}

TEST_F(ExportRaces, ARunningExportIsNeverReplacedByAnother)
{
    FakeExporter& first = start();
    session->setShowExportSheet(true);
    session->exportVideo(false);
    EXPECT_FALSE(session->showExportSheet());
    EXPECT_THAT(dialogs.savePanels, SizeIs(1));
    advance(1);
    EXPECT_THAT(exporters, SizeIs(1));
    session->cancelExport();
    EXPECT_TRUE(first.isCancelled());
    advance(1);
}

TEST_F(ExportRaces, APlaceChosenWhileAnEarlierExportHasStartedDoesNotTakeItOver)
{
    exportScript.storageDelay = 2;
    FakeExporter& first = press();
    dialogs.delay = 5;
    session->exportVideo(false);
    advance(3);
    ASSERT_TRUE(session->isExporting());
    advance(4); // the second panel has been answered
    EXPECT_THAT(exporters, SizeIs(1));
    EXPECT_TRUE(hasLogged(text("Export not started: another one is running")));
    session->cancelExport();
    EXPECT_TRUE(first.isCancelled());
    advance(1);
}

TEST_F(ExportRaces, OnePanelIsOpenAtATime)
{
    dialogs.delay = 1;
    session->exportVideo(false);
    advance(0.5);
    session->exportVideo(false);
    EXPECT_THAT(dialogs.savePanels, SizeIs(1));
    advance(1);
    EXPECT_THAT(exporters, SizeIs(1));
}

// The machine's sleep.

TEST_F(ExportRaces, SleepIsInhibitedFromTheStartUntilTheMovieIsDone)
{
    press();
    EXPECT_EQ(sleepInhibitor.live(), 0);
    advance(0.11);
    EXPECT_EQ(sleepInhibitor.live(), 1);
    EXPECT_THAT(sleepInhibitor.reasons, ElementsAre(text("Exporting...")));
    advance(9.8);
    EXPECT_EQ(sleepInhibitor.live(), 1);
    advance(0.2);
    EXPECT_EQ(sleepInhibitor.live(), 0);
}

TEST_F(ExportRaces, SleepIsAllowedAgainAfterAFailure)
{
    exportScript.error.emplace(ExportError::Case::missingVideoTrack);
    start();
    EXPECT_EQ(sleepInhibitor.live(), 1);
    advance(11);
    EXPECT_EQ(sleepInhibitor.live(), 0);
}

TEST_F(ExportRaces, SleepIsAllowedAgainAtTheCancel)
{
    start();
    session->cancelExport();
    EXPECT_EQ(sleepInhibitor.live(), 0);
    start();
    EXPECT_EQ(sleepInhibitor.live(), 1);
    advance(5);
    EXPECT_EQ(sleepInhibitor.live(), 1) << "the first one's end takes nothing from the second";
    advance(6);
    EXPECT_EQ(sleepInhibitor.live(), 0);
}

// The session's own end.

TEST_F(ExportRaces, TheSessionsEndCancelsTheExportAndLetsTheMachineSleep)
{
    FakeExporter& exporter = start();
    advance(3);
    session.reset();
    EXPECT_TRUE(exporter.isCancelled());
    EXPECT_EQ(sleepInhibitor.live(), 0);
    exporter.progressHandler(0.9);
    const size_t lines = log.size();
    advance(20);
    EXPECT_TRUE(exporters.front()->hasEnded);
    EXPECT_EQ(log.size(), lines);
}

TEST_F(ExportRaces, TheSessionMayEndAtAnyMoment)
{
    // From the opening of the panel to the end of the toast.
    for (double moment = 0; moment < 2.5; moment += 0.05) {
        SessionHarness other;
        other.enterComposite(WorkflowStep::step4, {20, 5}, {18, 3});
        other.dialogs.delay = 0.3;
        other.dialogs.savePlace = FileUrl("/"); // something is there: the question comes too
        other.exportScript.seconds = 1;
        other.session->exportVideo(false);
        other.advance(moment);
        other.session.reset();
        other.advance(20);
        EXPECT_EQ(other.sleepInhibitor.live(), 0) << moment;
        for (const auto& exporter : other.exporters)
            EXPECT_TRUE(exporter->isCancelled() || exporter->hasEnded) << moment;
    }
}

TEST_F(ExportRaces, TheSessionMayEndUnderTheAlertAboutRoom)
{
    exportScript.storage = StorageRequirement{1, 1000, 999};
    dialogs.delay = 1;
    session->exportVideo(false);
    advance(1.2);
    ASSERT_THAT(dialogs.alerts, SizeIs(1));
    session.reset();
    advance(5);
    EXPECT_FALSE(exporters.front()->params);
}

}
}
