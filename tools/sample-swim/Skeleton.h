// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <cmath>

namespace zumeta::swim {

/// Units of the scene; z runs toward the cameras, 0 in the middle of the body.
struct Point {
    float x = 0, y = 0, z = 0;
    friend Point operator+(Point a, Point b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
    friend Point operator-(Point a, Point b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
    friend Point operator*(Point a, float k) { return {a.x * k, a.y * k, a.z * k}; }
    float length() const { return std::sqrt(x * x + y * y + z * z); }
};

struct Arm {
    Point shoulder, elbow, wrist, fingertips;
};
struct Leg {
    Point hip, knee, ankle, toes;
};

/// The swimmer's bones at one instant of the freestyle stroke.
struct Skeleton {
    Point head; ///< middle of the skull
    Point neck, chest, waist, pelvis;
    Arm nearArm, farArm;
    Leg nearLeg, farLeg;
    float roll = 0;     ///< radians; above 0 lifts the shoulder that is nearer to the cameras
    float headTurn = 0; ///< 0 face down, 1 turned toward the cameras to breathe
};

inline constexpr float kUpperArm = 168;
inline constexpr float kForearm = 172;
inline constexpr float kHand = 80;
inline constexpr float kThigh = 192;
inline constexpr float kShank = 196;
inline constexpr float kFoot = 92;

/// The swimmer at this time of the swim's clock. A pure function: any instant at any time, always the same.
Skeleton skeletonAt(double swimTime);

/// Height of the water's edge above the calm surface, as both cameras see it in the swimmer's lane.
float waterHeight(float x, double swimTime);

}
