// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <cstdlib>

namespace zumeta::test {

/// How many random seeks and steps a test makes. By hand more can be asked for than the suite has time for:
/// ZUMETA_TRUTH_SEEKS=1000 ZUMETA_TRUTH_STEPS=10000.
inline int truthCount(const char* variable, int usual)
{
    const char* const text = std::getenv(variable);
    return text ? std::atoi(text) : usual;
}

}
