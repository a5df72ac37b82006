// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/BackgroundPriority.h"

#include <algorithm>
#include <sys/resource.h>
#include <unistd.h>

namespace zumeta {

void standBackInBackground()
{
    constexpr int kNiceness = 10; // a tenth of what others get, where they want it
    // On Linux a thread has a niceness of its own. Lowering it is forbidden, so one that is lower already stays.
    const auto thread = id_t(::gettid());
    ::setpriority(PRIO_PROCESS, thread, std::max(kNiceness, ::getpriority(PRIO_PROCESS, thread)));
}

}
