// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "analysis/MotionAnalysisService.h"

#include <QSizeF>
#include <optional>
#include <vector>

namespace zumeta {

/// The first person whose box a click hits, if any. The place counts from the view's upper left corner.
std::optional<int> personAt(const std::vector<MotionAnalysisService::Skeleton>& skeletons, QPointF place, QSizeF view);

}
