// SPDX-License-Identifier: GPL-3.0-or-later
#include "LiveSession.h"

#include "render/export/Exporting.h"
#include "session/ExportInputs.h"
#include "support/FootageMaker.h"
#include "support/MovieProbe.h"

#include <fstream>
#include <gmock/gmock.h>
#include <random>

namespace zumeta::test {
namespace {

using WorkflowStep = CompositorViewModel::WorkflowStep;
using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

FootageSpec swimSpec(Side side)
{
    FootageSpec spec;
    spec.side = side;
    spec.frames = 120;
    spec.sound.emplace();
    return spec;
}

std::string bytesOf(const std::filesystem::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// Two recordings of 4 s: the above one is locked at 2 s, the below one at 1 s, so that 3 s are common.
struct ExportJourney : testing::Test {
    TemporaryFolder folder;
    TemporaryFolder output;
    LiveSession live{folder.path()};
    CompositorViewModel& session = live.session();

    void SetUp() override
    {
        ASSERT_TRUE(live.load(Side::above, {FootageMaker::make(swimSpec(Side::above))}));
        session.seek(2, true);
        session.toggleAboveLock();
        session.onPickWaterline(0.5);
        ASSERT_TRUE(live.waitFor([&] { return session.alignmentPointAbove().has_value(); }));
        session.setCurrentStep(WorkflowStep::step2);
        ASSERT_TRUE(live.load(Side::below, {FootageMaker::make(swimSpec(Side::below))}));
        session.seek(1, true);
        session.toggleBelowLock();
        session.onPickWaterline(0.5);
        ASSERT_TRUE(live.waitFor([&] { return session.alignmentPointBelow().has_value(); }));
        session.setCurrentStep(WorkflowStep::step3);
        session.setCurrentStep(WorkflowStep::step4);
        session.setSelectedResolution(ExportResolutionType::hd720);
    }
    ExportParameters parameters()
    {
        const Sides<std::optional<double>> locks{session.manualSyncTimeAbove(), session.manualSyncTimeBelow()};
        return exportParameters({session.projectState(), session.projectConfig(), locks, session.selectedResolution(),
                                 session.selectedCamera()})
            .value();
    }
    void setTrims(double start, double end)
    {
        VideoCompositionConfig config = session.projectConfig();
        config.exportTrimStartSeconds = start;
        config.exportTrimEndSeconds = end;
        session.setProjectConfig(config);
    }
    void beginExport(const char* name)
    {
        live.dialogs().savePlaces = {output.url(name)};
        session.exportVideo(false);
        ASSERT_TRUE(live.waitFor([&] { return session.isExporting(); }));
    }
    void waitForEnd()
    {
        ASSERT_TRUE(live.waitFor([&] { return session.exportNotification().has_value(); }, 100));
    }
};

TEST_F(ExportJourney, TheMovieShowsWhatTheSessionShows)
{
    setTrims(1, 1.5);
    std::vector<double> progress;
    QObject::connect(&session, &PublishedFields::exportProgressChanged, &session,
                     [&] { progress.push_back(session.exportProgress()); });
    beginExport("swim.mp4");
    EXPECT_EQ(live.sleepInhibitor().live(), 1);
    waitForEnd();
    EXPECT_EQ(session.syncStatusMessage(), QStringLiteral("Export Complete"));
    EXPECT_FALSE(session.syncStatusIsError());
    EXPECT_FALSE(session.isExporting());
    EXPECT_EQ(session.exportNotification()->message, QStringLiteral("swim.mp4"));
    EXPECT_EQ(live.sleepInhibitor().live(), 0);

    ASSERT_THAT(progress, Not(IsEmpty()));
    EXPECT_TRUE(std::ranges::is_sorted(progress));
    EXPECT_EQ(progress.back(), 1);

    const MovieFacts movie = MovieProbe::facts(output.file("swim.mp4"));
    EXPECT_EQ(movie.count("video"), 1);
    EXPECT_EQ(movie.count("audio"), 1);
    EXPECT_EQ(movie.first("video")->number("width"), 1280);
    EXPECT_NEAR(movie.duration(), 0.5, 0.05);
    // The composite begins at the above video's 1 s; one second more is trimmed away.
    const ShownFrames shown = framesShownIn(output.file("swim.mp4"), parameters(), pictureFormat(swimSpec(Side::above)),
                                            pictureFormat(swimSpec(Side::below)));
    EXPECT_EQ(shown.above, counting(60, 15));
    EXPECT_EQ(shown.below, counting(30, 15));
    EXPECT_THAT(output.names(), ElementsAre("swim.mp4"));
}

TEST_F(ExportJourney, ACancelInTheMiddleLeavesNoFile)
{
    beginExport("swim.mp4");
    ASSERT_TRUE(live.waitFor([&] { return session.exportProgress() > 0.2; }));
    ASSERT_THAT(output.names(), ElementsAre("swim.mp4"));
    session.cancelExport();
    EXPECT_FALSE(session.isExporting());
    waitForEnd();
    EXPECT_EQ(session.exportNotification()->message, QStringLiteral("Export was cancelled"));
    EXPECT_THAT(output.names(), IsEmpty());
    EXPECT_EQ(live.sleepInhibitor().live(), 0);
}

TEST_F(ExportJourney, AFileThatIsThereStaysAsItIsUnlessItShallBeReplaced)
{
    setTrims(1, 1.5);
    std::ofstream(output.file("swim.mp4")) << "an older movie";
    live.dialogs().savePlaces = {output.url("swim.mp4"), output.url("swim.mp4")};
    live.dialogs().answers = {1, 0};
    session.exportVideo(false);
    ASSERT_TRUE(live.waitFor([&] { return live.dialogs().shown.size() == 1; }));
    EXPECT_EQ(live.dialogs().shown.front().title, QStringLiteral("File Exists Title"));
    live.run(0.3);
    EXPECT_FALSE(session.isExporting());
    EXPECT_EQ(bytesOf(output.file("swim.mp4")), "an older movie");

    session.exportVideo(false);
    waitForEnd();
    EXPECT_THAT(live.dialogs().shown, SizeIs(2));
    EXPECT_NEAR(MovieProbe::facts(output.file("swim.mp4")).duration(), 0.5, 0.05);
}

/// A volume that is as good as full.
class FullVolume final : public Volume {
public:
    VolumeCapacity capacityOfFolder(const FileUrl&) const override { return {12'500'000, std::nullopt}; }
};

TEST_F(ExportJourney, WithoutRoomNothingIsTouched)
{
    std::ofstream(output.file("swim.mp4")) << "an older movie";
    live.exportEnvironment().volume = std::make_shared<FullVolume>();
    live.dialogs().savePlaces = {output.url("swim.mp4")};
    live.dialogs().answers = {0, 0};
    session.exportVideo(false);
    ASSERT_TRUE(live.waitFor([&] { return live.dialogs().shown.size() == 2; }));
    EXPECT_EQ(live.dialogs().shown.back().title, QStringLiteral("Insufficient Storage Title"));
    live.run(0.3);
    EXPECT_FALSE(session.isExporting());
    EXPECT_THAT(live.sleepInhibitor().reasons, IsEmpty());
    EXPECT_EQ(bytesOf(output.file("swim.mp4")), "an older movie");
}

TEST_F(ExportJourney, AFolderThatIsGoneFailsTheExportAndNotTheCheck)
{
    live.dialogs().savePlaces = {output.url("gone/swim.mp4")};
    session.exportVideo(false);
    waitForEnd();
    EXPECT_TRUE(session.exportNotification()->isError);
    EXPECT_EQ(session.exportNotification()->message,
              QStringLiteral("swim.mp4 cannot be written: its folder does not exist"));
    EXPECT_TRUE(session.syncStatusIsError());
    EXPECT_THAT(live.dialogs().shown, IsEmpty());
}

TEST_F(ExportJourney, ARecordingIsNeverReplacedByItsMovie)
{
    const std::filesystem::path source = session.aboveVideoURL()->path();
    const std::string before = bytesOf(source);
    live.dialogs().savePlaces = {FileUrl(source)};
    live.dialogs().answers = {0};
    session.exportVideo(false);
    waitForEnd();
    EXPECT_EQ(session.exportNotification()->message, QStringLiteral("Output file already exists"));
    EXPECT_TRUE(bytesOf(source) == before);
}

TEST_F(ExportJourney, ANewExportToTheSamePlaceRightAfterACancelWins)
{
    setTrims(1, 1.5);
    std::mt19937 random(7); // any seed
    std::uniform_real_distribution<double> moments(0, 0.4);
    for (int i = 0; i < 8; ++i) {
        live.dialogs().answers = {0, 0}; // whatever stands there is replaced
        beginExport("swim.mp4");
        live.run(moments(random));
        session.cancelExport();
        beginExport("swim.mp4");
        ASSERT_TRUE(live.waitFor([&] { return !session.isExporting(); }, 100));
        EXPECT_EQ(session.exportNotification()->message, QStringLiteral("swim.mp4"));
        ASSERT_NEAR(MovieProbe::facts(output.file("swim.mp4")).duration(), 0.5, 0.05);
    }
    EXPECT_THAT(output.names(), ElementsAre("swim.mp4"));
}

TEST_F(ExportJourney, TheSessionsEndLeavesNothingHalfWritten)
{
    beginExport("swim.mp4");
    ASSERT_TRUE(live.waitFor([&] { return session.exportProgress() > 0.2; }));
    live.endSession();
    EXPECT_EQ(live.sleepInhibitor().live(), 0);
    EXPECT_TRUE(live.waitFor([&] { return output.names().empty(); }));
    live.run(0.1); // the task's own end
    EXPECT_THAT(output.names(), IsEmpty());
}

}
}
