// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/MotionAnalysisService.h"
#include "analysis/DetectionServices.h"

#include <gmock/gmock.h>
#include <set>

namespace zumeta {
namespace {

using Joint = MotionAnalysisService::Joint;
using Skeleton = MotionAnalysisService::Skeleton;

TEST(Skeleton, JoinsFourteenPairsFromTheHeadDownward)
{
    const auto bones = Skeleton::boneConnections();
    ASSERT_EQ(bones.size(), 14u);
    EXPECT_EQ(bones.front(), std::pair(Joint::nose, Joint::neck));
    EXPECT_EQ(bones[5], std::pair(Joint::leftHip, Joint::rightHip));
    EXPECT_EQ(bones[9], std::pair(Joint::rightElbow, Joint::rightWrist));
    EXPECT_EQ(bones.back(), std::pair(Joint::rightKnee, Joint::rightAnkle));
}

TEST(Skeleton, HasEightJointsOnItsRightSide)
{
    std::set<Joint> right;
    for (int i = int(Joint::nose); i <= int(Joint::rightAnkle); ++i) {
        if (Skeleton::isRightSide(Joint(i)))
            right.insert(Joint(i));
    }
    EXPECT_THAT(right,
                testing::UnorderedElementsAre(Joint::rightEye, Joint::rightEar, Joint::rightShoulder, Joint::rightElbow,
                                              Joint::rightWrist, Joint::rightHip, Joint::rightKnee, Joint::rightAnkle));
}

TEST(DetectionServices, HoldTheirConstants)
{
    EXPECT_EQ(ClapDetectionService::kArmsWideThreshold, 0.25);
    EXPECT_EQ(ClapDetectionService::kClapThreshold, 0.12);
    EXPECT_EQ(ClapDetectionService::kSampleInterval, 0.033);
    EXPECT_EQ(MotionStartDetectionService::kSampleInterval, 0.05);
    EXPECT_EQ(MotionStartDetectionService::kProcessingSize, (Size{64, 64}));
    EXPECT_EQ(MotionStartDetectionService::kMotionThresholdMultiplier, 3.0);
}

}
}
