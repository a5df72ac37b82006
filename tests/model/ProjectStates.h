// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "model/ProjectState.h"

#include <random>

namespace zumeta::test {

/// A state with every optional field present and no value that another field has too.
ProjectState fullProjectState();

/// Any state that the format can hold, the extremes included.
ProjectState randomProjectState(std::mt19937_64& random);

}
