// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QString>
#include <optional>
#include <vector>

namespace zumeta {

/// What an item of the menus does.
enum class MenuCommand {
    about,
    checkForUpdates,
    saveProject,
    openProject,
    closeWindow,
    undo,
    redo,
    cut,
    copy,
    paste,
    deleteSelection,
    selectAll,
    minimize,
    zoom,
    bringAllToFront,
    help,
    privacyPolicy,
    terms,
    showFirstRunGuide,
    playPause,
    stepForward,
    stepBackward,
    stepForward10,
    stepBackward10,
    stop,
    rewind,
    fastForward
};

/// Whether an item's key is the menu's own. Those of the one key rule are only told beside the item: registered, they
/// would act before the rule sees them.
enum class MenuKey { isRegistered, isShownOnly };

struct MenuItem {
    std::optional<MenuCommand> command; ///< none: a divider
    QString titleKey{};                 ///< of the translations
    QString shortcut{};                 ///< as it is shown; empty without one
    MenuKey key = MenuKey::isShownOnly;
};

struct Menu {
    QString titleKey; ///< of the translations
    std::vector<MenuItem> items;
};

enum class UpdateCheck { isConfigured, isNotConfigured };

/// The menus of the window, from left to right, with their items from top to bottom.
std::vector<Menu> appMenus(UpdateCheck updates);

/// What can be done to the text that is being edited.
struct EditFacts {
    bool canUndo = false;
    bool canRedo = false;
    bool canPaste = false;
    bool hasSelection = false;
    bool hasText = false;
};

/// What decides which items act.
struct MenuFacts {
    bool isWindowFree = false; ///< nothing covers the window, and it is the active one
    bool isCompositeStep = false;
    bool hasTimeline = false;  ///< there is something to play
    bool isSideLocked = false; ///< the step's own side stands still on its landmark
    bool canCheckForUpdates = false;
    EditFacts edited{}; ///< all false without a field
};

/// An item that cannot act shows it.
bool isEnabled(MenuCommand command, const MenuFacts& facts);

/// One line of an open menu, as far as moving among them goes.
enum class MenuLine { divider, disabled, enabled };

/// The line that the arrow keys come to from this one, around the ends; -1 when no line can be chosen. From -1 it is
/// the first, or with -1 as the direction the last.
int nextLine(const std::vector<MenuLine>& lines, int from, int direction);

}
