// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/export/ExportStatusModel.h"

#include "session/SessionHarness.h"

#include <QSignalSpy>

namespace zumeta {
namespace {

using namespace test;
using testing::ElementsAre;

QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

/// Two videos in Step 4. An export of them takes 10 s.
struct ExportStatus : SessionTest {
    ExportStatus()
    {
        enterComposite(WorkflowStep::step4, {20, 5}, {18, 3});
        dialogs.savePlace = FileUrl("/nowhere/swim.mp4");
    }
    /// Until the pipeline has begun: the panel's second, and the look at the disk.
    void start()
    {
        session->exportVideo(false);
        advance(1.15);
        ASSERT_TRUE(status.isExporting());
    }
    ExportStatusModel status{*session};
};

TEST(WholePercent, CountsCompleteHundredths)
{
    EXPECT_EQ(wholePercent(0), 0);
    EXPECT_EQ(wholePercent(0.0099), 0);
    EXPECT_EQ(wholePercent(0.647), 64);
    EXPECT_EQ(wholePercent(0.9999), 99);
    EXPECT_EQ(wholePercent(1), 100);
}

TEST(WholePercent, IsExactForEveryHundredth)
{
    for (int percent = 0; percent <= 100; ++percent)
        EXPECT_EQ(wholePercent(percent / 100.0), percent);
}

TEST_F(ExportStatus, FollowsAnExportFromItsBeginningToItsEnd)
{
    const QSignalSpy told(&status, &ExportStatusModel::isExportingChanged);
    std::vector<int> percents;
    QObject::connect(&status, &ExportStatusModel::progressChanged, [&] { percents.push_back(status.percent()); });
    EXPECT_FALSE(status.isExporting());
    start();
    advance(11);
    EXPECT_FALSE(status.isExporting());
    EXPECT_EQ(told.count(), 2);
    EXPECT_THAT(percents, ElementsAre(10, 20, 30, 40, 50, 60, 70, 80, 90, 100));
}

TEST_F(ExportStatus, CancelsTheExport)
{
    start();
    status.cancel();
    EXPECT_FALSE(status.isExporting());
    advance(1);
    EXPECT_TRUE(exporters.back()->isCancelled());
}

TEST_F(ExportStatus, ShowsWhatAnExportHasLeftToSayForFiveSeconds)
{
    start();
    advance(10);
    ASSERT_TRUE(status.hasNotification());
    EXPECT_EQ(status.title(), text("[Export Notification Success Title]"));
    EXPECT_EQ(status.message(), text("swim.mp4"));
    EXPECT_FALSE(status.isError());
    advance(4);
    EXPECT_TRUE(status.hasNotification());
    advance(1.1);
    EXPECT_FALSE(status.hasNotification());
}

TEST_F(ExportStatus, TellsAnErrorFromASuccess)
{
    exportScript.error = ExportError(ExportError::Case::exportCancelled);
    start();
    advance(10.1);
    ASSERT_TRUE(status.hasNotification());
    EXPECT_TRUE(status.isError());
    EXPECT_EQ(status.title(), text("[Export Notification Failure Title]"));
    EXPECT_EQ(status.message(), exportScript.error->errorDescription());
}

TEST_F(ExportStatus, TakesTheMessageAwayAndKeepsItsWordsReadableMeanwhile)
{
    start();
    advance(10);
    ASSERT_TRUE(status.hasNotification());
    const QSignalSpy told(&status, &ExportStatusModel::notificationChanged);
    status.dismiss();
    EXPECT_FALSE(status.hasNotification());
    EXPECT_EQ(told.count(), 1);
    EXPECT_EQ(status.message(), text("swim.mp4"));
}

TEST_F(ExportStatus, AnOlderMessagesTimeTakesNoNewerOneAway)
{
    exportScript.seconds = 1;
    start();
    advance(1); // the first message is there, until 5 s from now
    ASSERT_TRUE(status.hasNotification());
    dialogs.savePlace = FileUrl("/nowhere/second.mp4");
    start();
    advance(1);
    ASSERT_EQ(status.message(), text("second.mp4"));
    advance(3.5);
    EXPECT_TRUE(status.hasNotification());
    advance(2);
    EXPECT_FALSE(status.hasNotification());
}

}
}
