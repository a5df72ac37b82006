// SPDX-License-Identifier: GPL-3.0-or-later
#include "Reading.h"
#include "support/MovieProbe.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zumeta::test {

namespace {

/// A recording and, from a plain decode with foreign tools, the number of each frame and when it is shown.
struct Film {
    std::filesystem::path file;
    std::vector<int> numbers;
    std::vector<double> times;
};

Film filmOf(const FootageSpec& spec, const std::filesystem::path& file)
{
    Film film{file, {}, MovieProbe::frameTimes(file)};
    // AVI stores no times, and what ffprobe makes up for B-frames is not their order. Its frames come at a fixed rate.
    for (size_t i = 0; spec.extension == "avi" && i < film.times.size(); ++i)
        film.times[i] = double(i) / spec.rate.value();
    for (const RawPicture& picture : MovieProbe::frames(file, pictureFormat(spec))) {
        const auto code = readBarCode(picture);
        film.numbers.push_back(code ? code->number : kUnreadable);
    }
    return film;
}

/// What a reader has to give from `start` on: the last frame that has begun by then, and all behind it.
std::vector<int> expectedFrom(const Film& film, double start)
{
    size_t first = 0;
    for (size_t i = 0; i < film.times.size(); ++i) {
        if (film.times[i] <= start + 1.0 / 120000)
            first = i;
    }
    return {film.numbers.begin() + ptrdiff_t(first), film.numbers.end()};
}

struct Kind {
    const char* name;
    FootageSpec spec;
    /// Makes the file to be read out of the recording; none: the recording itself.
    Words derivation = {};
};

std::ostream& operator<<(std::ostream& out, const Kind& kind)
{
    return out << kind.name;
}

class EveryKindOfTrack : public testing::TestWithParam<Kind> {};

FootageSpec uneven()
{
    FootageSpec spec = clip(x264("bframes=2:keyint=8"), 24);
    double time = 0;
    for (int i = 0; i < spec.frames; ++i) {
        spec.timeStamps.push_back(time);
        time += i % 5 == 0 ? 0.2 : i % 3 == 0 ? 0.0111 : 0.04;
    }
    return spec;
}

FootageSpec late(const char* extension)
{
    FootageSpec spec = in(clip(x264("bframes=2:keyint=8")), extension);
    spec.start = 0.7;
    spec.sound = SoundSpec{};
    return spec;
}

const Kind kKinds[] = {
    {"LongGroupWithBFrames", clip(x264("bframes=3:b-adapt=0:keyint=250"))},
    {"OpenGroups", clip(x264("open-gop=1:bframes=3:b-adapt=0:keyint=10:min-keyint=10:scenecut=0"))},
    {"OpenGroupsAt23",
     clip(x264("open-gop=1:bframes=3:b-adapt=0:keyint=7:min-keyint=7:scenecut=0"), 40, {24000, 1001})},
    {"BPyramid", clip(x264("bframes=5:b-adapt=0:b-pyramid=normal:keyint=24"), 50, {60000, 1001})},
    {"IntraRefresh", clip(x264("intra-refresh=1:keyint=10:bframes=0"))},
    {"TenBit", in(clip(x264("keyint=12")), "mp4", "yuv420p10le")},
    {"Chroma422", in(clip(x264("keyint=12")), "mp4", "yuv422p")},
    {"Chroma444", in(clip(x264("keyint=12")), "mp4", "yuv444p")},
    {"FullRange", in(clip(x264("keyint=12"), 40, {25, 1}), "mp4", "yuvj420p")},
    {"Rate120", clip(x264("keyint=30"), 60, {120, 1})},
    {"OneFrameASecond", clip(x264("keyint=4:bframes=2"), 12, {1, 1})},
    {"HevcOpenGroups",
     clip({"-c:v", "libx265", "-preset", "ultrafast", "-x265-params",
           "log-level=0:open-gop=1:keyint=10:min-keyint=10:bframes=3:b-adapt=0:pools=1:frame-threads=1"})},
    {"ProRes", in(clip({"-c:v", "prores_ks"}), "mov", "yuv422p10le")},
    {"MotionJpeg", in(clip({"-c:v", "mjpeg", "-q:v", "3"}), "mov", "yuvj422p")},
    {"Vp9WithHiddenFrames", in(clip({"-c:v", "libvpx-vp9", "-deadline", "good", "-cpu-used", "6", "-auto-alt-ref", "1",
                                     "-lag-in-frames", "16", "-g", "20", "-b:v", "1M"}),
                               "mkv")},
    {"Mpeg4WithBFramesInAvi", in(clip({"-c:v", "mpeg4", "-q:v", "3", "-bf", "2", "-g", "9"}), "avi")},
    {"H264InMatroska", in(clip(x264("bframes=3:keyint=12")), "mkv")},
    {"UnevenTimes", uneven()},
    {"LateStartInMp4", late("mp4")},
    {"LateStartInMatroska", late("mkv")},
    {"EditListThatHidesTheFirstFrames",
     clip(x264("bframes=2:keyint=12:scenecut=0")),
     {"-ss", "0.6", "-i", "?", "-c", "copy"}},
    {"Fragmented",
     clip(x264("bframes=2:keyint=12")),
     {"-i", "?", "-c", "copy", "-movflags", "frag_keyframe+empty_moov"}},
    {"WithATimecodeTrack", in(clip(x264("keyint=12")), "mov"), {"-i", "?", "-c", "copy", "-timecode", "01:00:00:00"}},
};

std::filesystem::path fileOf(const Kind& kind)
{
    const std::filesystem::path made = FootageMaker::make(kind.spec);
    if (kind.derivation.empty())
        return made;
    Words arguments = kind.derivation;
    for (std::string& argument : arguments) {
        if (argument == "?")
            argument = made.string();
    }
    return FootageMaker::derive(arguments, kind.spec.extension);
}

}

