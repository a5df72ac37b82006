// SPDX-License-Identifier: GPL-3.0-or-later
#include "SwimmerPicture.h"

#include <array>

namespace zumeta::swim {

namespace {

constexpr float kNoHeight = -1e4f;
/// How round a ball looks from the side: a little flatter than it is, as with light from a wide hall.
constexpr float kRoundness = .85f;

constexpr std::array<Colour, 5> kMaterialColours{Colour::hex(0xd79a76), Colour::hex(0xd79a76), Colour::hex(0x16233d),
                                                 Colour::hex(0xf2552c), Colour::hex(0x10141c)};

Point unit(Point p)
{
    return p * (1 / p.length());
}

float facing(Point normal, Point direction)
{
    return normal.x * direction.x + normal.y * direction.y + normal.z * direction.z;
}

}

void SwimmerPicture::draw(const View& view, double swimTime, Light light, RowPool& pool)
{
    const auto camera = float(cameraPosition(swimTime));
    const std::vector<Ball> balls = bodyAround(skeletonAt(swimTime));
    layOut(view, balls, camera);
    raiseHeights(view, balls, camera, pool);
    smoothHeights(view.pixelsPerUnit, pool);
    shade(light, pool);
}

void SwimmerPicture::layOut(const View& view, const std::vector<Ball>& balls, float camera)
{
    auto left = float(view.width);
    float right = 0;
    auto top = float(view.height);
    float bottom = 0;
    for (const Ball& ball : balls) {
        const float reach = (ball.radius + 6) * view.pixelsPerUnit + 2;
        left = std::min(left, view.column(ball.centre.x, camera) - reach);
        right = std::max(right, view.column(ball.centre.x, camera) + reach);
        top = std::min(top, view.row(ball.centre.y) - reach);
        bottom = std::max(bottom, view.row(ball.centre.y) + reach);
    }
    m_left = int(std::clamp(left, 0.f, float(view.width)));
    m_top = int(std::clamp(top, 0.f, float(view.height)));
    const int width = std::max(0, int(std::clamp(right, 0.f, float(view.width))) - m_left);
    const int height = std::max(0, int(std::clamp(bottom, 0.f, float(view.height))) - m_top);
    m_height.reset(width, height, kNoHeight);
    m_alpha.reset(width, height, 0);
    m_upward.reset(width, height, 0);
    m_material.reset(width, height, uint8_t(Material::nothing));
    m_colour.reset(width, height, {});
}

/// One row of one limb: how high it stands and how much of each pixel it covers.
struct SwimmerPicture::LimbRow {
    std::vector<float> height;
    std::vector<float> cover;
    int first = 0;
    int last = -1;

    explicit LimbRow(int width)
        : height(size_t(width), kNoHeight)
        , cover(size_t(width), 0.f)
        , first(width)
    {}

