// SPDX-License-Identifier: GPL-3.0-or-later
#include "Skeleton.h"

#include "SwimPlan.h"

#include <algorithm>
#include <array>
#include <numbers>

namespace zumeta::swim {

namespace {

constexpr float kPi = std::numbers::pi_v<float>;

/// Where the two parts of an arm point at a phase of the stroke; x forward, y up, z outward from the body.
struct ArmKey {
    float phase;
    Point upper;
    Point fore;
};

// Entry, glide, catch with a high elbow, pull under the body, push to the hip, exit, and the relaxed way back over
// the water with the elbow as the highest point.
constexpr std::array kArmKeys{
    ArmKey{.00f, {.93f, .02f, .12f}, {.95f, -.28f, -.05f}},    ArmKey{.10f, {.98f, -.16f, .06f}, {.99f, -.12f, -.04f}},
    ArmKey{.28f, {.98f, -.20f, .08f}, {1.0f, -.02f, .00f}},    ArmKey{.36f, {.93f, -.30f, .20f}, {.80f, -.58f, -.02f}},
    ArmKey{.44f, {.74f, -.42f, .48f}, {.28f, -.95f, -.18f}},   ArmKey{.51f, {.18f, -.62f, .70f}, {-.14f, -.95f, -.34f}},
    ArmKey{.57f, {-.56f, -.52f, .54f}, {-.46f, -.87f, -.26f}}, ArmKey{.63f, {-.93f, -.20f, .26f}, {-.90f, -.42f, .00f}},
    ArmKey{.69f, {-.88f, .42f, .30f}, {-.86f, -.30f, .22f}},   ArmKey{.76f, {-.48f, .84f, .36f}, {-.30f, -.72f, .45f}},
    ArmKey{.83f, {-.06f, .96f, .34f}, {.46f, -.74f, .36f}},    ArmKey{.90f, {.24f, .93f, .28f}, {.87f, -.46f, .20f}},
    ArmKey{.95f, {.62f, .66f, .20f}, {.90f, -.44f, .06f}},
};

Point unit(Point p)
{
    return p * (1 / p.length());
}

/// A smooth way through four neighbours that are not evenly spaced in phase.
Point throughKeys(Point before, Point from, Point to, Point after, std::array<float, 4> phase, float at)
{
    const float span = phase[2] - phase[1];
    const Point leave = (to - before) * (span / (phase[2] - phase[0]));
    const Point arrive = (after - from) * (span / (phase[3] - phase[1]));
    const float t = (at - phase[1]) / span;
    const float t2 = t * t;
    const float t3 = t2 * t;
    return from * (2 * t3 - 3 * t2 + 1) + leave * (t3 - 2 * t2 + t) + to * (3 * t2 - 2 * t3) + arrive * (t3 - t2);
}

ArmKey armDirections(float phase)
{
    constexpr size_t n = kArmKeys.size();
    size_t i = n - 1;
    while (i > 0 && kArmKeys[i].phase > phase)
        --i;
    const std::array<size_t, 4> index{(i + n - 1) % n, i, (i + 1) % n, (i + 2) % n};
    std::array<float, 4> at{};
    for (size_t k = 0; k < 4; ++k) {
        at[k] = kArmKeys[index[k]].phase;
        if (k < 1 && index[k] > i)
            at[k] -= 1;
        if (k > 1 && index[k] < i)
            at[k] += 1;
    }
    const auto blend = [&](Point ArmKey::*part) {
        return unit(throughKeys(kArmKeys[index[0]].*part, kArmKeys[index[1]].*part, kArmKeys[index[2]].*part,
                                kArmKeys[index[3]].*part, at, phase));
    };
    return {phase, blend(&ArmKey::upper), blend(&ArmKey::fore)};
}

/// `side` is 1 for the arm near the cameras and -1 for the other.
Arm armAt(float phase, Point shoulder, float side)
{
    const ArmKey directions = armDirections(phase);
    const auto along = [side](Point d, float length) {
        return Point{d.x * length, -d.y * length, d.z * length * side};
    };
    Arm arm;
    arm.shoulder = shoulder;
    arm.elbow = arm.shoulder + along(directions.upper, kUpperArm);
    arm.wrist = arm.elbow + along(directions.fore, kForearm);
    // The hand follows the forearm, a little lazily: on the way back it hangs, in the glide it lies flat.
    const float hang = phase > .66f && phase < .97f ? .30f * std::sin((phase - .66f) / .31f * kPi) : 0;
    Point hand = directions.fore + Point{0, -hang, 0};
    if (phase < .3f)
        hand = hand + Point{.3f, .05f, 0};
    arm.fingertips = arm.wrist + along(unit(hand), kHand);
    return arm;
}

/// A six-beat kick: a wave that runs down the leg, wider and later with every joint.
Leg legAt(float kick, Point hip, float side)
{
    const float thigh = .145f + .15f * std::sin(kick);
    const float shank = thigh + std::min(.03f, -.13f + .24f * std::sin(kick - 1.15f));
    const float foot = shank + .02f + .28f * std::sin(kick - 2.1f);
    const auto along = [side](float angle, float length) {
        return Point{-std::cos(angle) * length, std::sin(angle) * length, side * length * .02f};
    };
    Leg leg;
    leg.hip = hip;
    leg.knee = hip + along(thigh, kThigh);
    leg.ankle = leg.knee + along(shank, kShank);
    leg.toes = leg.ankle + along(foot, kFoot);
    return leg;
}

}

Skeleton skeletonAt(double swimTime)
{
    const auto x = float(headPosition(swimTime));
    const auto phase = float(strokePhase(swimTime));
    const float farPhase = phase < .5f ? phase + .5f : phase - .5f;
    const float turn = 2 * kPi * phase;

    Skeleton s;
    s.roll = .50f * std::cos(turn - 2 * kPi * .83f);
    const float bob = 3.5f * std::sin(2 * turn + .6f);
    // A breath with every second stroke of the near arm.
    const double strokes = swimTime / kStrokeSeconds + .885;
    const auto twoStrokes = float(strokes / 2 - std::floor(strokes / 2));
    s.headTurn = std::clamp(1.6f * std::cos(2 * kPi * (twoStrokes - .86f)) - .75f, 0.f, .8f);

    s.head = {x, -9 + bob, 0};
    s.neck = {x - 62, 3 + bob, 0};
    s.chest = {x - 160, 14 + bob, 0};
    s.waist = {x - 345, 24 + bob * .6f, 0};
    s.pelvis = {x - 446, 29 + bob * .3f, 0};

    const float lift = std::sin(s.roll);
    const float width = std::cos(s.roll);
    // The shoulder goes forward with the arm that reaches.
    const auto shoulder = [&](float ownPhase, float side) {
        const float reach = 24 * std::cos(2 * kPi * (ownPhase - .12f));
        return Point{x - 132 + reach, 8 + bob - side * 58 * lift, side * 56 * width};
    };
    s.nearArm = armAt(phase, shoulder(phase, 1), 1);
    s.farArm = armAt(farPhase, shoulder(farPhase, -1), -1);

    const float kick = 3 * turn;
    const auto hip = [&](float side) { return s.pelvis + Point{-4, 2 - side * 22 * lift * .6f, side * 30}; };
    s.nearLeg = legAt(kick + .4f, hip(1), 1);
    s.farLeg = legAt(kick + .4f + kPi, hip(-1), -1);
    return s;
}

float waterHeight(float x, double swimTime)
{
    const auto t = float(std::fmod(swimTime, 1e4));
    float height = 2.3f * std::sin(x / 168 - 2.2f * t) + 1.7f * std::sin(x / 67 + 2.9f * t + 1) +
                   1.1f * std::sin(x / 29 - 5.1f * t + 2);
    // The head pushes a wave before it and leaves a trough along the back.
    const float fromHead = x - float(headPosition(swimTime));
    const auto hump = [fromHead](float centre, float width) {
        const float q = (fromHead - centre) / width;
        return std::exp(-q * q);
    };
    height += 9 * hump(62, 46) - 7 * hump(-120, 90) + 5 * hump(-420, 110) - 3 * hump(-640, 90);
    return height;
}

}
