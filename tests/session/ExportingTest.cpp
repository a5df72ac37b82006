// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/SessionHarness.h"
#include "support/TemporaryFolder.h"

#include <fstream>

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

/// Two videos in Step 4: 20 s and 18 s long, which overlap from their locks on both sides for 16 s.
struct Exporting : SessionTest {
    Exporting()
    {
        enterComposite(WorkflowStep::step4, {20, 5}, {18, 3});
        dialogs.delay = 1;
        dialogs.savePlace = FileUrl("/nowhere/swim.mp4");
    }
    FakeExporter& exporter() { return *exporters.at(exporters.size() - 1); }
    /// Presses the button and waits until the pipeline has begun.
    void start()
    {
        session->exportVideo(false);
        advance(1.15); // the panel's second, and the look at the disk
        ASSERT_TRUE(session->isExporting());
    }
};

TEST_F(Exporting, ClosesTheSheetAndAsksForAPlace)
{
    session->setShowExportSheet(true);
    session->exportVideo(false);
    EXPECT_FALSE(session->showExportSheet());
    ASSERT_THAT(dialogs.savePanels, SizeIs(1));
    EXPECT_EQ(dialogs.savePanels.front().extension, text("mp4"));
    advance(2);
}

struct LocalTimeZone {
    explicit LocalTimeZone(const char* zone)
        : before(qgetenv("TZ"))
    {
        qputenv("TZ", zone);
    }
    ~LocalTimeZone() { before.isEmpty() ? qunsetenv("TZ") : qputenv("TZ", before); }
    LocalTimeZone(const LocalTimeZone&) = delete; // it stands for the process's one zone
    LocalTimeZone& operator=(const LocalTimeZone&) = delete;
    QByteArray before;
};

TEST_F(Exporting, ProposesANameWithTheSizeAndTheLocalTime)
{
    wallClock.time = std::chrono::sys_days(std::chrono::year(2026) / 11 / 15) + std::chrono::minutes(18 * 60 + 52);
    session->setSelectedResolution(ExportResolutionType::hd1080);
    dialogs.savePlace.reset();
    for (const auto& [zone, name] :
         {std::pair("UTC0", "Zumeta_1080p_2026_1115_1852.mp4"), std::pair("JST-9", "Zumeta_1080p_2026_1116_0352.mp4"),
          std::pair("PST8", "Zumeta_1080p_2026_1115_1052.mp4")}) {
        const LocalTimeZone local(zone);
        session->exportVideo(false);
        EXPECT_EQ(dialogs.savePanels.back().proposedName, text(name));
        advance(3);
    }
    EXPECT_THAT(dialogs.savePanels, SizeIs(3));
}

TEST_F(Exporting, NothingMoreHappensWhenThePanelIsClosed)
{
    dialogs.savePlace.reset();
    session->exportVideo(false);
    advance(30);
    EXPECT_THAT(exporters, IsEmpty());
    EXPECT_FALSE(session->isExporting());
    EXPECT_FALSE(session->exportNotification());
}

TEST_F(Exporting, NeverDrawsTheMarkWhateverTheSheetSays)
{
    session->exportVideo(true);
    EXPECT_FALSE(session->shouldShowWatermark());
    advance(1.15);
    ASSERT_TRUE(exporter().params);
    EXPECT_FALSE(exporter().params->showWatermark);
}

TEST_F(Exporting, HandsTheSessionsValuesToTheExport)
{
    edit([](VideoCompositionConfig& config) {
        config.aboveZoom = 3;
        config.waterlineHeight = 260;
        config.exportTrimStartSeconds = 2;
        config.exportTrimEndSeconds = 1;
    });
    session->setSelectedResolution(ExportResolutionType::uhd4k);
    session->setSelectedCamera(CameraType::insta360);
    start();
    ASSERT_TRUE(exporter().params);
    const ExportParameters& params = *exporter().params;
    EXPECT_THAT(params.aboveVideoURLs, ElementsAre(FileUrl("/above.mp4")));
    EXPECT_THAT(params.belowVideoURLs, ElementsAre(FileUrl("/below.mp4")));
    EXPECT_EQ(params.manualSyncTimeAbove, 5);
    EXPECT_EQ(params.manualSyncTimeBelow, 3);
    EXPECT_EQ(params.aboveZoom, 68);
    EXPECT_EQ(params.waterlineHeight, 260);
    EXPECT_EQ(params.exportTrimStartSeconds, 2);
    EXPECT_EQ(params.exportTrimEndSeconds, 1);
    EXPECT_EQ(params.resolution, ExportResolutionType::uhd4k);
    EXPECT_EQ(exporter().outputURL, FileUrl("/nowhere/swim.mp4"));
}

