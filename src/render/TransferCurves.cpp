// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/TransferCurves.h"

#include "render/ColourKernels.h"

#include <algorithm>
#include <cmath>

namespace zumeta {

namespace {

// BT.2100
constexpr double kM1 = 2610.0 / 16384;
constexpr double kM2 = 2523.0 / 4096 * 128;
constexpr double kC1 = 3424.0 / 4096;
constexpr double kC2 = 2413.0 / 4096 * 32;
constexpr double kC3 = 2392.0 / 4096 * 32;
constexpr double kPqPeakNits = 10000;
/// Of the screens that SDR is graded on (BT.1886).
constexpr double kScreenGamma = 2.4;

}

double nitsOfPq(double signal)
{
    const double e = std::pow(signal, 1 / kM2);
    return kPqPeakNits * std::pow(std::max(e - kC1, 0.0) / (kC2 - kC3 * e), 1 / kM1);
}

double pqOfNits(double nits)
{
    const double y = std::pow(nits / kPqPeakNits, kM1);
    return std::pow((kC1 + kC2 * y) / (1 + kC3 * y), kM2);
}

double sceneLightOfHlg(double signal)
{
    constexpr double kA = 0.17883277;
    constexpr double kB = 1 - 4 * kA;
    const double c = 0.5 - kA * std::log(4 * kA);
    return signal <= 0.5 ? signal * signal / 3 : (std::exp((signal - c) / kA) + kB) / 12;
}

double toneMapped(double nits)
{
    const double whole = pqOfNits(kHdrPeakNits);
    const double top = pqOfNits(kSdrPeakNits) / whole;
    const double knee = 1.5 * top - 0.5;
    const double signal = pqOfNits(std::min(nits, kHdrPeakNits)) / whole;
    if (signal <= knee)
        return nits;
    const double t = (signal - knee) / (1 - knee);
    const double t2 = t * t;
    const double t3 = t2 * t;
    const double mapped = (2 * t3 - 3 * t2 + 1) * knee + (t3 - 2 * t2 + t) * (1 - knee) + (-2 * t3 + 3 * t2) * top;
    return nitsOfPq(mapped * whole);
}

std::vector<float> lightTable(TransferFunction transfer)
{
    std::vector<float> table(kLightTableSize);
    for (int i = 0; i < kLightTableSize; ++i) {
        const double signal = double(i) / (kLightTableSize - 1);
        double light = 0;
        switch (transfer) {
        case TransferFunction::sdr:
            light = std::pow(signal, kScreenGamma);
            break;
        case TransferFunction::pq:
            light = nitsOfPq(signal) / kSdrPeakNits;
            break;
        case TransferFunction::hlg:
            light = sceneLightOfHlg(signal);
            break;
        }
        table[size_t(i)] = float(light);
    }
    return table;
}

std::vector<float> toneTable(TransferFunction transfer)
{
    std::vector<float> table(kToneTableSize, 1.0F);
    if (transfer == TransferFunction::sdr)
        return table; // out-of-range channels are clipped each by itself
    for (int i = 1; i < kToneTableSize; ++i) {
        const double signal = double(i) / (kToneTableSize - 1) * double(kBrightestSignal);
        const double nits = std::pow(signal, kScreenGamma) * kSdrPeakNits;
        table[size_t(i)] = float(std::pow(toneMapped(nits) / kSdrPeakNits, 1 / kScreenGamma) / signal);
    }
    return table;
}

}
