// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/skeleton/SkeletonDrawing.h"

#include "analysis/PersonPick.h"

#include <gmock/gmock.h>

namespace zumeta {
namespace {

using Skeleton = MotionAnalysisService::Skeleton;
using Joint = MotionAnalysisService::Joint;
using testing::IsEmpty;
using testing::SizeIs;

constexpr QSizeF kView(1000, 500);
const QColor kBlue(0, 0, 255);
const QColor kRed(255, 0, 0);
const QColor kWhite(255, 255, 255);

Skeleton person(int id, std::map<Joint, QPointF> joints = {}, Rect box = {0.2, 0.2, 0.2, 0.4})
{
    Skeleton skeleton;
    skeleton.id = id;
    skeleton.joints = std::move(joints);
    skeleton.boundingBox = box;
    return skeleton;
}

/// The one bone of a person who has only these two joints.
BoneStroke bone(Joint from, Joint to, std::optional<int> selected = std::nullopt)
{
    const auto shapes = skeletonShapes({person(1, {{from, {0.1, 0.2}}, {to, {0.3, 0.8}}})}, selected, kView);
    EXPECT_THAT(shapes, SizeIs(1));
    EXPECT_THAT(shapes.at(0).bones, SizeIs(1));
    return shapes.at(0).bones.at(0);
}

QColor faded(QColor colour, double opacity)
{
    colour.setAlphaF(float(opacity));
    return colour;
}

TEST(SkeletonDrawing, TurnsHeightsOver)
{
    EXPECT_EQ(bone(Joint::nose, Joint::neck).line, QLineF(100, 400, 300, 100));
}

TEST(SkeletonDrawing, PaintsBonesByTheirSide)
{
    EXPECT_EQ(bone(Joint::rightShoulder, Joint::rightElbow).colour, kBlue);
    EXPECT_EQ(bone(Joint::leftHip, Joint::leftKnee).colour, kRed);
    EXPECT_EQ(bone(Joint::neck, Joint::rightShoulder).colour, kBlue);
    EXPECT_EQ(bone(Joint::neck, Joint::leftShoulder).colour, kRed);
    EXPECT_EQ(bone(Joint::nose, Joint::neck).colour, kWhite);
    EXPECT_EQ(bone(Joint::leftHip, Joint::rightHip).colour, kWhite);
}

TEST(SkeletonDrawing, PaintsJointsByTheirSide)
{
    const auto shapes =
        skeletonShapes({person(1, {{Joint::nose, {}}, {Joint::leftEar, {}}, {Joint::rightEye, {}}})}, {}, kView);
    ASSERT_THAT(shapes.at(0).joints, SizeIs(3)); // in the order of the joints
    EXPECT_EQ(shapes[0].joints[0].colour, kWhite);
    EXPECT_EQ(shapes[0].joints[1].colour, kBlue);
    EXPECT_EQ(shapes[0].joints[2].colour, kRed);
    EXPECT_EQ(shapes[0].joints[0].radius, 5);
}

TEST(SkeletonDrawing, DimsEveryoneButTheSelectedPerson)
{
    const BoneStroke selected = bone(Joint::rightHip, Joint::rightKnee, 1);
    EXPECT_EQ(selected.width, 4);
    EXPECT_EQ(selected.colour, kBlue);
    const BoneStroke other = bone(Joint::rightHip, Joint::rightKnee, 2);
    EXPECT_EQ(other.width, 3);
    EXPECT_EQ(other.colour, faded(kBlue, 0.6));
    const auto dot = skeletonShapes({person(1, {{Joint::leftKnee, {}}})}, 2, kView).at(0).joints.at(0);
    EXPECT_EQ(dot.radius, 4);
    EXPECT_EQ(dot.colour, faded(kRed, 0.7));
}

TEST(SkeletonDrawing, LeavesOutWhatAMissingJointWouldJoin)
{
    const auto shapes = skeletonShapes(
        {person(1, {{Joint::nose, {}}, {Joint::neck, {}}, {Joint::leftElbow, {}}, {Joint::leftWrist, {}}})}, {}, kView);
    EXPECT_THAT(shapes.at(0).bones, SizeIs(2));
    EXPECT_THAT(shapes.at(0).joints, SizeIs(4));
}

TEST(SkeletonDrawing, PutsTheNumberThirtyAboveTheBox)
{
    const auto shapes = skeletonShapes({person(7)}, {}, kView);
    EXPECT_EQ(shapes.at(0).badge.id, 7);
    EXPECT_NEAR(shapes[0].badge.centre.x(), 300, 1e-9);
    EXPECT_NEAR(shapes[0].badge.centre.y(), 200 - 30, 1e-9);
}

TEST(SkeletonDrawing, OfNobodyIsNothing)
{
    EXPECT_THAT(skeletonShapes({}, 1, kView), IsEmpty());
}

TEST(PersonPick, FindsTheBoxUnderTheClick)
{
    const std::vector<Skeleton> people{person(3, {}, {0.1, 0.6, 0.2, 0.3}), person(4, {}, {0.5, 0.1, 0.2, 0.2})};
    EXPECT_EQ(personAt(people, {200, 100}, kView), 3); // the box is high in the picture, so it is near its top
    EXPECT_EQ(personAt(people, {600, 400}, kView), 4);
    EXPECT_EQ(personAt(people, {200, 400}, kView), std::nullopt);
}

TEST(PersonPick, TakesTheFirstOfBoxesThatOverlap)
{
    const std::vector<Skeleton> people{person(3), person(4)};
    EXPECT_EQ(personAt(people, {300, 300}, kView), 3);
}

}
}
