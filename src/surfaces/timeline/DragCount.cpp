// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/timeline/DragCount.h"

#include <algorithm>

namespace zumeta {

std::optional<DraggingChanged> DragCount::beginDragIfNeeded(Change change)
{
    if (change == Change::goesOn)
        return std::nullopt;
    ++m_activeDragCount;
    return m_activeDragCount == 1 ? std::optional(DraggingChanged{true}) : std::nullopt;
}

std::optional<DraggingChanged> DragCount::endDragIfNeeded()
{
    m_activeDragCount = std::max(m_activeDragCount - 1, 0);
    return m_activeDragCount == 0 ? std::optional(DraggingChanged{false}) : std::nullopt;
}

}
