// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/FrameCompositor.h"

#include "SampleOracle.h"
#include "TestPictures.h"

#include <cmath>
#include <gtest/gtest.h>

namespace zumeta {

namespace {

PictureFormat formatOf(int width, int height, int depth = 8, int shiftX = 1, int shiftY = 1)
{
    PictureFormat format;
    format.width = width;
    format.height = height;
    format.bitDepth = depth;
    format.chromaShiftX = shiftX;
    format.chromaShiftY = shiftY;
    return format;
}

CompositeLayout layoutOf(int width, int height, const VideoCompositionConfig& config)
{
    return *exportLayout({double(width), double(height)}, {16, 9}, config);
}

/// A layout with the above picture zoomed by `percent`, and the waterline at half height.
VideoCompositionConfig configOf(double percent, double offset = 0, double horizontalOffset = 0, double blend = 15)
{
    VideoCompositionConfig config;
    config.aboveZoom = percent;
    config.aboveOffset = offset;
    config.aboveHorizontalOffset = horizontalOffset;
    config.blendAmount = blend;
    config.waterlineHeight = 300 / config.scaleFactor();
    return config;
}

/// The largest distance of a frame from the exact composite; dithering may be off by a code, rounding by half a one.
void expectClose(const GuardedFrame& frame, const CompositeLayout& layout, const VideoPicture& below,
                 const VideoPicture* above, double tolerance)
{
    double worst = 0;
    for (int plane = 0; plane < 3; ++plane) {
        for (int y = 0; y < frame.height(plane); ++y) {
            for (int x = 0; x < frame.width(plane); ++x) {
                const double expected = std::clamp(expectedSample(layout, below, above, plane, x, y), 0.0, 255.0);
                const double miss = std::abs(frame.at(plane, x, y) - expected);
                if (miss > worst && miss > tolerance)
                    ADD_FAILURE() << "plane " << plane << " at " << x << ',' << y << ": " << frame.at(plane, x, y)
                                  << " instead of " << expected;
                worst = std::max(worst, miss);
            }
        }
    }
    EXPECT_TRUE(frame.guardsHold());
}

constexpr double kRounding = 0.56; // half a code, and what 14-bit weights and fractions of 1/64 add
constexpr double kDithering = 1.05;

}

TEST(FrameCompositor, EverySampleOfAZoomedCompositeIsWithinHalfACode)
{
    std::mt19937 random(1);
    const VideoPicture below = makeNoise(formatOf(160, 90), random);
    const VideoPicture above = makeNoise(formatOf(160, 90), random);
    const CompositeLayout layout = layoutOf(160, 90, configOf(22, 7.3, -11.7));
    GuardedFrame frame(160, 90);
    FrameCompositor(layout).compose(below, &above, frame.picture);
    expectClose(frame, layout, below, &above, kRounding);
}

TEST(FrameCompositor, EveryFormatLandsOnItsSite)
{
    std::mt19937 random(2);
    for (const int depth : {8, 10, 12, 16}) {
        for (const auto& [shiftX, shiftY] : {std::pair{1, 1}, {1, 0}, {0, 0}, {2, 0}, {2, 2}, {0, 1}}) {
            for (const ChromaSiting siting : {ChromaSiting::left, ChromaSiting::centre, ChromaSiting::topLeft}) {
                for (const ColourRange range : {ColourRange::limited, ColourRange::full}) {
                    PictureFormat format = formatOf(61, 37, depth, shiftX, shiftY);
                    format.siting = siting;
                    format.range = range;
                    format.pixelAspect = 1.09;
                    SCOPED_TRACE(testing::Message() << depth << " bit " << shiftX << shiftY << " siting " << int(siting)
                                                    << " range " << int(range));
                    const VideoPicture below = makeNoise(formatOf(64, 36), random);
                    const VideoPicture above = makeNoise(format, random);
                    const CompositeLayout layout = layoutOf(64, 36, configOf(22, 5, 3));
                    GuardedFrame frame(64, 36);
                    FrameCompositor(layout).compose(below, &above, frame.picture);
                    expectClose(frame, layout, below, &above, depth > 8 ? kDithering : kRounding);
                }
            }
        }
    }
}

TEST(FrameCompositor, AnySizeAndScaleIsSampledExactly)
{
    std::mt19937 random(3);
    for (const auto& [width, height] :
         {std::pair{1, 1}, {2, 1}, {3, 5}, {1, 40}, {17, 9}, {31, 33}, {200, 113}, {333, 2}, {500, 400}}) {
        for (const double zoom : {-60.0, 0.0, 22.0, 400.0}) {
            SCOPED_TRACE(testing::Message() << width << 'x' << height << " zoom " << zoom);
            const VideoPicture below = makeNoise(formatOf(width, height), random);
            const VideoPicture above = makeNoise(formatOf(height, width), random);
            const CompositeLayout layout = layoutOf(64, 36, configOf(zoom, 13, -21));
            GuardedFrame frame(64, 36);
            FrameCompositor(layout).compose(below, &above, frame.picture);
            // Many small weights, each rounded, add a little.
            expectClose(frame, layout, below, &above, 0.8);
        }
    }
}

TEST(FrameCompositor, VectorAndPortableKernelsGiveTheSameBits)
{
    std::mt19937 random(4);
    const auto pick = [&](int low, int high) { return std::uniform_int_distribution<int>(low, high)(random); };
    const auto randomFormat = [&] {
        PictureFormat format = formatOf(pick(1, 300), pick(1, 200), std::array{8, 8, 9, 10, 12, 16}[size_t(pick(0, 5))],
                                        pick(0, 2), pick(0, 1));
        format.range = pick(0, 1) ? ColourRange::full : ColourRange::limited;
        format.siting = ChromaSiting(pick(0, 2));
        format.pixelAspect = pick(0, 1) ? 1 : 1.4;
        return format;
    };
    for (int round = 0; round < 150; ++round) {
        const int width = 2 * pick(1, 100);
        const int height = 2 * pick(1, 60);
        const VideoPicture below = makeNoise(randomFormat(), random);
        const VideoPicture above = makeNoise(randomFormat(), random);
        const CompositeLayout layout =
            layoutOf(width, height, configOf(pick(-50, 150), pick(-100, 100), pick(-100, 100), pick(0, 200)));
        GuardedFrame best(width, height);
        GuardedFrame portable(width, height);
        FrameCompositor(layout).compose(below, &above, best.picture);
        FrameCompositor(layout, {.threads = 1, .mark = {}, .kernels = CompositorKernels::portable})
            .compose(below, &above, portable.picture);
        ASSERT_TRUE(best.sameAs(portable)) << "round " << round;
        ASSERT_TRUE(best.guardsHold() && portable.guardsHold()) << "round " << round;
    }
}

TEST(FrameCompositor, FlatColoursStayExactAtAnyScale)
{
    for (const int depth : {8, 10, 16}) {
        for (const double zoom : {-30.0, 0.0, 22.0, 300.0}) {
            const int unit = 1 << (depth - 8);
            const VideoPicture below = makeFlat(formatOf(333, 211, depth), 77 * unit, 90 * unit, 201 * unit);
            const VideoPicture above = makeFlat(formatOf(97, 301, depth, 0, 0), 77 * unit, 90 * unit, 201 * unit);
            const CompositeLayout layout = layoutOf(128, 72, configOf(zoom, 11, -17));
            GuardedFrame frame(128, 72);
            FrameCompositor(layout).compose(below, &above, frame.picture);
            for (int plane = 0; plane < 3; ++plane) {
                for (int y = 0; y < frame.height(plane); ++y) {
                    for (int x = 0; x < frame.width(plane); ++x)
                        ASSERT_EQ(frame.at(plane, x, y), (std::array{77, 90, 201}[size_t(plane)]))
                            << depth << " bit, zoom " << zoom << ", plane " << plane;
                }
            }
        }
    }
}

TEST(FrameCompositor, TheBandRampsLinearlyToWithinACode)
{
    const VideoPicture below = makeFlat(formatOf(1920, 1080), 16, 240, 16);
    const VideoPicture above = makeFlat(formatOf(1920, 1080), 235, 16, 240);
    const CompositeLayout layout = layoutOf(1920, 1080, configOf(22, 0, 0, 15));
    GuardedFrame frame(1920, 1080);
    FrameCompositor(layout).compose(below, &above, frame.picture);
    const std::array<std::pair<int, int>, 3> ends{{{16, 235}, {240, 16}, {16, 240}}};
    for (int plane = 0; plane < 3; ++plane) {
        const auto [under, over] = ends[size_t(plane)];
        int between = 0;
        for (int y = 0; y < frame.height(plane); ++y) {
            const double height = 1080 - (plane == 0 ? y + 0.5 : 2 * y + 1);
            const double expected = under + (over - under) * layout.opacityAt(height);
            for (const int x : {0, 100, frame.width(plane) - 1})
                ASSERT_NEAR(frame.at(plane, x, y), expected, 0.52) << "plane " << plane << " row " << y;
            between += frame.at(plane, 0, y) != under && frame.at(plane, 0, y) != over ? 1 : 0;
        }
        EXPECT_GE(between, plane == 0 ? 31 : 15) << "the band is 32.94 luma rows high";
    }
}

TEST(FrameCompositor, PicturesThatFitAreCopiedAsTheyAre)
{
    std::mt19937 random(5);
    const VideoPicture below = makeNoise(formatOf(96, 54), random);
    const VideoPicture above = makeNoise(formatOf(96, 54), random);
    // Shifts by whole even pixels keep chroma whole too: 96 * 9 / 16 / 600 units a pixel.
    const double unit = 54.0 / 600;
    const CompositeLayout layout = layoutOf(96, 54, configOf(0, 4 / unit, -6 / unit, 0));
    GuardedFrame frame(96, 54);
    FrameCompositor(layout).compose(below, &above, frame.picture);
    for (int plane = 0; plane < 3; ++plane) {
        const int shift = plane == 0 ? 1 : 2;
        for (int y = 0; y < frame.height(plane); ++y) {
            for (int x = 0; x < frame.width(plane); ++x) {
                const int sourceY = y + 4 / shift;
                const int sourceX = x + 6 / shift;
                const bool isAbove = (plane == 0 ? y + 0.5 : 2 * y + 1) <= 27 && sourceX < frame.width(plane);
                const int expected = isAbove ? sampleOf(above, plane, sourceX, sourceY) : sampleOf(below, plane, x, y);
                ASSERT_EQ(frame.at(plane, x, y), expected) << "plane " << plane << " at " << x << ',' << y;
            }
        }
    }
}

TEST(FrameCompositor, TheBelowPictureShowsWhereTheAbovePictureDoesNotReach)
{
    const VideoPicture below = makeFlat(formatOf(160, 90), 50, 60, 70);
    const VideoPicture above = makeFlat(formatOf(160, 90), 200, 190, 180);
    VideoCompositionConfig config = configOf(-50, 0, 0, 0);
    config.waterlineHeight = -100; // the whole above picture is opaque
    const CompositeLayout layout = layoutOf(160, 90, config);
    GuardedFrame frame(160, 90);
    FrameCompositor(layout).compose(below, &above, frame.picture);
    for (int y = 0; y < 90; ++y) {
        for (int x = 0; x < 160; ++x) {
            const bool isAbove = x >= 40 && x < 120 && y + 0.5 > 22.5 && y + 0.5 <= 67.5;
            ASSERT_EQ(frame.at(0, x, y), isAbove ? 200 : 50) << x << ',' << y;
        }
    }
    for (int y = 0; y < 45; ++y) {
        for (int x = 0; x < 80; ++x) {
            const bool isAbove = 2 * x + 0.5 >= 40 && 2 * x + 0.5 < 120 && 2 * y + 1 > 22.5 && 2 * y + 1 <= 67.5;
            ASSERT_EQ(frame.at(1, x, y), isAbove ? 190 : 60) << x << ',' << y;
        }
    }
}

TEST(FrameCompositor, WithoutAnAbovePictureTheBelowPictureStandsAlone)
{
    std::mt19937 random(6);
    const VideoPicture below = makeNoise(formatOf(96, 54), random);
    const VideoPicture above = makeNoise(formatOf(96, 54), random);
    FrameCompositor compositor(layoutOf(96, 54, configOf(22)));
    GuardedFrame first(96, 54);
    GuardedFrame alone(96, 54);
    GuardedFrame again(96, 54);
    compositor.compose(below, &above, first.picture);
    compositor.compose(below, nullptr, alone.picture);
    compositor.compose(below, &above, again.picture);
    for (int plane = 0; plane < 3; ++plane) {
        for (int y = 0; y < alone.height(plane); ++y) {
            for (int x = 0; x < alone.width(plane); ++x)
                ASSERT_EQ(alone.at(plane, x, y), sampleOf(below, plane, x, y));
        }
    }
    EXPECT_TRUE(again.sameAs(first));
    EXPECT_FALSE(alone.sameAs(first));
}

TEST(FrameCompositor, AnAbovePictureWithoutSizeIsNotSeen)
{
    std::mt19937 random(7);
    const VideoPicture below = makeNoise(formatOf(64, 36), random);
    const VideoPicture above = makeNoise(formatOf(64, 36), random);
    GuardedFrame alone(64, 36);
    FrameCompositor(layoutOf(64, 36, {})).compose(below, nullptr, alone.picture);
    for (const double zoom : {-100.0, -99.99, -150.0, -1e300}) {
        VideoCompositionConfig config;
        config.aboveZoom = zoom;
        config.waterlineHeight = 100;
        GuardedFrame frame(64, 36);
        FrameCompositor(layoutOf(64, 36, config)).compose(below, &above, frame.picture);
        EXPECT_TRUE(frame.sameAs(alone)) << zoom;
    }
}

TEST(FrameCompositor, GeometryFarOutOfThePictureIsHarmless)
{
    std::mt19937 random(8);
    const VideoPicture below = makeNoise(formatOf(64, 36), random);
    const VideoPicture above = makeNoise(formatOf(64, 36), random);
    for (const double value : {1e6, -1e6, 1e300, -1e300}) {
        for (int field = 0; field < 5; ++field) {
            VideoCompositionConfig config = configOf(22);
            (field == 0   ? config.waterlineHeight
             : field == 1 ? config.aboveZoom
             : field == 2 ? config.aboveOffset
             : field == 3 ? config.aboveHorizontalOffset
                          : config.blendAmount) = value;
            GuardedFrame frame(64, 36);
            FrameCompositor(layoutOf(64, 36, config)).compose(below, &above, frame.picture);
            EXPECT_TRUE(frame.guardsHold()) << "field " << field << " value " << value;
        }
    }
}

TEST(FrameCompositor, FormatsMayChangeFromFrameToFrame)
{
    std::mt19937 random(9);
    const CompositeLayout layout = layoutOf(96, 54, configOf(22, 3, 5));
    FrameCompositor lasting(layout);
    PictureFormat other = formatOf(71, 40, 10, 1, 0);
    other.matrix = ColourMatrix::bt601;
    for (const PictureFormat& format : {formatOf(96, 54), other, formatOf(200, 100, 8, 0, 0), formatOf(96, 54)}) {
        const VideoPicture below = makeNoise(format, random);
        const VideoPicture above = makeNoise(format, random);
        GuardedFrame frame(96, 54);
        GuardedFrame fresh(96, 54);
        lasting.compose(below, &above, frame.picture);
        FrameCompositor(layout).compose(below, &above, fresh.picture);
        EXPECT_TRUE(frame.sameAs(fresh));
    }
}

TEST(FrameCompositor, ANewLayoutHoldsFromTheNextFrame)
{
    std::mt19937 random(12);
    const VideoPicture below = makeNoise(formatOf(96, 54), random);
    const VideoPicture above = makeNoise(formatOf(96, 54), random);
    FrameCompositor lasting(layoutOf(160, 90, configOf(22)));
    GuardedFrame first(160, 90);
    lasting.compose(below, &above, first.picture);
    for (const auto& [width, height, zoom] : {std::tuple{160, 90, 65.0}, {64, 36, 22.0}}) {
        const CompositeLayout layout = layoutOf(width, height, configOf(zoom, 4, 9));
        lasting.setLayout(layout);
        GuardedFrame frame(width, height);
        GuardedFrame fresh(width, height);
        lasting.compose(below, &above, frame.picture);
        FrameCompositor(layout).compose(below, &above, fresh.picture);
        EXPECT_TRUE(frame.sameAs(fresh));
    }
}

TEST(FrameCompositor, RowsSharedOverThreadsGiveTheSameFrame)
{
    std::mt19937 random(10);
    PictureFormat converted = formatOf(150, 99, 10);
    converted.matrix = ColourMatrix::bt2020;
    converted.transfer = TransferFunction::hlg;
    converted.primaries = ColourPrimaries::bt2020;
    const CompositeLayout layout = layoutOf(320, 180, configOf(22, -3, 8, 40));
    for (const PictureFormat& format : {formatOf(320, 180), formatOf(500, 333), converted}) {
        const VideoPicture below = makeNoise(format, random);
        const VideoPicture above = makeNoise(format, random);
        GuardedFrame one(320, 180);
        FrameCompositor(layout).compose(below, &above, one.picture);
        for (const int threads : {2, 3, 8}) {
            FrameCompositor shared(layout, {.threads = threads, .mark = {}, .kernels = CompositorKernels::best});
            for (int frame = 0; frame < 3; ++frame) {
                GuardedFrame many(320, 180);
                shared.compose(below, &above, many.picture);
                ASSERT_TRUE(many.sameAs(one)) << threads << " threads";
            }
        }
    }
}

TEST(FrameCompositor, VectorAndPortableColourLoopsGiveTheSameBits)
{
    std::mt19937 random(11);
    for (const TransferFunction transfer : {TransferFunction::sdr, TransferFunction::pq, TransferFunction::hlg}) {
        for (const ColourPrimaries primaries : {ColourPrimaries::bt709, ColourPrimaries::bt2020}) {
            for (const ColourMatrix matrix : {ColourMatrix::bt601, ColourMatrix::bt2020}) {
                for (const int shift : {0, 1, 2}) {
                    PictureFormat format = formatOf(77, 45, shift == 0 ? 8 : 10, shift, shift & 1);
                    format.transfer = transfer;
                    format.primaries = primaries;
                    format.matrix = matrix;
                    const VideoPicture below = makeNoise(format, random);
                    const VideoPicture above = makeNoise(format, random);
                    const CompositeLayout layout = layoutOf(80, 46, configOf(22, 2, 3));
                    GuardedFrame best(80, 46);
                    GuardedFrame portable(80, 46);
                    FrameCompositor(layout).compose(below, &above, best.picture);
                    FrameCompositor(layout, {.threads = 1, .mark = {}, .kernels = CompositorKernels::portable})
                        .compose(below, &above, portable.picture);
                    ASSERT_TRUE(best.sameAs(portable)) << int(transfer) << int(primaries) << int(matrix) << shift;
                }
            }
        }
    }
}

TEST(FrameCompositor, AMarkIsLaidOverTheFrame)
{
    const VideoPicture below = makeFlat(formatOf(64, 36), 100, 90, 160);
    auto mark = std::make_shared<MarkImage>(MarkImage{64, 36, std::vector<uint8_t>(64 * 36 * 4, 0)});
    const auto paint = [&](int left, int top, std::array<uint8_t, 4> rgba) {
        for (int y = top; y < top + 8; ++y) {
            for (int x = left; x < left + 8; ++x)
                std::copy(rgba.begin(), rgba.end(), mark->rgba.begin() + 4 * (64 * y + x));
        }
    };
    paint(8, 8, {255, 255, 255, 255});
    paint(24, 8, {128, 128, 128, 128}); // half of white
    paint(40, 8, {0, 0, 255, 255});
    GuardedFrame frame(64, 36);
    FrameCompositor(layoutOf(64, 36, {}), {.threads = 1, .mark = mark, .kernels = CompositorKernels::best})
        .compose(below, nullptr, frame.picture);
    EXPECT_EQ(frame.at(0, 2, 2), 100);
    EXPECT_EQ(frame.at(1, 1, 1), 90);
    EXPECT_EQ(frame.at(0, 12, 12), 235);
    EXPECT_EQ(frame.at(1, 6, 6), 128);
    EXPECT_NEAR(frame.at(0, 28, 12), (100 + 235) / 2.0, 1);
    EXPECT_NEAR(frame.at(2, 14, 6), (160 + 128) / 2.0, 1);
    EXPECT_NEAR(frame.at(0, 44, 12), 32, 1); // blue
    EXPECT_NEAR(frame.at(1, 22, 6), 240, 1);
    EXPECT_TRUE(frame.guardsHold());
}

}
