// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace zumeta {

/// What stands in front of the window's work. A modal popup by itself stops neither shortcuts nor menu actions, so
/// every way in asks here first.
struct ModalGate {
    bool isMenuOpen = false; ///< of the menu bar, or one of a control
    bool isPopoverOpen = false;
    bool isSheetOpen = false;
    bool isAlertOpen = false;
    bool isMissingMediaCardOpen = false;
    bool isStartScreenShown = false;
    bool isFileDialogOpen = false;
    bool isWindowInactive = false;

    /// Whether keys reach handleKeyEvent().
    bool isOpen() const { return !isWindowCovered() && !isMenuOpen && !isWindowInactive; }
    /// The menu that is open has to stay of use.
    bool enablesMenuItems() const { return !isWindowCovered() && !isWindowInactive; }
    /// While files are dragged from another program, that one's window is the active one.
    bool acceptsDrops() const { return !isWindowCovered() && !isMenuOpen; }

    friend bool operator==(const ModalGate&, const ModalGate&) = default;

private:
    bool isWindowCovered() const
    {
        return isPopoverOpen || isSheetOpen || isAlertOpen || isMissingMediaCardOpen || isStartScreenShown ||
               isFileDialogOpen;
    }
};

}
