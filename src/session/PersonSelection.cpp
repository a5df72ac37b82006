// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/PersonPick.h"
#include "session/CompositorViewModel.h"

namespace zumeta {

void CompositorViewModel::selectPerson(QPointF at, QSizeF in)
{
    const std::optional<int> hit = personAt(detectedSkeletons(), at, in);
    if (hit)
        assign(m_fields.selectedPersonId, hit == selectedPersonId() ? std::nullopt : hit);
}

}
