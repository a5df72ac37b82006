// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/window/AppMenus.h"

namespace zumeta {

namespace {

MenuItem plain(MenuCommand command, const char* titleKey)
{
    return {command, QString::fromLatin1(titleKey)};
}

MenuItem withKey(MenuCommand command, const char* titleKey, const char* shortcut)
{
    return {command, QString::fromLatin1(titleKey), QString::fromUtf8(shortcut), MenuKey::isRegistered};
}

MenuItem withShownKey(MenuCommand command, const char* titleKey, const char* shortcut)
{
    return {command, QString::fromLatin1(titleKey), QString::fromUtf8(shortcut), MenuKey::isShownOnly};
}

Menu applicationMenu(UpdateCheck updates)
{
    Menu menu{QStringLiteral("Menu.ZumetaApp"), {plain(MenuCommand::about, "About ZumetaApp")}};
    if (updates == UpdateCheck::isConfigured)
        menu.items.push_back(plain(MenuCommand::checkForUpdates, "Check for Updates..."));
    return menu;
}

Menu fileMenu()
{
    return {QStringLiteral("Menu.File"),
            {withKey(MenuCommand::saveProject, "Save Project...", "Ctrl+S"),
             withKey(MenuCommand::openProject, "Open Project...", "Ctrl+O"),
             {},
             withKey(MenuCommand::closeWindow, "Close Window", "Ctrl+W")}};
}

Menu editMenu()
{
    return {QStringLiteral("Menu.Edit"),
            {withShownKey(MenuCommand::undo, "Undo", "Ctrl+Z"), withShownKey(MenuCommand::redo, "Redo", "Ctrl+Shift+Z"),
             withKey(MenuCommand::cut, "Cut", "Ctrl+X"), withKey(MenuCommand::copy, "Copy", "Ctrl+C"),
             withKey(MenuCommand::paste, "Paste", "Ctrl+V"), plain(MenuCommand::deleteSelection, "Delete"),
             withKey(MenuCommand::selectAll, "Select All", "Ctrl+A")}};
}

Menu windowMenu()
{
    return {QStringLiteral("Menu.Window"),
            {withKey(MenuCommand::minimize, "Minimize", "Ctrl+M"), plain(MenuCommand::zoom, "Window Zoom"),
             plain(MenuCommand::bringAllToFront, "Bring All to Front")}};
}

Menu helpMenu()
{
    return {QStringLiteral("Menu.Help"),
            {plain(MenuCommand::help, "ZumetaApp Help"), plain(MenuCommand::privacyPolicy, "Privacy Policy"),
             plain(MenuCommand::terms, "Terms"), plain(MenuCommand::showFirstRunGuide, "Show First Run Guide")}};
}

Menu playbackMenu()
{
    return {QStringLiteral("Playback"),
            {plain(MenuCommand::playPause, "Play/Pause"),
             {},
             withShownKey(MenuCommand::stepForward, "Step Forward", "→"),
             withShownKey(MenuCommand::stepBackward, "Step Backward", "←"),
             withShownKey(MenuCommand::stepForward10, "Step Forward 10", "Shift+→"),
             withShownKey(MenuCommand::stepBackward10, "Step Backward 10", "Shift+←"),
             plain(MenuCommand::stop, "Play/Pause (K)"),
             plain(MenuCommand::rewind, "Rewind (J)"),
             plain(MenuCommand::fastForward, "Fast Forward (L)")}};
}

}

std::vector<Menu> appMenus(UpdateCheck updates)
{
    return {applicationMenu(updates), fileMenu(), editMenu(), windowMenu(), helpMenu(), playbackMenu()};
}

bool isEnabled(MenuCommand command, const MenuFacts& facts)
{
    if (!facts.isWindowFree)
        return false;
    switch (command) {
    case MenuCommand::checkForUpdates:
        return facts.canCheckForUpdates;
    case MenuCommand::saveProject:
        return facts.isCompositeStep;
    case MenuCommand::undo:
        return facts.edited.canUndo;
    case MenuCommand::redo:
        return facts.edited.canRedo;
    case MenuCommand::cut:
    case MenuCommand::copy:
    case MenuCommand::deleteSelection:
        return facts.edited.hasSelection;
    case MenuCommand::paste:
        return facts.edited.canPaste;
    case MenuCommand::selectAll:
        return facts.edited.hasText;
    case MenuCommand::stop: // a player that still runs in a locked step can be stopped
        return facts.hasTimeline;
    case MenuCommand::playPause:
    case MenuCommand::stepForward:
    case MenuCommand::stepBackward:
    case MenuCommand::stepForward10:
    case MenuCommand::stepBackward10:
    case MenuCommand::rewind:
    case MenuCommand::fastForward:
        return facts.hasTimeline && !facts.isSideLocked;
    case MenuCommand::about:
    case MenuCommand::openProject:
    case MenuCommand::closeWindow:
    case MenuCommand::minimize:
    case MenuCommand::zoom:
    case MenuCommand::bringAllToFront:
    case MenuCommand::help:
    case MenuCommand::privacyPolicy:
    case MenuCommand::terms:
    case MenuCommand::showFirstRunGuide:
        return true;
    }
    return false;
}

int nextLine(const std::vector<MenuLine>& lines, int from, int direction)
{
    const int count = int(lines.size());
    int line = from >= 0 ? from : direction > 0 ? -1 : count;
    for (int tried = 0; tried < count; ++tried) {
        line = (line + direction + count) % count;
        if (lines[size_t(line)] == MenuLine::enabled)
            return line;
    }
    return -1;
}

}
