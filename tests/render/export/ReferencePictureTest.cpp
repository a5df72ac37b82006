// SPDX-License-Identifier: GPL-3.0-or-later
#include "Exporting.h"
#include "media/movie/FrameReader.h"
#include "render/CompositeGeometry.h"
#include "render/FrameCompositor.h"

#include <gtest/gtest.h>
#include <random>

namespace zumeta::test {

namespace {

constexpr double kAgreement = 38; ///< dB, worst plane of the worst frame

CompositeLayout layoutOf(const ReferenceSettings& settings)
{
    VideoCompositionConfig config;
    config.waterlineHeight = settings.waterlineHeight;
    config.aboveZoom = settings.aboveZoom;
    config.aboveOffset = settings.aboveOffset;
    config.aboveHorizontalOffset = settings.aboveHorizontalOffset;
    config.blendAmount = settings.blendAmount;
    return exportLayout({double(settings.width), double(settings.height)},
                        {settings.aspectWidth, settings.aspectHeight}, config)
        .value();
}

RawPicture composed(const ReferenceSettings& settings, const RawPicture* above, const RawPicture& below)
{
    FrameCompositor compositor(layoutOf(settings));
    const WritablePicture out = WritablePicture::allocate(settings.width, settings.height);
    const VideoPicture belowView = below.view();
    if (above != nullptr) {
        const VideoPicture aboveView = above->view();
        compositor.compose(belowView, &aboveView, out);
    } else {
        compositor.compose(belowView, nullptr, out);
    }
    return RawPicture(out.view());
}

double agreement(const ReferenceSettings& settings, const RawPicture* above, const RawPicture& below)
{
    return worstPsnr(composed(settings, above, below), referenceComposite(settings, above, below));
}

PictureFormat plainFormat(int width, int height)
{
    PictureFormat format;
    format.width = width;
    format.height = height;
    return format;
}

RawPicture textured(Side side, int number, const PictureFormat& format)
{
    return draw({{side, number}, Scene::grain, false}, format);
}

std::string describe(const ReferenceSettings& settings, const PictureFormat& above, const PictureFormat& below)
{
    std::ostringstream text;
    text << settings.width << 'x' << settings.height << " project " << settings.aspectWidth << ':'
         << settings.aspectHeight << " line " << settings.waterlineHeight << " zoom " << settings.aboveZoom
         << " offsets " << settings.aboveOffset << ' ' << settings.aboveHorizontalOffset << " blend "
         << settings.blendAmount << " above " << above.width << 'x' << above.height << " below " << below.width << 'x'
         << below.height;
    return text.str();
}

/// Everything that a user can set, at random but the same in every run.
class RandomComposites {
public:
    explicit RandomComposites(unsigned seed)
        : m_random(seed)
    {}

    ReferenceSettings settings(ExportResolutionType resolution)
    {
        ReferenceSettings result;
        result.width = facts(resolution).width;
        result.height = facts(resolution).height;
        if (within(0, 1) < 0.5) {
            result.aspectWidth = 4;
            result.aspectHeight = 3;
        }
        result.waterlineHeight = within(40, 460);
        result.aboveZoom = within(-30, 120);
        result.aboveOffset = within(-150, 150);
        result.aboveHorizontalOffset = within(-200, 200);
        result.blendAmount = within(0, 1) < 0.2 ? 0 : within(1, 120);
        return result;
    }

    PictureFormat format(int mostWidth)
    {
        static constexpr std::pair<int, int> kShapes[] = {{16, 9}, {4, 3}, {9, 16}, {1, 1}};
        const auto [across, down] = kShapes[size_t(within(0, 3.999))];
        PictureFormat format = plainFormat(int(within(mostWidth / 4.0, mostWidth)), 0);
        format.height = std::max(2, format.width * down / across);
        return format;
    }

private:
    double within(double low, double high) { return std::uniform_real_distribution<double>(low, high)(m_random); }

