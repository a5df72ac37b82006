// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/panels/Checklist.h"

namespace zumeta {

Checklist checklist(Side side, const ChecklistFacts& facts)
{
    constexpr double kBeginning = 0.1; // seconds: a playhead before it has not been moved yet
    const bool hasSought = facts.currentTime >= kBeginning;
    return {{{.number = 1,
              .textKey = side == Side::above ? QStringLiteral("Check 1-1") : QStringLiteral("Check 2-1"),
              .isComplete = facts.hasVideo,
              .isActive = !facts.hasVideo},
             {.number = 2,
              .textKey = QStringLiteral("Check 1-2"),
              .isComplete = hasSought || facts.isLocked,
              .isActive = facts.hasVideo && !hasSought && !facts.isLocked},
             {.number = 3,
              .textKey = QStringLiteral("Check 1-3"),
              .isComplete = facts.isLocked,
              .isActive = hasSought && !facts.isLocked},
             {.number = 4,
              .textKey = QStringLiteral("Check 1-4"),
              .isComplete = facts.hasAlignmentPoint,
              .isActive = facts.isLocked && !facts.hasAlignmentPoint}}};
}

}
