// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/FootageMaker.h"
#include "support/Click.h"
#include "support/MovieProbe.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zumeta::test {

namespace {

using Words = std::vector<std::string>;

/// Every frame's own number in the order in which a plain decoder gives them.
std::vector<int> numbersIn(const std::filesystem::path& file, const FootageSpec& spec)
{
    std::vector<int> numbers;
    for (const RawPicture& picture : MovieProbe::frames(file, pictureFormat(spec))) {
        const auto code = readBarCode(picture);
        numbers.push_back(code && code->side == spec.side ? code->number : -1);
    }
    return numbers;
}

std::vector<int> countingTo(int count)
{
    std::vector<int> numbers;
    for (int i = 0; i < count; ++i)
        numbers.push_back(i);
    return numbers;
}

struct Kind {
    const char* name;
    FootageSpec spec;
    const char* codec;
    const char* pixelFormat;
};

std::ostream& operator<<(std::ostream& out, const Kind& kind)
{
    return out << kind.name;
}

class EveryKindOfFootage : public testing::TestWithParam<Kind> {};

FootageSpec with(std::string pixelFormat, Words encoder, std::string extension = "mp4",
                 ColourRange range = ColourRange::limited)
{
    FootageSpec spec;
    spec.frames = 8;
    spec.pixelFormat = std::move(pixelFormat);
    spec.encoder = std::move(encoder);
    spec.extension = std::move(extension);
    spec.range = range;
    return spec;
}

const Words kX264 = {"-c:v", "libx264", "-preset", "veryfast", "-crf", "12"};

const Kind kKinds[] = {
    {"H264", with("yuv420p", kX264), "h264", "yuv420p"},
    {"H264FullRange", with("yuvj420p", kX264, "mp4", ColourRange::full), "h264", "yuvj420p"},
    {"H264TenBit", with("yuv420p10le", kX264), "h264", "yuv420p10le"},
    {"H264Chroma422", with("yuv422p", kX264), "h264", "yuv422p"},
    {"H264Chroma444", with("yuv444p", kX264), "h264", "yuv444p"},
    {"Hevc", with("yuv420p10le", {"-c:v", "libx265", "-preset", "ultrafast", "-x265-params", "log-level=0"}), "hevc",
     "yuv420p10le"},
    {"ProRes", with("yuv422p10le", {"-c:v", "prores_ks"}, "mov"), "prores", "yuv422p10le"},
    {"MotionJpeg", with("yuvj422p", {"-c:v", "mjpeg", "-q:v", "2"}, "mov", ColourRange::full), "mjpeg", "yuvj422p"},
    {"Vp9", with("yuv420p", {"-c:v", "libvpx-vp9", "-deadline", "realtime", "-cpu-used", "8"}, "mkv"), "vp9",
     "yuv420p"},
    {"Mpeg4InAvi", with("yuv420p", {"-c:v", "mpeg4", "-q:v", "2"}, "avi"), "mpeg4", "yuv420p"},
};

}

TEST_P(EveryKindOfFootage, IsWhatItSaysAndCountsItsFrames)
{
    const Kind& kind = GetParam();
    const std::filesystem::path file = FootageMaker::make(kind.spec);
    const MovieFacts facts = MovieProbe::facts(file);
    ASSERT_NE(facts.first("video"), nullptr);
    EXPECT_EQ(facts.first("video")->text("codec_name"), kind.codec);
    EXPECT_EQ(facts.first("video")->text("pix_fmt"), kind.pixelFormat);
    EXPECT_EQ(numbersIn(file, kind.spec), countingTo(8));
}

INSTANTIATE_TEST_SUITE_P(, EveryKindOfFootage, testing::ValuesIn(kKinds),
                         [](const auto& kind) { return std::string(kind.param.name); });

TEST(FootageMaker, KeepsTheDrawnSamplesThroughLosslessEncoding)
{
    for (const char* const pixelFormat : {"yuv420p", "yuv422p10le", "yuv444p"}) {
        FootageSpec spec = with(pixelFormat, {"-c:v", "ffv1"}, "mkv");
        spec.width = 161;
        spec.height = 91;
        const std::vector<RawPicture> frames = MovieProbe::frames(FootageMaker::make(spec), pictureFormat(spec));
        ASSERT_EQ(frames.size(), 8u);
        EXPECT_EQ(largestDifference(frames[5], draw(drawingOf(spec, 5), pictureFormat(spec))), 0) << pixelFormat;
    }
}

TEST(FootageMaker, TagsColoursOnlyWhenAsked)
{
    FootageSpec spec = with("yuv420p10le", kX264);
    spec.matrix = ColourMatrix::bt2020;
    spec.transfer = TransferFunction::pq;
    const StreamFacts tagged = *MovieProbe::facts(FootageMaker::make(spec)).first("video");
    EXPECT_EQ(tagged.text("color_space"), "bt2020nc");
    EXPECT_EQ(tagged.text("color_transfer"), "smpte2084");
    EXPECT_EQ(tagged.text("color_primaries"), "bt2020");
    spec.tagged = false;
    const StreamFacts plain = *MovieProbe::facts(FootageMaker::make(spec)).first("video");
    EXPECT_EQ(plain.text("color_space"), "");
    EXPECT_EQ(plain.text("color_transfer"), "");
}

