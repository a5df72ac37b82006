// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "session/Side.h"

#include <QString>
#include <array>

namespace zumeta {

/// What of the session decides how far the setting up of one side has come.
struct ChecklistFacts {
    bool hasVideo = false;
    double currentTime = 0; ///< seconds, of the side's own recording
    bool isLocked = false;
    bool hasAlignmentPoint = false;
};

/// One thing to do. Complete and active are told apart: an item may be neither, and none is both.
struct ChecklistEntry {
    int number = 0;
    QString textKey; ///< of the translations
    bool isComplete = false;
    bool isActive = false; ///< it is what comes next
    friend bool operator==(const ChecklistEntry&, const ChecklistEntry&) = default;
};

using Checklist = std::array<ChecklistEntry, 4>;

/// Of Step 1 or Step 2.
Checklist checklist(Side side, const ChecklistFacts& facts);

}
