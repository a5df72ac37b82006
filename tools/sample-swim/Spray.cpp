// SPDX-License-Identifier: GPL-3.0-or-later
#include "Spray.h"

#include "Noise.h"
#include "Skeleton.h"

#include <numbers>

namespace zumeta::swim {

namespace {

constexpr float kGravity = 9.81f * kUnitsPerMetre;
/// Particles are born at this many instants a second.
constexpr double kBirthsPerSecond = 90;

enum Source : uint32_t { nearHand, farHand, head, body, nearFoot, farFoot, drip, mouth, trunk };

struct Birth {
    uint32_t number = 0;
    float age = 0;
    Skeleton skeleton;
    float phase = 0; ///< of the near arm's stroke

    float armPhase(float side) const { return fraction(side > 0 ? phase : phase + .5f); }
    const Arm& arm(float side) const { return side > 0 ? skeleton.nearArm : skeleton.farArm; }
    const Leg& leg(float side) const { return side > 0 ? skeleton.nearLeg : skeleton.farLeg; }
};

/// Calls `f` for every birth of the last `life` seconds.
template <typename F> void forBirths(double swimTime, double life, F f)
{
    const auto last = int64_t(std::floor(swimTime * kBirthsPerSecond));
    const auto first = int64_t(std::ceil((swimTime - life) * kBirthsPerSecond));
    for (int64_t n = first; n <= last; ++n) {
        const double born = double(n) / kBirthsPerSecond;
        f(Birth{uint32_t(n + (int64_t(1) << 30)), float(swimTime - born), skeletonAt(born), float(strokePhase(born))});
    }
}

/// How many are born when `average` are expected.
int count(Dice& dice, float average)
{
    return int(average + dice.roll());
}

/// 0 away from the hand's entry, 1 at it. Entry lies at phase 0.
float entryStrength(float armPhase)
{
    const float away = armPhase > .5f ? 1 - armPhase : armPhase;
    return smooth(armPhase > .5f ? .055f : .075f, 0, away);
}

/// 1 when the feet break the surface.
float footStrength(const Leg& leg)
{
    return smooth(78, 10, leg.toes.y);
}

float fade(float age, float life, float rise = .04f)
{
    return smooth(0, rise, age) * smooth(life, life * .35f, age);
}

void addFlight(std::vector<Speck>& out, Dice& dice, Point from, float age, Point speed, float radius, float alpha)
{
    const float drag = 1 - .25f * std::min(age, 1.f);
    const float x = from.x + speed.x * age * drag;
    const float y = from.y + speed.y * age * drag + .5f * kGravity * age * age;
    if (y > dice.between(0, 14))
        return;
    out.push_back({x, y, radius, alpha * smooth(0, .02f, age), 1});
}

void addHandSplash(std::vector<Speck>& out, const Birth& birth, float side)
{
    const float strength = entryStrength(birth.armPhase(side));
    if (strength <= 0)
        return;
    Dice dice(birth.number, side > 0 ? nearHand : farHand, 1);
    const Arm& arm = birth.arm(side);
    const float shadow = side > 0 ? 1 : .7f;
    for (int i = count(dice, 44 * strength); i > 0; --i) {
        const float part = dice.roll();
        const Point from{mix(arm.wrist.x, arm.fingertips.x + 20, part) + dice.around(12), 0, 0};
        const float power = dice.roll();
        const Point speed{dice.around(190) + 170, -(90 + 1000 * power * power), 0};
        const float size = dice.roll();
        addFlight(out, dice, from, birth.age, speed, .8f + 3.1f * size * size * size, dice.between(.45f, .9f) * shadow);
    }
    for (int i = count(dice, 42 * strength); i > 0; --i) {
        const float life = dice.between(.35f, 1.f);
        const float q = dice.roll();
        const float x = mix(arm.wrist.x - 30, arm.fingertips.x + 16, dice.roll()) + dice.around(22 + 50 * birth.age);
        const float y = dice.around(7) - 3 - std::max(0.f, 46 * dice.roll() * dice.roll() * (1 - birth.age * 4));
        if (birth.age < life)
            out.push_back({x, y, 1.4f + 7.5f * q * q * q, dice.between(.35f, .75f) * fade(birth.age, life) * shadow,
                           dice.between(.7f, 1.6f)});
    }
}

void addKickSplash(std::vector<Speck>& out, const Birth& birth, float side)
{
    const float strength = footStrength(birth.leg(side));
    Dice dice(birth.number, side > 0 ? nearFoot : farFoot, 2);
    const Leg& leg = birth.leg(side);
    const float shadow = side > 0 ? 1 : .8f;
    for (int i = count(dice, 17 * strength); i > 0; --i) {
        const Point from{mix(leg.ankle.x, leg.toes.x, dice.roll()) + dice.around(26), 0, 0};
        const float power = dice.roll();
        const Point speed{dice.around(210) + 170, -(110 + 980 * power * power), 0};
        const float size = dice.roll();
        addFlight(out, dice, from, birth.age, speed, .8f + 3.9f * size * size * size, dice.between(.4f, .85f) * shadow);
    }
    for (int i = count(dice, 5 + 19 * strength); i > 0; --i) {
        const float life = dice.between(.4f, 1.3f);
        const float q = dice.roll();
        const float x =
            mix(leg.knee.x - 60, leg.toes.x - 30, dice.roll()) + 150 * birth.age + dice.around(30 + 60 * birth.age);
        const float heap = 44 * dice.roll() * dice.roll() * strength * smooth(.3f, 0, birth.age);
        const float y = dice.around(6) - heap;
        if (birth.age < life)
            out.push_back({x, y, 1.5f + 9.5f * q * q * q, dice.between(.35f, .75f) * fade(birth.age, life) * shadow,
                           dice.between(.7f, 1.7f)});
    }
}

/// The wave at the head and the wash along the body.
void addBodyFoam(std::vector<Speck>& out, const Birth& birth)
{
    Dice dice(birth.number, head, 3);
    const Point skull = birth.skeleton.head;
    for (int i = count(dice, 13); i > 0; --i) {
        const float life = dice.between(.15f, .55f);
        const float q = dice.roll();
        const float x = skull.x + 60 + dice.around(18) + 560 * birth.age + dice.around(60 * birth.age);
        const float y = -5 + dice.around(7) - 16 * dice.roll() * dice.roll();
        if (birth.age < life)
            out.push_back({x, y, 1.4f + 7.5f * q * q * q, dice.between(.35f, .75f) * fade(birth.age, life),
                           dice.between(.7f, 1.8f)});
    }
    for (int i = count(dice, 5); i > 0; --i) {
        const float power = dice.roll();
        addFlight(out, dice, {skull.x + 52 + dice.around(14), 0, 0}, birth.age,
                  {dice.around(150) + 560, -(80 + 420 * power * power), 0}, .7f + 1.8f * dice.roll() * dice.roll(),
                  .6f);
    }
    for (int i = count(dice, 24); i > 0; --i) {
        const float life = dice.between(.3f, .9f);
        const float q = dice.roll();
        const float x = skull.x - 30 - 420 * dice.roll() + 260 * birth.age;
        const float y = 4 + dice.around(5);
        if (birth.age < life)
            out.push_back({x, y, 1.2f + 6.5f * q * q * q, dice.between(.2f, .5f) * fade(birth.age, life),
                           dice.between(.8f, 2.2f)});
    }
}

/// Water running off the arm on its way forward.
void addDrips(std::vector<Speck>& out, const Birth& birth, float side)
{
    const float phase = birth.armPhase(side);
    if (phase < .64f || phase > .97f)
        return;
    Dice dice(birth.number, drip, side > 0 ? 4 : 5);
    const Arm& arm = birth.arm(side);
    const float wet = smooth(1.02f, .62f, phase);
    for (int i = count(dice, 5.5f * wet); i > 0; --i) {
        const float along = dice.roll();
        const Point from = along < .35f   ? arm.shoulder + (arm.elbow - arm.shoulder) * (along / .35f)
                           : along < .75f ? arm.elbow + (arm.wrist - arm.elbow) * ((along - .35f) / .4f)
                                          : arm.wrist + (arm.fingertips - arm.wrist) * ((along - .75f) / .25f);
        const float size = dice.roll();
        addFlight(out, dice, from + Point{dice.around(5), 16, 0}, birth.age,
                  {700 + 500 * along + dice.around(60), -40 - 130 * dice.roll(), 0}, .7f + 1.7f * size * size,
                  dice.between(.45f, .8f) * (side > 0 ? 1 : .6f));
    }
}

/// Where air is `age` seconds after it was beaten into the water at `from`: carried along, slowed, then rising.
Point risen(Point from, float age, Point push, float rise, float wobble)
{
    const float slowed = .16f * (1 - std::exp(-age / .16f));
    const float lifted = rise * (age - .12f * (1 - std::exp(-age / .12f)));
    return {from.x + push.x * slowed + wobble * std::sin(age * 11 + from.x), from.y + push.y * slowed - lifted, 0};
}

void addBubble(std::vector<Bubble>& out, Dice& dice, Point from, float age, Point push, float size, float life,
               bool inFront)
{
    const float rise = 60 + 26 * size + dice.between(0, 60);
    const float alpha = dice.between(.35f, 1.f);
    Point at = risen(from, age, push, rise, dice.between(1, 5));
    // At the surface it stays for a moment, half out, and is gone.
    const float limit = size * .4f + dice.roll() * 9;
    if (at.y < limit - 26)
        return;
    at.y = std::max(at.y, limit);
    if (age < life)
        out.push_back({at.x, at.y, size, alpha * fade(age, life, .03f), inFront});
}

void addHandFroth(std::vector<Speck>& out, const Birth& birth, float side)
{
    const float phase = birth.armPhase(side);
    // Air goes down with the hand and trails from it until the catch.
    const float strength = phase > .5f ? entryStrength(phase) : smooth(.30f, .0f, phase);
    Dice dice(birth.number, side > 0 ? nearHand : farHand, 6);
    const Arm& arm = birth.arm(side);
    for (int i = count(dice, 20 * strength * strength); i > 0; --i) {
        const float life = dice.between(.25f, .9f);
        const float q = dice.roll();
        const Point from{mix(arm.wrist.x - 40, arm.fingertips.x, dice.roll()), std::max(4.f, arm.wrist.y * .6f), 0};
        const Point at = risen(from + Point{0, dice.around(9), 0}, birth.age,
                               {dice.around(180) + 260, dice.between(-20, 210), 0}, dice.between(25, 80), 2);
        if (birth.age < life && at.y > -8)
            out.push_back({at.x, at.y, 1.2f + 7.8f * q * q * q, dice.between(.25f, .5f) * fade(birth.age, life),
                           dice.between(.7f, 1.5f)});
    }
}

void addKickFroth(std::vector<Speck>& out, const Birth& birth, float side)
{
    const float strength = footStrength(birth.leg(side));
    Dice dice(birth.number, side > 0 ? nearFoot : farFoot, 7);
    const Leg& leg = birth.leg(side);
    for (int i = count(dice, 6 + 19 * strength); i > 0; --i) {
        const float life = dice.between(.3f, 1.3f);
        const float q = dice.roll();
        const Point from{mix(leg.knee.x - 40, leg.toes.x, dice.roll()), 8 + dice.roll() * leg.toes.y * .5f, 0};
        const Point at =
            risen(from, birth.age, {dice.around(260) + 350, dice.between(0, 420), 0}, dice.between(20, 90), 3);
        if (birth.age < life && at.y > -8)
            out.push_back({at.x, at.y, 1.3f + 9.5f * q * q * q, dice.between(.2f, .5f) * fade(birth.age, life),
                           dice.between(.6f, 1.5f)});
    }
}

void addBodyFroth(std::vector<Speck>& out, const Birth& birth)
{
    Dice dice(birth.number, body, 8);
    const Point skull = birth.skeleton.head;
    for (int i = count(dice, 24); i > 0; --i) {
        const float life = dice.between(.2f, .7f);
        const float q = dice.roll();
        const bool atHead = dice.roll() < .62f;
        const Point from{atHead ? skull.x + 30 + dice.around(26) : skull.x - 380 * dice.roll(),
                         8 + dice.roll() * (atHead ? 26.f : 6.f), 0};
        const Point at =
            risen(from, birth.age, {650 + dice.around(160), dice.between(-40, 260) * (atHead ? 1.f : .2f), 0},
                  dice.between(20, 70), 2);
        if (birth.age < life && at.y > -8)
            out.push_back({at.x, at.y, 1.2f + 7 * q * q * q, dice.between(.2f, .5f) * fade(birth.age, life),
                           dice.between(.8f, 1.8f)});
    }
}

}

std::vector<Speck> splashAt(double swimTime)
{
    std::vector<Speck> specks;
    forBirths(swimTime, 1.3, [&](const Birth& birth) {
        for (const float side : {-1.f, 1.f}) {
            addHandSplash(specks, birth, side);
            addKickSplash(specks, birth, side);
            addDrips(specks, birth, side);
        }
        addBodyFoam(specks, birth);
    });
    return specks;
}

std::vector<Speck> frothBelowAt(double swimTime)
{
    std::vector<Speck> specks;
    forBirths(swimTime, 1.3, [&](const Birth& birth) {
        for (const float side : {-1.f, 1.f}) {
            addHandFroth(specks, birth, side);
            addKickFroth(specks, birth, side);
        }
        addBodyFroth(specks, birth);
    });
    return specks;
}

std::vector<Bubble> bubblesAt(double swimTime)
{
    std::vector<Bubble> bubbles;
    const auto sizeOf = [](Dice& dice, float largest) {
        const float q = dice.roll();
        return .9f + (largest - .9f) * q * q * q;
    };
    forBirths(swimTime, 1.9, [&](const Birth& birth) {
        for (const float side : {-1.f, 1.f}) {
            Dice dice(birth.number, side > 0 ? nearHand : farHand, 9);
            const float phase = birth.armPhase(side);
            const Arm& arm = birth.arm(side);
            const float strength = phase > .5f ? entryStrength(phase) : smooth(.5f, .0f, phase);
            for (int i = count(dice, 8 * strength); i > 0; --i) {
                const float size = sizeOf(dice, 6);
                const Point from{mix(arm.wrist.x, arm.fingertips.x, dice.roll()),
                                 std::max(6.f, arm.wrist.y) + dice.around(8), 0};
                addBubble(bubbles, dice, from, birth.age, {dice.around(240) + 180, dice.between(0, 520), 0}, size,
                          dice.between(.5f, 1.9f), side > 0);
            }
            const Leg& leg = birth.leg(side);
            Dice footDice(birth.number, side > 0 ? nearFoot : farFoot, 10);
            for (int i = count(footDice, 1 + 4 * footStrength(leg)); i > 0; --i) {
                const float size = sizeOf(footDice, 8);
                const Point from{mix(leg.ankle.x, leg.toes.x, footDice.roll()), 10 + footDice.roll() * leg.toes.y * .7f,
                                 0};
                addBubble(bubbles, footDice, from, birth.age, {footDice.around(260) + 260, footDice.between(0, 760), 0},
                          size, footDice.between(.6f, 1.9f), side > 0);
            }
        }
        // Breathing out: strong just before the head turns to the air.
        Dice dice(birth.number, mouth, 11);
        const Point skull = birth.skeleton.head;
        const float breath = birth.skeleton.headTurn > .15f ? 0 : .7f + 1.1f * smooth(.45f, .8f, birth.phase);
        for (int i = count(dice, 4 * breath); i > 0; --i) {
            const float size = sizeOf(dice, 8);
            addBubble(bubbles, dice, skull + Point{36 + dice.around(8), 58 + dice.around(7), 0}, birth.age,
                      {dice.around(150) + 420, dice.between(0, 420), 0}, size, dice.between(.5f, 1.6f),
                      dice.roll() < .8f);
        }
        Dice trunkDice(birth.number, trunk, 12);
        for (int i = count(trunkDice, .8f); i > 0; --i)
            addBubble(bubbles, trunkDice, {skull.x - 150 - 250 * trunkDice.roll(), 40 + 50 * trunkDice.roll(), 0},
                      birth.age, {500, 60, 0}, sizeOf(trunkDice, 5), 1.2f, true);
    });
    return bubbles;
}

void drawSpecks(Plane& plane, const View& view, float camera, const std::vector<Speck>& specks, RowPool& pool)
{
    pool.run(0, plane.height(), 24, [&](int from, int to) {
        for (const Speck& speck : specks) {
            const float cx = view.column(speck.x, camera);
            const float cy = view.row(speck.y);
            // What is smaller than a pixel is drawn as large as one, and fainter.
            const float trueRadius = speck.radius * view.pixelsPerUnit;
            const float radius = std::max(.62f, trueRadius);
            const float alpha = speck.alpha * square(std::min(1.f, trueRadius / radius));
            const float reachX = radius * speck.stretch * 1.67f;
            const float reachY = radius * 1.67f;
            const int firstRow = std::max(from, int(cy - reachY));
            const int lastRow = std::min(to - 1, int(cy + reachY) + 1);
            const int firstColumn = std::max(0, int(cx - reachX));
            const int lastColumn = std::min(plane.width() - 1, int(cx + reachX) + 1);
            for (int y = firstRow; y <= lastRow; ++y) {
                float* const row = plane.row(y);
                const float dy2 = square((float(y) - cy) / radius);
                for (int x = firstColumn; x <= lastColumn; ++x) {
                    const float q = 1 - .36f * (square((float(x) - cx) / (radius * speck.stretch)) + dy2);
                    if (q > 0)
                        row[x] = 1 - (1 - row[x]) * (1 - q * q * alpha);
                }
            }
        }
    });
}

void drawBubbles(Canvas& canvas, const View& view, float camera, const std::vector<Bubble>& bubbles, bool inFront,
                 RowPool& pool)
{
    pool.run(0, canvas.height(), 24, [&](int from, int to) {
        for (const Bubble& bubble : bubbles) {
            if (bubble.inFront != inFront)
                continue;
            const float cx = view.column(bubble.x, camera);
            const float cy = view.row(bubble.y);
            const float trueRadius = bubble.radius * view.pixelsPerUnit;
            const float radius = std::max(.8f, trueRadius);
            const float alpha = bubble.alpha * std::min(1.f, trueRadius / radius);
            const float reach = radius * 1.35f + 1;
            const int firstRow = std::max(from, int(cy - reach));
            const int lastRow = std::min(to - 1, int(cy + reach) + 1);
            const int firstColumn = std::max(0, int(cx - reach));
            const int lastColumn = std::min(canvas.width() - 1, int(cx + reach) + 1);
            for (int y = firstRow; y <= lastRow; ++y) {
                for (int x = firstColumn; x <= lastColumn; ++x) {
                    const float dx = (float(x) - cx) / radius;
                    const float dy = (float(y) - cy) * 1.12f / radius;
                    const float q = std::sqrt(dx * dx + dy * dy);
                    const float rim = bell(q - .86f, .20f) * std::clamp(.6f - .55f * dy, .15f, 1.2f);
                    const float gleam = bell(std::sqrt(square((dx + .3f) / .24f) + square((dy + .38f) / .2f)), 1);
                    const float cover = clamp01(rim * .8f + (q < 1 ? .16f : 0.f) + gleam) * alpha;
                    canvas.row(y)[x] = mix(canvas.row(y)[x], Colour{.84f, .96f, 1}, cover);
                }
            }
        }
    });
}

}
