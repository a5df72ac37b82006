// SPDX-License-Identifier: GPL-3.0-or-later
#include "Reading.h"
#include "media/movie/MovieError.h"
#include "support/MovieProbe.h"
#include "support/TemporaryFolder.h"

#include <fstream>
#include <gtest/gtest.h>

namespace zumeta::test {

namespace {

/// What a file is, worked out by hand and not with the library under test. Lengths: the sum of the sample table's
/// durations (`stts`) over the track's timescale, as the edit list cuts and shifts it, or for containers without such
/// a table the end of the last packet in the list that `ffprobe -show_packets` prints; of the first video and the
/// first audio track the later end counts, from the first packet that is shown. Rates: samples over the sum of their
/// durations, in AVI and Matroska the rate that the track's header declares. Files cut short keep what their index
/// says. Fractions stand as fractions so that they can be checked against those tables.
struct Known {
    const char* file;
    double duration;
    double width;
    double height;
    double rate;
    bool sound;
};

const Known kKnown[] = {
    {"-video-with-dash-.mp4", 5.0, 1, 1, 1.0, false},
    {"GH010042.MP4", 240640.0 / 48000, 848, 480, 30000.0 / 1001, true}, // the sound outlasts 150 frames by 8 ms
    {"GH020042.MP4", 0.008 + 240640.0 / 48000, 848, 480, 30000.0 / 1001, true},
    {"GH030042.MP4", 0.016 + 23552.0 / 48000, 848, 480, 30000.0 / 1001, true},
    {"annex-b.mp4", 563664.0 / 16000, 1920, 1080, 745 * 16000.0 / 563664, false},
    {"apple-prores-422.mov", 1.0, 320, 240, 25.0, false},
    {"cam01.mp4", 100.0 / 60, 1088, 1920, 60.0, false},
    {"cam03.mp4", 100.0 / 60, 1088, 1920, 60.0, false},
    {"cursed-vfr.mp4", 502589.0 / 57600, 3026, 1386, 63 * 57600.0 / 502589, false},
    {"edit_list_positive_shift.mp4", 10.005 - 1.0, 1920, 1080, 30.0, true}, // the picture starts at second 1
    {"full_blocks.mkv", 0, 0, 0, 0, false},                                 // subtitles alone
    {"h264_10bits.mp4", 1.0, 200, 200, 30.0, false},
    {"hdr10-video-with-sdr-container.mp4", 91566.0 / 90000, 1920, 1080, 28 * 90000.0 / 91566, true},
    {"iibbibb_editlist_videoonly.mp4", 12.5, 704, 576, 1.0, false}, // the edit's own length
    {"increasing_timestamps_320x240_5s.mp4", 240905.0 / 48000, 320, 240, 60.0, true},
    {"long_1080p_lowbitrate.mp4", 10883.0 / 30, 1920, 1080, 30.0, true},
    {"max-heromode.mp4", 493 * 1024.0 / 48000, 848, 480, 30000.0 / 1001, true},
    {"multiple-aac-tracks.mp4", 240640.0 / 48000, 0, 0, 0, true},
    {"nasa_13013.mp4", 102 * 1024.0 / 8000, 320, 180, 25.0, true}, // the first of two video tracks
    {"portrait_4k60.mp4", 15009.0 / 48000, 3840, 2160, 18 * 90000.0 / 26974, true},
    {"sample-5s_h265.mp4", 5.005, 1376, 1840, 146 / 5.005, true}, // B-frames: by what is shown
    {"sample.avi", 98 * 1001.0 / 24000, 960, 400, 24000.0 / 1001, true},
    {"sample_fragmented.mp4", 46 * 1024.0 / 44100 - 2002.0 / 30000, 1080, 720, 30000.0 / 1001, true},
    {"sar_2x1.mp4", 5.0, 1280, 360, 30.0, false},
    {"sowt-with-video.mov", 2.0, 1920, 1080, 50.0, true},
    {"video_rotation_90.mp4", 512.0 / 12288, 100, 60, 24.0, false},
    {"walk.mkv", 2.966, 640, 480, 30.0, false},
    {"zero_empty_stsc.mp4", 41.643, 1280, 720, 1040 * 90000.0 / 3747600, true},
};

std::ostream& operator<<(std::ostream& out, const Known& known)
{
    return out << known.file;
}

class EveryFileOfFootage : public testing::TestWithParam<Known> {};

FootageSpec tiny()
{
    FootageSpec spec;
    spec.frames = 6;
    return spec;
}

MediaAsset load(const FootageSpec& spec)
{
    return MediaAsset::load(FileUrl(FootageMaker::make(spec)));
}

MovieError::Kind failureOf(const std::filesystem::path& file)
{
    try {
        MediaAsset::load(FileUrl(file));
    } catch (const MovieError& error) {
        EXPECT_EQ(std::string(error.what()).find('\n'), std::string::npos) << error.what();
        return error.kind();
    }
    ADD_FAILURE() << file << " was opened";
    return MovieError::Kind::cancelled;
}

}

TEST_P(EveryFileOfFootage, HasItsLengthSizeRateAndSound)
{
    const Known& known = GetParam();
    const MediaAsset asset = MediaAsset::load(footage(known.file));
    // Half a millisecond: edit lists are written in the movie's timescale, usually thousandths.
    EXPECT_NEAR(asset.duration.seconds(), known.duration, 0.0005);
    EXPECT_EQ(asset.audio.has_value(), known.sound);
    ASSERT_EQ(asset.video.has_value(), known.width > 0);
    if (asset.video) {
        EXPECT_DOUBLE_EQ(asset.video->naturalWidth, known.width);
        EXPECT_DOUBLE_EQ(asset.video->naturalHeight, known.height);
        EXPECT_FLOAT_EQ(asset.video->nominalFrameRate, float(known.rate));
    }
}

INSTANTIATE_TEST_SUITE_P(, EveryFileOfFootage, testing::ValuesIn(kKnown), [](const auto& known) {
    std::string name = known.param.file;
    for (char& letter : name)
        letter = std::isalnum(static_cast<unsigned char>(letter)) != 0 ? letter : 'x';
    return name;
});

TEST(MediaAsset, RefusesWhatIsNoMovie)
{
    EXPECT_EQ(failureOf(footage("hello.mp4").path()), MovieError::Kind::cannotOpen);
}

TEST(MediaAsset, RefusesMissingEmptyAndUnreadableFilesAndFolders)
{
    const TemporaryFolder folder;
    std::ofstream(folder.file("empty.mp4"));
    EXPECT_EQ(failureOf(folder.file("missing.mp4")), MovieError::Kind::cannotOpen);
    EXPECT_EQ(failureOf(folder.file("empty.mp4")), MovieError::Kind::cannotOpen);
    EXPECT_EQ(failureOf(folder.path()), MovieError::Kind::cannotOpen);
    EXPECT_EQ(failureOf("/proc/self/mem"), MovieError::Kind::cannotOpen);
}

TEST(MediaAsset, RefusesARecordingWhoseEndWithTheIndexIsMissing)
{
    EXPECT_EQ(failureOf(FootageMaker::truncated(footage("max-heromode.mp4").path(), 1'000'000)),
              MovieError::Kind::cannotOpen);
}

TEST(MediaAsset, OpensNamesThatLookLikeOptionsOrProtocols)
{
    const TemporaryFolder folder;
    for (const char* const name : {"-i.mp4", "http:clip.mp4", "pipe:0", "50%20.mp4", "%d.mp4", "a?b#c.mp4"}) {
        std::filesystem::copy_file(FootageMaker::make(tiny()), folder.file(name));
        EXPECT_TRUE(MediaAsset::load(folder.url(name)).video) << name;
    }
}

TEST(MediaAsset, SquaresPixelsInItsWidth)
{
    FootageSpec spec = tiny();
    spec.pixelAspect = "4:3";
    EXPECT_DOUBLE_EQ(load(spec).video->naturalWidth, 320 * 4.0 / 3);
    spec.pixelAspect = "8:9";
    EXPECT_NEAR(load(spec).video->naturalWidth, 320 * 8.0 / 9, 1e-9);
    EXPECT_DOUBLE_EQ(load(spec).video->naturalHeight, 180);
}

TEST(MediaAsset, TellsNtscRatesAsTheNearestFloatAndTheirExactSpacing)
{
    for (const Rate rate : {Rate{24000, 1001}, Rate{30000, 1001}, Rate{60000, 1001}, Rate{120, 1}, Rate{25, 1}}) {
        FootageSpec spec = tiny();
        spec.frames = 12;
        spec.rate = rate;
        const MediaAsset asset = load(spec);
        EXPECT_EQ(asset.video->nominalFrameRate, float(rate.value()));
        EXPECT_EQ(asset.video->minFrameDuration, (MediaTime{rate.denominator, rate.numerator}));
        EXPECT_EQ(asset.duration, (MediaTime{12 * rate.denominator, rate.numerator}));
    }
}

TEST(MediaAsset, TellsLengthAverageRateAndShortestSpacingOfAnUnevenTrack)
{
    // With B-frames too, whose decoding times are closer together than what is shown.
    for (const char* const bframes : {"0", "2"}) {
        FootageSpec spec = tiny();
        spec.timeStamps = {0, 0.02, 0.1, 0.1125, 0.5, 0.6};
        spec.encoder = {"-c:v", "libx264", "-preset", "veryfast", "-bf", bframes};
        const MediaAsset asset = load(spec);
        // How long the last frame lasts is the muxer's choice: between the shortest distance and one at 30 a second.
        const double end = asset.duration.seconds();
        EXPECT_GT(end, 0.6) << bframes;
        EXPECT_LT(end, 0.65) << bframes;
        EXPECT_NEAR(asset.video->nominalFrameRate, 6 / end, 0.01) << bframes;
        EXPECT_NEAR(asset.video->minFrameDuration.seconds(), 0.0125, 1e-4) << bframes;
    }
}

TEST(MediaAsset, OneFrameHasALengthAndARate)
{
    FootageSpec spec = tiny();
    spec.frames = 1;
    const MediaAsset asset = load(spec);
    EXPECT_EQ(asset.duration, (MediaTime{1, 30}));
    EXPECT_EQ(asset.video->nominalFrameRate, 30.0F);
}

TEST(MediaAsset, StartsItsClockAtTheFirstPicture)
{
    FootageSpec spec = tiny();
    spec.frames = 30;
    spec.start = 0.5;
    spec.sound = SoundSpec{};
    spec.sound->seconds = 1.2;
    for (const char* const container : {"mp4", "mov", "mkv"}) {
        spec.extension = container;
        const MediaAsset asset = load(spec);
        EXPECT_NEAR(asset.timeShift.seconds(), 0.5, 0.002) << container;
        EXPECT_NEAR(asset.video->length.seconds(), 1.0, 0.002) << container;
    }
}

TEST(MediaAsset, LengthIsThatOfTheSoundWhereItIsLonger)
{
    FootageSpec spec = tiny();
    spec.sound = SoundSpec{48000, 2, {"-c:a", "pcm_s16le"}, 0.5, 0};
    spec.extension = "mov";
    const MediaAsset asset = load(spec);
    EXPECT_EQ(asset.duration, (MediaTime{1, 2}));
    EXPECT_EQ(asset.video->length, (MediaTime{6, 30}));
}

TEST(MediaAsset, TakesTheFirstVideoTrackAndNotTheLargest)
{
    FootageSpec large = tiny();
    large.width = 640;
    large.height = 360;
    const auto file =
        FootageMaker::derive({"-i", FootageMaker::make(tiny()).string(), "-i", FootageMaker::make(large).string(),
                              "-map", "0:v", "-map", "1:v", "-c", "copy"},
                             "mp4");
    const MediaAsset asset = MediaAsset::load(FileUrl(file));
    EXPECT_EQ(asset.video->naturalWidth, 320);
    EXPECT_EQ(asset.video->streamIndex, 0);
}

TEST(MediaAsset, TakesTheFirstSoundTrackAndNotTheFinest)
{
    FootageSpec plain = tiny();
    plain.sound = SoundSpec{22050, 1, {"-c:a", "pcm_s16le"}, 0, 0};
    plain.extension = "mov";
    FootageSpec fine = plain;
    fine.sound = SoundSpec{48000, 2, {"-c:a", "pcm_s16le"}, 0, 0};
    const auto file =
        FootageMaker::derive({"-i", FootageMaker::make(plain).string(), "-i", FootageMaker::make(fine).string(), "-map",
                              "0", "-map", "1:a", "-c", "copy", "-disposition:a:0", "0", "-disposition:a:1", "0"},
                             "mov");
    const MediaAsset asset = MediaAsset::load(FileUrl(file));
    EXPECT_EQ(asset.audio->sampleRate, 22050);
    EXPECT_EQ(asset.audio->channels, 1);
}

TEST(MediaAsset, TakesNoAttachedPictureForAVideo)
{
    FootageSpec cover = tiny();
    cover.frames = 1;
    cover.encoder = {"-c:v", "mjpeg"};
    cover.pixelFormat = "yuvj420p";
    cover.range = ColourRange::full;
    cover.extension = "mov";
    FootageSpec film = tiny();
    film.sound = SoundSpec{};
    const auto withBoth =
        FootageMaker::derive({"-i", FootageMaker::make(cover).string(), "-i", FootageMaker::make(film).string(), "-map",
                              "0:v", "-map", "1", "-c", "copy", "-disposition:v:0", "attached_pic"},
                             "mp4");
    EXPECT_EQ(MediaAsset::load(FileUrl(withBoth)).video->length, (MediaTime{6, 30}));
    const auto coverAlone =
        FootageMaker::derive({"-i", FootageMaker::make(cover).string(), "-i", FootageMaker::make(film).string(), "-map",
                              "0:v", "-map", "1:a", "-c", "copy", "-disposition:v:0", "attached_pic"},
                             "mp4");
    EXPECT_FALSE(MediaAsset::load(FileUrl(coverAlone)).video);
    EXPECT_TRUE(MediaAsset::load(FileUrl(coverAlone)).audio);
}

TEST(MediaAsset, LooksPastDataTracksInFrontOfThePicture)
{
    // The timecode track of a camera; moved in front by the order of -map.
    const auto coded = FootageMaker::derive(
        {"-i", FootageMaker::make(tiny()).string(), "-c", "copy", "-timecode", "01:00:00:00"}, "mov");
    const auto turned = FootageMaker::derive(
        {"-i", coded.string(), "-map", "0:d", "-map", "0:v", "-c", "copy", "-write_tmcd", "0"}, "mov");
    const MediaAsset asset = MediaAsset::load(FileUrl(turned));
    ASSERT_TRUE(asset.video);
    EXPECT_EQ(asset.video->naturalWidth, 320);
}

TEST(MediaAsset, KeepsTheStoredSizeOfATurnedPictureAndTellsTheTurn)
{
    const MediaAsset asset = MediaAsset::load(footage("portrait_4k60.mp4"));
    EXPECT_EQ(asset.video->naturalWidth, 3840);
    const PreferredTransform& turn = asset.video->preferredTransform;
    EXPECT_EQ(turn.a, 0);
    EXPECT_EQ(std::abs(turn.b), 1);
    EXPECT_EQ(turn.c, -turn.b);
    EXPECT_EQ(turn.d, 0);
    EXPECT_EQ(MediaAsset::load(footage("cam01.mp4")).video->preferredTransform, PreferredTransform{});
}

TEST(MediaAsset, OddSizesAndSinglePixelsAreTold)
{
    FootageSpec spec = tiny();
    spec.pixelFormat = "yuv444p";
    spec.width = 161;
    spec.height = 91;
    EXPECT_EQ(load(spec).video->naturalWidth, 161);
    EXPECT_EQ(load(spec).video->naturalHeight, 91);
    spec.width = 1;
    spec.height = 1;
    EXPECT_EQ(load(spec).video->naturalWidth, 1);
}

TEST(MediaAsset, MeasuresContainersThatDoNotSayHowLongTheyAre)
{
    FootageSpec spec = tiny();
    spec.frames = 30;
    const std::string source = FootageMaker::make(spec).string();
    const auto fragmented = FootageMaker::derive(
        {"-i", source, "-c", "copy", "-movflags", "frag_keyframe+empty_moov+default_base_moof"}, "mp4");
    EXPECT_NEAR(MediaAsset::load(FileUrl(fragmented)).duration.seconds(), 1.0, 1e-6);
    const auto live = FootageMaker::derive({"-i", source, "-c", "copy", "-live", "1"}, "mkv");
    EXPECT_NEAR(MediaAsset::load(FileUrl(live)).duration.seconds(), 1.0, 0.002);
    const auto matroska = FootageMaker::derive({"-i", source, "-c", "copy"}, "mkv");
    EXPECT_NEAR(MediaAsset::load(FileUrl(matroska)).duration.seconds(), 1.0, 0.002);
}

}
