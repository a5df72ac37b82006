// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/PersonPick.h"

#include <QRectF>
#include <algorithm>

namespace zumeta {

std::optional<int> personAt(const std::vector<MotionAnalysisService::Skeleton>& skeletons, QPointF place, QSizeF view)
{
    const auto isHit = [&](const MotionAnalysisService::Skeleton& skeleton) {
        const Rect& box = skeleton.boundingBox;
        const double top = 1 - (box.y + box.height);
        return QRectF(box.x * view.width(), top * view.height(), box.width * view.width(), box.height * view.height())
            .contains(place);
    };
    const auto hit = std::ranges::find_if(skeletons, isHit);
    return hit == skeletons.end() ? std::nullopt : std::optional(hit->id);
}

}
