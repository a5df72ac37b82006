// SPDX-License-Identifier: GPL-3.0-or-later
#include "SwimmerBody.h"

#include <algorithm>
#include <initializer_list>

namespace zumeta::swim {

namespace {

struct Ring {
    Point centre;
    float radius;
};

Point between(Point a, Point b, float t)
{
    return a + (b - a) * t;
}

float spline(float a, float b, float c, float d, float f)
{
    return .5f * (2 * b + (c - a) * f + (2 * a - 5 * b + 4 * c - d) * f * f + (3 * b - a - 3 * c + d) * f * f * f);
}

Ring spline(const Ring& a, const Ring& b, const Ring& c, const Ring& d, float f)
{
    return {{spline(a.centre.x, b.centre.x, c.centre.x, d.centre.x, f),
             spline(a.centre.y, b.centre.y, c.centre.y, d.centre.y, f),
             spline(a.centre.z, b.centre.z, c.centre.z, d.centre.z, f)},
            std::max(1.f, spline(a.radius, b.radius, c.radius, d.radius, f))};
}

class Sculptor {
public:
    /// A smooth limb through the rings.
    void limb(Material material, std::initializer_list<Ring> given)
    {
        const std::vector<Ring> rings(given);
        const auto mirrored = [](const Ring& edge, const Ring& inner) {
            return Ring{edge.centre * 2 - inner.centre, 2 * edge.radius - inner.radius};
        };
        for (size_t i = 0; i + 1 < rings.size(); ++i) {
            const Ring before = i > 0 ? rings[i - 1] : mirrored(rings[0], rings[1]);
            const Ring after = i + 2 < rings.size() ? rings[i + 2] : mirrored(rings[i + 1], rings[i]);
            const float length = (rings[i + 1].centre - rings[i].centre).length();
            const float spacing = std::max(1.2f, .11f * std::min(rings[i].radius, rings[i + 1].radius));
            const int steps = std::max(2, int(length / spacing));
            for (int k = 0; k < steps; ++k) {
                const Ring r = spline(before, rings[i], rings[i + 1], after, float(k) / float(steps));
                m_balls.push_back({r.centre, r.radius, material, m_limb});
            }
        }
        m_balls.push_back({rings.back().centre, rings.back().radius, material, m_limb});
        ++m_limb;
    }
    std::vector<Ball> take() { return std::move(m_balls); }

private:
    std::vector<Ball> m_balls;
    int m_limb = 0;
};

void addArm(Sculptor& sculptor, const Arm& arm, float side)
{
    const Point up{0, -4, 4 * side};
    sculptor.limb(Material::skin, {{between(arm.shoulder, arm.elbow, -.14f), 45},
                                   {between(arm.shoulder, arm.elbow, .08f) + up, 46},
                                   {between(arm.shoulder, arm.elbow, .32f) + up, 39},
                                   {between(arm.shoulder, arm.elbow, .62f), 34},
                                   {between(arm.shoulder, arm.elbow, .88f), 27.5f},
                                   {arm.elbow, 25.5f}});
    // A limb of its own: on the way back it stands out in front of the upper arm.
    sculptor.limb(Material::skin, {{arm.elbow, 25.5f},
                                   {between(arm.elbow, arm.wrist, .22f), 28.5f},
                                   {between(arm.elbow, arm.wrist, .55f), 23},
                                   {between(arm.elbow, arm.wrist, .90f), 15.5f},
                                   {arm.wrist, 14}});
    sculptor.limb(Material::skin, {{arm.wrist, 14},
                                   {between(arm.wrist, arm.fingertips, .30f), 16},
                                   {between(arm.wrist, arm.fingertips, .58f), 14.5f},
                                   {between(arm.wrist, arm.fingertips, .88f), 8.5f},
                                   {arm.fingertips, 4.5f}});
    const Point thumb{0, -10, 8 * side};
    sculptor.limb(Material::skin, {{between(arm.wrist, arm.fingertips, .18f), 10},
                                   {between(arm.wrist, arm.fingertips, .42f) + thumb, 6.5f},
                                   {between(arm.wrist, arm.fingertips, .60f) + thumb, 4}});
}

void addLeg(Sculptor& sculptor, const Leg& leg)
{
    const Point calf{0, -6, 0};
    const Point instep{0, 3, 0};
    sculptor.limb(Material::skin, {{leg.hip, 52},
                                   {between(leg.hip, leg.knee, .30f), 48},
                                   {between(leg.hip, leg.knee, .65f), 40},
                                   {between(leg.hip, leg.knee, .92f), 31},
                                   {leg.knee, 29.5f},
                                   {between(leg.knee, leg.ankle, .16f) + calf * .5f, 30},
                                   {between(leg.knee, leg.ankle, .34f) + calf, 31.5f},
                                   {between(leg.knee, leg.ankle, .60f) + calf * .4f, 25},
                                   {between(leg.knee, leg.ankle, .88f), 16.5f},
                                   {leg.ankle, 16}});
    sculptor.limb(Material::skin, {{between(leg.ankle, leg.toes, -.10f), 15.5f},
                                   {between(leg.ankle, leg.toes, .10f) + instep, 18},
                                   {between(leg.ankle, leg.toes, .45f), 15},
                                   {between(leg.ankle, leg.toes, .78f), 10},
                                   {leg.toes, 5}});
    sculptor.limb(Material::suit, {{leg.hip + Point{6, 0, 2}, 55.5f},
                                   {between(leg.hip, leg.knee, .30f), 51.5f},
                                   {between(leg.hip, leg.knee, .62f), 44},
                                   {between(leg.hip, leg.knee, .70f), 41.8f}});
}

void addTorso(Sculptor& sculptor, const Skeleton& s)
{
    const auto lift = Point{0, -std::sin(s.roll), 0};
    sculptor.limb(Material::skin, {{s.neck + Point{-32, 6, 0}, 54},
                                   {between(s.neck, s.chest, .62f) + Point{0, 3, 0}, 71},
                                   {s.chest + Point{-8, 0, 0}, 75},
                                   {between(s.chest, s.waist, .45f), 69},
                                   {between(s.chest, s.waist, .82f), 56},
                                   {s.waist, 52},
                                   {between(s.waist, s.pelvis, .5f), 52},
                                   {s.pelvis, 55}});
    // The shoulder blade and the broad muscle of the back rise with the arm that recovers.
    sculptor.limb(Material::skin, {{s.nearArm.shoulder + Point{4, 6, -16}, 50},
                                   {between(s.nearArm.shoulder, s.chest, .8f) + lift * 18 + Point{-30, 0, 14}, 56},
                                   {between(s.chest, s.waist, .45f) + Point{0, 2, 10}, 58}});
    sculptor.limb(Material::skin, {{s.farArm.shoulder + Point{4, 6, 16}, 48},
                                   {between(s.farArm.shoulder, s.chest, .8f) - lift * 14 + Point{-30, 0, -12}, 54}});
    sculptor.limb(Material::suit, {{between(s.waist, s.pelvis, .36f) + Point{0, -1, 3}, 53.5f},
                                   {between(s.waist, s.pelvis, .7f) + Point{0, -2, 3}, 56},
                                   {s.pelvis + Point{-10, -3, 3}, 58.5f},
                                   {s.pelvis + Point{-48, 3, 2}, 56}});
}

void addHead(Sculptor& sculptor, const Skeleton& s)
{
    // Turning the head toward the cameras lifts the face from below the cap to its front.
    const float t = s.headTurn;
    const auto at = [&](float x, float y, float z) { return s.head + Point{x, y, z}; };
    sculptor.limb(Material::skin,
                  {{s.neck + Point{-28, 2, 0}, 50}, {s.neck + Point{14, -2, 0}, 42}, {at(-10, 14, 0), 42}});
    sculptor.limb(Material::skin,
                  {{at(-6, 20, 0), 46}, {at(18, 22 - 3 * t, 4 * t), 43}, {at(30, 26 - 6 * t, 8 * t), 34}});
    // Chin, mouth and nose.
    sculptor.limb(
        Material::skin,
        {{at(6, 46 - 8 * t, 6 * t), 24}, {at(28, 48 - 10 * t, 10 * t), 21}, {at(38, 44 - 9 * t, 10 * t), 14}});
    sculptor.limb(Material::skin, {{at(46, 32 - 8 * t, 12 * t), 11}, {at(54, 33 - 9 * t, 14 * t), 8}});
    sculptor.limb(Material::cap, {{at(-26, -2, 0), 52}, {at(-6, -8, 1), 56}, {at(14, -7, 1), 52}, {at(24, -3, 1), 45}});
    sculptor.limb(Material::goggles,
                  {{at(-30, 14, 42), 8}, {at(4, 14 - 4 * t, 46 + 4 * t), 7}, {at(30, 15 - 6 * t, 34 + 6 * t), 7}});
    sculptor.limb(Material::goggles, {{at(37, 15 - 8 * t, 22 + 12 * t), 15}, {at(45, 19 - 9 * t, 16 + 12 * t), 13}});
}

}

std::vector<Ball> bodyAround(const Skeleton& skeleton)
{
    Sculptor sculptor;
    addLeg(sculptor, skeleton.farLeg);
    addArm(sculptor, skeleton.farArm, -1);
    addTorso(sculptor, skeleton);
    addLeg(sculptor, skeleton.nearLeg);
    addHead(sculptor, skeleton);
    addArm(sculptor, skeleton.nearArm, 1);
    return sculptor.take();
}

}
