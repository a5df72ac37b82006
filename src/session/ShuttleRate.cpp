// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/ShuttleRate.h"

#include <algorithm>

namespace zumeta {

double fasterRate(double rate)
{
    return rate <= 0 ? 1.0 : std::min(2 * rate, kGreatestShuttleRate);
}

double slowerRate(double rate)
{
    return rate >= 0 ? -1.0 : std::max(2 * rate, -kGreatestShuttleRate);
}

}
