// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

namespace zumeta::swim {

/// Red, green and blue as they are coded for a screen: 0 to 1, and a little beyond while a picture is being made.
struct Colour {
    float r = 0, g = 0, b = 0;

    static constexpr Colour hex(uint32_t rgb)
    {
        return {float(rgb >> 16 & 255) / 255.f, float(rgb >> 8 & 255) / 255.f, float(rgb & 255) / 255.f};
    }
    constexpr Colour& operator+=(Colour o) { return *this = *this + o; }
    constexpr Colour& operator*=(float k) { return *this = *this * k; }
    friend constexpr Colour operator+(Colour p, Colour q) { return {p.r + q.r, p.g + q.g, p.b + q.b}; }
    friend constexpr Colour operator-(Colour p, Colour q) { return {p.r - q.r, p.g - q.g, p.b - q.b}; }
    friend constexpr Colour operator*(Colour p, Colour q) { return {p.r * q.r, p.g * q.g, p.b * q.b}; }
    friend constexpr Colour operator*(Colour a, float k) { return {a.r * k, a.g * k, a.b * k}; }
};

inline constexpr Colour kWhite{1, 1, 1};

constexpr float clamp01(float x)
{
    return std::clamp(x, 0.f, 1.f);
}
/// Lays `over` on `under`, which shows through by 1 - alpha.
constexpr Colour mix(Colour under, Colour over, float alpha)
{
    return under + (over - under) * alpha;
}
constexpr float mix(float a, float b, float t)
{
    return a + (b - a) * t;
}
/// 0 at `from` and before, 1 at `to` and beyond, smooth between; `from` may be the larger one.
constexpr float smooth(float from, float to, float x)
{
    const float t = clamp01((x - from) / (to - from));
    return t * t * (3 - 2 * t);
}
constexpr float square(float x)
{
    return x * x;
}
/// Nearly exp(-(x / width)^2), but 0 from two widths on, and far cheaper.
constexpr float bell(float x, float width)
{
    const float q = 1 - square(x / width) * .25f;
    return q <= 0 ? 0.f : square(square(q));
}
inline int floorInt(float x)
{
    const int i = int(x);
    return i - (x < float(i) ? 1 : 0);
}
inline float fraction(float x)
{
    return x - float(floorInt(x));
}

/// A rectangle of values, row by row from the top.
template <typename T> class Grid {
public:
    Grid() = default;
    Grid(int width, int height, T value = {})
        : m_width(width)
        , m_height(height)
        , m_values(size_t(width) * size_t(height), value)
    {}
    int width() const { return m_width; }
    int height() const { return m_height; }
    T* row(int y) { return m_values.data() + size_t(y) * size_t(m_width); }
    const T* row(int y) const { return m_values.data() + size_t(y) * size_t(m_width); }
    /// New size and one value everywhere; memory is kept.
    void reset(int width, int height, T value)
    {
        m_width = width;
        m_height = height;
        m_values.assign(size_t(width) * size_t(height), value);
    }

private:
    int m_width = 0;
    int m_height = 0;
    std::vector<T> m_values;
};

using Canvas = Grid<Colour>;
using Plane = Grid<float>;

/// Between the four values around (x, y), in pixels; beyond the edge the edge's value.
template <typename T> T bilinear(const Grid<T>& grid, float x, float y)
{
    x = std::clamp(x, 0.f, float(grid.width() - 1) - .001f);
    y = std::clamp(y, 0.f, float(grid.height() - 1) - .001f);
    const int xi = int(x);
    const int yi = int(y);
    const float fx = x - float(xi);
    const float fy = y - float(yi);
    const T* const upper = grid.row(yi) + xi;
    const T* const lower = upper + grid.width();
    return (upper[0] * (1 - fx) + upper[1] * fx) * (1 - fy) + (lower[0] * (1 - fx) + lower[1] * fx) * fy;
}

}
