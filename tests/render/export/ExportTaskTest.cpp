// SPDX-License-Identifier: GPL-3.0-or-later
// Exports as the session awaits them, and exports that follow each other to one place. Run under ThreadSanitizer too.
#include "Exporting.h"
#include "render/export/ExportRun.h"

#include <QCoreApplication>
#include <QCoroTask>
#include <QThread>
#include <atomic>
#include <fstream>
#include <gmock/gmock.h>
#include <latch>
#include <random>
#include <system_error>
#include <thread>

namespace zumeta::test {
namespace {

ExportParameters shortExport()
{
    const std::filesystem::path footage = ZUMETA_FOOTAGE;
    ExportParameters params = compositeOf({footage / "GH010042.MP4"}, {footage / "GH020042.MP4"});
    params.exportTrimStartSeconds = 2;
    params.exportTrimEndSeconds = 2;
    return params;
}

std::string textOf(const ExportOutcome& outcome)
{
    return outcome ? outcome->errorDescription().toStdString() : std::string();
}

TEST(ExportsToOnePlace, ARunThatIsCancelledBeforeItBeginsLeavesWhatStandsAtItsPlace)
{
    // Its thread may come so late that the file is the next export's.
    const TemporaryFolder folder;
    std::ofstream(folder.file("movie.mp4")) << "the next export's";
    std::stop_source stop;
    stop.request_stop();
    EXPECT_EQ(textOf(ExportRun(shortExport(), folder.url("movie.mp4"), {}, stop.get_token(), [](double) {}).run()),
              "Export was cancelled");
    EXPECT_EQ(std::filesystem::file_size(folder.file("movie.mp4")), 17);
}

TEST(ExportsToOnePlace, ARunThatIsCancelledWhileItOpensItsSourcesMakesNoFileInTheNextOnesWay)
{
    const TemporaryFolder folder;
    std::latch isOpening{1};
    std::latch mayGoOn{1};
    std::atomic<bool> isFirst = true;
    ExportEnvironment environment;
    environment.loadAsset = [&](const FileUrl& url, const std::stop_token&) {
        const MediaAsset asset = MediaAsset::load(url);
        if (isFirst.exchange(false)) {
            isOpening.count_down();
            mayGoOn.wait();
        }
        return asset;
    };
    ExportService first(environment);
    ExportService second;
    auto cancelled = first.start(shortExport(), folder.url("movie.mp4"), [](double) {});
    isOpening.wait();
    first.cancel();
    auto finished = second.start(shortExport(), folder.url("movie.mp4"), [&](double) {});
    mayGoOn.count_down();
    cancelled.waitForFinished();
    finished.waitForFinished();
    EXPECT_EQ(textOf(cancelled.result()), "Export was cancelled");
    EXPECT_EQ(textOf(finished.result()), "");
    EXPECT_EQ(MovieProbe::facts(folder.file("movie.mp4")).count("video"), 1);
}

TEST(ExportsToOnePlace, ACancelledExportNeverHarmsTheNextOneToTheSamePlace)
{
    const TemporaryFolder folder;
    const ExportParameters params = shortExport();
    ExportParameters shorter = params; // so that the two movies can be told apart
    shorter.exportTrimEndSeconds = 2.7;
    ASSERT_EQ(runExport(shorter, folder.file("movie.mp4")).error(), "");
    const double expected = MediaAsset::load(folder.url("movie.mp4")).duration.seconds();
    std::filesystem::create_directory_symlink(folder.path(), folder.file("other-name"));
    std::mt19937 random(20); // any seed
    std::uniform_real_distribution<double> moments(0, 0.4);
    constexpr int kRepetitions = 16;
    for (int i = 0; i < kRepetitions; ++i) {
        const double moment = moments(random);
        ExportService first;
        ExportService second;
        auto old = first.start(params, folder.url("movie.mp4"), [](double) {});
        std::this_thread::sleep_for(std::chrono::duration<double>(moment)); // the moment is what is varied
        first.cancel();
        // Every other time by another name of the same folder.
        const FileUrl place = folder.url(i % 2 == 0 ? "movie.mp4" : "other-name/movie.mp4");
        auto next = second.start(shorter, place, [](double) {});
        old.waitForFinished();
        next.waitForFinished();
        ASSERT_EQ(textOf(next.result()), "") << moment;
        const MediaAsset movie = MediaAsset::load(folder.url("movie.mp4"));
        ASSERT_TRUE(movie.video) << moment;
        ASSERT_NEAR(movie.duration.seconds(), expected, 1e-6) << moment;
    }
    EXPECT_THAT(folder.names(), testing::ElementsAre("movie.mp4", "other-name"));
}

/// What a task of the service told, in order: progress, and -1 for its end.
Task<> noteExport(std::shared_ptr<Exporter> service, FileUrl output, ExportParameters params,
                  std::shared_ptr<std::vector<double>> notes, std::shared_ptr<ExportOutcome> outcome)
{
    const std::function<void(double)> progress = [notes](double fraction) { notes->push_back(fraction); };
    *outcome = co_await service->exportComposite(params, output, progress);
    EXPECT_EQ(QThread::currentThread(), QCoreApplication::instance()->thread());
    notes->push_back(-1);
}

TEST(ExportTask, TheLastProgressComesBeforeTheEndAndBothOnTheMainThread)
{
    const TemporaryFolder folder;
    const auto notes = std::make_shared<std::vector<double>>();
    const auto outcome = std::make_shared<ExportOutcome>();
    QCoro::waitFor(
        noteExport(std::make_shared<ExportService>(), folder.url("movie.mp4"), shortExport(), notes, outcome));
    EXPECT_EQ(textOf(*outcome), "");
    ASSERT_GE(notes->size(), 2u);
    EXPECT_EQ(notes->at(notes->size() - 2), 1);
    EXPECT_EQ(notes->back(), -1);
    EXPECT_TRUE(std::is_sorted(notes->begin(), notes->end() - 1));
}

TEST(ExportTask, AnExportThatFailsAtOnceEndsInALaterTurnToo)
{
    const TemporaryFolder folder;
    const auto notes = std::make_shared<std::vector<double>>();
    const auto outcome = std::make_shared<ExportOutcome>();
    const auto service = std::make_shared<ExportService>();
    const Task<> task = noteExport(service, folder.url("movie.mp4"), {}, notes, outcome);
    EXPECT_FALSE(task.isReady());
    service->cancel();
    QCoro::waitFor(task);
    EXPECT_TRUE(*outcome);
    EXPECT_THAT(*notes, testing::ElementsAre(-1));
}

TEST(ExportTask, GoesOnToItsEndWhenTheServiceIsDropped)
{
    const TemporaryFolder folder;
    auto service = std::make_unique<ExportService>();
    const Task<ExportOutcome> task = service->exportComposite(shortExport(), folder.url("movie.mp4"), [](double) {});
    service.reset();
    EXPECT_EQ(textOf(QCoro::waitFor(task)), "");
    EXPECT_EQ(MovieProbe::facts(folder.file("movie.mp4")).count("video"), 1);
}

/// Notes the thread that asks, and says what the test wants.
class NotingVolume final : public Volume {
public:
    VolumeCapacity capacityOfFolder(const FileUrl& folder) const override
    {
        askedFor = folder;
        thread = QThread::currentThread();
        if (!isReadable)
            throw std::system_error(EIO, std::generic_category());
        return {1'000'000'000, std::nullopt};
    }
    bool isReadable = true;
    mutable FileUrl askedFor;
    mutable QThread* thread = nullptr;
};

TEST(ExportTask, TheFreeSpaceIsReadOffTheMainThread)
{
    const auto volume = std::make_shared<NotingVolume>();
    ExportEnvironment environment;
    environment.volume = volume;
    ExportService service(environment);
    const TemporaryFolder folder;
    const auto requirement =
        QCoro::waitFor(service.storageRequirement(60, ExportResolutionType::hd1080, folder.url("movie.mp4")));
    ASSERT_TRUE(requirement);
    EXPECT_EQ(*requirement, (StorageRequirement{119'133'000, 119'133'000 + 268'435'456, 1'000'000'000}));
    EXPECT_EQ(volume->askedFor, FileUrl(folder.path()));
    EXPECT_NE(volume->thread, QThread::currentThread());
}

TEST(ExportTask, AVolumeThatCannotBeReadGivesNoRequirement)
{
    const auto volume = std::make_shared<NotingVolume>();
    volume->isReadable = false;
    ExportEnvironment environment;
    environment.volume = volume;
    ExportService service(environment);
    EXPECT_EQ(QCoro::waitFor(service.storageRequirement(60, ExportResolutionType::hd1080, FileUrl("/x/movie.mp4"))),
              std::nullopt);
}

TEST(ExportTask, AFolderThatIsNotThereGivesNoRequirement)
{
    ExportService service;
    const TemporaryFolder folder;
    EXPECT_EQ(QCoro::waitFor(
                  service.storageRequirement(60, ExportResolutionType::hd1080, folder.url("gone/deeper/movie.mp4"))),
              std::nullopt);
}

}
}
