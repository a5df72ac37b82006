// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/skeleton/SkeletonDrawing.h"

#include <algorithm>

namespace zumeta {

namespace {

using Skeleton = MotionAnalysisService::Skeleton;
using Joint = MotionAnalysisService::Joint;

enum class BodySide { left, middle, right };

struct Strength {
    double width;
    double opacity;
};
constexpr Strength kBone{4, 1};
constexpr Strength kDimmedBone{3, 0.6};
constexpr Strength kJoint{5, 1};
constexpr Strength kDimmedJoint{4, 0.7};
constexpr double kBadgeAboveBox = 30;

BodySide sideOf(Joint joint)
{
    constexpr Joint kMiddle[] = {Joint::nose, Joint::neck, Joint::root};
    if (std::ranges::find(kMiddle, joint) != std::end(kMiddle))
        return BodySide::middle;
    return Skeleton::isRightSide(joint) ? BodySide::right : BodySide::left;
}

/// A bone that leads from the middle to a side is that side's; one from side to side is neither's.
BodySide sideOf(const MotionAnalysisService::Bone& bone)
{
    const BodySide first = sideOf(bone.first);
    const BodySide second = sideOf(bone.second);
    if (first == second || second == BodySide::middle)
        return first;
    return first == BodySide::middle ? second : BodySide::middle;
}

QColor colourOf(BodySide side, double opacity)
{
    QColor colour = side == BodySide::right  ? QColor(0, 0, 255)
                    : side == BodySide::left ? QColor(255, 0, 0)
                                             : QColor(255, 255, 255);
    colour.setAlphaF(float(opacity));
    return colour;
}

QPointF placeIn(QSizeF view, QPointF normalized)
{
    return {normalized.x() * view.width(), (1 - normalized.y()) * view.height()};
}

PersonBadge badgeOf(const Skeleton& skeleton, QSizeF view)
{
    const Rect& box = skeleton.boundingBox;
    const QPointF top = placeIn(view, {box.x + box.width / 2, box.y + box.height});
    return {{top.x(), top.y() - kBadgeAboveBox}, skeleton.id};
}

SkeletonShapes shapesOf(const Skeleton& skeleton, bool isDimmed, QSizeF view)
{
    SkeletonShapes shapes;
    const Strength& boneStrength = isDimmed ? kDimmedBone : kBone;
    for (const MotionAnalysisService::Bone& bone : Skeleton::boneConnections()) {
        const auto from = skeleton.joints.find(bone.first);
        const auto to = skeleton.joints.find(bone.second);
        if (from == skeleton.joints.end() || to == skeleton.joints.end())
            continue;
        shapes.bones.push_back({{placeIn(view, from->second), placeIn(view, to->second)},
                                colourOf(sideOf(bone), boneStrength.opacity),
                                boneStrength.width});
    }
    const Strength& jointStrength = isDimmed ? kDimmedJoint : kJoint;
    for (const auto& [joint, place] : skeleton.joints)
        shapes.joints.push_back(
            {placeIn(view, place), colourOf(sideOf(joint), jointStrength.opacity), jointStrength.width});
    shapes.badge = badgeOf(skeleton, view);
    return shapes;
}

}

std::vector<SkeletonShapes> skeletonShapes(const std::vector<Skeleton>& skeletons, std::optional<int> selectedPersonId,
                                           QSizeF view)
{
    std::vector<SkeletonShapes> shapes;
    shapes.reserve(skeletons.size());
    for (const Skeleton& skeleton : skeletons)
        shapes.push_back(shapesOf(skeleton, selectedPersonId && *selectedPersonId != skeleton.id, view));
    return shapes;
}

}
