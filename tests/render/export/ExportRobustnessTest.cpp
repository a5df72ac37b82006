// SPDX-License-Identifier: GPL-3.0-or-later
// Failures and cancels that meet the export's threads where they wait for each other. Run under ThreadSanitizer too.
#include "Exporting.h"
#include "media/movie/MovieError.h"
#include "media/movie/MovieWriter.h"
#include "render/export/AudioExport.h"
#include "render/export/FrameReadAhead.h"
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

FootageSpec film(Side side, int frames)
{
    FootageSpec spec;
    spec.side = side;
    spec.frames = frames;
    spec.sound = SoundSpec{};
    return spec;
}

ExportParameters shortExport(int frames = 45)
{
    return compositeOf({FootageMaker::make(film(Side::above, frames))},
                       {FootageMaker::make(film(Side::below, frames))});
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

TEST(ExportRobustness, ADiskThatFillsUpAtAnyMomentEndsTheExport)
{
    const TemporaryFolder folder;
    const ExportParameters params = shortExport();
    ASSERT_EQ(runExport(params, folder.file("movie.mp4")).error(), "");
    const auto whole = std::filesystem::file_size(folder.file("movie.mp4"));
    std::filesystem::remove(folder.file("movie.mp4"));
    // From the first packets through the frames that the encoder holds back to the index at the very end. How the
    // threads met makes the index some bytes longer or shorter each time.
    std::vector<uintmax_t> limits = {whole - 1000, whole - 500};
    for (int share = 1; share < 8; ++share)
        limits.push_back(whole * uintmax_t(share) / 8);
    for (const uintmax_t limit : limits) {
        ExportReport report;
        {
            const FileSizeLimit full(limit);
            report = runExport(params, folder.file("movie.mp4"));
        }
        EXPECT_TRUE(report.inTime) << limit;
        EXPECT_THAT(report.error(), testing::EndsWith("File too large")) << limit << " of " << whole;
        EXPECT_THAT(report.progress, testing::Not(testing::IsSupersetOf({1.0, 1.0}))) << limit; // never told finished
        EXPECT_TRUE(folder.names().empty()) << limit;
    }
}

TEST(ExportRobustness, ACancelAtAnyMomentEndsInNoFileOrInAWholeMovie)
{
    const TemporaryFolder folder;
    const ExportParameters params = shortExport();
    int cancelled = 0;
    for (const double moment : {.0, .03, .3, .6, .9, .97, 1.0}) {
        const ExportReport report =
            runExport(params, folder.file("movie.mp4"), [&](ExportService& service, double fraction) {
                if (fraction >= moment)
                    service.cancel();
            });
        EXPECT_TRUE(report.inTime) << moment;
        if (report.error().empty()) {
            EXPECT_EQ(MovieProbe::facts(folder.file("movie.mp4")).count("video"), 1) << moment;
            std::filesystem::remove(folder.file("movie.mp4"));
        } else {
            ++cancelled;
            EXPECT_EQ(report.error(), "Export was cancelled") << moment;
            EXPECT_TRUE(folder.names().empty()) << moment;
        }
    }
    EXPECT_GE(cancelled, 3); // the early ones meet an export that has a good deal before it
}

TEST(ExportRobustness, ACancelWhileTheSourcesAreOpenedWritesNothing)
{
    const TemporaryFolder folder;
    const ExportParameters params = shortExport();
    ExportService service;
    auto future = service.exportComposite(params, folder.url("movie.mp4"), [](double) {});
    service.cancel(); // hardly more than the thread's start lies before it
    future.waitForFinished();
    ASSERT_TRUE(future.result());
    EXPECT_EQ(future.result()->errorDescription().toStdString(), "Export was cancelled");
    EXPECT_TRUE(folder.names().empty());
}

TEST(ExportRobustness, AFailureWhileTheMovieIsPreparedStopsTheReadersAndLeavesNothing)
{
    const TemporaryFolder folder;
    ExportParameters params = shortExport();
    params.showWatermark = true;
    ExportEnvironment environment;
    environment.drawMark = [](int, int) -> std::shared_ptr<const MarkImage> { throw std::runtime_error("no ink"); };
    const ExportReport report = runExport(params, folder.file("movie.mp4"), {}, environment);
    EXPECT_TRUE(report.inTime);
    EXPECT_EQ(report.error(), "no ink");
    EXPECT_TRUE(folder.names().empty());
}

TEST(ExportRobustness, AnExportGoesOnWhenItsServiceIsDropped)
{
    const TemporaryFolder folder;
    QFuture<ExportOutcome> future;
    {
        ExportService service;
        future = service.exportComposite(shortExport(), folder.url("movie.mp4"), [](double) {});
    }
    future.waitForFinished();
    EXPECT_FALSE(future.result());
    QCoreApplication::processEvents(); // what was still on its way to the one that is gone
    EXPECT_EQ(MovieProbe::facts(folder.file("movie.mp4")).count("video"), 1);
}

TEST(ExportRobustness, ExportsBesideEachOtherDoNotDisturbEachOther)
{
    const TemporaryFolder folder;
    const ExportParameters params = shortExport();
    ExportService first;
    ExportService second;
    auto kept = first.exportComposite(params, folder.url("kept.mp4"), [](double) {});
    auto dropped = second.exportComposite(params, folder.url("dropped.mp4"), [](double) {});
    second.cancel();
    dropped.waitForFinished();
    kept.waitForFinished();
    EXPECT_FALSE(kept.result());
    EXPECT_TRUE(dropped.result());
    EXPECT_THAT(folder.names(), testing::ElementsAre("kept.mp4"));
}

}