TEST(FootageMaker, WritesTheTimeStampsItWasGiven)
{
    FootageSpec spec = with("yuv420p", kX264);
    spec.frames = 5;
    spec.timeStamps = {0, 0.02, 0.1, 0.1125, 0.5};
    std::vector<double> times;
    for (const PacketFacts& packet : MovieProbe::packets(FootageMaker::make(spec), "v:0"))
        times.push_back(packet.pts.value_or(-1));
    std::sort(times.begin(), times.end());
    EXPECT_THAT(times, testing::Pointwise(testing::DoubleNear(1e-4), spec.timeStamps));
}

TEST(FootageMaker, KeepsNtscRatesAndPixelShapes)
{
    FootageSpec spec = with("yuv420p", kX264);
    spec.rate = {24000, 1001};
    spec.pixelAspect = "2:1";
    const StreamFacts video = *MovieProbe::facts(FootageMaker::make(spec)).first("video");
    EXPECT_DOUBLE_EQ(video.averageRate(), 24000.0 / 1001);
    EXPECT_EQ(video.text("sample_aspect_ratio"), "2:1");
}

TEST(FootageMaker, StartsPictureAndSoundLateWhereAsked)
{
    FootageSpec spec = with("yuv420p", kX264, "mkv");
    spec.start = 0.5;
    spec.frames = 30;
    spec.sound = SoundSpec{};
    spec.sound->start = 0.25;
    const std::filesystem::path file = FootageMaker::make(spec);
    EXPECT_NEAR(MovieProbe::packets(file, "v:0").at(0).pts.value_or(-1), 0.5, 0.002);
    EXPECT_NEAR(MovieProbe::packets(file, "a:0").at(0).pts.value_or(-1), 0.75, 0.03);
}

TEST(FootageMaker, FlashesInTheFrameOfTheClick)
{
    FootageSpec spec;
    spec.rate = {25, 1};
    spec.frames = 50;
    spec.clicks = {0.4, 1.6};
    spec.sound = SoundSpec{48000, 2, {"-c:a", "pcm_s16le"}, 0, 0};
    spec.extension = "mov";
    const std::filesystem::path file = FootageMaker::make(spec);
    const std::vector<double> clicks = findClicks(channelOf(MovieProbe::sound(file, 48000, 2), 2, 1), 48000);
    EXPECT_THAT(clicks, testing::Pointwise(testing::DoubleNear(1e-5), spec.clicks));
    std::vector<double> flashes;
    const std::vector<RawPicture> frames = MovieProbe::frames(file, pictureFormat(spec));
    for (size_t i = 0; i < frames.size(); ++i) {
        if (frames[i].luma(5, 5) > 0.95 && frames[i].luma(300, 170) > 0.95)
            flashes.push_back(double(i) / 25);
    }
    EXPECT_THAT(flashes, testing::Pointwise(testing::DoubleNear(1e-9), spec.clicks));
}

TEST(FootageMaker, ClicksStayInPlaceThroughLossySoundOfEveryShape)
{
    for (const int channels : {1, 2, 6}) {
        FootageSpec spec;
        spec.frames = 30;
        spec.clicks = {0.5};
        spec.sound = SoundSpec{48000, channels, {"-c:a", "aac", "-b:a", "160k"}, 0, 0};
        const std::filesystem::path file = FootageMaker::make(spec);
        EXPECT_EQ(MovieProbe::facts(file).first("audio")->number("channels"), channels);
        EXPECT_THAT(findClicks(channelOf(MovieProbe::sound(file, 48000, 2), 2, 0), 48000),
                    testing::ElementsAre(testing::DoubleNear(0.5, 0.001)));
    }
}

TEST(FootageMaker, GivesTheSameFileForTheSameRecipeOnly)
{
    FootageSpec spec = with("yuv420p", kX264);
    const std::filesystem::path first = FootageMaker::make(spec);
    EXPECT_EQ(FootageMaker::make(spec), first);
    spec.firstNumber = 8;
    EXPECT_NE(FootageMaker::make(spec), first);
}

TEST(FootageMaker, DamagesOnlyTheChosenFrame)
{
    FootageSpec spec = with("yuvj422p", {"-c:v", "mjpeg", "-q:v", "2"}, "mov", ColourRange::full);
    const std::filesystem::path file = FootageMaker::withDamagedPackets(FootageMaker::make(spec), {3});
    // What a decoder makes of the damaged frame is its own affair; the others are whole.
    EXPECT_THAT(numbersIn(file, spec), testing::IsSupersetOf({0, 1, 2, 4, 5, 6, 7}));
    EXPECT_THAT(numbersIn(file, spec), testing::Not(testing::Contains(3)));
}

TEST(FootageMaker, TruncatesACopy)
{
    const std::filesystem::path whole = FootageMaker::make(with("yuv420p", kX264));
    const std::filesystem::path cut = FootageMaker::truncated(whole, 1000);
    EXPECT_EQ(std::filesystem::file_size(cut), 1000u);
    EXPECT_GT(std::filesystem::file_size(whole), 1000u);
}

TEST(MovieProbe, RefusesWhatIsNoMovie)
{
    EXPECT_THROW(MovieProbe::facts("/dev/null"), std::runtime_error);
}

}
