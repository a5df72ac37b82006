// SPDX-License-Identifier: GPL-3.0-or-later
#include "Exporting.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zumeta::test {

namespace {

using Words = std::vector<std::string>;

constexpr int kFrames = 12;

const Words kX264 = {"-c:v", "libx264", "-preset", "veryfast", "-crf", "12", "-g", "6"};

FootageSpec base()
{
    FootageSpec spec;
    spec.frames = kFrames;
    spec.encoder = kX264;
    spec.sound = SoundSpec{};
    return spec;
}

FootageSpec pictures(const char* pixelFormat, ColourRange range = ColourRange::limited,
                     ColourMatrix matrix = ColourMatrix::bt709, TransferFunction transfer = TransferFunction::sdr)
{
    FootageSpec spec = base();
    spec.pixelFormat = pixelFormat;
    spec.range = range;
    spec.matrix = matrix;
    spec.transfer = transfer;
    return spec;
}

FootageSpec coded(Words encoder, const char* pixelFormat, const char* extension,
                  ColourRange range = ColourRange::limited)
{
    FootageSpec spec = pictures(pixelFormat, range);
    spec.encoder = std::move(encoder);
    spec.extension = extension;
    return spec;
}

FootageSpec sized(int width, int height, const char* pixelFormat = "yuv420p", const char* pixelAspect = "")
{
    FootageSpec spec = pictures(pixelFormat);
    spec.width = width;
    spec.height = height;
    spec.pixelAspect = pixelAspect;
    return spec;
}

FootageSpec sounding(std::optional<SoundSpec> sound, const char* extension = "mov")
{
    FootageSpec spec = base();
    spec.sound = std::move(sound);
    spec.extension = extension;
    return spec;
}

FootageSpec uneven()
{
    FootageSpec spec = base();
    spec.sound.reset();
    for (int i = 0; i < kFrames; ++i)
        spec.timeStamps.push_back(i / 30.0 + (i % 3 == 1 ? 0.012 : 0));
    return spec;
}

FootageSpec late(const char* extension)
{
    FootageSpec spec = base();
    spec.start = 0.4;
    spec.extension = extension;
    return spec;
}

struct Kind {
    const char* name;
    FootageSpec spec;
    Words derivation = {}; ///< a further ffmpeg command with the recording as "?" and a second, larger one as "??"
};

const Kind kKinds[] = {
    {"EightBit420", pictures("yuv420p")},
    {"EightBit422", pictures("yuv422p")},
    {"EightBit444", pictures("yuv444p")},
    {"TenBit420", pictures("yuv420p10le")},
    {"TenBit422", pictures("yuv422p10le")},
    {"TenBit444", pictures("yuv444p10le")},
    {"FullRange", pictures("yuvj420p", ColourRange::full)},
    {"Bt601", pictures("yuv420p", ColourRange::limited, ColourMatrix::bt601)},
    {"Pq", pictures("yuv420p10le", ColourRange::limited, ColourMatrix::bt2020, TransferFunction::pq)},
    {"Hlg", pictures("yuv420p10le", ColourRange::limited, ColourMatrix::bt2020, TransferFunction::hlg)},
    {"ProRes", coded({"-c:v", "prores_ks"}, "yuv422p10le", "mov")},
    {"MotionJpeg", coded({"-c:v", "mjpeg", "-q:v", "2"}, "yuvj422p", "mov", ColourRange::full)},
    {"Hevc",
     coded({"-c:v", "libx265", "-preset", "ultrafast", "-x265-params", "log-level=0:pools=1"}, "yuv420p10le", "mp4")},
    {"Vp9", coded({"-c:v", "libvpx-vp9", "-deadline", "realtime", "-cpu-used", "8", "-b:v", "2M"}, "yuv420p", "mkv")},
    {"Mpeg4", coded({"-c:v", "mpeg4", "-q:v", "2", "-bf", "2"}, "yuv420p", "avi")},
    {"WidePixels", sized(160, 180, "yuv420p", "2:1")},
    {"NarrowPixels", sized(360, 180, "yuv420p", "8:9")},
    {"OddSize", sized(321, 181, "yuv444p")},
    {"UnevenTimes", uneven()},
    {"LateStart", late("mp4")},
    {"LateStartInMatroska", late("mkv")},
    {"EditList", base(), {"-i", "?", "-itsoffset", "0.25", "-i", "?", "-map", "0:a", "-map", "1:v", "-c", "copy"}},
    {"SeveralVideoTracks", base(), {"-i", "?", "-i", "??", "-map", "0:v", "-map", "1:v", "-map", "0:a", "-c", "copy"}},
    {"DataTracks", base(), {"-i", "?", "-c", "copy", "-timecode", "01:00:00:00"}},
    {"NoSound", sounding(std::nullopt)},
    {"Mono", sounding(SoundSpec{44100, 1, {"-c:a", "aac"}, 0, 0})},
    {"Surround", sounding(SoundSpec{48000, 6, {"-c:a", "aac"}, 0, 0})},
    {"Pcm", sounding(SoundSpec{48000, 2, {"-c:a", "pcm_s24le"}, 0, 0})},
};

std::ostream& operator<<(std::ostream& out, const Kind& kind)
{
    return out << kind.name;
}

class EveryVarietyOfSource : public testing::TestWithParam<Kind> {};

std::filesystem::path fileOf(const Kind& kind, Side side)
{
    FootageSpec spec = kind.spec;
    spec.side = side;
    const auto made = FootageMaker::make(spec);
    if (kind.derivation.empty())
        return made;
    FootageSpec other = spec;
    other.side = Side::other;
    other.width *= 2;
    other.height *= 2;
    Words arguments = kind.derivation;
    for (std::string& argument : arguments) {
        if (argument == "?")
            argument = made.string();
        else if (argument == "??")
            argument = FootageMaker::make(other).string();
    }
    return FootageMaker::derive(arguments, "mov");
}

const Kind& partnerOf(const Kind& kind)
{
    // Far along the list, so that the two sides differ in more than one thing.
    const auto index = size_t(&kind - std::begin(kKinds));
    return kKinds[(index + 11) % std::size(kKinds)];
}

}

