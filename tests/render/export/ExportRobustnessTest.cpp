// SPDX-License-Identifier: GPL-3.0-or-later
// Failures and cancels that meet the export's threads where they wait for each other. Run under ThreadSanitizer too.
#include "Exporting.h"
#include "media/movie/FrameReadAhead.h"
#include "media/movie/MovieError.h"
#include "media/movie/MovieWriter.h"
#include "render/export/AudioExport.h"
#include "render/export/ExportRun.h"
#include "support/FileSizeLimit.h"

#include <QCoreApplication>
#include <atomic>
#include <future>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <latch>
#include <stdexcept>

namespace zumeta::test {

namespace {

/// Frames without pictures, numbered by their time; may wait for a permit before it gives one, or fail.
class ScriptedFrames final : public FrameSource {
public:
    explicit ScriptedFrames(int count)
        : m_count(count)
    {}
    std::optional<FrameSlot> next() override
    {
        const int asked = ++*asks;
        asks->notify_all();
        if (asked == blockAt)
            permit.wait();
        if (asked == failAt)
            throw std::runtime_error("the source broke");
        if (asked > m_count)
            return std::nullopt;
        return FrameSlot{{asked - 1, 1}, std::nullopt};
    }
    void waitForAsks(int least) const
    {
        for (int seen = *asks; seen < least; seen = *asks)
            asks->wait(seen);
    }

