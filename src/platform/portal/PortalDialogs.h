// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <chrono>
#include <functional>

namespace zumeta {

struct PortalDialogFacts {
    bool isThemeChosenByUser = false; ///< the environment names a platform theme, and that counts
    /// Whether the desktop's portal lends file dialogs. Asked last: it takes time.
    std::function<bool()> isOffered;
};

/// Whether files are asked for in dialogs that the desktop's portal lends. Qt's own look foreign on every desktop that
/// it has no plugin for, and see none of the desktop's bookmarks.
bool borrowsDialogs(const PortalDialogFacts& facts);

/// Asks the portal of the session's bus; false when it does not say so within that time. Before an application is made.
bool portalOffersFileDialogs(std::chrono::milliseconds patience);

/// Lets Qt borrow the portal's dialogs where there is one. Before the application is made; takes half a second at most,
/// and a few milliseconds where the portal runs already or is not there.
void borrowDialogsOfPortal();

}
