// SPDX-License-Identifier: GPL-3.0-or-later
#include "AboveScene.h"

#include "Spray.h"

namespace zumeta::swim {

namespace {

/// The water seems to end a little behind the far edge: there distances along a lane shrink to nothing.
constexpr float kVanishing = kFarEdge - 50;
/// How large a thing at a height `y` of the picture's water looks, against one in the swimmer's lane.
constexpr float laneScale(float y)
{
    return (y - kVanishing) / -kVanishing;
}

const Rope kNearRope{-15, 15, 30, kRopeRed, {kRopeWhite, kRopeBlue}, 4, 1.03f, 2, 1};
const Rope kMiddleRope{-105, 6.5f, 31, kRopeRed, {kRopeWhite, kRopeBlue}, 5, .92f, 1.6f, 2};
const Rope kFarRope{-145, 4, 30, kRopeYellow, {kRopeWhite, kRopeBlue}, 6, .86f, 1.2f, 4};

}

struct AboveScene::Instant {
    double swimTime;
    float seconds;
    float camera;
    float hallColumn;
    float head;
};

AboveScene::AboveScene(const View& view, const WaterTextures& water, RowPool& pool)
    : m_view(view)
    , m_water(water)
    , m_pool(pool)
    , m_hall(view)
    , m_edge(size_t(view.width))
{}

void AboveScene::draw(double swimTime, Canvas& canvas)
{
    const auto camera = float(cameraPosition(swimTime));
    const Instant now{swimTime, float(swimTime + 40), camera, m_hall.firstColumn(camera),
                      float(headPosition(swimTime))};
    m_swimmer.draw(m_view, swimTime, SwimmerPicture::Light::hall, m_pool);
    m_splash.reset(m_view.width, m_view.height, 0);
    drawSpecks(m_splash, m_view, camera, splashAt(swimTime), m_pool);
    m_splashShade = m_splash;
    blur(m_splashShade, 7 * m_view.pixelsPerUnit, m_pool);
    for (int x = 0; x < m_view.width; ++x)
        m_edge[size_t(x)] = -waterHeight(m_view.x(float(x), camera), swimTime);

    m_pool.run(0, m_view.height, 8, [&](int from, int to) {
        std::vector<float> slopes(size_t(m_view.width));
        for (int y = from; y < to; ++y) {
            Colour* const pixels = canvas.row(y);
            if (m_view.y(float(y)) <= kFarEdge) {
                drawHallRow(now, y, pixels);
            } else {
                drawWaterRow(now, y, pixels, slopes);
                drawRope(kFarRope, laneScale(kFarRope.y), now, y, pixels, slopes);
                drawRope(kMiddleRope, laneScale(kMiddleRope.y), now, y, pixels, slopes);
                drawRopeMirrored(now, y, pixels, slopes);
                drawRope(kNearRope, 1, now, y, pixels, slopes);
                drawSwimmerInWater(y, pixels, slopes);
            }
            drawSwimmerInAir(y, pixels);
            drawFoam(now, y, pixels);
            finishRow(y, pixels);
        }
    });
}

void AboveScene::drawHallRow(const Instant& now, int y, Colour* pixels) const
{
    const int row = std::min(y, m_hall.rows() - 1);
    for (int x = 0; x < m_view.width; ++x)
        pixels[x] = m_hall.at(now.hallColumn + float(x), row);
}

void AboveScene::drawWaterRow(const Instant& now, int y, Colour* pixels, std::vector<float>& slopes) const
{
    const float fromEdge = std::max(1.f, m_view.y(float(y)) - kFarEdge);
    const float scale = laneScale(m_view.y(float(y)));
    const float perPixel = .41f / (kUnitsPerMetre * scale * m_view.pixelsPerUnit);
    const float u0 = (now.camera / kUnitsPerMetre) * .41f - float(m_view.width) * .5f * perPixel;
    const float v = 288 / (fromEdge + 50);
    const float perRow = v / (fromEdge + 50) / m_view.pixelsPerUnit;
    const float step = std::sqrt(perPixel * std::max(perPixel, perRow));
    const int broadLevel = NoiseTexture::levelFor(step);
    const int middleLevel = NoiseTexture::levelFor(step * 2.3f);
    const int fineLevel = NoiseTexture::levelFor(step * 5.1f);
    const float t = now.seconds * 1.8f;
    const float fine = .55f * std::exp(-fromEdge / 260) + .10f;
    const float amplitude = smooth(0, 260, fromEdge);
    const float fresnel = .62f * std::exp(-fromEdge / 150) + .10f;
    const float glitter = smooth(8, 120, fromEdge);
    const float depth = 420 / fromEdge;
    const float netSeen = smooth(40, 420, fromEdge) * .19f;
    const Colour deepRow = mix(Colour::hex(0x0e86b4), Colour::hex(0x0b5f8e), smooth(0, 760, fromEdge));
    const float lineSeen = smooth(30, 200, fromEdge) * .55f;
    const float farEdgeRow = m_view.row(kFarEdge);
    const float wakeRow = bell(m_view.y(float(y)) - 20, 70);

    for (int x = 0; x < m_view.width; ++x) {
        const float u = u0 + float(x) * perPixel;
        float slope = .60f * m_water.broadSlopes.at(u + t * .010f, v + t * .030f, broadLevel) +
                      .48f * m_water.middleSlopes.at(u * 2.3f - t * .026f, v * 2.3f + t * .042f, middleLevel) +
                      .34f * m_water.broadSlopes.at(.4f - u * 1.7f - t * .021f, v * 1.7f + t * .05f, middleLevel) +
                      fine * m_water.fineSlopes.at(u * 5.1f + t * .05f, v * 5.1f - t * .06f, fineLevel);
        // Behind the swimmer the water is in uproar.
        const float behind = m_view.x(float(x), now.camera) - now.head;
        slope *= 1 + .75f * wakeRow * smooth(120, -140, behind) * smooth(-2600, -700, behind);
        slopes[size_t(x)] = slope;

        Colour deep = deepRow;
        const float refractedU = u * 2.44f + slope * .006f;
        const float refractedV = depth + slope * .012f;
        const float net = m_water.caustics(refractedU * .42f, refractedV * .9f, t, broadLevel);
        deep += Colour::hex(0x5fd0e8) * (net * netSeen);
        const float line = 1 - smooth(.055f, .085f, std::abs(refractedV - .86f));
        deep = mix(deep, Colour::hex(0x08304f), line * lineSeen);

        const float mirrorRow = farEdgeRow - (fromEdge * .55f + slope * 26 * amplitude + 6) * m_view.pixelsPerUnit;
        const float mirrorColumn = now.hallColumn + float(x) + slope * 7 * m_view.pixelsPerUnit;
        const Colour mirrored = m_hall.mirroredAt(mirrorColumn, mirrorRow);
        Colour water = mix(deep, mirrored, std::clamp(fresnel + .10f * slope * amplitude, .03f, .9f));
        water *= 1 + .11f * slope * amplitude;
        const float sparkle = std::clamp(slope - 1.75f, 0.f, 2.f) * glitter;
        pixels[x] = water + Colour{.24f, .28f, .30f} * sparkle;
    }
    const float shadow = bell(fromEdge, 3) * .6f;
    for (int x = 0; x < m_view.width && shadow > 0; ++x)
        pixels[x] = mix(pixels[x], Colour::hex(0x06253a), shadow);
}

void AboveScene::drawRope(const Rope& rope, float lane, const Instant& now, int y, Colour* pixels,
                          const std::vector<float>& slopes) const
{
    const float rowY = m_view.y(float(y));
    if (std::abs(rowY - rope.y) > rope.radius + 2 * rope.swing + 3)
        return;
    const float pixel = 1 / m_view.pixelsPerUnit;
    const float alongStep = pixel / lane;
    for (int x = 0; x < m_view.width; ++x) {
        const float along = now.camera + (float(x) - float(m_view.width) * .5f) * alongStep;
        const float centre = rope.centreAt(along, now.seconds);
        Rope::Sample sample = rope.at(along, rowY - centre, pixel * .9f, alongStep);
        sample.alpha *=
            smooth(rope.radius * .75f + 1, rope.radius * .45f - 1, rowY - centre + slopes[size_t(x)] * 1.2f);
        pixels[x] = mix(pixels[x], sample.colour, sample.alpha);
    }
}

void AboveScene::drawRopeMirrored(const Instant& now, int y, Colour* pixels, const std::vector<float>& slopes) const
{
    const float rowY = m_view.y(float(y));
    if (rowY < -8 || rowY > 34)
        return;
    const float pixel = 1 / m_view.pixelsPerUnit;
    for (int x = 0; x < m_view.width; ++x) {
        const float slope = slopes[size_t(x)];
        const float along = m_view.x(float(x), now.camera) + slope * 3;
        const float mirroredY = 2 * -4 - rowY + slope * 3.5f;
        const Rope::Sample sample =
            kNearRope.at(along, mirroredY - kNearRope.centreAt(along, now.seconds), pixel * 2, pixel * 2);
        pixels[x] =
            mix(pixels[x], sample.colour * .7f, sample.alpha * clamp01(.5f + .25f * slope) * .5f * smooth(34, 4, rowY));
    }
}

void AboveScene::drawSwimmerInWater(int y, Colour* pixels, const std::vector<float>& slopes) const
{
    const float rowY = m_view.y(float(y));
    if (rowY < -6 || rowY > 300)
        return;
    const float k = m_view.pixelsPerUnit;
    const float mirrorSeen = smooth(6, 12, rowY) * smooth(230, 40, rowY) * .55f;
    const float bodySeen = smooth(-2, 4, rowY) * smooth(190, 50, rowY) * .52f;
    const int from = std::max(0, m_swimmer.left() - 12);
    const int to = std::min(m_view.width, m_swimmer.right() + 12);
    for (int x = from; x < to; ++x) {
        const float slope = slopes[size_t(x)];
        const float column = float(x) + slope * 6 * k;
        const auto mirrored = m_swimmer.at(column, m_view.row(16 - rowY + slope * 5));
        pixels[x] = mix(pixels[x], mirrored.colour * .7f + Colour::hex(0x0b5f8e) * .3f, mirrored.alpha * mirrorSeen);
        const auto below = m_swimmer.at(column, m_view.row(rowY * 1.25f + slope * 4));
        pixels[x] = mix(pixels[x], below.colour * .45f + Colour::hex(0x0b6a98) * .5f, below.alpha * bodySeen);
    }
}

void AboveScene::drawSwimmerInAir(int y, Colour* pixels) const
{
    if (y < m_swimmer.top() || y >= m_swimmer.bottom() || m_view.y(float(y)) > 40)
        return;
    const float rowY = m_view.y(float(y));
    const float* const alpha = m_swimmer.alpha().row(y - m_swimmer.top());
    const Colour* const colour = m_swimmer.colour().row(y - m_swimmer.top());
    for (int x = m_swimmer.left(); x < m_swimmer.right(); ++x) {
        const int own = x - m_swimmer.left();
        const float edge = m_edge[size_t(x)];
        pixels[x] = mix(pixels[x], colour[own], alpha[own] * smooth(edge + 4, edge - 4, rowY));
    }
}

void AboveScene::drawFoam(const Instant& now, int y, Colour* pixels) const
{
    const float rowY = m_view.y(float(y));
    if (rowY > 130)
        return;
    const float filmRow = rowY > kFarEdge ? bell(rowY - 24, 26) : 0;
    const float cut = smooth(36, 6, rowY);
    const float* const splash = m_splash.row(y);
    const float* const shade = m_splashShade.row(y);
    for (int x = 0; x < m_view.width; ++x) {
        const float along = m_view.x(float(x), now.camera);
        const float behind = along - now.head;
        if (filmRow > 0 && behind < 120) {
            // A film of foam that the swimmer leaves behind, torn by the waves.
            const float reach = smooth(110, -60, behind) * smooth(-1900, -850, behind);
            if (reach > 0) {
                const float u = along / kUnitsPerMetre * .66f;
                const float v = rowY * .009f;
                const float torn = m_water.middle.at(u, v + .4f, 1) * .5f +
                                   m_water.fine.at(u * 2.5f, v * 2.5f + now.seconds * .01f, 1) * .5f;
                pixels[x] = mix(pixels[x], Colour::hex(0xeaf6fb),
                                std::clamp((torn - .20f) * 1.1f * reach * filmRow, 0.f, .75f));
            }
        }
        const float wash = bell(rowY - m_edge[size_t(x)], 6) * smooth(90, 40, behind) * smooth(-960, -700, behind);
        if (wash > 0) {
            const float torn = clamp01(.5f + .32f * m_water.fine.at(along / 640, rowY / 90 + now.seconds * .1f, 1));
            pixels[x] = mix(pixels[x], Colour::hex(0xf2fafd), std::min(.85f, wash * torn));
        }
        const float white = splash[x] * cut;
        if (white > 0) {
            const float lit = std::clamp(1.02f - .25f * (shade[x] - .2f), .72f, 1.06f);
            pixels[x] = mix(pixels[x], Colour{.93f, .97f, 1} * lit, std::min(1.f, white) * .93f);
        }
    }
}

void AboveScene::finishRow(int y, Colour* pixels) const
{
    // Darker toward the corners, as lenses are.
    const float dy = square((float(y) - float(m_view.height) * .5f) / (float(m_view.height) * .65f));
    for (int x = 0; x < m_view.width; ++x) {
        const float dx = square((float(x) - float(m_view.width) * .5f) / (float(m_view.width) * .573f));
        const float k = std::clamp(1 - .17f * (dx + dy), .6f, 1.f);
        const Colour c = pixels[x] * k;
        pixels[x] = {c.r * (1.04f - .04f * c.r), c.g * (1.04f - .04f * c.g), c.b * (1.04f - .04f * c.b)};
    }
}

}
