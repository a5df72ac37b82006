// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "analysis/MotionAnalysisService.h"

#include <QColor>
#include <QLineF>
#include <QRectF>
#include <QSizeF>
#include <optional>
#include <vector>

namespace zumeta {

// Everything that is drawn over the picture for the swimmers found in it. Places count from the view's upper left
// corner.

struct BoneStroke {
    QLineF line;
    QColor colour; ///< with its opacity
    double width = 0;
    friend bool operator==(const BoneStroke&, const BoneStroke&) = default;
};

struct JointDot {
    QPointF centre;
    QColor colour; ///< with its opacity
    double radius = 0;
    friend bool operator==(const JointDot&, const JointDot&) = default;
};

/// The number of a person, over its box.
struct PersonBadge {
    QPointF centre;
    int id = 0;
    friend bool operator==(const PersonBadge&, const PersonBadge&) = default;
};
inline constexpr double kBadgeDiameter = 30;
inline constexpr double kBadgeOpacity = 0.9;
inline constexpr double kBadgeOutline = 2;
inline constexpr double kBadgeTextSize = 14; ///< bold
inline const QColor kBadgeColour{0, 0, 255};

/// From back to front: all bones, joints and badges of a person, then the next one's.
struct SkeletonShapes {
    std::vector<BoneStroke> bones;
    std::vector<JointDot> joints;
    PersonBadge badge;
};

/// While a person is selected, all others are dimmed. What a missing joint would join is left out.
std::vector<SkeletonShapes> skeletonShapes(const std::vector<MotionAnalysisService::Skeleton>& skeletons,
                                           std::optional<int> selectedPersonId, QSizeF view);

}
