// SPDX-License-Identifier: GPL-3.0-or-later
#include "Blur.h"

#include <array>

namespace zumeta::swim {

namespace {

/// Two running means in turn come near enough to a Gaussian; this is the half width that both need.
int halfWidthFor(float deviation)
{
    return std::max(1, int(std::lround((std::sqrt(6 * deviation * deviation + 1) - 1) / 2)));
}

void meanAlong(const float* in, float* out, int count, int half)
{
    const float weight = 1.f / float(2 * half + 1);
    float sum = 0;
    for (int i = 0; i < std::min(half, count); ++i)
        sum += in[i];
    for (int i = 0; i < count; ++i) {
        if (i + half < count)
            sum += in[i + half];
        if (i - half - 1 >= 0)
            sum -= in[i - half - 1];
        out[i] = sum * weight;
    }
}

/// The running mean downward for the columns [from, to), all of them side by side so that memory is read in rows.
void meanDown(const Plane& in, Plane& out, int from, int to, int half)
{
    const int height = in.height();
    const float weight = 1.f / float(2 * half + 1);
    std::vector<float> sums(size_t(to - from), 0.f);
    const auto add = [&](int y, float sign) {
        const float* const row = in.row(y) + from;
        for (size_t i = 0; i < sums.size(); ++i)
            sums[i] += sign * row[i];
    };
    for (int y = 0; y < std::min(half, height); ++y)
        add(y, 1);
    for (int y = 0; y < height; ++y) {
        if (y + half < height)
            add(y + half, 1);
        if (y - half - 1 >= 0)
            add(y - half - 1, -1);
        float* const target = out.row(y) + from;
        for (size_t i = 0; i < sums.size(); ++i)
            target[i] = sums[i] * weight;
    }
}

}

void blur(Plane& plane, float deviation, RowPool& pool)
{
    const int half = halfWidthFor(deviation);
    Plane other(plane.width(), plane.height());
    pool.run(0, plane.height(), 16, [&](int from, int to) {
        for (int y = from; y < to; ++y) {
            meanAlong(plane.row(y), other.row(y), plane.width(), half);
            meanAlong(other.row(y), plane.row(y), plane.width(), half);
        }
    });
    pool.run(0, plane.width(), 64, [&](int from, int to) {
        meanDown(plane, other, from, to, half);
        meanDown(other, plane, from, to, half);
    });
}

void blurWrapped(Canvas& canvas, float deviation, float verticalDeviation)
{
    const int width = canvas.width();
    const int height = canvas.height();
    Canvas other(width, height);
    const auto pass = [&](const Canvas& in, Canvas& out, int half, bool vertical) {
        const float weight = 1.f / float(2 * half + 1);
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                Colour sum;
                for (int i = -half; i <= half; ++i)
                    sum += vertical ? in.row(std::clamp(y + i, 0, height - 1))[x] : in.row(y)[(x + i + width) % width];
                out.row(y)[x] = sum * weight;
            }
        }
    };
    const int half = halfWidthFor(deviation);
    const int verticalHalf = halfWidthFor(verticalDeviation);
    pass(canvas, other, half, false);
    pass(other, canvas, half, false);
    pass(canvas, other, verticalHalf, true);
    pass(other, canvas, verticalHalf, true);
}

}
