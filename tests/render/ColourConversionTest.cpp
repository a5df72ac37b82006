// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/FrameCompositor.h"

#include "TestPictures.h"
#include "render/TransferCurves.h"

#include <cmath>
#include <gtest/gtest.h>

namespace zumeta {

namespace {

struct Codes {
    int y, cb, cr;
};

PictureFormat formatOf(ColourMatrix matrix, int depth = 8, ColourRange range = ColourRange::limited)
{
    PictureFormat format;
    format.width = 64;
    format.height = 48;
    format.bitDepth = depth;
    format.matrix = matrix;
    format.range = range;
    return format;
}

PictureFormat hdrFormat(TransferFunction transfer)
{
    PictureFormat format = formatOf(ColourMatrix::bt2020, 10);
    format.transfer = transfer;
    format.primaries = ColourPrimaries::bt2020;
    return format;
}

GuardedFrame composed(const VideoPicture& source)
{
    GuardedFrame frame(64, 48);
    FrameCompositor(*exportLayout({64, 48}, {4, 3}, {})).compose(source, nullptr, frame.picture);
    return frame;
}

void expectAllNear(const GuardedFrame& frame, Codes expected, int tolerance)
{
    const std::array<int, 3> codes{expected.y, expected.cb, expected.cr};
    for (int plane = 0; plane < 3; ++plane) {
        for (int y = 0; y < frame.height(plane); ++y) {
            for (int x = 0; x < frame.width(plane); ++x)
                ASSERT_NEAR(frame.at(plane, x, y), codes[size_t(plane)], tolerance) << "plane " << plane;
        }
    }
}

double meanOf(const GuardedFrame& frame, int plane)
{
    double sum = 0;
    for (int y = 0; y < frame.height(plane); ++y) {
        for (int x = 0; x < frame.width(plane); ++x)
            sum += frame.at(plane, x, y);
    }
    return sum / (frame.width(plane) * frame.height(plane));
}

/// 10-bit limited code of a grey with this signal.
int greyCode(double signal)
{
    return int(std::lround(64 + 876 * signal));
}

double lumaSignal(const GuardedFrame& frame)
{
    return (meanOf(frame, 0) - 16) / 219;
}

double lumaOfGrey(TransferFunction transfer, double signal)
{
    const GuardedFrame frame = composed(makeFlat(hdrFormat(transfer), greyCode(signal), 512, 512));
    EXPECT_NEAR(meanOf(frame, 1), 128, 0.1) << "greys stay grey";
    EXPECT_NEAR(meanOf(frame, 2), 128, 0.1) << "greys stay grey";
    return lumaSignal(frame);
}

}

// 100 % bars: codes of BT.601 on the left, of BT.709 on the right, both by hand from R'G'B' and the luma shares.
TEST(ColourConversion, BarsInBt601BecomeBarsInBt709)
{
    const std::pair<Codes, Codes> bars[] = {
        {{235, 128, 128}, {235, 128, 128}}, // white
        {{210, 16, 146}, {219, 16, 138}},   // yellow
        {{170, 166, 16}, {188, 154, 16}},   // cyan
        {{145, 54, 34}, {173, 42, 26}},     // green
        {{106, 202, 222}, {78, 214, 230}},  // magenta
        {{81, 90, 240}, {63, 102, 240}},    // red
        {{41, 240, 110}, {32, 240, 118}},   // blue
        {{16, 128, 128}, {16, 128, 128}},   // black
    };
    for (const auto& [bt601, bt709] : bars) {
        SCOPED_TRACE(testing::Message() << "luma " << bt601.y);
        expectAllNear(composed(makeFlat(formatOf(ColourMatrix::bt601), bt601.y, bt601.cb, bt601.cr)), bt709, 2);
    }
}

TEST(ColourConversion, BarsInBt2020BecomeBarsInBt709WhereOnlyTheMatrixDiffers)
{
    // 10 bit: red Y' = 64 + 876 * 0.2627, Cb = 512 - 896 * 0.2627 / 1.8814, Cr = 512 + 448.
    expectAllNear(composed(makeFlat(formatOf(ColourMatrix::bt2020, 10), 294, 387, 960)), {63, 102, 240}, 2);
    // Green: Y' = 64 + 876 * 0.678, Cb = 512 - 896 * 0.678 / 1.8814, Cr = 512 - 896 * 0.678 / 1.4746.
    expectAllNear(composed(makeFlat(formatOf(ColourMatrix::bt2020, 10), 658, 189, 100)), {173, 42, 26}, 2);
}

TEST(ColourConversion, FullRangeBt601IsConvertedInOneGo)
{
    // JPEG red: Y' = 76, Cb = 85, Cr = 255.
    expectAllNear(composed(makeFlat(formatOf(ColourMatrix::bt601, 8, ColourRange::full), 76, 85, 255)), {63, 102, 240},
                  2);
}

TEST(ColourConversion, GreysOfAnyMatrixStayExact)
{
    for (const ColourMatrix matrix : {ColourMatrix::bt601, ColourMatrix::bt2020}) {
        for (const int grey : {16, 17, 100, 128, 200, 235})
            expectAllNear(composed(makeFlat(formatOf(matrix), grey, 128, 128)), {grey, 128, 128}, 0);
    }
}

TEST(ColourConversion, ChromaEdgesMoveLumaAtTheirPlace)
{
    // Left half grey, right half strongly red: luma has to change at the same column as chroma, for every siting.
    for (const ChromaSiting siting : {ChromaSiting::left, ChromaSiting::centre, ChromaSiting::topLeft}) {
        for (const int shift : {0, 1, 2}) {
            PictureFormat format = formatOf(ColourMatrix::bt601);
            format.siting = siting;
            format.chromaShiftX = shift;
            format.chromaShiftY = shift == 2 ? 0 : shift;
            const GuardedFrame frame = composed(makePicture(format, [&](int plane, int x, int) {
                return plane == 0 ? 100 : plane == 2 && (x << shift) >= 32 ? 228 : 128;
            }));
            // 601 to 709 takes 0.2076 of Cr off Y' (219/224 * 100 * 0.2076).
            EXPECT_NEAR(frame.at(0, 26, 20), 100, 1) << "siting " << int(siting) << " shift " << shift;
            EXPECT_NEAR(frame.at(0, 37, 20), 80, 1) << "siting " << int(siting) << " shift " << shift;
        }
    }
}

TEST(ColourConversion, PqReferenceWhiteLandsJustBelowSdrWhite)
{
    EXPECT_NEAR(lumaOfGrey(TransferFunction::pq, pqOfNits(203)), 0.903, 0.005);
    EXPECT_NEAR(lumaOfGrey(TransferFunction::pq, pqOfNits(1000)), 1.0, 0.003);
    EXPECT_NEAR(lumaOfGrey(TransferFunction::pq, 1.0), 1.0, 0.003);
}

TEST(ColourConversion, PqMidGreyKeepsItsBrightness)
{
    // 26 nits is an 18 % card under a white of 203 nits: (26 / 203)^(1 / 2.4).
    EXPECT_NEAR(lumaOfGrey(TransferFunction::pq, pqOfNits(26)), 0.4247, 0.004);
    EXPECT_NEAR(lumaOfGrey(TransferFunction::pq, 0), 0, 0.002);
}

TEST(ColourConversion, HlgReferenceWhiteAndMidGreyLandWhereThoseOfPqDo)
{
    // On a screen of 1000 nits the signal 0.75 is 203 nits, and 0.38 is 26.
    EXPECT_NEAR(lumaOfGrey(TransferFunction::hlg, 0.75), 0.903, 0.006);
    EXPECT_NEAR(lumaOfGrey(TransferFunction::hlg, 0.38), 0.4247, 0.01);
    EXPECT_NEAR(lumaOfGrey(TransferFunction::hlg, 1.0), 1.0, 0.003);
    EXPECT_NEAR(lumaOfGrey(TransferFunction::hlg, 0), 0, 0.002);
}

TEST(ColourConversion, TheToneCurveRisesAndJoinsItsKneeSmoothly)
{
    double last = -1;
    double lastSlope = 1;
    for (double nits = 0.5; nits <= 1000; nits += 0.5) {
        const double mapped = toneMapped(nits);
        ASSERT_GT(mapped, last) << nits;
        if (last >= 0) {
            const double slope = (mapped - last) / 0.5;
            ASSERT_LT(slope, lastSlope + 0.01) << nits;
            ASSERT_GT(slope, lastSlope - 0.02) << nits;
            lastSlope = slope;
        }
        last = mapped;
    }
    EXPECT_DOUBLE_EQ(toneMapped(50), 50);
    EXPECT_NEAR(toneMapped(1000), kSdrPeakNits, 1e-6);
    EXPECT_NEAR(toneMapped(5000), kSdrPeakNits, 1e-6);
}

TEST(ColourConversion, ASmoothHdrRampShowsNoBands)
{
    // 10 bit over 64 columns of blocks: dithered, the mean of each block of 8 by 8 must follow the curve.
    PictureFormat format = hdrFormat(TransferFunction::pq);
    const auto signalAt = [](int x) { return 0.35 + 0.1 * (x / 8) / 8.0; };
    const GuardedFrame frame =
        composed(makePicture(format, [&](int plane, int x, int) { return plane == 0 ? greyCode(signalAt(x)) : 512; }));
    for (int block = 0; block < 8; ++block) {
        double mean = 0;
        for (int y = 16; y < 24; ++y) {
            for (int x = 8 * block; x < 8 * block + 8; ++x)
                mean += frame.at(0, x, y) / 64.0;
        }
        const double signal = (greyCode(signalAt(8 * block)) - 64) / 876.0;
        const double expected = 16 + 219 * std::pow(toneMapped(nitsOfPq(signal)) / kSdrPeakNits, 1 / 2.4);
        EXPECT_NEAR(mean, expected, 0.2) << block;
    }
}

TEST(ColourConversion, WideColoursAreCutToTheNarrowerPrimaries)
{
    // Full red of BT.2020 in SDR lies outside BT.709: red stays full, the others are empty.
    PictureFormat format = formatOf(ColourMatrix::bt2020, 10);
    format.primaries = ColourPrimaries::bt2020;
    expectAllNear(composed(makeFlat(format, 294, 387, 960)), {63, 102, 240}, 2);
    // A red of BT.709 at full strength is R'G'B' 0.82, 0.33, 0.17 of BT.2020 there (light 0.627, 0.069, 0.016).
    // Close to black the screen's gamma magnifies the rounding of these numbers.
    const double r = std::pow(0.6274, 1 / 2.4), g = std::pow(0.0691, 1 / 2.4), b = std::pow(0.0164, 1 / 2.4);
    const double y = 0.2627 * r + 0.678 * g + 0.0593 * b;
    const auto code = [](double zero, double span, double value) { return int(std::lround(zero + span * value)); };
    expectAllNear(composed(makeFlat(format, code(64, 876, y), code(512, 896, (b - y) / 1.8814),
                                    code(512, 896, (r - y) / 1.4746))),
                  {63, 102, 240}, 4);
}

}