    const std::shared_ptr<std::atomic<int>> asks = std::make_shared<std::atomic<int>>(0); ///< outlives the source
    int blockAt = 0;
    int failAt = 0;
    std::latch permit{1};

private:
    int m_count;
};

class ThrowingSound final : public AudioSource {
public:
    std::optional<AudioBuffer> next() override { throw std::runtime_error("the sound broke"); }
};

/// A second of silence at a time, without end.
class EndlessSound final : public AudioSource {
public:
    std::optional<AudioBuffer> next() override
    {
        AudioBuffer buffer;
        buffer.presentationTime = {m_second++, 1};
        buffer.samples.resize(size_t(kSampleRate) * kChannels);
        return buffer;
    }

private:
    int64_t m_second = 0;
};

MovieSettings smallMovie()
{
    MovieSettings settings;
    settings.video.width = 64;
    settings.video.height = 64;
    settings.video.bitRate = 500'000;
    settings.audio = MovieAudioSettings{};
    settings.sessionEnd = {600, 1};
    return settings;
}

/// Appends frames, one for each second, until the writer refuses; gives the refusal.
std::optional<MovieError::Kind> appendUntilRefused(MovieWriter& writer)
{
    try {
        for (int64_t second = 0; second < 600; ++second)
            writer.appendVideo(writer.nextPicture(), {second, 1});
    } catch (const MovieError& error) {
        return error.kind();
    }
    return std::nullopt;
}

/// A second of two chapters of one recording, with sound. They lie ready: starting a process to make some
/// would make ThreadSanitizer lose its way.
ExportParameters shortExport()
{
    const std::filesystem::path footage = ZUMETA_FOOTAGE;
    ExportParameters params = compositeOf({footage / "GH010042.MP4"}, {footage / "GH020042.MP4"});
    params.exportTrimStartSeconds = 2;
    params.exportTrimEndSeconds = 2;
    return params;
}

/// An export on this thread; another one asks for its end when this share of it is done.
ExportOutcome runCancelledAt(double moment, const ExportParameters& params, const std::filesystem::path& output)
{
    std::stop_source stop;
    std::atomic<int> percent = -1;
    std::jthread canceller([&] {
        for (int seen = percent; seen < int(moment * 100); seen = percent)
            percent.wait(seen);
        stop.request_stop();
    });
    const auto report = [&percent](double fraction) {
        percent = int(fraction * 100);
        percent.notify_all();
    };
    ExportOutcome outcome = ExportRun(params, FileUrl(output), {}, stop.get_token(), report).run();
    report(1);
    return outcome;
}

ExportOutcome runWhole(const ExportParameters& params, const std::filesystem::path& output)
{
    return ExportRun(params, FileUrl(output), {}, {}, [](double) {}).run();
}

std::string textOf(const ExportOutcome& outcome)
{
    return outcome ? outcome->errorDescription().toStdString() : std::string();
}

}

TEST(FrameReadAhead, ReadsNoFurtherThanItsDepthAhead)
{
    auto source = std::make_unique<ScriptedFrames>(100);
    ScriptedFrames& frames = *source;
    FrameReadAhead ahead(std::move(source), 3);
    frames.waitForAsks(3);
    ASSERT_TRUE(ahead.next());
    frames.waitForAsks(4);
    // Three wait and one place is free at the most: whoever asks further would have to be seen by now and then.
    for (int i = 1; i < 90; ++i) {
        ASSERT_EQ(ahead.next()->presentationTime, (MediaTime{i, 1}));
        EXPECT_LE(*frames.asks, i + 1 + 3);
    }
}

TEST(FrameReadAhead, GivesWhatWasReadBeforeItsSourceBroke)
{
    auto source = std::make_unique<ScriptedFrames>(100);
    source->failAt = 4;
    FrameReadAhead ahead(std::move(source), 2);
    int count = 0;
    while (ahead.next())
        ++count;
    EXPECT_EQ(count, 3);
    EXPECT_FALSE(ahead.next());
}

TEST(FrameReadAhead, StoppingWakesWhoeverWaitsForAFrame)
{
    auto source = std::make_unique<ScriptedFrames>(100);
    ScriptedFrames& frames = *source;
    frames.blockAt = 1;
    FrameReadAhead ahead(std::move(source), 2);
    auto waiting = std::async(std::launch::async, [&] { return ahead.next().has_value(); });
    frames.waitForAsks(1);
    ahead.stop();
    EXPECT_FALSE(waiting.get()); // while the source is still at it
    frames.permit.count_down();
}

TEST(FrameReadAhead, AsksForNoFurtherFrameOnceItIsStopped)
{
    // A frame that is decoded for nobody holds up the end of a cancelled export.
    auto source = std::make_unique<ScriptedFrames>(100);
    const auto asks = source->asks;
    ScriptedFrames& frames = *source;
    {
        FrameReadAhead ahead(std::move(source), 1);
        frames.waitForAsks(1); // its frame takes the one place, and the thread waits
        ahead.stop();
    }
    EXPECT_EQ(*asks, 1);
}

TEST(AudioExport, SoundThatBreaksEndsThePictureThatWaitsForIt)
{
    const TemporaryFolder folder;
    const auto writer = MovieWriter::create(folder.url("movie.mp4"), smallMovie());
    AudioExport audio(std::make_unique<ThrowingSound>(), {0, 1}, *writer);
    EXPECT_EQ(appendUntilRefused(*writer), MovieError::Kind::cancelled);
    EXPECT_EQ(audio.wait(), "the sound broke");
    writer->removeFile();
    EXPECT_TRUE(folder.names().empty());
}

TEST(AudioExport, ACancelWakesSoundAndPictureWhereTheyWait)
{
    // With no picture the sound waits half a second in, with no sound the picture waits some seconds in.
    const TemporaryFolder folder;
    const auto soundAlone = MovieWriter::create(folder.url("sound.mp4"), smallMovie());
    AudioExport audio(std::make_unique<EndlessSound>(), {0, 1}, *soundAlone);
    const auto pictureAlone = MovieWriter::create(folder.url("picture.mp4"), smallMovie());
    auto picture = std::async(std::launch::async, [&] { return appendUntilRefused(*pictureAlone); });
    pictureAlone->cancelWriting();
    soundAlone->cancelWriting();
    EXPECT_EQ(audio.wait(), std::nullopt); // a cancel is no failure of the sound
    EXPECT_EQ(picture.get(), MovieError::Kind::cancelled);
}

TEST(ExportThreads, AFullDiskAtAnyMomentEndsTheExport)
{
    const TemporaryFolder folder;
    const ExportParameters params = shortExport();
    ASSERT_EQ(textOf(runWhole(params, folder.file("movie.mp4"))), "");
    const auto whole = std::filesystem::file_size(folder.file("movie.mp4"));
    std::filesystem::remove(folder.file("movie.mp4"));
    // From the first packets through the frames that the encoder holds back to the index at the very end. How the
    // threads met makes the index some bytes longer or shorter each time.
    std::vector<uintmax_t> limits = {whole - 1000, whole - 500};
    for (int share = 1; share < 8; ++share)
        limits.push_back(whole * uintmax_t(share) / 8);
    for (const uintmax_t limit : limits) {
        std::string error;
        {
            const FileSizeLimit full(limit);
            error = textOf(runWhole(params, folder.file("movie.mp4")));
        }
        EXPECT_THAT(error, testing::EndsWith("File too large")) << limit << " of " << whole;
        EXPECT_TRUE(folder.names().empty()) << limit;
    }
}

TEST(ExportThreads, ACancelAtAnyMomentEndsInNoFileOrInAWholeMovie)
{
    const TemporaryFolder folder;
    const ExportParameters params = shortExport();
    int cancelled = 0;
    for (const double moment : {-.01, .01, .03, .1, .3, .6, .9, .97, 1.0}) {
        const ExportOutcome outcome = runCancelledAt(moment, params, folder.file("movie.mp4"));
        if (!outcome) {
            EXPECT_TRUE(MediaAsset::load(folder.url("movie.mp4")).video) << moment;
            std::filesystem::remove(folder.file("movie.mp4"));
        } else {
            ++cancelled;
            EXPECT_EQ(textOf(outcome), "Export was cancelled") << moment;
            EXPECT_TRUE(folder.names().empty()) << moment;
        }
    }
    EXPECT_GE(cancelled, 4); // the early ones meet an export that has a good deal before it
}

TEST(ExportThreads, AFailureWhileTheMovieIsPreparedStopsTheReadersAndLeavesNothing)
{
    const TemporaryFolder folder;
    ExportParameters params = shortExport();
    params.showWatermark = true;
    ExportEnvironment environment;
    environment.drawMark = [](int, int) -> std::shared_ptr<const MarkImage> { throw std::runtime_error("no ink"); };
    const ExportOutcome outcome = ExportRun(params, folder.url("movie.mp4"), environment, {}, [](double) {}).run();
    EXPECT_EQ(textOf(outcome), "no ink");
    EXPECT_TRUE(folder.names().empty());
}

TEST(ExportService, ACancelWhileTheSourcesAreOpenedWritesNothing)
{
    const TemporaryFolder folder;
    const ExportParameters params = shortExport();
    ExportService service;
    auto future = service.start(params, folder.url("movie.mp4"), [](double) {});
    service.cancel(); // hardly more than the thread's start lies before it
    future.waitForFinished();
    ASSERT_TRUE(future.result());
    EXPECT_EQ(future.result()->errorDescription().toStdString(), "Export was cancelled");
    EXPECT_TRUE(folder.names().empty());
}

TEST(ExportService, AnExportGoesOnWhenItsServiceIsDropped)
{
    const TemporaryFolder folder;
    QFuture<ExportOutcome> future;
    {
        ExportService service;
        future = service.start(shortExport(), folder.url("movie.mp4"), [](double) {});
    }
    future.waitForFinished();
    EXPECT_FALSE(future.result());
    QCoreApplication::processEvents(); // what was still on its way to the one that is gone
    EXPECT_EQ(MovieProbe::facts(folder.file("movie.mp4")).count("video"), 1);
}

TEST(ExportService, ExportsBesideEachOtherDoNotDisturbEachOther)
{
    const TemporaryFolder folder;
    const ExportParameters params = shortExport();
    ExportService first;
    ExportService second;
    auto kept = first.start(params, folder.url("kept.mp4"), [](double) {});
    auto dropped = second.start(params, folder.url("dropped.mp4"), [](double) {});
    second.cancel();
    dropped.waitForFinished();
    kept.waitForFinished();
    EXPECT_FALSE(kept.result());
    EXPECT_TRUE(dropped.result());
    EXPECT_THAT(folder.names(), testing::ElementsAre("kept.mp4"));
}

}
