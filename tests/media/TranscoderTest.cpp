// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/movie/Transcoder.h"
#include "Reading.h"
#include "media/movie/MovieError.h"
#include "support/Click.h"
#include "support/FileSizeLimit.h"
#include "support/MovieProbe.h"
#include "support/TemporaryFolder.h"

#include <cmath>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zumeta::test {

namespace {

using testing::DoubleNear;
using testing::Each;
using testing::ElementsAre;
using testing::Pointwise;

/// Transcodes once into a folder of its own.
struct Copy {
    explicit Copy(const std::filesystem::path& source, TranscoderOptions options = {})
        : file(folder.file("copy.mp4"))
    {
        Transcoder::open(FileUrl(source), std::move(options), {})->write(FileUrl(file), {});
        asset = MediaAsset::load(FileUrl(file));
    }
    TemporaryFolder folder;
    std::filesystem::path file;
    MediaAsset asset;
};

std::vector<ReadSlot> slotsOf(const std::filesystem::path& file)
{
    FrameReader reader(sourceOf(file), 0, kLong);
    return readAll(reader);
}

std::vector<double> timesOf(const std::vector<ReadSlot>& slots)
{
    std::vector<double> times;
    for (const ReadSlot& slot : slots)
        times.push_back(slot.time);
    return times;
}

struct Kind {
    const char* name;
    std::filesystem::path (*make)();
};

std::ostream& operator<<(std::ostream& out, const Kind& kind)
{
    return out << kind.name;
}

template <int Numerator, int Denominator> std::filesystem::path atRate()
{
    return FootageMaker::make(clip(x264("bframes=2:keyint=12"), 40, {Numerator, Denominator}));
}

std::filesystem::path uneven()
{
    FootageSpec spec = clip(x264("bframes=2:keyint=12"), 12);
    spec.timeStamps = {0, 0.04, 0.05, 0.2, 0.21, 0.3, 0.7, 0.75, 0.76, 1.1, 1.5, 1.52};
    return FootageMaker::make(spec);
}

std::filesystem::path late()
{
    FootageSpec spec = clip(x264("bframes=2:keyint=12"));
    spec.start = 0.7;
    spec.sound = SoundSpec{};
    return FootageMaker::make(spec);
}

std::filesystem::path cutByAnEditList()
{
    // Copying from within a group keeps the group's head in the file, and an edit list that hides it.
    const auto whole = FootageMaker::make(clip(x264("bframes=2:keyint=20:scenecut=0"), 60, {30, 1}));
    return FootageMaker::derive({"-ss", "0.9", "-i", whole, "-c", "copy"}, "mp4");
}

const Kind kKinds[] = {
    {"At23976", atRate<24000, 1001>},
    {"At25", atRate<25, 1>},
    {"At30", atRate<30, 1>},
    {"At2997", atRate<30000, 1001>},
    {"At50", atRate<50, 1>},
    {"At5994", atRate<60000, 1001>},
    {"At120", atRate<120, 1>},
    {"WithUnevenTimes", uneven},
    {"ThatStartsLate", late},
    {"CutByAnEditList", cutByAnEditList},
    {"OfLongGroups", [] { return FootageMaker::make(clip(x264("bframes=3:keyint=250"), 90)); }},
    {"OfOpenGroups", [] { return FootageMaker::make(clip(x264("bframes=3:open-gop=1:keyint=10:scenecut=0"))); }},
    {"WithIntraRefresh", [] { return FootageMaker::make(clip(x264("intra-refresh=1:keyint=10:bframes=0"))); }},
    {"OfKeyFrames", [] { return FootageMaker::make(clip(x264("keyint=1"))); }},
    {"InHevc",
     [] {
         return FootageMaker::make(clip({"-c:v", "libx265", "-crf", "14", "-x265-params", "log-level=none"}));
     }},
    {"InTenBits", [] { return FootageMaker::make(in(clip(x264("keyint=12")), "mp4", "yuv420p10le")); }},
    {"InMatroska", [] { return FootageMaker::make(in(clip(x264("bframes=2:keyint=12")), "mkv")); }},
    {"InFragments",
     [] {
         FootageSpec spec = clip(x264("bframes=2:keyint=12"));
         spec.container = {"-movflags", "frag_keyframe+empty_moov"};
         return FootageMaker::make(spec);
     }},
    {"InAvi",
     [] {
         return FootageMaker::make(in(clip({"-c:v", "mjpeg", "-q:v", "3"}), "avi", "yuvj420p"));
     }},
};

class EveryRecording : public testing::TestWithParam<Kind> {};

}

