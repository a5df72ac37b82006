// SPDX-License-Identifier: GPL-3.0-or-later
// A copy looks like its source, whatever its colours are.
#include "Reading.h"
#include "media/movie/Transcoder.h"
#include "support/MovieProbe.h"
#include "support/TemporaryFolder.h"

#include <cmath>
#include <cstring>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zumeta::test {

namespace {

std::filesystem::path copyOf(const std::filesystem::path& source, const TemporaryFolder& folder,
                             TranscoderOptions options = {})
{
    const FileUrl copy = folder.url("copy.mp4");
    Transcoder::open(FileUrl(source), std::move(options), {})->write(copy, {});
    return copy.path();
}

std::vector<VideoPicture> picturesOf(const std::filesystem::path& file)
{
    std::vector<VideoPicture> pictures;
    FrameReader reader(sourceOf(file), 0, kLong);
    while (const std::optional<FrameSlot> slot = reader.next())
        pictures.push_back(slot->picture.value());
    return pictures;
}

double meanOf(const RawPicture& picture, int plane)
{
    double sum = 0;
    for (int y = 0; y < picture.planeHeight(plane); ++y)
        for (int x = 0; x < picture.planeWidth(plane); ++x)
            sum += picture.sample(plane, x, y);
    return sum / (double(picture.planeWidth(plane)) * picture.planeHeight(plane));
}

/// How far two pictures of one colour system and size differ: the mean of each plane, in steps of eight bits.
std::array<double, 3> meanDifferences(const RawPicture& a, const RawPicture& b)
{
    std::array<double, 3> differences{};
    for (int plane = 0; plane < 3; ++plane)
        differences[size_t(plane)] = std::abs(meanOf(a, plane) / (1 << (a.format().bitDepth - 8)) -
                                              meanOf(b, plane) / (1 << (b.format().bitDepth - 8)));
    return differences;
}

struct Colours {
    const char* name;
    const char* pixelFormat;
    ColourRange range;
    ColourMatrix matrix;
    bool tagged = true;
};

std::ostream& operator<<(std::ostream& out, const Colours& colours)
{
    return out << colours.name;
}

class EveryColourSystem : public testing::TestWithParam<Colours> {};

constexpr Colours kColours[] = {
    {"Bt709", "yuv420p", ColourRange::limited, ColourMatrix::bt709},
    {"Bt601", "yuv420p", ColourRange::limited, ColourMatrix::bt601},
    {"Bt709InFullRange", "yuv420p", ColourRange::full, ColourMatrix::bt709},
    {"Bt601InFullRange", "yuv420p", ColourRange::full, ColourMatrix::bt601},
    {"Untagged", "yuv420p", ColourRange::limited, ColourMatrix::bt601, false},
    {"WithMoreChroma", "yuv422p", ColourRange::limited, ColourMatrix::bt709},
    {"WithAllChroma", "yuv444p", ColourRange::limited, ColourMatrix::bt709},
    {"InTenBits", "yuv420p10le", ColourRange::limited, ColourMatrix::bt709},
    {"InTenBitsWithMoreChroma", "yuv422p10le", ColourRange::limited, ColourMatrix::bt601},
};

}

