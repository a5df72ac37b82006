// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
// The loops of ColourKernels, for the compiler to vectorise. Included by one source file per instruction set; all is
// in an unnamed namespace, so each of them has its own.
#include "render/ColourKernels.h"

namespace zumeta {
namespace {

inline float clamped(float value, float low, float high)
{
    value = value < low ? low : value;
    return value > high ? high : value;
}

inline uint16_t rounded16(float value)
{
    return uint16_t(int32_t(clamped(value, 0.0F, 65535.0F) + 0.5F));
}

void load8(const uint8_t* __restrict row, int count, float scale, float offset, float* __restrict out)
{
    for (int i = 0; i < count; ++i)
        out[i] = float(row[i]) * scale + offset;
}

void load16(const uint16_t* __restrict row, int count, float scale, float offset, float* __restrict out)
{
    for (int i = 0; i < count; ++i)
        out[i] = float(row[i]) * scale + offset;
}

void storeMix(const float* __restrict a, float weightA, const float* __restrict b, float weightB, float scale,
              float offset, int count, uint16_t* __restrict out)
{
    for (int i = 0; i < count; ++i)
        out[i] = rounded16((a[i] * weightA + b[i] * weightB) * scale + offset);
}

void lerp(float* __restrict a, const float* __restrict b, float fraction, int count)
{
    for (int i = 0; i < count; ++i)
        a[i] += (b[i] - a[i]) * fraction;
}

template <int step>
void upsampleBy(const float* __restrict row, int count, const int* offsets, const float* fractions,
                float* __restrict out)
{
    for (int p = 0; p < step; ++p) {
        const float* __restrict from = row + offsets[p];
        const float fraction = fractions[p];
        for (int i = 0; i < count; ++i)
            out[i * step + p] = from[i] + (from[i + 1] - from[i]) * fraction;
    }
}

void upsample(const float* row, int count, int step, const int* offsets, const float* fractions, float* out)
{
    switch (step) {
    case 1:
        upsampleBy<1>(row, count, offsets, fractions, out);
        break;
    case 2:
        upsampleBy<2>(row, count, offsets, fractions, out);
        break;
    default:
        upsampleBy<4>(row, count, offsets, fractions, out);
        break;
    }
}

void storeLuma(const float* __restrict y, const float* __restrict cb, const float* __restrict cr, float a, float b,
               float scale, float offset, int count, uint16_t* __restrict out)
{
    for (int i = 0; i < count; ++i)
        out[i] = rounded16((y[i] + (cb[i] * a + cr[i] * b)) * scale + offset);
}

/// x to a power below 3, to within 2e-5 of itself; 0 for 0. Only additions and multiplications, so that a loop of it
/// becomes vector code.
[[gnu::always_inline]] inline float power(float x, float exponent)
{
    const int32_t bits = __builtin_bit_cast(int32_t, x);
    const float octave = float((bits >> 23) - 127);
    const float t = __builtin_bit_cast(float, (bits & 0x007FFFFF) | 0x3F800000) - 1.0F;
    // log2(1 + t) / t on 0..1
    float log = -0.03382204596895592F;
    log = log * t + 0.14447109569877475F;
    log = log * t - 0.30163800973500726F;
    log = log * t + 0.46865887914367105F;
    log = log * t - 0.720358772675779F;
    log = log * t + 1.4426814680651516F;
    // Kept above -126, where floats end: the smallest inputs come out as good as 0.
    const float raised = clamped((octave + log * t) * exponent, -125.0F, 120.0F) + 126.0F;
    const int32_t whole = int32_t(raised);
    const float f = raised - float(whole);
    // (2^f - 1) / f on 0..1
    float exponential = 0.0017883687415289483F;
    exponential = exponential * f + 0.00919938759954215F;
    exponential = exponential * f + 0.05565705438618287F;
    exponential = exponential * f + 0.24020719418279534F;
    exponential = exponential * f + 0.6931475675579636F;
    return __builtin_bit_cast(float, (whole + 1) << 23) * (1.0F + exponential * f);
}

/// Gamma-coded Y', Cb, Cr to light, channel by channel.
void decodeLight(const LightConversion& c, float* __restrict y, float* __restrict cb, float* __restrict cr, int count)
{
    const float* const light = c.light;
    constexpr float kLast = kLightTableSize - 1;
    for (int i = 0; i < count; ++i) {
        const float r = y[i] + c.redFromCr * cr[i];
        const float g = y[i] + (c.greenFromCb * cb[i] + c.greenFromCr * cr[i]);
        const float b = y[i] + c.blueFromCb * cb[i];
        y[i] = light[int32_t(clamped(r, 0.0F, 1.0F) * kLast + 0.5F)];
        cb[i] = light[int32_t(clamped(g, 0.0F, 1.0F) * kLast + 0.5F)];
        cr[i] = light[int32_t(clamped(b, 0.0F, 1.0F) * kLast + 0.5F)];
    }
}

/// Light of the scene to light of the screen, by the luminance of BT.2020.
void applySystemGamma(const LightConversion& c, float* __restrict r, float* __restrict g, float* __restrict b,
                      int count)
{
    for (int i = 0; i < count; ++i) {
        const float luminance = 0.2627F * r[i] + (0.678F * g[i] + 0.0593F * b[i]);
        const float factor = power(luminance, c.systemGammaLess1) * c.systemGain;
        r[i] *= factor;
        g[i] *= factor;
        b[i] *= factor;
    }
}

/// To the primaries of BT.709, and coded for a screen of gamma 2.4.
void encodeForScreen(const LightConversion& c, float* __restrict r, float* __restrict g, float* __restrict b, int count)
{
    constexpr float kExponent = 1 / 2.4F;
    const float* const m = c.primaries;
    for (int i = 0; i < count; ++i) {
        const float r709 = m[0] * r[i] + (m[1] * g[i] + m[2] * b[i]);
        const float g709 = m[3] * r[i] + (m[4] * g[i] + m[5] * b[i]);
        const float b709 = m[6] * r[i] + (m[7] * g[i] + m[8] * b[i]);
        r[i] = power(r709 < 0 ? 0 : r709, kExponent);
        g[i] = power(g709 < 0 ? 0 : g709, kExponent);
        b[i] = power(b709 < 0 ? 0 : b709, kExponent);
    }
}

/// Brings the brightest channel into range and the others with it, so that hues stay.
void applyTone(const LightConversion& c, float* __restrict r, float* __restrict g, float* __restrict b, int count)
{
    const float* const tone = c.tone;
    constexpr float kScale = (kToneTableSize - 1) / kBrightestSignal;
    for (int i = 0; i < count; ++i) {
        float most = r[i] > g[i] ? r[i] : g[i];
        most = most > b[i] ? most : b[i];
        most = most > kBrightestSignal ? kBrightestSignal : most;
        const float factor = tone[int32_t(most * kScale + 0.5F)];
        r[i] = clamped(r[i] * factor, 0.0F, 1.0F);
        g[i] = clamped(g[i] * factor, 0.0F, 1.0F);
        b[i] = clamped(b[i] * factor, 0.0F, 1.0F);
    }
}

void storePlanes(const float* __restrict r, const float* __restrict g, const float* __restrict b, int count,
                 uint16_t* __restrict outY, uint16_t* __restrict outCb, uint16_t* __restrict outCr)
{
    for (int i = 0; i < count; ++i) {
        const float y = 0.2126F * r[i] + (0.7152F * g[i] + 0.0722F * b[i]);
        outY[i] = rounded16(y * (219.0F * 256) + 16.0F * 256);
        outCb[i] = rounded16((b[i] - y) * (224.0F * 256 / 1.8556F) + 32768.0F);
        outCr[i] = rounded16((r[i] - y) * (224.0F * 256 / 1.5748F) + 32768.0F);
    }
}

void convertLight(const LightConversion& conversion, float* y, float* cb, float* cr, int count, uint16_t* outY,
                  uint16_t* outCb, uint16_t* outCr)
{
    decodeLight(conversion, y, cb, cr, count);
    if (conversion.hasSystemGamma)
        applySystemGamma(conversion, y, cb, cr, count);
    encodeForScreen(conversion, y, cb, cr, count);
    applyTone(conversion, y, cb, cr, count);
    storePlanes(y, cb, cr, count, outY, outCb, outCr);
}

constexpr ColourKernels kColourKernels{load8, load16, storeMix, lerp, upsample, storeLuma, convertLight};

}
}