TEST_P(EveryKindOfTrack, IsReadFromAnyStartAsAPlainDecodeShowsIt)
{
    const Film film = filmOf(GetParam().spec, fileOf(GetParam()));
    ASSERT_EQ(film.numbers.size(), film.times.size());
    ASSERT_THAT(film.numbers, testing::Each(testing::Ge(0)));
    const MediaComposition source = sourceOf(film.file);
    std::vector<double> starts = {0};
    for (size_t i = 1; i < film.times.size(); i += i % 3 == 0 ? 2 : 1) {
        starts.push_back(film.times[i]);
        starts.push_back((film.times[i] + film.times[i - 1]) / 2);
        starts.push_back(film.times[i] - 0.0005);
    }
    for (const double start : starts) {
        FrameReader reader(source, start, kLong);
        const std::vector<ReadSlot> slots = readAll(reader);
        ASSERT_EQ(numbersOf(slots), expectedFrom(film, start)) << "from " << start;
    }
}

TEST_P(EveryKindOfTrack, TellsWhenEachFrameIsShown)
{
    const Film film = filmOf(GetParam().spec, fileOf(GetParam()));
    FrameReader reader(sourceOf(film.file), 0, kLong);
    std::vector<double> times;
    for (const ReadSlot& slot : readAll(reader))
        times.push_back(slot.time);
    // A microsecond: what ffprobe prints of a time.
    EXPECT_THAT(times, testing::Pointwise(testing::DoubleNear(2e-6), film.times));
}

TEST_P(EveryKindOfTrack, IsReadAlikeBySeveralDecoderThreads)
{
    const Film film = filmOf(GetParam().spec, fileOf(GetParam()));
    FrameReader reader(sourceOf(film.file), film.times[film.times.size() / 2], kLong, {4, {}});
    EXPECT_EQ(numbersOf(readAll(reader)), expectedFrom(film, film.times[film.times.size() / 2]));
}

INSTANTIATE_TEST_SUITE_P(, EveryKindOfTrack, testing::ValuesIn(kKinds),
                         [](const auto& kind) { return std::string(kind.param.name); });

