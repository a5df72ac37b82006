// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <cstdlib>

namespace zumeta::test {

/// True in `script/test --long`: tests that try something again and again then do it as often as it takes to be sure.
inline bool longRun()
{
    return std::getenv("ZUMETA_LONG") != nullptr;
}

}