TEST_P(EveryVarietyOfSource, ExportsOnTheAboveSideWithAnotherOneBelow)
{
    const Kind& above = *std::find_if(std::begin(kKinds), std::end(kKinds),
                                      [](const Kind& kind) { return std::string_view(kind.name) == GetParam().name; });
    const Kind& below = partnerOf(above);
    const TemporaryFolder folder;
    const ExportParameters params = compositeOf({fileOf(above, Side::above)}, {fileOf(below, Side::below)});
    const ExportReport report = runExport(params, folder.file("movie.mp4"));
    ASSERT_EQ(report.error(), "") << below.name;
    const ShownFrames shown =
        framesShownIn(folder.file("movie.mp4"), params, pictureFormat(above.spec), pictureFormat(below.spec));
    // Uneven times and sound of another length change how many frames the formulas give, never which.
    ASSERT_GE(shown.above.size(), size_t(kFrames - 2)) << below.name;
    ASSERT_LE(shown.above.size(), size_t(kFrames)) << below.name;
    EXPECT_EQ(shown.above, counting(0, int(shown.above.size()))) << below.name;
    EXPECT_EQ(shown.below, counting(0, int(shown.below.size()))) << below.name;
    const bool sound = above.spec.sound.has_value();
    EXPECT_EQ(MovieProbe::facts(folder.file("movie.mp4")).first("audio") != nullptr, sound);
}

INSTANTIATE_TEST_SUITE_P(, EveryVarietyOfSource, testing::ValuesIn(kKinds),
                         [](const auto& kind) { return std::string(kind.param.name); });

TEST(ExportVariety, ASinglePixelFillsItsPart)
{
    const TemporaryFolder folder;
    FootageSpec pixel = sized(1, 1, "yuv444p");
    pixel.side = Side::above;
    pixel.encoder = {"-c:v", "libx264", "-crf", "1"};
    FootageSpec below = base();
    below.side = Side::below;
    const ExportParameters params = compositeOf({FootageMaker::make(pixel)}, {FootageMaker::make(below)});
    ASSERT_EQ(runExport(params, folder.file("movie.mp4")).error(), "");
    const auto source = MovieProbe::frames(FootageMaker::make(pixel), pictureFormat(pixel));
    const auto frames = MovieProbe::frames(folder.file("movie.mp4"), exportedFormat(params));
    ASSERT_EQ(frames.size(), size_t(kFrames));
    for (const auto& [x, y] : {std::pair{10, 10}, std::pair{1270, 10}, std::pair{640, 300}})
        EXPECT_NEAR(frames[3].sample(0, x, y), source[3].sample(0, 0, 0), 3);
    const ExportParameters turned = compositeOf({FootageMaker::make(below)}, {FootageMaker::make(pixel)});
    ASSERT_EQ(runExport(turned, folder.file("turned.mp4")).error(), "");
    EXPECT_EQ(MovieProbe::frames(folder.file("turned.mp4"), exportedFormat(turned)).size(), size_t(kFrames));
}

