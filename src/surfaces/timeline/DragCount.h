// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "surfaces/timeline/TimelineIntent.h"

#include <optional>

namespace zumeta {

/// Several things may be dragged together, or one hand over to the other; the session shall see one drag.
class DragCount {
public:
    enum class Change { begins, goesOn };

    /// Told at every change of a drag. What it gives, if anything, is to be reported.
    std::optional<DraggingChanged> beginDragIfNeeded(Change change);
    /// One end too many is harmless, and still reports that nothing is dragged.
    std::optional<DraggingChanged> endDragIfNeeded();

    int activeDragCount() const { return m_activeDragCount; }

private:
    int m_activeDragCount = 0;
};

}
