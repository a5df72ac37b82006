// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "surfaces/keys/KeyEvent.h"

#include <optional>

namespace zumeta {

/// What a press of Escape puts an end to.
enum class EscapeTarget { composition, menuOrPopover, alertOrSheet, field, fullScreen };

/// What could be ended.
struct EscapeFacts {
    bool isComposing = false; ///< an input method's text is not committed yet
    bool isMenuOrPopoverOpen = false;
    bool isAlertOrSheetOpen = false;
    bool isFieldFocused = false;
    bool isFullScreen = false;
    bool isCompositeStep = false; ///< Step 3 or 4
};

/// The full-screen preview of Steps 3 and 4 is left by Escape, when neither Command nor Option is down.
bool leavesFullScreen(const KeyEvent& event, bool isFullScreen, bool isCompositeStep);

/// One press ends one thing, the innermost. Nothing: the key is none of ours, or a press that is held on, which would
/// otherwise go through all of them.
std::optional<EscapeTarget> escapeTarget(const KeyEvent& event, const EscapeFacts& facts);

}