TEST(FrameReader, FindsEachFrameByTheTimeComputedFromItsNumber)
{
    for (const Rate rate : {Rate{24000, 1001}, Rate{30000, 1001}, Rate{60000, 1001}}) {
        const FootageSpec spec = clip(x264("bframes=3:keyint=12"), 48, rate);
        const MediaComposition source = sourceOf(FootageMaker::make(spec));
        for (int n = 0; n < spec.frames; n += 1) {
            FrameReader reader(source, n * (double(rate.denominator) / double(rate.numerator)), 0.001);
            EXPECT_EQ(numbersOf(readAll(reader)), std::vector<int>{n}) << rate.numerator;
        }
    }
}

TEST(FrameReader, StopsBeforeTheFrameThatBeginsAtTheEndOfTheRange)
{
    const MediaComposition source = sourceOf(FootageMaker::make(clip(x264("keyint=12"), 40, {25, 1})));
    FrameReader exact(source, 0.4, 0.4);
    EXPECT_EQ(numbersOf(readAll(exact)), (std::vector<int>{10, 11, 12, 13, 14, 15, 16, 17, 18, 19}));
    FrameReader longer(source, 0.4, 0.41);
    EXPECT_EQ(numbersOf(readAll(longer)).back(), 20);
    FrameReader between(source, 0.43, 0.04);
    EXPECT_EQ(numbersOf(readAll(between)), (std::vector<int>{10, 11}));
}

TEST(FrameReader, GivesTheLastFrameForAStartBehindIt)
{
    FrameReader reader(sourceOf(FootageMaker::make(clip(x264("keyint=12"), 40, {25, 1}))), 1.59, kLong);
    EXPECT_EQ(numbersOf(readAll(reader)), std::vector<int>{39});
}

TEST(FrameReader, ReadsASingleFrameAndASinglePixel)
{
    FrameReader single(sourceOf(footage("video_rotation_90.mp4").path()), 0, kLong);
    EXPECT_EQ(readAll(single).size(), 1u);
    FrameReader pixel(sourceOf(footage("-video-with-dash-.mp4").path()), 0, kLong);
    const std::optional<FrameSlot> slot = pixel.next();
    ASSERT_TRUE(slot && slot->picture);
    EXPECT_EQ(slot->picture->format.width, 1);
    EXPECT_EQ(slot->picture->format.height, 1);
    EXPECT_EQ(readAll(pixel).size(), 4u);
}

namespace {

struct Form {
    const char* name;
    FootageSpec spec;
    ChromaSiting siting = ChromaSiting::left;
};

FootageSpec coloured(const char* pixelFormat, ColourRange range, ColourMatrix matrix,
                     TransferFunction transfer = TransferFunction::sdr, int width = 192)
{
    FootageSpec spec = clip(x264("keyint=4:qp=1"), 3);
    spec.pixelFormat = pixelFormat;
    spec.range = range;
    spec.matrix = matrix;
    spec.transfer = transfer;
    spec.width = width;
    spec.height = width == 192 ? 108 : 91;
    return spec;
}

std::ostream& operator<<(std::ostream& out, const Form& form)
{
    return out << form.name;
}

class EveryFormOfPicture : public testing::TestWithParam<Form> {};

const Form kForms[] = {
    {"Limited709", coloured("yuv420p", ColourRange::limited, ColourMatrix::bt709)},
    {"Full601", coloured("yuvj420p", ColourRange::full, ColourMatrix::bt601)},
    {"TenBit709", coloured("yuv420p10le", ColourRange::limited, ColourMatrix::bt709)},
    {"TenBit422", coloured("yuv422p10le", ColourRange::limited, ColourMatrix::bt709)},
    {"Chroma422", coloured("yuv422p", ColourRange::limited, ColourMatrix::bt601)},
    {"Chroma444Odd", coloured("yuv444p", ColourRange::limited, ColourMatrix::bt709, TransferFunction::sdr, 161)},
    {"Pq", coloured("yuv420p10le", ColourRange::limited, ColourMatrix::bt2020, TransferFunction::pq)},
    {"Hlg", coloured("yuv420p10le", ColourRange::limited, ColourMatrix::bt2020, TransferFunction::hlg)},
    {"ProRes", in(coloured("yuv422p10le", ColourRange::limited, ColourMatrix::bt709), "mov", "yuv422p10le")},
    {"MotionJpeg", in(coloured("yuvj420p", ColourRange::full, ColourMatrix::bt601), "avi", "yuvj420p"),
     ChromaSiting::centre},
};

FootageSpec completed(const Form& form)
{
    FootageSpec spec = form.spec;
    if (std::string_view(form.name) == "ProRes")
        spec.encoder = {"-c:v", "prores_ks"};
    if (std::string_view(form.name) == "MotionJpeg")
        spec.encoder = {"-c:v", "mjpeg", "-q:v", "2"};
    return spec;
}

}

