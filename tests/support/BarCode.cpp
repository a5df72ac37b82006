// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/BarCode.h"

#include <algorithm>
#include <cmath>

namespace zumeta::test {

namespace {

constexpr int kColumns = 10;
constexpr int kRows = 2;
constexpr double kLeft = 0.20;
constexpr double kWidth = 0.60;
constexpr double kHeight = 0.12;
constexpr double kMargin = 0.02; ///< grey around the blocks keeps ringing out of the outer ones
constexpr double kDark = 0.12;
constexpr double kBright = 0.88;
constexpr double kGrey = 0.5;

double stripTop(CodeStrip strip)
{
    return strip == CodeStrip::upper ? 0.22 : 0.66;
}

unsigned checkBits(unsigned payload)
{
    // Every bit of the payload reaches the check by two ways, and a strip of one colour does not pass.
    const unsigned folded = payload ^ (payload >> 4) ^ (payload >> 8) ^ (payload >> 12) ^ (payload >> 7);
    return (folded ^ 0b1010) & 0xf;
}

/// 14 bits number, 2 bits side, 4 bits check.
unsigned bitsOf(const BarCode& code)
{
    const unsigned payload = unsigned(code.number & 0x3fff) | unsigned(code.side) << 14;
    return payload | checkBits(payload) << 16;
}

double meanLuma(const RawPicture& picture, double left, double top, double right, double bottom)
{
    const int x0 = int(std::floor(left));
    const int y0 = int(std::floor(top));
    const int x1 = std::max(x0 + 1, int(std::ceil(right)));
    const int y1 = std::max(y0 + 1, int(std::ceil(bottom)));
    double sum = 0;
    for (int y = y0; y < y1; ++y) {
        for (int x = x0; x < x1; ++x)
            sum += picture.luma(x, y);
    }
    return sum / ((x1 - x0) * (y1 - y0));
}

}

std::pair<double, double> stripExtent(CodeStrip strip)
{
    return {stripTop(strip), stripTop(strip) + kHeight};
}

std::optional<double> barCodeLuma(const BarCode& code, double x, double y)
{
    for (const CodeStrip strip : {CodeStrip::upper, CodeStrip::lower}) {
        const double column = (x - kLeft) / kWidth * kColumns;
        const double row = (y - stripTop(strip)) / kHeight * kRows;
        if (column >= 0 && column < kColumns && row >= 0 && row < kRows) {
            const int bit = int(row) * kColumns + int(column);
            return (bitsOf(code) >> bit & 1) != 0 ? kBright : kDark;
        }
        if (x >= kLeft - kMargin && x < kLeft + kWidth + kMargin && y >= stripTop(strip) - kMargin &&
            y < stripTop(strip) + kHeight + kMargin)
            return kGrey;
    }
    return std::nullopt;
}

std::optional<BarCode> readBarCode(const RawPicture& picture, CodeStrip strip, const Placement& placement)
{
    unsigned bits = 0;
    for (int bit = 0; bit < kColumns * kRows; ++bit) {
        const double column = bit % kColumns;
        const double row = double(bit / kColumns);
        const auto x = [&](double inside) {
            return placement.left + placement.width * (kLeft + kWidth * (column + inside) / kColumns);
        };
        const auto y = [&](double inside) {
            return placement.top + placement.height * (stripTop(strip) + kHeight * (row + inside) / kRows);
        };
        const double mean = meanLuma(picture, x(0.3), y(0.3), x(0.7), y(0.7));
        if (std::abs(mean - kGrey) < 0.12)
            return std::nullopt;
        bits |= unsigned(mean > kGrey) << bit;
    }
    const unsigned payload = bits & 0xffff;
    if (checkBits(payload) != bits >> 16 || payload >> 14 == 0)
        return std::nullopt;
    return BarCode{Side(payload >> 14), int(payload & 0x3fff)};
}

std::optional<BarCode> readBarCode(const RawPicture& picture, CodeStrip strip)
{
    return readBarCode(picture, strip, {0, 0, double(picture.format().width), double(picture.format().height)});
}

}
