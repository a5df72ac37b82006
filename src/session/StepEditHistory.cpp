// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/StepEditHistory.h"

namespace zumeta {

bool StepEditHistory::record(const StepEditSnapshot& current)
{
    if (!m_undo.empty() && m_undo.back() == current)
        return false;
    m_undo.push_back(current);
    m_redo.clear();
    if (m_undo.size() > kGreatestDepth)
        m_undo.erase(m_undo.begin());
    return true;
}

// The depth needs no limit here: both stacks together hold what was recorded, however it is moved between them.
std::optional<StepEditSnapshot> StepEditHistory::move(Stack& source, Stack& target, const StepEditSnapshot& current)
{
    if (source.empty())
        return std::nullopt;
    const StepEditSnapshot wanted = source.back();
    source.pop_back();
    target.push_back(current);
    return wanted;
}

}