    std::mt19937 m_random;
};

struct Round {
    ExportResolutionType resolution;
    const char* name;
    int composites;
    int mostWidth;
};

std::ostream& operator<<(std::ostream& out, const Round& round)
{
    return out << round.name;
}

class EverySizeOfComposite : public testing::TestWithParam<Round> {};

}

TEST_P(EverySizeOfComposite, AgreesWithTheReferenceForRandomGeometry)
{
    const Round& round = GetParam();
    RandomComposites random(unsigned(round.resolution) + 17);
    for (int i = 0; i < round.composites; ++i) {
        const ReferenceSettings settings = random.settings(round.resolution);
        const PictureFormat aboveFormat = random.format(round.mostWidth);
        const PictureFormat belowFormat = random.format(round.mostWidth);
        const RawPicture above = textured(Side::above, i, aboveFormat);
        const RawPicture below = textured(Side::below, i, belowFormat);
        EXPECT_GE(agreement(settings, &above, below), kAgreement) << describe(settings, aboveFormat, belowFormat);
    }
}

INSTANTIATE_TEST_SUITE_P(, EverySizeOfComposite,
                         testing::Values(Round{ExportResolutionType::hd720, "Hd720", 8, 2000},
                                         Round{ExportResolutionType::hd960, "Hd960", 6, 2000},
                                         Round{ExportResolutionType::hd1080, "Hd1080", 4, 3000},
                                         Round{ExportResolutionType::hd1440, "Hd1440", 4, 3000},
                                         Round{ExportResolutionType::uhd4k, "Uhd4k", 2, 3840}),
                         [](const auto& round) { return std::string(round.param.name); });

namespace {

struct Look {
    const char* name;
    PictureFormat format;
};

std::ostream& operator<<(std::ostream& out, const Look& look)
{
    return out << look.name;
}

PictureFormat look(int bitDepth, int shiftX, int shiftY, ColourRange range = ColourRange::limited,
                   ColourMatrix matrix = ColourMatrix::bt709, ChromaSiting siting = ChromaSiting::left,
                   double pixelAspect = 1, int width = 640, int height = 360)
{
    PictureFormat format = plainFormat(width, height);
    format.bitDepth = bitDepth;
    format.chromaShiftX = shiftX;
    format.chromaShiftY = shiftY;
    format.range = range;
    format.matrix = matrix;
    format.siting = siting;
    format.pixelAspect = pixelAspect;
    return format;
}

class EveryLookOfSource : public testing::TestWithParam<Look> {};

const Look kLooks[] = {
    {"Plain420", look(8, 1, 1)},
    {"Plain422", look(8, 1, 0)},
    {"Plain444", look(8, 0, 0)},
    {"TenBit420", look(10, 1, 1)},
    {"TenBit422", look(10, 1, 0)},
    {"TenBit444", look(10, 0, 0)},
    {"FullRange", look(8, 1, 1, ColourRange::full)},
    {"FullRangeTenBit", look(10, 1, 1, ColourRange::full)},
    {"Bt601", look(8, 1, 1, ColourRange::limited, ColourMatrix::bt601)},
    {"Bt601FullRange422", look(8, 1, 0, ColourRange::full, ColourMatrix::bt601)},
    {"Bt601FullRange444TenBit", look(10, 0, 0, ColourRange::full, ColourMatrix::bt601)},
    {"CentredChroma", look(8, 1, 1, ColourRange::full, ColourMatrix::bt601, ChromaSiting::centre)},
    {"TopLeftChroma", look(8, 1, 1, ColourRange::limited, ColourMatrix::bt709, ChromaSiting::topLeft)},
    {"CentredChroma422", look(8, 1, 0, ColourRange::limited, ColourMatrix::bt709, ChromaSiting::centre)},
    {"WidePixels", look(8, 1, 1, ColourRange::limited, ColourMatrix::bt709, ChromaSiting::left, 2, 320)},
    {"NarrowPixels", look(8, 1, 1, ColourRange::limited, ColourMatrix::bt601, ChromaSiting::left, 8.0 / 9, 720, 480)},
    {"OddSize", look(8, 1, 1, ColourRange::limited, ColourMatrix::bt709, ChromaSiting::left, 1, 641, 361)},
    {"OddSize444", look(8, 0, 0, ColourRange::limited, ColourMatrix::bt709, ChromaSiting::left, 1, 97, 55)},
    {"LargeTenBit", look(10, 1, 1, ColourRange::limited, ColourMatrix::bt709, ChromaSiting::left, 1, 2704, 1520)},
    {"SinglePixel", look(8, 0, 0, ColourRange::limited, ColourMatrix::bt709, ChromaSiting::left, 1, 1, 1)},
};

}

TEST_P(EveryLookOfSource, AgreesWithTheReferenceOnEitherSide)
{
    ReferenceSettings settings;
    settings.aboveOffset = 33.3;
    settings.aboveHorizontalOffset = -21.7;
    settings.waterlineHeight = 241;
    settings.blendAmount = 40;
    const RawPicture plain = textured(Side::other, 5, plainFormat(800, 450));
    const RawPicture asAbove = textured(Side::above, 5, GetParam().format);
    EXPECT_GE(agreement(settings, &asAbove, plain), kAgreement) << "above";
    const RawPicture asBelow = textured(Side::below, 5, GetParam().format);
    EXPECT_GE(agreement(settings, &plain, asBelow), kAgreement) << "below";
    EXPECT_GE(agreement(settings, nullptr, asBelow), kAgreement) << "below alone";
}

INSTANTIATE_TEST_SUITE_P(, EveryLookOfSource, testing::ValuesIn(kLooks),
                         [](const auto& look) { return std::string(look.param.name); });

TEST(ReferencePicture, DecodedFramesAgreeOnTheirWayThroughReaderAndCompositor)
{
    // The reference gets what ffmpeg decodes, the compositor what the reader reads.
    FootageSpec aboveSpec;
    aboveSpec.width = 640;
    aboveSpec.height = 360;
    aboveSpec.frames = 4;
    FootageSpec belowSpec = aboveSpec;
    belowSpec.side = Side::below;
    belowSpec.pixelFormat = "yuvj420p";
    belowSpec.range = ColourRange::full;
    belowSpec.matrix = ColourMatrix::bt601;
    const auto aboveFile = FootageMaker::make(aboveSpec);
    const auto belowFile = FootageMaker::make(belowSpec);
    const auto aboveFrames = MovieProbe::frames(aboveFile, pictureFormat(aboveSpec));
    const auto belowFrames = MovieProbe::frames(belowFile, pictureFormat(belowSpec));
    FrameReader above(MediaComposition(MediaAsset::load(FileUrl(aboveFile))), 0, 10);
    FrameReader below(MediaComposition(MediaAsset::load(FileUrl(belowFile))), 0, 10);
    const ReferenceSettings settings;
    FrameCompositor compositor(layoutOf(settings));
    for (size_t i = 0; i < 4; ++i) {
        const WritablePicture out = WritablePicture::allocate(settings.width, settings.height);
        const FrameSlot aboveSlot = above.next().value();
        compositor.compose(*below.next().value().picture, &*aboveSlot.picture, out);
        EXPECT_GE(worstPsnr(RawPicture(out.view()), referenceComposite(settings, &aboveFrames[i], belowFrames[i])),
                  kAgreement);
    }
}

TEST(ReferencePicture, IsFineEnoughToSeeAQuarterOfAPixelAndASwappedSiting)
{
    // The bar of the tests above means something only if small mistakes fall short of it.
    const ReferenceSettings settings;
    const RawPicture above = textured(Side::above, 3, plainFormat(1280, 720));
    const RawPicture below = textured(Side::below, 3, plainFormat(1280, 720));
    const RawPicture right = referenceComposite(settings, &above, below);
    ReferenceSettings moved = settings;
    moved.aboveHorizontalOffset = 0.25 * 600 / 720;
    EXPECT_LT(worstPsnr(right, referenceComposite(moved, &above, below)), kAgreement);
    ReferenceSettings raised = settings;
    raised.aboveOffset = 0.25 * 600 / 720;
    EXPECT_LT(worstPsnr(right, referenceComposite(raised, &above, below)), kAgreement);
    PictureFormat centred = below.format();
    centred.siting = ChromaSiting::centre;
    RawPicture shifted(centred);
    shifted.bytes() = below.bytes();
    EXPECT_LT(worstPsnr(right, referenceComposite(settings, &above, shifted)), kAgreement);
}

TEST(ReferencePicture, TheBandsRampIsLinearToACodeValue)
{
    PictureFormat format = plainFormat(640, 360);
    RawPicture bright(format);
    RawPicture dark(format);
    std::fill(bright.bytes().begin(), bright.bytes().end(), uint8_t(128));
    std::fill(dark.bytes().begin(), dark.bytes().end(), uint8_t(128));
    std::fill_n(bright.bytes().begin(), 640 * 360, uint8_t(220));
    std::fill_n(dark.bytes().begin(), 640 * 360, uint8_t(30));
    for (const ExportResolutionType resolution : {ExportResolutionType::hd720, ExportResolutionType::hd1440}) {
        for (const double blend : {1.0, 7.3, 15.0, 90.0, 400.0}) {
            ReferenceSettings settings;
            settings.width = facts(resolution).width;
            settings.height = facts(resolution).height;
            settings.waterlineHeight = 233.3;
            settings.blendAmount = blend;
            const RawPicture result = composed(settings, &bright, dark);
            const ReferenceBand band = bandOf(settings);
            for (int row = 0; row < settings.height; ++row) {
                const double y = settings.height - (row + 0.5);
                const double share = std::clamp((y - band.bottom) / (band.top - band.bottom), 0.0, 1.0);
                ASSERT_NEAR(result.sample(0, 3, row), 30 + 190 * share, 1) << blend << " row " << row;
                ASSERT_NEAR(result.sample(0, settings.width - 1, row), 30 + 190 * share, 1) << blend << " row " << row;
            }
        }
    }
}

TEST(ReferencePicture, AMaskThatLiesOutsideShowsOneSideAlone)
{
    const RawPicture above = textured(Side::above, 1, plainFormat(640, 360));
    const RawPicture below = textured(Side::below, 1, plainFormat(640, 360));
    ReferenceSettings high;
    high.waterlineHeight = 900;
    EXPECT_EQ(largestDifference(composed(high, &above, below), composed(high, nullptr, below)), 0);
    ReferenceSettings low;
    low.waterlineHeight = -300;
    EXPECT_EQ(largestDifference(composed(low, &above, below), composed(low, &above, above)), 0);
}

}
