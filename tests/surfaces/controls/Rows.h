// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "surfaces/controls/ValueRowRules.h"

// The kinds of rows that the panels have.

namespace zumeta {

inline ValueRowRules wholeNumberRow()
{
    return {.lower = -100, .upper = 100, .keyboardAdjustmentEnabled = true};
}

/// Shows hundredths of what it stores.
inline ValueRowRules scaledRow()
{
    return {.lower = -500, .upper = 500, .displayScale = 0.01, .keyboardAdjustmentEnabled = true};
}

inline ValueRowRules timecodeRow()
{
    return {.lower = 0,
            .upper = 600,
            .step = 0.01,
            .decimalPlaces = 2,
            .displaysAsTimecode = true,
            .keyboardAdjustmentEnabled = true};
}

}
