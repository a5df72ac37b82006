// SPDX-License-Identifier: GPL-3.0-or-later
#include "Skeleton.h"
#include "Spray.h"
#include "SwimPlan.h"
#include "SwimmerBody.h"

#include <gtest/gtest.h>

namespace zumeta::swim {

namespace {

/// The swim time at which the near arm is at this phase, in the stroke after the landmark.
double timeOfPhase(double phase)
{
    const double ahead = phase - strokePhase(0);
    return (ahead < 0 ? ahead + 1 : ahead) * kStrokeSeconds;
}

float distance(Point a, Point b)
{
    return (a - b).length();
}

}

TEST(Swimmer, BonesKeepTheirLength)
{
    for (double t = -2; t < 3; t += .037) {
        const Skeleton s = skeletonAt(t);
        for (const Arm& arm : {s.nearArm, s.farArm}) {
            EXPECT_NEAR(distance(arm.shoulder, arm.elbow), kUpperArm, .1f);
            EXPECT_NEAR(distance(arm.elbow, arm.wrist), kForearm, .1f);
            EXPECT_NEAR(distance(arm.wrist, arm.fingertips), kHand, .1f);
        }
        for (const Leg& leg : {s.nearLeg, s.farLeg})
            EXPECT_NEAR(distance(leg.hip, leg.knee), kThigh, 1);
    }
}

TEST(Swimmer, TheArmComesForwardOverTheWaterAndPullsBackUnderIt)
{
    const Skeleton recovering = skeletonAt(timeOfPhase(.82));
    EXPECT_LT(recovering.nearArm.elbow.y, -100) << "the elbow is high above the surface";
    EXPECT_LT(recovering.nearArm.elbow.y, recovering.nearArm.wrist.y) << "and higher than the hand";
    const Skeleton pulling = skeletonAt(timeOfPhase(.5));
    EXPECT_GT(pulling.nearArm.fingertips.y, 200);
    // While it pulls, the hand moves backward against the body.
    const auto reach = [](double phase) {
        const Skeleton s = skeletonAt(timeOfPhase(phase));
        return s.nearArm.fingertips.x - s.head.x;
    };
    EXPECT_GT(reach(.36), reach(.46));
    EXPECT_GT(reach(.46), reach(.56));
    EXPECT_LT(reach(.74), reach(.84));
    EXPECT_LT(reach(.84), reach(.94));
}

TEST(Swimmer, TheHandEntersTheWaterAtTheBeginningOfItsStroke)
{
    const auto depth = [](double phase) { return skeletonAt(timeOfPhase(phase)).nearArm.fingertips.y; };
    EXPECT_LT(depth(.93), 0);
    EXPECT_GT(depth(.05), 0);
}

TEST(Swimmer, TheArmsTakeTurns)
{
    const Skeleton now = skeletonAt(.3);
    const Skeleton later = skeletonAt(.3 + kStrokeSeconds / 2);
    EXPECT_NEAR(now.nearArm.fingertips.x - now.head.x, later.farArm.fingertips.x - later.head.x, .5f);
    EXPECT_NEAR(now.nearArm.fingertips.y, later.farArm.fingertips.y, .5f);
}

TEST(Swimmer, TheFeetKickSixTimesAStroke)
{
    int turns = 0;
    const auto speed = [](double t) { return skeletonAt(t + .001).nearLeg.ankle.y - skeletonAt(t).nearLeg.ankle.y; };
    const int steps = 600;
    for (int i = 0; i < steps; ++i) {
        const double t = kStrokeSeconds * i / steps;
        if ((speed(t) < 0) != (speed(t + kStrokeSeconds / steps) < 0))
            ++turns;
    }
    EXPECT_EQ(turns, 6) << "three times up and three times down for either leg";
}

TEST(Swimmer, NoJointJumps)
{
    const double step = .002;
    for (double t = -kStrokeSeconds; t < 2 * kStrokeSeconds; t += step) {
        const Skeleton a = skeletonAt(t);
        const Skeleton b = skeletonAt(t + step);
        EXPECT_LT(distance(a.nearArm.fingertips, b.nearArm.fingertips), 14) << t;
        EXPECT_LT(distance(a.farArm.elbow, b.farArm.elbow), 10) << t;
        EXPECT_LT(distance(a.nearLeg.toes, b.nearLeg.toes), 10) << t;
    }
}

TEST(Swimmer, TheBodyIsClosedWithoutGaps)
{
    const std::vector<Ball> balls = bodyAround(skeletonAt(.4));
    ASSERT_GT(balls.size(), 500u);
    for (size_t i = 1; i < balls.size(); ++i) {
        if (balls[i].limb == balls[i - 1].limb) {
            EXPECT_LT(distance(balls[i].centre, balls[i - 1].centre), balls[i].radius * .5f + 1);
        }
    }
}

TEST(Spray, IsTheSameWheneverAFrameIsDrawn)
{
    const std::vector<Speck> first = splashAt(1.25);
    (void)splashAt(2.5);
    const std::vector<Speck> again = splashAt(1.25);
    ASSERT_EQ(first.size(), again.size());
    ASSERT_GT(first.size(), 500u);
    for (size_t i = 0; i < first.size(); ++i) {
        EXPECT_EQ(first[i].x, again[i].x);
        EXPECT_EQ(first[i].y, again[i].y);
    }
}

TEST(Spray, FliesAroundTheSwimmerAndFallsBack)
{
    for (double t = 0; t < 2; t += .13) {
        const auto head = float(headPosition(t));
        for (const Speck& speck : splashAt(t)) {
            EXPECT_LT(speck.x, head + 700);
            EXPECT_GT(speck.x, head - 2600);
            EXPECT_LT(speck.y, 40) << "nothing sinks";
            EXPECT_GT(speck.y, -450) << "nothing flies higher than a metre";
            EXPECT_GE(speck.alpha, 0);
            EXPECT_LE(speck.alpha, 1);
        }
    }
}

TEST(Spray, BubblesStayUnderTheSurface)
{
    const std::vector<Bubble> bubbles = bubblesAt(.7);
    ASSERT_GT(bubbles.size(), 100u);
    for (const Bubble& bubble : bubbles)
        EXPECT_GE(bubble.y, 0);
}

TEST(Water, IsHigherBeforeTheHeadThanBesideTheBack)
{
    const auto head = float(headPosition(0));
    float before = 0;
    float beside = 0;
    for (int i = 0; i < 200; ++i) { // over many waves, always at the same place against the swimmer
        const double t = i * .37;
        const auto at = float(headPosition(t));
        before += waterHeight(at + 62, t) / 200;
        beside += waterHeight(at - 120, t) / 200;
    }
    EXPECT_GT(before, beside + 8);
    EXPECT_LT(std::abs(waterHeight(head + 5000, 0)), 6);
}

}
