// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/ProjectState.h"

#include "platform/WallClock.h"

namespace zumeta {

ProjectState ProjectState::createdNow(const WallClock& clock)
{
    ProjectState state;
    state.createdAt = clock.now();
    state.modifiedAt = state.createdAt;
    return state;
}

}