    void add(float cx, float cz, float radius, float dy2)
    {
        const float reach = radius + .75f;
        const float half = std::sqrt(reach * reach - dy2);
        const int from = std::max(0, floorInt(cx - half));
        const int to = std::min(int(height.size()) - 1, floorInt(cx + half) + 1);
        float* const heights = height.data();
        float* const covers = cover.data();
        for (int x = from; x <= to; ++x) {
            const float away = square(float(x) - cx) + dy2;
            const float inside = reach * reach - away;
            const float h = inside > 0 ? cz + kRoundness * std::sqrt(std::max(inside, 0.f)) : kNoHeight;
            heights[x] = std::max(heights[x], h);
            covers[x] = std::max(covers[x], clamp01(.5f + (radius * radius - away) / (2 * radius)));
        }
        first = std::min(first, from);
        last = std::max(last, to);
    }
};

void SwimmerPicture::raiseHeights(const View& view, const std::vector<Ball>& balls, float camera, RowPool& pool)
{
    const float k = view.pixelsPerUnit;
    pool.run(0, m_height.height(), 12, [&](int from, int to) {
        LimbRow limb(m_height.width());
        for (int y = from; y < to; ++y) {
            for (size_t i = 0; i < balls.size(); ++i) {
                const Ball& ball = balls[i];
                const float dy = float(y) - (view.row(ball.centre.y) - float(m_top));
                if (std::abs(dy) < ball.radius * k + .75f)
                    limb.add(view.column(ball.centre.x, camera) - float(m_left), ball.centre.z * k, ball.radius * k,
                             dy * dy);
                if (i + 1 == balls.size() || balls[i + 1].limb != ball.limb)
                    lay(limb, y, ball.material);
            }
        }
    });
}

void SwimmerPicture::lay(LimbRow& limb, int y, Material material)
{
    // Where a limb stands out in front of the body its edge is blended in by cover: a hard step in height would show
    // as stairs in the light.
    float* const height = m_height.row(y);
    float* const alpha = m_alpha.row(y);
    uint8_t* const materials = m_material.row(y);
    for (int x = limb.first; x <= limb.last; ++x) {
        const float h = limb.height[size_t(x)];
        const float cover = limb.cover[size_t(x)];
        if (h > height[x]) {
            if (height[x] <= kNoHeight || cover > .5f)
                materials[x] = uint8_t(material);
            height[x] = height[x] <= kNoHeight ? h : mix(height[x], h, cover);
        }
        alpha[x] = std::max(alpha[x], cover);
        limb.height[size_t(x)] = kNoHeight;
        limb.cover[size_t(x)] = 0;
    }
    limb.first = m_height.width();
    limb.last = -1;
}

void SwimmerPicture::smoothHeights(float pixelsPerUnit, RowPool& pool)
{
    // The balls melt into one skin: means of the heights, near and wider, taken only over the body itself.
    const int width = m_height.width();
    const int height = m_height.height();
    Plane present(width, height);
    Plane raised(width, height);
    pool.run(0, height, 32, [&](int from, int to) {
        for (int y = from; y < to; ++y) {
            for (int x = 0; x < width; ++x) {
                const bool body = m_height.row(y)[x] > kNoHeight / 2;
                present.row(y)[x] = body ? 1.f : 0.f;
                raised.row(y)[x] = body ? m_height.row(y)[x] : 0.f;
            }
        }
    });
    Plane presentWide = present;
    Plane raisedWide = raised;
    Plane edge = present;
    blur(present, 2.3f * pixelsPerUnit, pool);
    blur(raised, 2.3f * pixelsPerUnit, pool);
    blur(presentWide, 6 * pixelsPerUnit, pool);
    blur(raisedWide, 6 * pixelsPerUnit, pool);
    blur(edge, 3.5f * pixelsPerUnit, pool);
    const float rim = 23 * pixelsPerUnit;
    pool.run(0, height, 32, [&](int from, int to) {
        for (int y = from; y < to; ++y) {
            for (int x = 0; x < width; ++x) {
                const float near = raised.row(y)[x] / std::max(present.row(y)[x], 1e-3f);
                const float wide = raisedWide.row(y)[x] / std::max(presentWide.row(y)[x], 1e-3f);
                m_height.row(y)[x] = .58f * near + .42f * wide + std::sqrt(edge.row(y)[x]) * rim;
            }
        }
    });
}

void SwimmerPicture::shade(Light light, RowPool& pool)
{
    const bool hall = light == Light::hall;
    const Point sun = unit(hall ? Point{.25f, -.85f, .5f} : Point{.12f, -.9f, .45f});
    const Point glance = unit({.15f, -.6f, .8f});
    const float ambient = hall ? .30f : .42f;
    const float diffuse = hall ? .92f : .86f;
    const int width = m_height.width();
    const int height = m_height.height();
    pool.run(0, height, 16, [&](int from, int to) {
        for (int y = std::max(1, from); y < std::min(height - 1, to); ++y) {
            for (int x = 1; x < width - 1; ++x) {
                if (m_alpha.row(y)[x] <= 0)
                    continue;
                const float gx = (m_height.row(y)[x + 1] - m_height.row(y)[x - 1]) * .45f;
                const float gy = (m_height.row(y + 1)[x] - m_height.row(y - 1)[x]) * .45f;
                const Point normal = unit({-gx, -gy, 1});
                Colour base;
                float weights = 0;
                for (int dy = -1; dy <= 1; ++dy) {
                    for (int dx = -1; dx <= 1; ++dx) {
                        const uint8_t material = m_material.row(y + dy)[x + dx];
                        const auto weight = float(material == 0 ? 0 : (2 - std::abs(dx)) * (2 - std::abs(dy)));
                        base += kMaterialColours[material] * weight;
                        weights += weight;
                    }
                }
                base *= 1 / std::max(weights, 1.f);
                const auto material = Material(m_material.row(y)[x]);
                const float lit =
                    ambient + diffuse * clamp01((std::clamp(facing(normal, sun), -.2f, 1.f) + .2f) / 1.2f);
                Colour colour = base * lit;
                if (hall) {
                    const float shine = clamp01(facing(normal, glance));
                    const float gloss = std::pow(shine, material == Material::skin ? 26.f : 34.f);
                    colour += Colour{1, .98f, .94f} * (gloss * (material == Material::skin ? .36f : .5f));
                    if (material == Material::skin) // light that has been through the skin comes out warm
                        colour += Colour{.10f, .02f, -.02f} * clamp01(1 - lit);
                }
                m_colour.row(y)[x] = colour;
                m_upward.row(y)[x] = clamp01(-normal.y);
            }
        }
    });
}

SwimmerPicture::Sample SwimmerPicture::at(float column, float row) const
{
    const float x = column - float(m_left);
    const float y = row - float(m_top);
    if (x < 1 || y < 1 || x >= float(m_alpha.width() - 2) || y >= float(m_alpha.height() - 2))
        return {};
    const float alpha = bilinear(m_alpha, x, y);
    if (alpha <= 0)
        return {};
    // Colours beside the body are black: the nearest pixel that has one is right enough for a mirror image.
    const int xi = int(std::lround(x));
    const int yi = int(std::lround(y));
    return {m_colour.row(yi)[xi], alpha};
}

}
