// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/MotionAnalysisService.h"

#include <array>

namespace zumeta {

std::span<const MotionAnalysisService::Bone> MotionAnalysisService::Skeleton::boneConnections()
{
    using enum Joint;
    static constexpr std::array<Bone, 14> kBones{{{nose, neck},
                                                  {neck, leftShoulder},
                                                  {neck, rightShoulder},
                                                  {leftShoulder, leftHip},
                                                  {rightShoulder, rightHip},
                                                  {leftHip, rightHip},
                                                  {leftShoulder, leftElbow},
                                                  {leftElbow, leftWrist},
                                                  {rightShoulder, rightElbow},
                                                  {rightElbow, rightWrist},
                                                  {leftHip, leftKnee},
                                                  {leftKnee, leftAnkle},
                                                  {rightHip, rightKnee},
                                                  {rightKnee, rightAnkle}}};
    return kBones;
}

bool MotionAnalysisService::Skeleton::isRightSide(Joint joint)
{
    switch (joint) {
    case Joint::rightEye:
    case Joint::rightEar:
    case Joint::rightShoulder:
    case Joint::rightElbow:
    case Joint::rightWrist:
    case Joint::rightHip:
    case Joint::rightKnee:
    case Joint::rightAnkle:
        return true;
    default:
        return false;
    }
}

}
