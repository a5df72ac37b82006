// SPDX-License-Identifier: GPL-3.0-or-later
#include "Noise.h"

#include <complex>
#include <numbers>

namespace zumeta::swim {

namespace {

using Complex = std::complex<float>;

/// The discrete Fourier transform of a power of two of values, in place, without scaling.
void transform(std::vector<Complex>& values)
{
    const size_t n = values.size();
    for (size_t i = 1, j = 0; i < n; ++i) {
        size_t bit = n >> 1;
        for (; j & bit; bit >>= 1)
            j ^= bit;
        j ^= bit;
        if (i < j)
            std::swap(values[i], values[j]);
    }
    for (size_t length = 2; length <= n; length <<= 1) {
        const float angle = -2 * std::numbers::pi_v<float> / float(length);
        std::vector<Complex> turns(length / 2);
        for (size_t k = 0; k < turns.size(); ++k)
            turns[k] = std::polar(1.f, angle * float(k));
        for (size_t start = 0; start < n; start += length) {
            for (size_t k = 0; k < length / 2; ++k) {
                const Complex a = values[start + k];
                const Complex b = values[start + k + length / 2] * turns[k];
                values[start + k] = a + b;
                values[start + k + length / 2] = a - b;
            }
        }
    }
}

void transformSquare(std::vector<std::vector<Complex>>& rows)
{
    const size_t n = rows.size();
    for (auto& row : rows)
        transform(row);
    std::vector<Complex> column(n);
    for (size_t x = 0; x < n; ++x) {
        for (size_t y = 0; y < n; ++y)
            column[y] = rows[y][x];
        transform(column);
        for (size_t y = 0; y < n; ++y)
            rows[y][x] = column[y];
    }
}

/// Mean 0, deviation 1.
void normalise(Plane& plane)
{
    double sum = 0;
    double squares = 0;
    for (int y = 0; y < plane.height(); ++y) {
        for (int x = 0; x < plane.width(); ++x) {
            sum += double(plane.row(y)[x]);
            squares += double(plane.row(y)[x]) * double(plane.row(y)[x]);
        }
    }
    const double count = double(plane.width()) * plane.height();
    const double mean = sum / count;
    const double deviation = std::sqrt(std::max(1e-12, squares / count - mean * mean));
    for (int y = 0; y < plane.height(); ++y)
        for (int x = 0; x < plane.width(); ++x)
            plane.row(y)[x] = float((double(plane.row(y)[x]) - mean) / deviation);
}

}

NoiseTexture::NoiseTexture(Plane plane)
{
    m_levels.push_back(std::move(plane));
    while (m_levels.back().width() > 4) {
        const Plane& big = m_levels.back();
        Plane small(big.width() / 2, big.height() / 2);
        for (int y = 0; y < small.height(); ++y) {
            const float* upper = big.row(2 * y);
            const float* lower = big.row(2 * y + 1);
            for (int x = 0; x < small.width(); ++x, upper += 2, lower += 2)
                small.row(y)[x] = .25f * (upper[0] + upper[1] + lower[0] + lower[1]);
        }
        m_levels.push_back(std::move(small));
    }
}

NoiseTexture NoiseTexture::powerLaw(uint32_t seed, float falloff, float lowest, float highest)
{
    // A spectrum with random phases, turned into waves: no lattice shows, unlike with noise made of cells.
    std::vector<std::vector<Complex>> rows(kSize, std::vector<Complex>(kSize));
    for (int y = 0; y < kSize; ++y) {
        for (int x = 0; x < kSize; ++x) {
            const auto ky = float(y <= kSize / 2 ? y : y - kSize);
            const auto kx = float(x <= kSize / 2 ? x : x - kSize);
            const float k = std::sqrt(kx * kx + ky * ky);
            if (k < lowest || k > highest)
                continue;
            Dice dice(seed, uint32_t(x), uint32_t(y));
            const float strength = std::pow(k, -falloff) * (dice.roll() + .3f);
            rows[size_t(y)][size_t(x)] = std::polar(strength, dice.between(0, 2 * std::numbers::pi_v<float>));
        }
    }
    transformSquare(rows);
    Plane plane(kSize, kSize);
    for (int y = 0; y < kSize; ++y)
        for (int x = 0; x < kSize; ++x)
            plane.row(y)[x] = rows[size_t(y)][size_t(x)].real();
    normalise(plane);
    return NoiseTexture(std::move(plane));
}

NoiseTexture NoiseTexture::slopes(float du, float dv) const
{
    Plane plane(kSize, kSize);
    for (int y = 0; y < kSize; ++y) {
        for (int x = 0; x < kSize; ++x) {
            const float u = float(x) / kSize;
            const float v = float(y) / kSize;
            plane.row(y)[x] = at(u + du, v + dv) - at(u, v);
        }
    }
    normalise(plane);
    return NoiseTexture(std::move(plane));
}

int NoiseTexture::levelFor(float step)
{
    const float pixels = std::max(1.f, step * float(kSize));
    return std::clamp(int(std::log2(pixels) + .35f), 0, 7);
}

WaterTextures::WaterTextures()
    : broad(NoiseTexture::powerLaw(1, 1.7f, 3, 120))
    , middle(NoiseTexture::powerLaw(2, 1.5f, 5, 160))
    , fine(NoiseTexture::powerLaw(3, 1.2f, 8, 200))
    , broadSlopes(broad.slopes(.010f, .013f))
    , middleSlopes(middle.slopes(.010f, .020f))
    , fineSlopes(fine.slopes(.020f, .020f))
    , lensA(NoiseTexture::powerLaw(4, 2.2f, 6, 60))
    , lensB(NoiseTexture::powerLaw(5, 2.2f, 6, 60))
{}

}
