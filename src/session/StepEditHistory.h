// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "session/StepEditSnapshot.h"

#include <cstddef>

namespace zumeta {

/// Undoing and redoing in Steps 3 and 4, by whole snapshots of what may be edited there.
class StepEditHistory {
public:
    static constexpr std::size_t kGreatestDepth = 80;

    /// To be called before an edit, with the state that the edit is about to change. Nothing happens, and false is
    /// given, when that state was recorded last: a drag may record at each of its steps.
    bool record(const StepEditSnapshot& current);
    /// The state to go back to, if there is one; the present one can then be gone forward to.
    std::optional<StepEditSnapshot> undo(const StepEditSnapshot& current) { return move(m_undo, m_redo, current); }
    std::optional<StepEditSnapshot> redo(const StepEditSnapshot& current) { return move(m_redo, m_undo, current); }
    std::size_t undoCount() const { return m_undo.size(); }
    std::size_t redoCount() const { return m_redo.size(); }

private:
    using Stack = std::vector<StepEditSnapshot>; ///< the last element is the top
    static std::optional<StepEditSnapshot> move(Stack& source, Stack& target, const StepEditSnapshot& current);

    Stack m_undo;
    Stack m_redo;
};

}