TEST_P(EveryRecording, HasACopyThatShowsTheSameFramesAtTheSameTimes)
{
    const std::filesystem::path source = GetParam().make();
    const std::vector<ReadSlot> expected = slotsOf(source);
    const Copy copy(source);
    const std::vector<ReadSlot> slots = slotsOf(copy.file);
    ASSERT_GT(expected.size(), 10u);
    EXPECT_EQ(numbersOf(slots), numbersOf(expected));
    EXPECT_THAT(numbersOf(slots), Each(testing::Ge(0)));
    EXPECT_THAT(timesOf(slots), Pointwise(DoubleNear(1e-9), timesOf(expected)));
}

TEST_P(EveryRecording, HasACopyWithTheSameClockAndLength)
{
    const std::filesystem::path source = GetParam().make();
    const MediaAsset asset = MediaAsset::load(FileUrl(source));
    const Copy copy(source);
    EXPECT_EQ(copy.asset.timeShift, (MediaTime{0, 1}));
    EXPECT_NEAR(copy.asset.video->length.seconds(), asset.video->length.seconds(), 1e-4);
    EXPECT_NEAR(double(copy.asset.video->nominalFrameRate), double(asset.video->nominalFrameRate), 0.02);
}

TEST_P(EveryRecording, HasACopyOfKeyFramesAlone)
{
    const Copy copy(GetParam().make());
    const std::string kinds = MovieProbe::frameKinds(copy.file);
    EXPECT_EQ(kinds, std::string(kinds.size(), 'I'));
    for (const PacketFacts& packet : MovieProbe::packets(copy.file, "v:0")) {
        EXPECT_TRUE(packet.key);
        EXPECT_EQ(packet.pts, packet.dts);
    }
}

INSTANTIATE_TEST_SUITE_P(Kinds, EveryRecording, testing::ValuesIn(kKinds),
                         [](const auto& parameter) { return parameter.param.name; });

class EveryRealRecording : public testing::TestWithParam<const char*> {};

TEST_P(EveryRealRecording, HasACopyWithTheSameTimesAndLength)
{
    const FileUrl source = footage(GetParam());
    const MediaAsset asset = MediaAsset::load(source);
    const Copy copy(source.path());
    const std::vector<double> expected = timesOf(slotsOf(source.path()));
    ASSERT_FALSE(expected.empty());
    EXPECT_THAT(timesOf(slotsOf(copy.file)), Pointwise(DoubleNear(1e-9), expected));
    EXPECT_EQ(copy.asset.timeShift, (MediaTime{0, 1}));
    EXPECT_NEAR(copy.asset.video->length.seconds(), asset.video->length.seconds(), 1e-4);
    EXPECT_NEAR(copy.asset.duration.seconds(), asset.duration.seconds(), 0.025);
}

INSTANTIATE_TEST_SUITE_P(Clips, EveryRealRecording,
                         testing::Values("h264_10bits.mp4", "iibbibb_editlist_videoonly.mp4", "sample_fragmented.mp4",
                                         "walk.mkv", "sample.avi", "sar_2x1.mp4",
                                         "increasing_timestamps_320x240_5s.mp4", "apple-prores-422.mov",
                                         "nasa_13013.mp4", "GH030042.MP4", "cam01.mp4", "cursed-vfr.mp4",
                                         "video_rotation_90.mp4", "-video-with-dash-.mp4"));

