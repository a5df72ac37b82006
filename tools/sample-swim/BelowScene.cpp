// SPDX-License-Identifier: GPL-3.0-or-later
#include "BelowScene.h"

#include "Spray.h"

namespace zumeta::swim {

namespace {

/// The underside of the surface and the floor run together toward these heights, far away in the blue.
constexpr float kSurfaceHorizon = 63;
constexpr float kFloorHorizon = 93;
constexpr float kFloorBegins = 255;
/// The floor's row, below its horizon, that is as far away as the swimmer's lane.
constexpr float kFloorLane = 331;

const Rope kNearRope{-2,
                     15,
                     30,
                     kRopeRed* Colour::hex(0x9fc4dd),
                     {kRopeWhite * Colour::hex(0xa8d8ee), kRopeBlue* Colour::hex(0xa0d0f0)},
                     4,
                     .86f,
                     2,
                     1};

}

struct BelowScene::Instant {
    double swimTime;
    float seconds;
    float camera;
};

BelowScene::BelowScene(const View& view, const WaterTextures& water, RowPool& pool)
    : m_view(view)
    , m_water(water)
    , m_pool(pool)
    , m_edge(size_t(view.width))
{}

void BelowScene::draw(double swimTime, Canvas& canvas)
{
    const Instant now{swimTime, float(swimTime + 40), float(cameraPosition(swimTime))};
    m_swimmer.draw(m_view, swimTime, SwimmerPicture::Light::water, m_pool);
    m_froth.reset(m_view.width, m_view.height, 0);
    drawSpecks(m_froth, m_view, now.camera, frothBelowAt(swimTime), m_pool);
    const std::vector<Bubble> bubbles = bubblesAt(swimTime);
    for (int x = 0; x < m_view.width; ++x)
        m_edge[size_t(x)] = -waterHeight(m_view.x(float(x), now.camera), swimTime);

    m_pool.run(0, m_view.height, 8, [&](int from, int to) {
        for (int y = from; y < to; ++y) {
            Colour* const pixels = canvas.row(y);
            drawDeepRow(now, y, pixels);
            drawUndersideRow(now, y, pixels);
            drawFloorRow(now, y, pixels);
            drawRays(now, y, pixels, .15f);
            drawRope(now, y, pixels);
            drawSwimmerMirrored(now, y, pixels);
        }
    });
    drawBubbles(canvas, m_view, now.camera, bubbles, false, m_pool);
    m_pool.run(0, m_view.height, 8, [&](int from, int to) {
        for (int y = from; y < to; ++y) {
            drawSwimmer(now, y, canvas.row(y));
            drawFroth(y, canvas.row(y));
        }
    });
    drawBubbles(canvas, m_view, now.camera, bubbles, true, m_pool);
    drawDust(now, canvas);
    m_pool.run(0, m_view.height, 16, [&](int from, int to) {
        for (int y = from; y < to; ++y)
            finishRow(now, y, canvas.row(y));
    });
}

void BelowScene::drawDeepRow(const Instant& now, int y, Colour* pixels) const
{
    const float rowY = m_view.y(float(y));
    const Colour deep = mix(Colour::hex(0x1186c4), Colour::hex(0x04305f), smooth(-67, 583, rowY));
    const Colour row = mix(deep, Colour::hex(0x1a93cc), bell(rowY - 83, 130) * .55f);
    // Tiles of the far wall, barely seen through so much water.
    const float wall = smooth(kSurfaceHorizon, 93, rowY) * smooth(273, 243, rowY) * .06f;
    const float across = bell((fraction((rowY - kSurfaceHorizon) / 44) - .5f) * 44, 1.4f);
    const float unitsPerPixel = 1 / m_view.pixelsPerUnit;
    const float shift = now.camera * .3f;
    for (int x = 0; x < m_view.width; ++x) {
        pixels[x] = row;
        if (wall > 0) {
            const float column = (float(x) - float(m_view.width) * .5f) * unitsPerPixel + shift;
            pixels[x] *= 1 - wall * std::max(across, bell((fraction(column / 64) - .5f) * 64, 1.5f));
        }
    }
}

void BelowScene::drawUndersideRow(const Instant& now, int y, Colour* pixels) const
{
    const float fromHorizon = kSurfaceHorizon - m_view.y(float(y));
    if (fromHorizon <= 0)
        return;
    const float fog = std::exp(-fromHorizon / 42);
    const float scale = (fromHorizon + 25) / (kSurfaceHorizon + 25);
    const float perPixel = 1.05f / (kUnitsPerMetre * scale * m_view.pixelsPerUnit);
    const float u0 = now.camera / kUnitsPerMetre * 1.05f - float(m_view.width) * .5f * perPixel;
    const float v = 165 / (fromHorizon + 6);
    const float perRow = v / (fromHorizon + 6) / m_view.pixelsPerUnit;
    const float step = std::sqrt(perPixel * std::max(perPixel, perRow));
    const int level = NoiseTexture::levelFor(step);
    const int finerLevel = NoiseTexture::levelFor(step * 2.1f);
    const Colour surface = mix(Colour::hex(0x0f6fae), Colour::hex(0x0a4f8c), smooth(30, 500, fromHorizon));
    const float overhead = smooth(60, 560, fromHorizon);
    const float t = now.seconds * 1.6f;
    for (int x = 0; x < m_view.width; ++x) {
        const float u = u0 + float(x) * perPixel;
        const float slope = .72f * m_water.broadSlopes.at(u * .7f + t * .03f, v * .7f + t * .045f, level) +
                            .50f * m_water.broadSlopes.at(.3f - u - t * .05f, v + t * .06f, level) +
                            .40f * m_water.middleSlopes.at(u * 1.6f + t * .04f, v * 1.6f - t * .09f, finerLevel);
        // Seen from below, most of the surface mirrors the blue; crests let the hall's light through, in a bright net.
        const float net = m_water.caustics(u * .62f + slope * .006f, v * .62f + slope * .008f, t * 2, level);
        const float window = smooth(.2f, 2.3f, slope + overhead * .9f);
        Colour colour = surface * (1 + .20f * std::clamp(slope, -1.5f, 1.5f));
        colour = mix(colour, Colour::hex(0x8fdcf6), window * .55f);
        colour += Colour::hex(0xa8ecff) * (net * (.20f + .38f * window));
        pixels[x] = mix(colour, pixels[x], fog);
    }
}

void BelowScene::drawFloorRow(const Instant& now, int y, Colour* pixels) const
{
    const float rowY = m_view.y(float(y));
    if (rowY < kFloorBegins)
        return;
    const float fromHorizon = rowY - kFloorHorizon;
    const float depth = 470 / fromHorizon;
    const float perPixel = .755f / (kUnitsPerMetre * (fromHorizon / kFloorLane) * m_view.pixelsPerUnit);
    const float u0 = now.camera / kUnitsPerMetre * .755f - float(m_view.width) * .5f * perPixel;
    const Colour stone = mix(Colour::hex(0x0d6fa8), Colour::hex(0x0b4f80), smooth(263, 583, rowY));
    const float seen = smooth(kFloorBegins, 403, rowY) * .9f;
    const float joints = bell(fraction(depth * 7) - .5f, .03f + 6 / fromHorizon);
    const float jointWidth = .02f + 1.6f / fromHorizon;
    const float line = (1 - smooth(.145f, .19f, std::abs(depth - 1.42f))) * .62f;
    const int level = NoiseTexture::levelFor(perPixel * .75f);
    for (int x = 0; x < m_view.width; ++x) {
        const float across = u0 + float(x) * perPixel;
        const float joint = std::max(joints, bell(fraction(across * 7) - .5f, jointWidth));
        const float net = m_water.caustics(across * .75f, depth * .95f, now.seconds * 1.5f, level);
        Colour floor = stone * (1 - .14f * joint) + Colour::hex(0x8fe6ff) * (net * .22f);
        floor = mix(floor, Colour::hex(0x03182f), line);
        pixels[x] = mix(pixels[x], floor, seen);
    }
}

void BelowScene::drawRays(const Instant& now, int y, Colour* pixels, float strength) const
{
    // Shafts of light fan out from a sun high above the picture; they stand in the water while the cameras pass.
    const float rowY = m_view.y(float(y));
    const float seen = smooth(-10, 40, rowY) * std::exp(-std::max(0.f, rowY) / 330) * strength;
    if (seen < .002f)
        return;
    const float toSun = 1 / (rowY + 1017);
    const float t = now.seconds;
    for (int x = 0; x < m_view.width; ++x) {
        const float angle = ((float(x) - float(m_view.width) * .5f) / m_view.pixelsPerUnit - 290) * toSun;
        const float place = angle * 1.3f + now.camera * 4.2e-4f;
        const float ray =
            .6f * m_water.broad.at(place, .3f + t * .028f) + .4f * m_water.middle.at(place * 1.7f, .6f - t * .034f);
        pixels[x] += Colour::hex(0x7fdcff) * (std::clamp(ray, 0.f, 2.f) * seen);
    }
}

void BelowScene::drawRope(const Instant& now, int y, Colour* pixels) const
{
    const float rowY = m_view.y(float(y));
    if (std::abs(rowY - kNearRope.y) > kNearRope.radius + 8)
        return;
    const float pixel = 1 / m_view.pixelsPerUnit;
    for (int x = 0; x < m_view.width; ++x) {
        const float along = m_view.x(float(x), now.camera);
        const Rope::Sample sample =
            kNearRope.at(along, rowY - kNearRope.centreAt(along, now.seconds), pixel * .9f, pixel);
        pixels[x] = mix(pixels[x], sample.colour, sample.alpha);
    }
}

void BelowScene::drawSwimmerMirrored(const Instant& now, int y, Colour* pixels) const
{
    const float rowY = m_view.y(float(y));
    const float seen = smooth(4, -4, rowY) * smooth(-260, -40, rowY) * .72f;
    if (seen <= 0)
        return;
    const float k = m_view.pixelsPerUnit;
    const int from = std::max(0, m_swimmer.left() - 16);
    const int to = std::min(m_view.width, m_swimmer.right() + 16);
    for (int x = from; x < to; ++x) {
        const float along = m_view.x(float(x), now.camera) / kUnitsPerMetre;
        const float slope =
            m_water.middleSlopes.at(along * .8f + now.seconds * .03f, rowY * .012f - now.seconds * .05f, 1);
        const auto sample = m_swimmer.at(float(x) + slope * 5 * k, m_view.row(4 - rowY + slope * 4));
        const Colour tinted = sample.colour * Colour{.47f, .52f, .54f} + Colour::hex(0x1579b0) * .45f;
        pixels[x] = mix(pixels[x], tinted, sample.alpha * seen);
    }
}

void BelowScene::drawSwimmer(const Instant& now, int y, Colour* pixels) const
{
    if (y < m_swimmer.top() || y >= m_swimmer.bottom())
        return;
    const float rowY = m_view.y(float(y));
    if (rowY < -20)
        return;
    const int own = y - m_swimmer.top();
    const float* const alpha = m_swimmer.alpha().row(own);
    const float* const upward = m_swimmer.upward().row(own);
    const Colour* const colour = m_swimmer.colour().row(own);
    const float veil = smooth(3, 263, rowY) * .34f + .07f;
    for (int x = m_swimmer.left(); x < m_swimmer.right(); ++x) {
        const int i = x - m_swimmer.left();
        const float edge = m_edge[size_t(x)] + 3;
        const float cover = alpha[i] * smooth(edge - 5, edge + 5, rowY);
        if (cover <= 0)
            continue;
        const float net = m_water.caustics(m_view.x(float(x), now.camera) / 620, rowY / 480, now.seconds * 1.3f, 0);
        Colour body = colour[i] * Colour{1.02f, 1, .98f} + Colour{.30f, .40f, .40f} * (net * upward[i] * .95f);
        body = mix(body, Colour::hex(0x0d6aa6), veil);
        pixels[x] = mix(pixels[x], body, cover);
    }
}

void BelowScene::drawFroth(int y, Colour* pixels) const
{
    const float cut = smooth(-26, 2, m_view.y(float(y)));
    if (cut <= 0)
        return;
    const float* const froth = m_froth.row(y);
    for (int x = 0; x < m_view.width; ++x)
        pixels[x] = mix(pixels[x], Colour{.80f, .94f, 1}, std::min(1.f, froth[x] * cut) * .85f);
}

void BelowScene::drawDust(const Instant& now, Canvas& canvas) const
{
    // Motes in the water make its depth felt: the nearer ones pass faster.
    const float span = kViewWidth + 100;
    for (uint32_t i = 0; i < 170; ++i) {
        Dice dice(5, i);
        const float nearness = dice.between(.6f, 1.5f);
        const float drift = dice.roll() * span - now.camera * nearness + dice.around(6) * now.seconds;
        const float x = (drift / span - std::floor(drift / span) - .5f) * span;
        const float bottom = m_view.y(float(m_view.height));
        const float y =
            30 + dice.roll() * (bottom - 30) + 8 * std::sin(now.seconds * dice.between(.3f, .9f) + dice.roll() * 6);
        const float radius = std::max(.7f, dice.between(.8f, 1.8f) * nearness * m_view.pixelsPerUnit);
        const int cx = int(x * m_view.pixelsPerUnit + float(m_view.width) * .5f);
        const int cy = int(m_view.row(y));
        const float fx = x * m_view.pixelsPerUnit + float(m_view.width) * .5f;
        const float fy = m_view.row(y);
        for (int py = std::max(0, cy - 4); py <= std::min(m_view.height - 1, cy + 4); ++py)
            for (int px = std::max(0, cx - 4); px <= std::min(m_view.width - 1, cx + 4); ++px)
                canvas.row(py)[px] = mix(canvas.row(py)[px], Colour::hex(0xbfeaff),
                                         .3f * bell(std::hypot(float(px) - fx, float(py) - fy), radius));
    }
}

void BelowScene::finishRow(const Instant& now, int y, Colour* pixels) const
{
    drawRays(now, y, pixels, .045f);
    const float rowY = m_view.y(float(y));
    if (std::abs(rowY) < 30)
        for (int x = 0; x < m_view.width; ++x)
            pixels[x] = mix(pixels[x], Colour::hex(0xc9f2ff), bell(rowY - m_edge[size_t(x)] - 1, 3.5f) * .40f);
    const float dy = square((float(y) - float(m_view.height) * .5f) / (float(m_view.height) * .648f));
    for (int x = 0; x < m_view.width; ++x) {
        const float dx = square((float(x) - float(m_view.width) * .5f) / (float(m_view.width) * .573f));
        pixels[x] *= std::clamp(1 - .24f * (dx + dy), .55f, 1.f);
    }
}

}
