// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/movie/MovieWriter.h"
#include "media/movie/MovieError.h"
#include "support/BarCode.h"
#include "support/Click.h"
#include "support/Drawing.h"
#include "support/FileSizeLimit.h"
#include "support/MovieProbe.h"
#include "support/TemporaryFolder.h"

#include <cmath>
#include <cstring>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <thread>

namespace zumeta::test {

namespace {

constexpr int kWidth = 320;
constexpr int kHeight = 180;

MovieSettings settings(int64_t frames, MediaTime frameDuration = {2000, 60000})
{
    MovieSettings result;
    result.video.width = kWidth;
    result.video.height = kHeight;
    result.video.bitRate = 2'000'000;
    result.video.frameRate = double(frameDuration.timescale) / double(frameDuration.value);
    result.sessionEnd = MediaTime{frames * frameDuration.value, frameDuration.timescale};
    return result;
}

PictureFormat format()
{
    PictureFormat result;
    result.width = kWidth;
    result.height = kHeight;
    return result;
}

WritablePicture drawn(MovieWriter& writer, int number)
{
    const RawPicture picture = draw({{Side::above, number}, Scene::texture, false}, format());
    const VideoPicture view = picture.view();
    WritablePicture result = writer.nextPicture();
    for (size_t plane = 0; plane < 3; ++plane) {
        for (int row = 0; row < picture.planeHeight(int(plane)); ++row)
            std::memcpy(result.planes[plane].data + row * result.planes[plane].stride,
                        view.planes[plane].data + row * view.planes[plane].stride,
                        size_t(picture.planeWidth(int(plane))));
    }
    return result;
}

void appendFrames(MovieWriter& writer, int count, MediaTime frameDuration = {2000, 60000})
{
    for (int n = 0; n < count; ++n)
        writer.appendVideo(drawn(writer, n), {n * frameDuration.value, frameDuration.timescale});
    writer.finishVideo();
}

std::vector<int16_t> clickingSound(double length, const std::vector<double>& clicks)
{
    std::vector<int16_t> samples;
    for (int i = 0; i < int(length * 44100); ++i) {
        double value = 0;
        for (const double click : clicks)
            value += 0.5 * clickAt(i / 44100.0 - click);
        samples.insert(samples.end(), 2, int16_t(std::lround(value * 32767)));
    }
    return samples;
}

/// Picture and sound as the export writes them: from two threads at once.
void writeBoth(MovieWriter& writer, int frames, const std::vector<int16_t>& sound, double soundStart)
{
    std::thread audio([&] {
        constexpr size_t kPiece = 2000;
        for (size_t at = 0; at < sound.size(); at += kPiece) {
            const size_t count = std::min(kPiece, sound.size() - at);
            writer.appendAudio({sound.data() + at, count},
                               MediaTime::nearest(soundStart + double(at) / 2 / 44100, 44100));
        }
        writer.finishAudio();
    });
    appendFrames(writer, frames);
    audio.join();
    writer.finish();
}

}

TEST(MovieWriter, WritesEachPictureInItsPlace)
{
    const TemporaryFolder folder;
    for (const MediaTime frameDuration : {MediaTime{2000, 60000}, MediaTime{2002, 60000}, MediaTime{1001, 60000},
                                          MediaTime{2400, 60000}, MediaTime{2503, 60000}}) {
        const std::string name = std::to_string(frameDuration.value) + ".mp4";
        const auto writer = MovieWriter::create(folder.url(name), settings(40, frameDuration));
        appendFrames(*writer, 40, frameDuration);
        writer->finish();
        const std::vector<RawPicture> frames = MovieProbe::frames(folder.file(name), format());
        ASSERT_EQ(frames.size(), 40u);
        for (int n = 0; n < 40; ++n)
            EXPECT_EQ(readBarCode(frames[size_t(n)]), (BarCode{Side::above, n}));
        const std::vector<double> times = MovieProbe::frameTimes(folder.file(name));
        for (int n = 0; n < 40; ++n)
            EXPECT_NEAR(times[size_t(n)], n * frameDuration.seconds(), 2e-6);
        EXPECT_NEAR(MovieProbe::facts(folder.file(name)).duration(), 40 * frameDuration.seconds(), 1e-4);
    }
}

TEST(MovieWriter, StartsAtTimeZero)
{
    const TemporaryFolder folder;
    const auto writer = MovieWriter::create(folder.url("movie.mp4"), settings(10));
    appendFrames(*writer, 10);
    writer->finish();
    double first = 1;
    for (const PacketFacts& packet : MovieProbe::packets(folder.file("movie.mp4"), "v:0"))
        first = std::min(first, packet.pts.value_or(1));
    EXPECT_DOUBLE_EQ(first, 0);
}

TEST(MovieWriter, TheLastFrameReachesToTheSessionsEndAndNothingStandsBehindIt)
{
    const TemporaryFolder folder;
    MovieSettings longer = settings(10);
    longer.sessionEnd = {1, 1};
    const auto writer = MovieWriter::create(folder.url("longer.mp4"), longer);
    appendFrames(*writer, 10);
    writer->finish();
    EXPECT_NEAR(MovieProbe::facts(folder.file("longer.mp4")).duration(), 1, 1e-4);

    MovieSettings shorter = settings(5);
    const auto cut = MovieWriter::create(folder.url("shorter.mp4"), shorter);
    appendFrames(*cut, 10);
    cut->finish();
    EXPECT_EQ(MovieProbe::frames(folder.file("shorter.mp4"), format()).size(), 5u);
    EXPECT_NEAR(MovieProbe::facts(folder.file("shorter.mp4")).duration(), 5 / 30.0, 1e-4);
}

TEST(MovieWriter, KeepsTheKeyFrameIntervalAndUsesBFrames)
{
    const TemporaryFolder folder;
    const auto writer = MovieWriter::create(folder.url("movie.mp4"), settings(100));
    appendFrames(*writer, 100);
    writer->finish();
    const std::string kinds = MovieProbe::frameKinds(folder.file("movie.mp4"));
    EXPECT_THAT(kinds, testing::HasSubstr("B"));
    int sinceKey = 0;
    std::vector<PacketFacts> packets = MovieProbe::packets(folder.file("movie.mp4"), "v:0");
    std::sort(packets.begin(), packets.end(), [](const auto& a, const auto& b) { return a.pts < b.pts; });
    ASSERT_TRUE(packets.front().key);
    for (const PacketFacts& packet : packets) {
        sinceKey = packet.key ? 1 : sinceKey + 1;
        EXPECT_LE(sinceKey, 30);
    }
}

TEST(MovieWriter, NamesProfileColoursAndMetadata)
{
    const TemporaryFolder folder;
    for (const H264Profile profile : {H264Profile::main, H264Profile::high}) {
        MovieSettings wanted = settings(5);
        wanted.video.profile = profile;
        wanted.metadata = {{"com.apple.quicktime.software", "Program 1 (2)"},
                           {"com.apple.quicktime.comment", "ü; x=1"}};
        const auto writer = MovieWriter::create(folder.url("movie.mp4"), wanted);
        appendFrames(*writer, 5);
        writer->finish();
        const MovieFacts facts = MovieProbe::facts(folder.file("movie.mp4"));
        const StreamFacts& video = *facts.first("video");
        EXPECT_EQ(video.text("codec_name"), "h264");
        EXPECT_EQ(video.text("profile"), profile == H264Profile::main ? "Main" : "High");
        EXPECT_EQ(video.text("pix_fmt"), "yuv420p");
        EXPECT_EQ(video.text("color_range"), "tv");
        EXPECT_EQ(video.text("color_space"), "bt709");
        EXPECT_EQ(video.text("color_transfer"), "bt709");
        EXPECT_EQ(video.text("color_primaries"), "bt709");
        EXPECT_EQ(video.text("chroma_location"), "left");
        EXPECT_EQ(facts.tag("com.apple.quicktime.software"), "Program 1 (2)");
        EXPECT_EQ(facts.tag("com.apple.quicktime.comment"), "ü; x=1");
        EXPECT_EQ(facts.tag("encoder"), "");
        std::filesystem::remove(folder.file("movie.mp4"));
    }
}

TEST(MovieWriter, WritesSoundToTheSampleBesideThePicture)
{
    const TemporaryFolder folder;
    MovieSettings wanted = settings(60);
    wanted.audio = MovieAudioSettings{};
    const auto writer = MovieWriter::create(folder.url("movie.mp4"), wanted);
    writeBoth(*writer, 60, clickingSound(2, {0.5, 1.5}), 0);
    const MovieFacts facts = MovieProbe::facts(folder.file("movie.mp4"));
    const StreamFacts& audio = *facts.first("audio");
    EXPECT_EQ(audio.text("codec_name"), "aac");
    EXPECT_EQ(audio.number("sample_rate"), 44100);
    EXPECT_EQ(audio.number("channels"), 2);
    EXPECT_NEAR(audio.number("duration"), 2, 0.001);
    const std::vector<int16_t> sound = MovieProbe::sound(folder.file("movie.mp4"), 44100, 2);
    EXPECT_NEAR(double(sound.size()) / 2 / 44100, 2, 0.03);
    for (const int channel : {0, 1})
        EXPECT_THAT(findClicks(channelOf(sound, 2, channel), 44100),
                    testing::ElementsAre(testing::DoubleNear(0.5, 2.0 / 44100), testing::DoubleNear(1.5, 2.0 / 44100)));
}

TEST(MovieWriter, FillsSilenceBeforeSoundThatBeginsLate)
{
    const TemporaryFolder folder;
    MovieSettings wanted = settings(60);
    wanted.audio = MovieAudioSettings{};
    const auto writer = MovieWriter::create(folder.url("movie.mp4"), wanted);
    writeBoth(*writer, 60, clickingSound(1, {0.25}), 0.7);
    EXPECT_THAT(findClicks(channelOf(MovieProbe::sound(folder.file("movie.mp4"), 44100, 2), 2, 0), 44100),
                testing::ElementsAre(testing::DoubleNear(0.95, 2.0 / 44100)));
}

TEST(MovieWriter, CutsSoundAtTheSessionsEnd)
{
    const TemporaryFolder folder;
    MovieSettings wanted = settings(30);
    wanted.audio = MovieAudioSettings{};
    const auto writer = MovieWriter::create(folder.url("movie.mp4"), wanted);
    writeBoth(*writer, 30, clickingSound(2, {0.5, 1.5}), 0);
    EXPECT_NEAR(MovieProbe::facts(folder.file("movie.mp4")).first("audio")->number("duration"), 1, 0.001);
    EXPECT_NEAR(MovieProbe::facts(folder.file("movie.mp4")).duration(), 1, 0.001);
}

TEST(MovieWriter, InterleavesPictureAndSound)
{
    const TemporaryFolder folder;
    MovieSettings wanted = settings(240);
    wanted.audio = MovieAudioSettings{};
    const auto writer = MovieWriter::create(folder.url("movie.mp4"), wanted);
    writeBoth(*writer, 240, clickingSound(8, {}), 0);
    const auto video = MovieProbe::packets(folder.file("movie.mp4"), "v:0");
    const auto audio = MovieProbe::packets(folder.file("movie.mp4"), "a:0");
    // Whatever lies at one place of the file is wanted within a few seconds of playing.
    for (const PacketFacts& packet : video) {
        const auto next = std::find_if(audio.begin(), audio.end(),
                                       [&](const PacketFacts& other) { return other.position > packet.position; });
        if (next == audio.end())
            continue;
        EXPECT_LT(std::abs(next->pts.value_or(-99) - packet.pts.value_or(99)), 4);
    }
}

TEST(MovieWriter, FinishesAMovieWithoutAnyFrame)
{
    const TemporaryFolder folder;
    const auto writer = MovieWriter::create(folder.url("movie.mp4"), settings(0));
    writer->finishVideo();
    writer->finish();
    EXPECT_EQ(MovieProbe::packets(folder.file("movie.mp4"), "v:0").size(), 0u);
}

TEST(MovieWriter, AnUnfinishedFileClaimsNothing)
{
    const TemporaryFolder folder;
    {
        const auto writer = MovieWriter::create(folder.url("movie.mp4"), settings(40));
        for (int n = 0; n < 20; ++n)
            writer->appendVideo(drawn(*writer, n), {n * 2000, 60000});
    }
    EXPECT_THROW(MovieProbe::frames(folder.file("movie.mp4"), format()), std::runtime_error);
}

TEST(MovieWriter, RefusesAPlaceThatIsTakenAndLeavesItAlone)
{
    const TemporaryFolder folder;
    std::ofstream(folder.file("movie.mp4")) << "mine";
    EXPECT_THROW(MovieWriter::create(folder.url("movie.mp4"), settings(1)), MovieError);
    EXPECT_EQ(std::filesystem::file_size(folder.file("movie.mp4")), 4u);
}

TEST(MovieWriter, SaysInOneLineWhyItCannotWriteThere)
{
    const TemporaryFolder folder;
    for (const std::filesystem::path& place :
         {folder.file("missing") / "movie.mp4", std::filesystem::path("/proc/movie.mp4"), folder.file("x/")}) {
        try {
            MovieWriter::create(FileUrl(place), settings(1));
            ADD_FAILURE() << place;
        } catch (const MovieError& error) {
            EXPECT_EQ(error.kind(), MovieError::Kind::cannotWrite);
            EXPECT_THAT(error.what(), testing::Not(testing::HasSubstr("\n")));
            EXPECT_GT(std::strlen(error.what()), 10u);
        }
    }
}

TEST(MovieWriter, AFullDiskIsAnErrorInTheSystemsWords)
{
    const TemporaryFolder folder;
    const auto writer = MovieWriter::create(folder.url("movie.mp4"), settings(200));
    std::string text;
    {
        const FileSizeLimit limit(200'000);
        try {
            appendFrames(*writer, 200);
            writer->finish();
        } catch (const MovieError& error) {
            EXPECT_EQ(error.kind(), MovieError::Kind::cannotWrite);
            text = error.what();
        }
    }
    EXPECT_THAT(text, testing::HasSubstr("File too large"));
    writer->removeFile();
    EXPECT_TRUE(folder.names().empty());
}

TEST(MovieWriter, CancellingWakesBothSidesAndRemovingTakesTheFileAway)
{
    const TemporaryFolder folder;
    MovieSettings wanted = settings(10'000);
    wanted.audio = MovieAudioSettings{};
    const auto writer = MovieWriter::create(folder.url("movie.mp4"), wanted);
    MovieError::Kind reason = MovieError::Kind::cannotOpen;
    std::atomic<int> written = 0;
    std::thread picture([&] {
        try {
            // Without sound it has to wait after a few seconds of movie: it never gets through by itself.
            for (int n = 0; n < 10'000; ++n) {
                writer->appendVideo(drawn(*writer, n), {n * 2000, 60000});
                ++written;
                written.notify_all();
            }
        } catch (const MovieError& error) {
            reason = error.kind();
        }
    });
    for (int seen = 0; seen < 30; seen = written)
        written.wait(seen);
    writer->cancelWriting();
    picture.join();
    EXPECT_EQ(reason, MovieError::Kind::cancelled);
    EXPECT_LT(written, 1000);
    EXPECT_THROW(writer->finish(), MovieError);
    writer->removeFile();
    EXPECT_TRUE(folder.names().empty());
}

TEST(MovieWriter, RemovesOnlyTheFileThatItMade)
{
    const TemporaryFolder folder;
    const auto writer = MovieWriter::create(folder.url("movie.mp4"), settings(10));
    std::filesystem::rename(folder.file("movie.mp4"), folder.file("moved.mp4"));
    std::ofstream(folder.file("movie.mp4")) << "another";
    writer->cancelWriting();
    writer->removeFile();
    EXPECT_EQ(folder.names(), (std::vector<std::string>{"moved.mp4", "movie.mp4"}));
}

TEST(MovieWriter, TakesPicturesFromElsewhereToo)
{
    const TemporaryFolder folder;
    const auto writer = MovieWriter::create(folder.url("movie.mp4"), settings(1));
    const WritablePicture own = WritablePicture::allocate(kWidth, kHeight);
    std::memset(own.planes[0].data, 180, size_t(own.planes[0].stride) * kHeight);
    std::memset(own.planes[1].data, 90, size_t(own.planes[1].stride) * kHeight / 2);
    std::memset(own.planes[2].data, 150, size_t(own.planes[2].stride) * kHeight / 2);
    writer->appendVideo(own, {0, 60000});
    writer->finishVideo();
    writer->finish();
    const RawPicture back = MovieProbe::frames(folder.file("movie.mp4"), format()).at(0);
    EXPECT_NEAR(back.sample(0, 160, 90), 180, 1);
    EXPECT_NEAR(back.sample(1, 80, 45), 90, 1);
    EXPECT_NEAR(back.sample(2, 80, 45), 150, 1);
}

}
