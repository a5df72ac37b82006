// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "Canvas.h"

#include <cstdint>
#include <vector>

namespace zumeta::swim {

/// A well mixed number for every key: the same on every machine and in every run.
constexpr uint32_t hashed(uint32_t a, uint32_t b = 0, uint32_t c = 0)
{
    uint32_t h = a * 0x9e3779b1u ^ (b + 0x7f4a7c15u) * 0x85ebca6bu ^ (c + 0x165667b1u) * 0xc2b2ae35u;
    h = (h ^ (h >> 16)) * 0x7feb352du;
    h = (h ^ (h >> 15)) * 0x846ca68bu;
    return h ^ (h >> 16);
}

/// A row of random numbers that belongs to its key.
class Dice {
public:
    explicit constexpr Dice(uint32_t a, uint32_t b = 0, uint32_t c = 0)
        : m_state(hashed(a, b, c))
    {}
    /// 0 to below 1.
    constexpr float roll()
    {
        m_state = m_state * 1664525u + 1013904223u;
        return float(hashed(m_state) >> 8) * (1.f / 16777216.f);
    }
    constexpr float between(float low, float high) { return low + (high - low) * roll(); }
    /// Bell-shaped around 0; about two thirds of the rolls lie within `deviation`, none beyond three of them.
    constexpr float around(float deviation) { return (roll() + roll() + roll() + roll() - 2) * 1.7320508f * deviation; }

private:
    uint32_t m_state;
};

/// A square of noise that repeats without a seam, mean 0 and deviation 1, with smaller copies of itself for
/// places where it is seen from afar.
class NoiseTexture {
public:
    static constexpr int kSize = 512;
    /// Waves of `lowest` to `highest` periods across the square, their strength falling by the power `falloff`.
    static NoiseTexture powerLaw(uint32_t seed, float falloff, float lowest, float highest);
    /// How steeply this noise rises along (du, dv): what tilts the water toward the eye.
    NoiseTexture slopes(float du, float dv) const;

    /// u and v: 1 is the whole square. `level` n is the copy of kSize / 2^n.
    float at(float u, float v, int level = 0) const
    {
        const Plane& plane = m_levels[size_t(level)];
        const int mask = plane.width() - 1;
        const float x = u * float(plane.width());
        const float y = v * float(plane.width());
        const int xi = floorInt(x);
        const int yi = floorInt(y);
        const float fx = x - float(xi);
        const float fy = y - float(yi);
        const float* const upper = plane.row(yi & mask);
        const float* const lower = plane.row((yi + 1) & mask);
        const int left = xi & mask;
        const int right = (xi + 1) & mask;
        return mix(mix(upper[left], upper[right], fx), mix(lower[left], lower[right], fx), fy);
    }
    /// The copy to use when neighbouring pixels are `step` of the square apart.
    static int levelFor(float step);

private:
    explicit NoiseTexture(Plane plane);
    std::vector<Plane> m_levels;
};

/// The textures that all water is made of.
struct WaterTextures {
    WaterTextures();
    NoiseTexture broad, middle, fine; ///< heights of waves, from long to short
    NoiseTexture broadSlopes, middleSlopes, fineSlopes;
    NoiseTexture lensA, lensB; ///< their zero lines are where waves focus the light

    /// Bright net of light at (u, v), drifting with the seconds; about 0.1 on average.
    float caustics(float u, float v, float seconds, int level = 0) const
    {
        const float t = seconds;
        const float a = lensA.at(u + t * .021f, v + t * .013f, level) + lensB.at(u - t * .017f, v - t * .024f, level);
        const float b = lensB.at(u * 1.2f - t * .027f, v * 1.2f + t * .019f + .37f, level) +
                        lensA.at(u * 1.2f + t * .015f + .41f, v * 1.2f - t * .023f, level);
        const float first = std::max(0.f, 1 - std::abs(a) * 1.5f);
        const float second = std::max(0.f, 1 - std::abs(b) * 1.8f);
        return first * first * first + second * second * second * .8f;
    }
};

}
