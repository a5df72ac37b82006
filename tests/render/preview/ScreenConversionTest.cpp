// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/preview/ScreenConversion.h"

#include "support/Colour.h"

#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <random>

namespace zumeta::test {

namespace {

constexpr int kWidth = 70; // no multiple of any register's width
constexpr int kHeight = 38;

WritablePicture frameOf(uint8_t y, uint8_t cb, uint8_t cr)
{
    const WritablePicture frame = WritablePicture::allocate(kWidth, kHeight);
    const std::array<uint8_t, 3> values{y, cb, cr};
    for (size_t plane = 0; plane < 3; ++plane) {
        const int rows = plane == 0 ? kHeight : kHeight / 2;
        std::fill_n(frame.planes[plane].data, frame.planes[plane].stride * rows, values[plane]);
    }
    return frame;
}

ScreenPicture converted(const WritablePicture& frame, const ScreenKernels& kernels = bestScreenKernels(),
                        int threads = 1)
{
    ScreenPicturePool pool;
    WorkerPool workers(threads);
    ScreenConversion conversion(kernels);
    const ScreenPicture picture = pool.take(frame.width, frame.height);
    conversion.convert(frame, picture, workers);
    return picture;
}

std::array<int, 3> channels(uint32_t pixel)
{
    return {int(pixel >> 16 & 0xff), int(pixel >> 8 & 0xff), int(pixel & 0xff)};
}

WritablePicture noise(unsigned seed)
{
    std::mt19937 random(seed);
    const WritablePicture frame = frameOf(0, 0, 0);
    for (size_t plane = 0; plane < 3; ++plane) {
        const int rows = plane == 0 ? kHeight : kHeight / 2;
        for (ptrdiff_t i = 0; i < frame.planes[plane].stride * rows; ++i)
            frame.planes[plane].data[i] = uint8_t(random());
    }
    return frame;
}

}

TEST(ScreenConversion, ShowsColourBarsInTheirColours)
{
    for (const double level : {0.75, 1.0}) {
        for (int bar = 0; bar < 8; ++bar) {
            const Rgb colour{bar & 4 ? level : 0, bar & 2 ? level : 0, bar & 1 ? level : 0};
            const Ycc ycc = toYcc(colour, ColourMatrix::bt709);
            const auto code = [&](double value, int plane) {
                return uint8_t(std::lround(codeOf(value, plane, ColourRange::limited, 8)));
            };
            const WritablePicture frame = frameOf(code(ycc.y, 0), code(ycc.cb, 1), code(ycc.cr, 2));
            const auto [red, green, blue] = channels(converted(frame).row(kHeight / 2)[kWidth / 2]);
            // A code of luma is 1.16 of a channel, one of chroma up to 2.1.
            EXPECT_NEAR(red, colour.r * 255, 2) << "bar " << bar << " at " << level;
            EXPECT_NEAR(green, colour.g * 255, 2) << "bar " << bar << " at " << level;
            EXPECT_NEAR(blue, colour.b * 255, 2) << "bar " << bar << " at " << level;
        }
    }
}

TEST(ScreenConversion, IsTheMatrixOfBt709InLimitedRangeToHalfAStep)
{
    for (int y = 16; y <= 235; y += 3) {
        for (int cb = 16; cb <= 240; cb += 32) {
            for (int cr = 16; cr <= 240; cr += 32) {
                const Rgb exact =
                    toRgb({valueOf(y, 0, ColourRange::limited, 8), valueOf(cb, 1, ColourRange::limited, 8),
                           valueOf(cr, 2, ColourRange::limited, 8)},
                          ColourMatrix::bt709);
                int16_t spreadCb = int16_t((cb - 128) * 8);
                int16_t spreadCr = int16_t((cr - 128) * 8);
                const auto luma = uint8_t(y);
                uint32_t pixel = 0;
                bestScreenKernels().toScreen(&luma, &spreadCb, &spreadCr, 1, &pixel);
                const auto [red, green, blue] = channels(pixel);
                ASSERT_NEAR(red, std::clamp(exact.r * 255, 0.0, 255.0), 0.51) << y << ' ' << cb << ' ' << cr;
                ASSERT_NEAR(green, std::clamp(exact.g * 255, 0.0, 255.0), 0.51) << y << ' ' << cb << ' ' << cr;
                ASSERT_NEAR(blue, std::clamp(exact.b * 255, 0.0, 255.0), 0.51) << y << ' ' << cb << ' ' << cr;
            }
        }
    }
}

TEST(ScreenConversion, BlackAndWhiteReachTheEndsOfTheScale)
{
    EXPECT_EQ(converted(frameOf(16, 128, 128)).row(0)[0], 0xff000000U);
    EXPECT_EQ(converted(frameOf(235, 128, 128)).row(0)[0], 0xffffffffU);
    EXPECT_EQ(converted(frameOf(1, 128, 128)).row(0)[0], 0xff000000U) << "below black";
    EXPECT_EQ(converted(frameOf(254, 128, 128)).row(0)[0], 0xffffffffU) << "above white";
}

TEST(ScreenConversion, ChromaIsInterpolatedFromSitesAtTheLeftBetweenTwoRows)
{
    // One sample of chroma stands out: its weight at each luma site around it is the product of two ramps.
    const WritablePicture frame = frameOf(126, 128, 128);
    constexpr int kColumn = 10;
    constexpr int kRow = 6;
    frame.planes[2].data[frame.planes[2].stride * kRow + kColumn] = 128 + 40;
    const ScreenPicture picture = converted(frame);
    const int grey = channels(converted(frameOf(126, 128, 128)).row(0)[0])[0];
    const double full = 40 * 255.0 / 224 * 1.5748;
    const auto weightAt = [&](int x, int y) { return (channels(picture.row(y)[x])[0] - grey) / full; };
    constexpr std::array<double, 3> kAcross{0.5, 1, 0.5}; // from the column before
    constexpr std::array<double, 4> kDown{0.25, 0.75, 0.75, 0.25};
    for (int dy = 0; dy < 4; ++dy) {
        for (int dx = 0; dx < 3; ++dx) {
            EXPECT_NEAR(weightAt(2 * kColumn - 1 + dx, 2 * kRow - 1 + dy), kAcross[size_t(dx)] * kDown[size_t(dy)],
                        0.02)
                << dx << ' ' << dy;
        }
    }
    EXPECT_EQ(channels(picture.row(2 * kRow)[2 * kColumn + 2])[0], grey);
    EXPECT_EQ(channels(picture.row(2 * kRow + 3)[2 * kColumn])[0], grey);
}

TEST(ScreenConversion, EveryKernelAndEveryNumberOfThreadsGivesTheSameBits)
{
    const WritablePicture frame = noise(5);
    const ScreenPicture plain = converted(frame, portableScreenKernels());
    EXPECT_EQ(*converted(frame).pixels, *plain.pixels);
    EXPECT_EQ(*converted(frame, bestScreenKernels(), 3).pixels, *plain.pixels);
}

TEST(ScreenPictures, MemoryComesBackWhenThePictureGoes)
{
    ScreenPicturePool pool;
    ScreenPicture first = pool.take(64, 36);
    const uint32_t* const memory = first.pixels->data();
    ScreenPicture second = pool.take(64, 36);
    EXPECT_NE(second.pixels->data(), memory) << "the first one is still held";
    first = {};
    EXPECT_EQ(pool.take(64, 36).pixels->data(), memory);
}

TEST(ScreenPictures, OutliveTheirPool)
{
    ScreenPicture kept;
    {
        ScreenPicturePool pool;
        kept = pool.take(8, 8);
    }
    std::fill(kept.pixels->begin(), kept.pixels->end(), 3U);
    EXPECT_EQ(kept.row(7)[7], 3U);
}

}