TEST_P(EveryColourSystem, IsKeptInTheCopy)
{
    FootageSpec spec = clip(x264("keyint=12"), 6);
    spec.width = 320;
    spec.height = 180;
    spec.pixelFormat = GetParam().pixelFormat;
    spec.range = GetParam().range;
    spec.matrix = GetParam().matrix;
    spec.tagged = GetParam().tagged;
    const auto source = FootageMaker::make(spec);
    const TemporaryFolder folder;
    const std::vector<VideoPicture> expected = picturesOf(source);
    const std::vector<VideoPicture> pictures = picturesOf(copyOf(source, folder));
    ASSERT_EQ(pictures.size(), expected.size());
    for (size_t i = 0; i < pictures.size(); ++i) {
        EXPECT_EQ(pictures[i].format.range, GetParam().range);
        EXPECT_EQ(pictures[i].format.matrix, GetParam().matrix);
        EXPECT_EQ(pictures[i].format.transfer, TransferFunction::sdr);
        EXPECT_EQ(pictures[i].format.bitDepth, 8);
        EXPECT_THAT(meanDifferences(RawPicture(pictures[i]), RawPicture(expected[i])), testing::Each(testing::Lt(0.8)));
        if (expected[i].format.bitDepth == 8) {
            EXPECT_GT(planePsnr(RawPicture(pictures[i]), RawPicture(expected[i]), 0), 30);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Colours, EveryColourSystem, testing::ValuesIn(kColours),
                         [](const auto& parameter) { return parameter.param.name; });

namespace {

/// The worst luma PSNR of the copy of a 1080p recording against the recording made smaller by somebody else.
double worstLuma(const std::vector<std::string>& encoder)
{
    FootageSpec spec = clip(encoder, 40);
    spec.width = 1920;
    spec.height = 1080;
    const auto source = FootageMaker::make(spec);
    const TemporaryFolder folder;
    const std::vector<VideoPicture> pictures = picturesOf(copyOf(source, folder));
    PictureFormat small = pictureFormat(spec);
    small.width = 1280;
    small.height = 720;
    EXPECT_EQ(pictures.size(), 40u);
    double worst = INFINITY;
    MovieProbe::forEachFrame(source, small, "scale=1280:720:flags=area", [&](int index, const RawPicture& expected) {
        const RawPicture picture(pictures.at(size_t(index)));
        EXPECT_THAT(meanDifferences(picture, expected), testing::Each(testing::Lt(0.8)));
        worst = std::min(worst, planePsnr(picture, expected, 0));
    });
    return worst;
}

}

// The drawn picture is all hard edges and grain, for which the copy's few bits give 30 dB to begin with.
TEST(TranscodedPicture, LooksLikeItsSourceMadeSmaller)
{
    EXPECT_GT(worstLuma({"-c:v", "libx264", "-preset", "veryfast", "-crf", "18", "-g", "30", "-bf", "2"}), 29);
}

TEST(TranscodedPicture, OfFewBitsAndALongGroupLooksLikeItsSourceToTheEnd)
{
    // What a decoder gets wrong without its loop filter would add up over the whole group.
    EXPECT_GT(worstLuma({"-c:v", "libx264", "-preset", "veryfast", "-b:v", "4M", "-g", "250", "-bf", "2"}), 29);
}

TEST(TranscodedPicture, SaysWhichMatrixAnUntaggedSourceMeantBeforeItWasMadeSmaller)
{
    FootageSpec spec = clip(x264("keyint=12"), 3);
    spec.width = 1920;
    spec.height = 800;
    spec.matrix = ColourMatrix::bt709;
    spec.tagged = false;
    const auto source = FootageMaker::make(spec);
    ASSERT_EQ(picturesOf(source)[0].format.matrix, ColourMatrix::bt709);
    const TemporaryFolder folder;
    const std::vector<VideoPicture> pictures = picturesOf(copyOf(source, folder));
    EXPECT_LT(pictures[0].format.height, 720);
    EXPECT_EQ(pictures[0].format.matrix, ColourMatrix::bt709);
}

TEST(TranscodedPicture, OfHighDynamicRangeSaysSoWhereNobodyConvertsIt)
{
    FootageSpec spec = in(clip(x264("keyint=12"), 3), "mp4", "yuv420p10le");
    spec.matrix = ColourMatrix::bt2020;
    spec.transfer = TransferFunction::pq;
    const TemporaryFolder folder;
    const std::vector<VideoPicture> pictures = picturesOf(copyOf(FootageMaker::make(spec), folder));
    EXPECT_EQ(pictures[0].format.transfer, TransferFunction::pq);
    EXPECT_EQ(pictures[0].format.matrix, ColourMatrix::bt2020);
    EXPECT_EQ(pictures[0].format.primaries, ColourPrimaries::bt2020);
    EXPECT_EQ(pictures[0].format.bitDepth, 8);
}

TEST(TranscodedPicture, OfHighDynamicRangeIsWhatTheGivenScalingMakesOfIt)
{
    FootageSpec spec = in(clip(x264("keyint=12"), 3), "mp4", "yuv420p10le");
    spec.matrix = ColourMatrix::bt2020;
    spec.transfer = TransferFunction::hlg;
    int asked = 0;
    TranscoderOptions options;
    options.width = 96;
    options.height = 54;
    options.scaling = [&](int width, int height) {
        EXPECT_EQ(width, 96);
        EXPECT_EQ(height, 54);
        return [&asked](const VideoPicture& picture, const WritablePicture& out) {
            ++asked;
            EXPECT_EQ(picture.format.transfer, TransferFunction::hlg);
            EXPECT_EQ(picture.format.bitDepth, 10);
            const int codes[] = {100, 140, 120};
            for (int plane = 0; plane < 3; ++plane)
                for (int y = 0; y < (plane == 0 ? 54 : 27); ++y)
                    std::memset(out.planes[size_t(plane)].data + y * out.planes[size_t(plane)].stride, codes[plane],
                                plane == 0 ? 96 : 48);
        };
    };
    const TemporaryFolder folder;
    const std::vector<VideoPicture> pictures = picturesOf(copyOf(FootageMaker::make(spec), folder, options));
    EXPECT_EQ(asked, 3);
    EXPECT_EQ(pictures[0].format.transfer, TransferFunction::sdr);
    EXPECT_EQ(pictures[0].format.matrix, ColourMatrix::bt709);
    EXPECT_EQ(pictures[0].format.primaries, ColourPrimaries::bt709);
    EXPECT_EQ(pictures[0].format.range, ColourRange::limited);
    EXPECT_NEAR(meanOf(RawPicture(pictures[0]), 0), 100, 1);
    EXPECT_NEAR(meanOf(RawPicture(pictures[0]), 1), 140, 1);
    EXPECT_NEAR(meanOf(RawPicture(pictures[0]), 2), 120, 1);
}

}