TEST_F(Exporting, AsksForRoomForTheTrimmedRange)
{
    edit([](VideoCompositionConfig& config) {
        config.exportTrimStartSeconds = 2;
        config.exportTrimEndSeconds = 1.5;
    });
    session->setSelectedResolution(ExportResolutionType::hd1080);
    start();
    ASSERT_TRUE(exporter().question);
    EXPECT_DOUBLE_EQ(exporter().question->exportDuration, session->duration() - 3.5);
    EXPECT_EQ(exporter().question->resolution, ExportResolutionType::hd1080);
    EXPECT_EQ(exporter().question->outputURL, FileUrl("/nowhere/swim.mp4"));
}

TEST_F(Exporting, AsksForRoomForNothingWhenTheTrimsLeaveNothing)
{
    edit([](VideoCompositionConfig& config) { config.exportTrimEndSeconds = 99; });
    start();
    EXPECT_EQ(exporter().question->exportDuration, 0);
}

TEST_F(Exporting, StopsWithoutAWordWhenAVideoIsMissing)
{
    loadAbove("/second.mp4");
    session->clearBelowVideo();
    const QString before = session->syncStatusMessage().value_or(QString());
    session->exportVideo(false);
    advance(10);
    EXPECT_TRUE(hasLogged(text("Export failed: Missing video URLs")));
    ASSERT_THAT(exporters, SizeIs(1));
    EXPECT_FALSE(exporter().question);
    EXPECT_FALSE(exporter().params);
    EXPECT_FALSE(session->isExporting());
    EXPECT_FALSE(session->exportNotification());
    EXPECT_EQ(session->syncStatusMessage().value_or(QString()), before);
    EXPECT_THAT(dialogs.alerts, IsEmpty());
    session->cancelExport();
    EXPECT_TRUE(exporter().isCancelled()) << "it is the session's until the next one comes";
}

TEST_F(Exporting, AUrlWithoutItsRecordStopsWithoutAWord)
{
    // The URL is there early in a load, the record only when the file has been looked at.
    session->resetProject();
    session->loadAboveVideo({media.add("/above.mp4", {.metadataDelay = 60})});
    session->loadBelowVideo({media.add("/below.mp4", {.metadataDelay = 60})});
    advance(0.1);
    ASSERT_TRUE(session->aboveVideoURL() && session->belowVideoURL() && session->canExport());
    session->exportVideo(false);
    advance(10);
    EXPECT_TRUE(hasLogged(text("Export failed: Missing video URLs")));
    EXPECT_FALSE(session->isExporting());
    EXPECT_FALSE(session->exportNotification());
    advance(100); // the loads end before what they ask
}

TEST_F(Exporting, GoesAheadWhenTheFreeSpaceCannotBeRead)
{
    exportScript.storage = std::nullopt;
    start();
    EXPECT_TRUE(exporter().params);
    EXPECT_THAT(dialogs.alerts, IsEmpty());
}

TEST_F(Exporting, GoesAheadWhenThereIsJustEnoughRoom)
{
    exportScript.storage = StorageRequirement{1, 1000, 1000};
    start();
    EXPECT_TRUE(exporter().params);
}