TEST(ExportVariety, ASingleFrameGivesASingleFrame)
{
    const TemporaryFolder folder;
    FootageSpec above = base();
    above.frames = 1;
    above.sound.reset();
    FootageSpec below = base();
    below.side = Side::below;
    below.sound.reset();
    const ExportParameters params = compositeOf({FootageMaker::make(above)}, {FootageMaker::make(below)});
    ASSERT_EQ(runExport(params, folder.file("movie.mp4")).error(), "");
    const ShownFrames shown =
        framesShownIn(folder.file("movie.mp4"), params, pictureFormat(above), pictureFormat(below));
    EXPECT_EQ(shown.above, std::vector<int>{0});
    EXPECT_EQ(shown.below, std::vector<int>{0});
}

TEST(ExportVariety, HighDynamicRangeIsNotWashedOut)
{
    // The white of a page and a deep shade, as each curve codes them: white looks white, the shade stays dark.
    struct Curve {
        const char* tag;
        int bright;
        int dark;
    };
    for (const Curve& curve : {Curve{"smpte2084", 570, 258}, Curve{"arib-std-b67", 710, 170}}) {
        const auto make = [&](int code) {
            return FootageMaker::derive(
                {"-f", "lavfi", "-i",
                 "nullsrc=s=320x180:r=30:d=0.4,format=yuv420p10le,geq=lum=" + std::to_string(code) + ":cb=512:cr=512",
                 "-c:v", "libx264", "-pix_fmt", "yuv420p10le", "-color_primaries", "bt2020", "-colorspace", "bt2020nc",
                 "-color_trc", curve.tag, "-color_range", "tv"},
                "mp4");
        };
        const TemporaryFolder folder;
        const ExportParameters params = compositeOf({make(curve.bright)}, {make(curve.dark)});
        ASSERT_EQ(runExport(params, folder.file("movie.mp4")).error(), "");
        const RawPicture picture = MovieProbe::frames(folder.file("movie.mp4"), exportedFormat(params)).at(2);
        EXPECT_GT(picture.luma(640, 100), 0.6) << curve.tag;
        EXPECT_LT(picture.luma(640, 600), 0.35) << curve.tag;
        EXPECT_GT(picture.luma(640, 600), 0.05) << curve.tag;
        EXPECT_NEAR(picture.sample(1, 320, 50), 128, 2) << curve.tag;
    }
}

TEST(ExportVariety, EveryReadableFileOfFootageExportsOnEitherSide)
{
    for (const char* const name :
         {"max-heromode.mp4", "cam01.mp4", "portrait_4k60.mp4", "sample-5s_h265.mp4",
          "hdr10-video-with-sdr-container.mp4", "h264_10bits.mp4", "cursed-vfr.mp4",
          "increasing_timestamps_320x240_5s.mp4", "walk.mkv", "sample.avi", "apple-prores-422.mov",
          "sowt-with-video.mov", "nasa_13013.mp4", "sar_2x1.mp4", "-video-with-dash-.mp4", "video_rotation_90.mp4",
          "edit_list_positive_shift.mp4", "iibbibb_editlist_videoonly.mp4", "sample_fragmented.mp4"}) {
        const auto file = std::filesystem::path(ZUMETA_FOOTAGE) / name;
        const auto plain = FootageMaker::make(base());
        const TemporaryFolder folder;
        const ExportReport above = runExport(compositeOf({file}, {plain}), folder.file("above.mp4"));
        EXPECT_EQ(above.error(), "") << name;
        ExportParameters below = compositeOf({plain}, {file});
        const ExportReport report = runExport(below, folder.file("below.mp4"));
        EXPECT_EQ(report.error(), "") << name;
        EXPECT_EQ(MovieProbe::facts(folder.file("above.mp4")).count("video"), 1) << name;
    }
}

}
