// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/FrameCompositor.h"

#include "SampleOracle.h"
#include "TestPictures.h"
#include "render/ScalingKernels.h"

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

constexpr double kRounding = 0.55; // half a code, and what 14-bit weights and fractions of 1/64 add
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
        FrameCompositor(layout, {.threads = 1, .mark = {}, .kernels = &portableKernels()})
            .compose(below, &above, portable.picture);
        ASSERT_TRUE(best.sameAs(portable)) << "round " << round;
        ASSERT_TRUE(best.guardsHold() && portable.guardsHold()) << "round " << round;
    }
}

}