TEST(Transcoder, FitsPicturesIntoTheBoxAndKeepsTheirShape)
{
    const TranscoderOptions box;
    EXPECT_EQ(fittedSize(1920, 1080, box), (PictureSize{1280, 720}));
    EXPECT_EQ(fittedSize(3840, 2160, box), (PictureSize{1280, 720}));
    EXPECT_EQ(fittedSize(1920, 1440, box), (PictureSize{960, 720}));
    EXPECT_EQ(fittedSize(2704, 1520, box), (PictureSize{1280, 720}));
    EXPECT_EQ(fittedSize(1920, 800, box), (PictureSize{1280, 534}));
    EXPECT_EQ(fittedSize(1440, 1920, box), (PictureSize{540, 720}));
}

TEST(Transcoder, NeverEnlarges)
{
    const TranscoderOptions box;
    EXPECT_EQ(fittedSize(1280, 720, box), (PictureSize{1280, 720}));
    EXPECT_EQ(fittedSize(640, 480, box), (PictureSize{640, 480}));
    EXPECT_EQ(fittedSize(641, 361, box), (PictureSize{640, 360}));
    EXPECT_EQ(fittedSize(1279, 719, box), (PictureSize{1278, 718}));
}

TEST(Transcoder, GivesEvenSizesHoweverSmallOrNarrowThePictureIs)
{
    const TranscoderOptions box;
    EXPECT_EQ(fittedSize(1, 1, box), (PictureSize{2, 2}));
    EXPECT_EQ(fittedSize(10000, 3, box), (PictureSize{1280, 2}));
    EXPECT_EQ(fittedSize(1080, 1920, box).height, 720);
    EXPECT_EQ(fittedSize(1080, 1920, box).width % 2, 0);
}

TEST(Transcoder, KeepsTheShapeOfAnOddSizeThroughThePixelsAspect)
{
    FootageSpec spec = in(clip(x264("keyint=12"), 12), "mp4", "yuv444p");
    spec.width = 193;
    spec.height = 109;
    const Copy copy(FootageMaker::make(spec));
    const MovieFacts facts = MovieProbe::facts(copy.file);
    const StreamFacts* const video = facts.first("video");
    EXPECT_EQ(video->number("width"), 192);
    EXPECT_EQ(video->number("height"), 108);
    EXPECT_NEAR(copy.asset.video->naturalWidth / copy.asset.video->naturalHeight, 193.0 / 109, 1e-3);
}

TEST(Transcoder, SquaresPixelsBeforeAnythingElse)
{
    FootageSpec spec = clip(x264("keyint=12"), 12);
    spec.pixelAspect = "2:1";
    const Copy copy(FootageMaker::make(spec));
    const MovieFacts facts = MovieProbe::facts(copy.file);
    const StreamFacts* const video = facts.first("video");
    EXPECT_EQ(video->number("width"), 384);
    EXPECT_EQ(video->number("height"), 108);
    EXPECT_EQ(copy.asset.video->pixelAspect, 1);
    EXPECT_EQ(slotsOf(copy.file)[5].number, 5);
}

TEST(Transcoder, KeepsTheStoredOrientation)
{
    const auto upright = FootageMaker::make(clip(x264("keyint=12"), 12));
    const auto turned = FootageMaker::derive({"-i", upright, "-c", "copy", "-metadata:s:v:0", "rotate=90"}, "mp4");
    ASSERT_NE(MediaAsset::load(FileUrl(turned)).video->preferredTransform, PreferredTransform{});
    const Copy copy(turned);
    EXPECT_EQ(copy.asset.video->naturalWidth, 192);
    EXPECT_EQ(copy.asset.video->naturalHeight, 108);
    EXPECT_EQ(slotsOf(copy.file)[7].number, 7);
}