TEST_P(EveryFormOfPicture, ComesWithItsTagsAndTheSamplesOfAPlainDecode)
{
    const FootageSpec spec = completed(GetParam());
    const std::filesystem::path file = FootageMaker::make(spec);
    const std::vector<RawPicture> plain = MovieProbe::frames(file, pictureFormat(spec));
    ASSERT_EQ(plain.size(), 3u);
    FrameReader reader(sourceOf(file), 0, kLong);
    PictureFormat expected = pictureFormat(spec);
    expected.siting = GetParam().siting;
    for (const RawPicture& picture : plain) {
        const std::optional<FrameSlot> slot = reader.next();
        ASSERT_TRUE(slot && slot->picture);
        EXPECT_EQ(slot->picture->format.width, expected.width);
        EXPECT_EQ(slot->picture->format.bitDepth, expected.bitDepth);
        EXPECT_EQ(slot->picture->format.chromaShiftX, expected.chromaShiftX);
        EXPECT_EQ(slot->picture->format.chromaShiftY, expected.chromaShiftY);
        EXPECT_EQ(slot->picture->format.range, expected.range);
        EXPECT_EQ(slot->picture->format.matrix, expected.matrix);
        EXPECT_EQ(slot->picture->format.transfer, expected.transfer);
        EXPECT_EQ(slot->picture->format.primaries, expected.primaries);
        EXPECT_EQ(slot->picture->format.siting, expected.siting);
        EXPECT_EQ(largestDifference(RawPicture(*slot->picture), picture), 0);
    }
}

INSTANTIATE_TEST_SUITE_P(, EveryFormOfPicture, testing::ValuesIn(kForms),
                         [](const auto& form) { return std::string(form.param.name); });

TEST(FrameReader, TakesTheMatrixOfUntaggedPicturesFromTheirHeight)
{
    FootageSpec spec = clip(x264("keyint=4"), 2);
    spec.tagged = false;
    FrameReader small(sourceOf(FootageMaker::make(spec)), 0, kLong);
    EXPECT_EQ(small.next()->picture->format.matrix, ColourMatrix::bt601);
    spec.width = 1280;
    spec.height = 720;
    FrameReader large(sourceOf(FootageMaker::make(spec)), 0, kLong);
    EXPECT_EQ(large.next()->picture->format.matrix, ColourMatrix::bt709);
}

TEST(FrameReader, TellsThePixelsShape)
{
    FootageSpec spec = clip(x264("keyint=4"), 2);
    spec.pixelAspect = "4:3";
    FrameReader reader(sourceOf(FootageMaker::make(spec)), 0, kLong);
    EXPECT_DOUBLE_EQ(reader.next()->picture->format.pixelAspect, 4.0 / 3);
}

TEST(FrameReader, KeepsTheStoredOrientation)
{
    FrameReader reader(sourceOf(footage("video_rotation_90.mp4").path()), 0, kLong);
    const std::optional<FrameSlot> slot = reader.next();
    ASSERT_TRUE(slot && slot->picture);
    EXPECT_EQ(slot->picture->format.width, 100);
    EXPECT_EQ(slot->picture->format.height, 60);
}

}