TEST_F(Exporting, IsRefusedWithoutEnoughRoomAlthoughTheFileMightFit)
{
    constexpr int64_t kMegabyte = 1'000'000;
    exportScript.storage = StorageRequirement{800 * kMegabyte, 800 * kMegabyte + 268'435'456, 1000 * kMegabyte};
    session->exportVideo(false);
    advance(1.15);
    ASSERT_THAT(dialogs.alerts, SizeIs(1));
    EXPECT_THAT(dialogs.alerts.front().buttons, ElementsAre(text("[OK]")));
    advance(20);
    EXPECT_FALSE(exporter().params) << "no file may be touched";
    EXPECT_FALSE(session->isExporting());
    EXPECT_FALSE(session->exportNotification());
    EXPECT_THAT(sleepInhibitor.reasons, IsEmpty());
    session->cancelExport();
    EXPECT_FALSE(exporter().isCancelled()) << "it is not the session's any more";
}

TEST_F(Exporting, CanBeTriedAgainAfterARefusal)
{
    exportScript.storage = StorageRequirement{1, 1000, 999};
    session->exportVideo(false);
    advance(5);
    exportScript.storage.reset();
    start();
    advance(20);
    EXPECT_EQ(session->syncStatusMessage(), text("[Export Complete]"));
}

TEST_F(Exporting, ShowsProgressThatNeverGoesBackward)
{
    start();
    EXPECT_EQ(session->exportProgress(), 0);
    advance(5.02);
    EXPECT_DOUBLE_EQ(session->exportProgress(), 0.5);
    exporter().progressHandler(0.4);
    EXPECT_DOUBLE_EQ(session->exportProgress(), 0.5);
    advance(6);
    EXPECT_EQ(session->exportProgress(), 1);
}

TEST_F(Exporting, ANewExportBeginsItsProgressAtZero)
{
    start();
    advance(20);
    ASSERT_EQ(session->exportProgress(), 1);
    start();
    EXPECT_EQ(session->exportProgress(), 0);
}

TEST_F(Exporting, EndsWithAMovieInStatusToastAndLog)
{
    start();
    int changes = 0;
    QObject::connect(session.get(), &PublishedFields::changed, session.get(), [&] { ++changes; });
    advance(10.1);
    EXPECT_FALSE(session->isExporting());
    EXPECT_EQ(session->syncStatusMessage(), text("[Export Complete]"));
    EXPECT_FALSE(session->syncStatusIsError());
    ASSERT_TRUE(session->exportNotification());
    EXPECT_FALSE(session->exportNotification()->id.isNull());
    EXPECT_EQ(session->exportNotification()->title, text("[Export Notification Success Title]"));
    EXPECT_EQ(session->exportNotification()->message, text("swim.mp4"));
    EXPECT_FALSE(session->exportNotification()->isError);
    EXPECT_TRUE(hasLogged(text("Export successful!")));
    EXPECT_EQ(changes, 11) << "ten steps of progress, and the end as one change";
}

TEST_F(Exporting, EndsInFailureWithTheErrorsWords)
{
    localized = [](const QString& key) {
        return key == QLatin1String("Export Failed Format") ? text("Export failed: %@") : key;
    };
    exportScript.error.emplace(ExportError::Case::assetWriterFailed, text("No space left on device"));
    start();
    advance(10.1);
    EXPECT_FALSE(session->isExporting());
    EXPECT_EQ(session->syncStatusMessage(), text("Export failed: Asset writer failed: No space left on device"));
    EXPECT_TRUE(session->syncStatusIsError());
    ASSERT_TRUE(session->exportNotification());
    EXPECT_EQ(session->exportNotification()->title, text("Export Notification Failure Title"));
    EXPECT_EQ(session->exportNotification()->message, text("Asset writer failed: No space left on device"));
    EXPECT_TRUE(session->exportNotification()->isError);
    EXPECT_TRUE(hasLogged(text("Export failed: Asset writer failed: No space left on device")));
}

TEST_F(Exporting, ASuccessTakesTheErrorOffTheStatusLine)
{
    exportScript.error.emplace(ExportError::Case::unknown);
    start();
    advance(11);
    ASSERT_TRUE(session->syncStatusIsError());
    exportScript.error.reset();
    start();
    advance(11);
    EXPECT_FALSE(session->syncStatusIsError());
}

// A file that stands at the chosen place.

struct ExportingOverAFile : Exporting {
    TemporaryFolder folder;

    ExportingOverAFile()
    {
        std::ofstream(folder.file("old.mp4")) << "old";
        dialogs.savePlace = folder.url("old.mp4");
    }
};

