// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/keys/EscapeOrder.h"

namespace zumeta {

namespace {

bool isPlainEscape(const KeyEvent& event)
{
    return event.keyCode == KeyCode::escape && !event.modifiers.command && !event.modifiers.option;
}

}

bool leavesFullScreen(const KeyEvent& event, bool isFullScreen, bool isCompositeStep)
{
    return isPlainEscape(event) && isFullScreen && isCompositeStep;
}

std::optional<EscapeTarget> escapeTarget(const KeyEvent& event, const EscapeFacts& facts)
{
    if (!isPlainEscape(event) || event.isAutoRepeat)
        return std::nullopt;
    if (facts.isComposing)
        return EscapeTarget::composition;
    if (facts.isMenuOrPopoverOpen)
        return EscapeTarget::menuOrPopover;
    if (facts.isAlertOrSheetOpen)
        return EscapeTarget::alertOrSheet;
    if (facts.isFieldFocused)
        return EscapeTarget::field;
    if (leavesFullScreen(event, facts.isFullScreen, facts.isCompositeStep))
        return EscapeTarget::fullScreen;
    return std::nullopt;
}

}