TEST(Transcoder, PutsTheIndexInFrontOfTheSamples)
{
    const Copy copy(FootageMaker::make(clip(x264("keyint=12"), 12)));
    std::ifstream file(copy.file, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    ASSERT_NE(bytes.find("moov"), std::string::npos);
    EXPECT_LT(bytes.find("moov"), bytes.find("mdat"));
}

TEST(Transcoder, KeepsTheSoundAtItsTime)
{
    FootageSpec spec = clip(x264("keyint=12"), 90, {30, 1});
    spec.clicks = {0.5, 1.25, 2.6};
    spec.sound = SoundSpec{};
    const Copy copy(FootageMaker::make(spec));
    EXPECT_EQ(MovieProbe::facts(copy.file).first("audio")->text("codec_name"), "aac");
    AudioReader reader(sourceOf(copy.file), MediaTime{0, 1}, kLong);
    const auto samples = channelOf(soundFrom(reader, 0), AudioSource::kChannels, 0);
    EXPECT_THAT(findClicks(samples, AudioSource::kSampleRate),
                ElementsAre(DoubleNear(0.5, 0.001), DoubleNear(1.25, 0.001), DoubleNear(2.6, 0.001)));
}

TEST(Transcoder, KeepsSoundInPlaceBesideAPictureThatStartsLate)
{
    FootageSpec spec = clip(x264("keyint=12"), 60, {30, 1});
    spec.start = 0.4;
    spec.clicks = {0.5, 1.25};
    spec.sound = SoundSpec{};
    spec.sound->start = 0.2;
    spec.sound->seconds = 1.6;
    const Copy copy(FootageMaker::make(spec));
    AudioReader reader(sourceOf(copy.file), MediaTime{0, 1}, kLong);
    const auto samples = channelOf(soundFrom(reader, 0), AudioSource::kChannels, 0);
    EXPECT_THAT(findClicks(samples, AudioSource::kSampleRate),
                ElementsAre(DoubleNear(0.5, 0.001), DoubleNear(1.25, 0.001)));
}

TEST(Transcoder, MakesNoSoundWhereThereIsNone)
{
    const Copy copy(FootageMaker::make(clip(x264("keyint=12"), 12)));
    EXPECT_FALSE(copy.asset.audio.has_value());
}

TEST(Transcoder, ADamagedFrameKeepsItsPlaceAndShowsTheOneBeforeIt)
{
    const auto source = FootageMaker::withDamagedPackets(FootageMaker::make(clip(x264("keyint=1"))), {7, 20, 21});
    const Copy copy(source);
    const std::vector<ReadSlot> slots = slotsOf(copy.file);
    EXPECT_THAT(timesOf(slots), Pointwise(DoubleNear(1e-9), timesOf(slotsOf(source))));
    ASSERT_EQ(slots.size(), 40u);
    for (int i = 0; i < 40; ++i)
        EXPECT_EQ(slots[size_t(i)].number, i == 7 ? 6 : i == 20 || i == 21 ? 19 : i);
}

TEST(Transcoder, DamagedFirstFramesShowTheFirstWholeOneAndTimeStillBeginsWithThem)
{
    const auto source = FootageMaker::withDamagedPackets(FootageMaker::make(clip(x264("keyint=1"))), {0, 1});
    const Copy copy(source);
    const std::vector<ReadSlot> slots = slotsOf(copy.file);
    EXPECT_THAT(timesOf(slots), Pointwise(DoubleNear(1e-9), timesOf(slotsOf(source))));
    EXPECT_EQ(slots[0].number, 2);
    EXPECT_EQ(slots[1].number, 2);
    EXPECT_EQ(slots[3].number, 3);
}

TEST(Transcoder, AFileThatEndsBeforeItsEndGivesNoCopy)
{
    FootageSpec spec = clip(x264("keyint=12"), 60);
    spec.container = {"-movflags", "+faststart"};
    const auto whole = FootageMaker::make(spec);
    const auto half = FootageMaker::truncated(whole, std::filesystem::file_size(whole) / 2);
    const TemporaryFolder folder;
    const auto transcoder = Transcoder::open(FileUrl(half), {}, {});
    EXPECT_THROW(transcoder->write(folder.url("copy.mp4"), {}), MovieError);
    EXPECT_TRUE(folder.names().empty());
}

TEST(Transcoder, WhatIsNoVideoCannotBeOpened)
{
    const TemporaryFolder folder;
    std::ofstream(folder.file("notes.mp4")) << "no video at all";
    EXPECT_THROW(Transcoder::open(folder.url("notes.mp4"), {}, {}), MovieError);
    EXPECT_THROW(Transcoder::open(folder.url("missing.mp4"), {}, {}), MovieError);
}

TEST(Transcoder, SoundAloneCannotBeOpened)
{
    const auto sound = FootageMaker::derive({"-f", "lavfi", "-i", "sine=d=1", "-c:a", "aac"}, "m4a");
    try {
        Transcoder::open(FileUrl(sound), {}, {});
        ADD_FAILURE() << "it was opened";
    } catch (const MovieError& error) {
        EXPECT_EQ(error.kind(), MovieError::Kind::noVideoTrack);
    }
}

TEST(Transcoder, AFullDiskLeavesNothing)
{
    const auto source = FootageMaker::make(clip(x264("keyint=12"), 60));
    const TemporaryFolder folder;
    const auto transcoder = Transcoder::open(FileUrl(source), {}, {});
    const FileSizeLimit limit(30'000);
    try {
        transcoder->write(folder.url("copy.mp4"), {});
        ADD_FAILURE() << "it was written";
    } catch (const MovieError& error) {
        EXPECT_EQ(error.kind(), MovieError::Kind::cannotWrite) << error.what();
    }
    EXPECT_TRUE(folder.names().empty());
}

TEST(Transcoder, StopsOnRequestAndLeavesNothing)
{
    const auto source = FootageMaker::make(clip(x264("keyint=12"), 60));
    const TemporaryFolder folder;
    std::stop_source stop;
    const auto transcoder = Transcoder::open(FileUrl(source), {}, stop.get_token());
    try {
        transcoder->write(folder.url("copy.mp4"), [&](double fraction) {
            if (fraction > 0.3)
                stop.request_stop();
        });
        ADD_FAILURE() << "it went on";
    } catch (const MovieError& error) {
        EXPECT_EQ(error.kind(), MovieError::Kind::cancelled);
    }
    EXPECT_TRUE(folder.names().empty());
}

TEST(Transcoder, TellsItsProgressInRisingFractions)
{
    const auto source = FootageMaker::make(clip(x264("keyint=12"), 60));
    const TemporaryFolder folder;
    std::vector<double> fractions;
    Transcoder::open(FileUrl(source), {}, {})->write(folder.url("copy.mp4"), [&](double fraction) {
        fractions.push_back(fraction);
    });
    ASSERT_GT(fractions.size(), 10u);
    EXPECT_TRUE(std::is_sorted(fractions.begin(), fractions.end()));
    EXPECT_GE(fractions.front(), 0);
    EXPECT_GT(fractions.back(), 0.9);
    EXPECT_LE(fractions.back(), 1);
}

TEST(Transcoder, OverwritesNothing)
{
    const auto source = FootageMaker::make(clip(x264("keyint=12"), 12));
    const TemporaryFolder folder;
    std::ofstream(folder.file("copy.mp4")) << "somebody's";
    EXPECT_THROW(Transcoder::open(FileUrl(source), {}, {})->write(folder.url("copy.mp4"), {}), MovieError);
    EXPECT_EQ(std::filesystem::file_size(folder.file("copy.mp4")), 10u);
}

}