TEST_F(ExportingOverAFile, AsksBeforeItIsReplaced)
{
    session->exportVideo(false);
    advance(1.01);
    ASSERT_THAT(dialogs.alerts, SizeIs(1));
    EXPECT_EQ(dialogs.alerts.front().title, text("[File Exists Title]"));
    EXPECT_EQ(dialogs.alerts.front().message, text("[File Exists Message]"));
    EXPECT_THAT(dialogs.alerts.front().buttons, ElementsAre(text("[Replace]"), text("[Cancel]")));
    EXPECT_TRUE(dialogs.alerts.front().isDestructive);
    EXPECT_THAT(exporters, IsEmpty());
    advance(1.2);
    EXPECT_TRUE(session->isExporting());
    EXPECT_EQ(exporter().outputURL, folder.url("old.mp4"));
}

TEST_F(ExportingOverAFile, LeavesItAloneWhenTheAnswerIsNo)
{
    dialogs.answer = 1; // also what a question gives that was closed without an answer
    session->exportVideo(false);
    advance(10);
    EXPECT_THAT(exporters, IsEmpty());
    EXPECT_FALSE(session->isExporting());
    dialogs.answer = 0;
    session->exportVideo(false);
    advance(2.2);
    EXPECT_TRUE(session->isExporting()) << "the next wish is heard again";
}

TEST_F(ExportingOverAFile, AsksToReplaceALinkThatLeadsNowhere)
{
    std::filesystem::create_symlink("/nowhere/at/all.mp4", folder.file("link.mp4"));
    dialogs.savePlace = folder.url("link.mp4");
    session->exportVideo(false);
    advance(1.01);
    EXPECT_THAT(dialogs.alerts, SizeIs(1));
    advance(5);
}

TEST_F(ExportingOverAFile, AsksForRoomOnlyAfterTheAnswerAndKeepsTheFileWhenThereIsNone)
{
    exportScript.storage = StorageRequirement{1, 1000, 999};
    session->exportVideo(false);
    advance(10);
    ASSERT_THAT(dialogs.alerts, SizeIs(2));
    EXPECT_EQ(dialogs.alerts[1].title, text("[Insufficient Storage Title]"));
    EXPECT_TRUE(std::filesystem::exists(folder.file("old.mp4")));
}

// The message that an export leaves.

TEST_F(Exporting, TheToastStandsForFiveSeconds)
{
    start();
    session->cancelExport();
    while (!session->exportNotification())
        advance(0.001);
    advance(4.99);
    EXPECT_TRUE(session->exportNotification());
    advance(0.02);
    EXPECT_FALSE(session->exportNotification());
}

TEST_F(Exporting, ASecondToastStandsForItsOwnFiveSeconds)
{
    exportScript.seconds = 1;
    start();
    advance(1.1);
    ASSERT_TRUE(session->exportNotification());
    const QUuid first = session->exportNotification()->id;
    start();
    advance(1.1); // three seconds after the first
    ASSERT_TRUE(session->exportNotification());
    const QUuid second = session->exportNotification()->id;
    EXPECT_NE(first, second);
    advance(3.5); // the first one's time is over
    ASSERT_TRUE(session->exportNotification());
    EXPECT_EQ(session->exportNotification()->id, second);
    advance(1.6);
    EXPECT_FALSE(session->exportNotification());
}

TEST_F(Exporting, ADismissedToastGoesAtOnceAndTakesNoLaterOneAlong)
{
    exportScript.seconds = 1;
    start();
    advance(1.1);
    session->dismissExportNotification();
    EXPECT_FALSE(session->exportNotification());
    start();
    advance(1.1);
    ASSERT_TRUE(session->exportNotification());
    advance(4); // past the dismissed one's time
    EXPECT_TRUE(session->exportNotification());
}

TEST_F(Exporting, DismissingNothingChangesNothing)
{
    int changes = 0;
    QObject::connect(session.get(), &PublishedFields::exportNotificationChanged, session.get(), [&] { ++changes; });
    session->dismissExportNotification();
    EXPECT_EQ(changes, 0);
}

}
}
