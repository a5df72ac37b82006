// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/window/AppMenus.h"
#include "languages/Translations.h"

#include <gmock/gmock.h>
#include <set>

namespace zumeta {
namespace {

using testing::ElementsAre;

std::vector<QString> titlesOf(int menu, UpdateCheck updates = UpdateCheck::isNotConfigured)
{
    std::vector<QString> titles;
    const Menu shown = appMenus(updates)[size_t(menu)];
    for (const MenuItem& item : shown.items)
        titles.push_back(item.command ? item.titleKey : QStringLiteral("-"));
    return titles;
}

std::vector<QString> shortcutsOf(int menu)
{
    std::vector<QString> shortcuts;
    const Menu shown = appMenus(UpdateCheck::isNotConfigured)[size_t(menu)];
    for (const MenuItem& item : shown.items)
        shortcuts.push_back(item.shortcut);
    return shortcuts;
}

std::vector<MenuCommand> allCommands()
{
    std::vector<MenuCommand> commands;
    for (const Menu& menu : appMenus(UpdateCheck::isConfigured)) {
        for (const MenuItem& item : menu.items) {
            if (item.command)
                commands.push_back(*item.command);
        }
    }
    return commands;
}

/// Everything can be done.
MenuFacts free()
{
    return {.isWindowFree = true,
            .isCompositeStep = true,
            .hasTimeline = true,
            .canCheckForUpdates = true,
            .edited = {true, true, true, true, true}};
}

TEST(AppMenus, StandInTheirOrder)
{
    std::vector<QString> titles;
    for (const Menu& menu : appMenus(UpdateCheck::isNotConfigured))
        titles.push_back(menu.titleKey);
    EXPECT_THAT(titles,
                ElementsAre(QStringLiteral("Menu.ZumetaApp"), QStringLiteral("Menu.File"), QStringLiteral("Menu.Edit"),
                            QStringLiteral("Menu.Window"), QStringLiteral("Menu.Help"), QStringLiteral("Playback")));
}

TEST(AppMenus, HoldTheirItems)
{
    EXPECT_THAT(titlesOf(1), ElementsAre(QStringLiteral("Save Project..."), QStringLiteral("Open Project..."),
                                         QStringLiteral("-"), QStringLiteral("Close Window")));
    EXPECT_THAT(titlesOf(2), ElementsAre(QStringLiteral("Undo"), QStringLiteral("Redo"), QStringLiteral("Cut"),
                                         QStringLiteral("Copy"), QStringLiteral("Paste"), QStringLiteral("Delete"),
                                         QStringLiteral("Select All")));
    EXPECT_THAT(titlesOf(3), ElementsAre(QStringLiteral("Minimize"), QStringLiteral("Window Zoom"),
                                         QStringLiteral("Bring All to Front")));
    EXPECT_THAT(titlesOf(4), ElementsAre(QStringLiteral("ZumetaApp Help"), QStringLiteral("Privacy Policy"),
                                         QStringLiteral("Terms"), QStringLiteral("Show First Run Guide")));
    EXPECT_THAT(titlesOf(5),
                ElementsAre(QStringLiteral("Play/Pause"), QStringLiteral("-"), QStringLiteral("Step Forward"),
                            QStringLiteral("Step Backward"), QStringLiteral("Step Forward 10"),
                            QStringLiteral("Step Backward 10"), QStringLiteral("Play/Pause (K)"),
                            QStringLiteral("Rewind (J)"), QStringLiteral("Fast Forward (L)")));
}

TEST(AppMenus, OfferUpdatesOnlyWhereTheyAreConfigured)
{
    EXPECT_THAT(titlesOf(0), ElementsAre(QStringLiteral("About ZumetaApp")));
    EXPECT_THAT(titlesOf(0, UpdateCheck::isConfigured),
                ElementsAre(QStringLiteral("About ZumetaApp"), QStringLiteral("Check for Updates...")));
}

TEST(AppMenus, TellTheirKeys)
{
    const QString none;
    EXPECT_THAT(shortcutsOf(1),
                ElementsAre(QStringLiteral("Ctrl+S"), QStringLiteral("Ctrl+O"), none, QStringLiteral("Ctrl+W")));
    EXPECT_THAT(shortcutsOf(2),
                ElementsAre(QStringLiteral("Ctrl+Z"), QStringLiteral("Ctrl+Shift+Z"), QStringLiteral("Ctrl+X"),
                            QStringLiteral("Ctrl+C"), QStringLiteral("Ctrl+V"), none, QStringLiteral("Ctrl+A")));
    EXPECT_THAT(shortcutsOf(3), ElementsAre(QStringLiteral("Ctrl+M"), none, none));
    EXPECT_THAT(shortcutsOf(5), ElementsAre(none, none, QStringLiteral("→"), QStringLiteral("←"),
                                            QStringLiteral("Shift+→"), QStringLiteral("Shift+←"), none, none, none));
}

TEST(AppMenus, RegisterNoKeyThatTheKeyRuleActsOn)
{
    std::set<QString> registered;
    for (const Menu& menu : appMenus(UpdateCheck::isConfigured)) {
        for (const MenuItem& item : menu.items) {
            if (item.key == MenuKey::isRegistered)
                registered.insert(item.shortcut);
        }
    }
    EXPECT_THAT(registered, ElementsAre(QStringLiteral("Ctrl+A"), QStringLiteral("Ctrl+C"), QStringLiteral("Ctrl+M"),
                                        QStringLiteral("Ctrl+O"), QStringLiteral("Ctrl+S"), QStringLiteral("Ctrl+V"),
                                        QStringLiteral("Ctrl+W"), QStringLiteral("Ctrl+X")));
}

TEST(AppMenus, EveryTitleIsAKeyOfTheTranslations)
{
    for (const Menu& menu : appMenus(UpdateCheck::isConfigured)) {
        EXPECT_TRUE(Translations::compiled().contains(menu.titleKey)) << menu.titleKey.toStdString();
        for (const MenuItem& item : menu.items)
            EXPECT_EQ(Translations::compiled().contains(item.titleKey), item.command.has_value())
                << item.titleKey.toStdString();
    }
}

TEST(MenuItems, AllActWhereEverythingCanBeDone)
{
    for (const MenuCommand command : allCommands())
        EXPECT_TRUE(isEnabled(command, free())) << int(command);
}

TEST(MenuItems, RestWhileSomethingCoversTheWindow)
{
    MenuFacts facts = free();
    facts.isWindowFree = false;
    for (const MenuCommand command : allCommands())
        EXPECT_FALSE(isEnabled(command, facts)) << int(command);
}

TEST(MenuItems, ACompositionIsKeptFromStepThreeOn)
{
    MenuFacts facts = free();
    facts.isCompositeStep = false;
    EXPECT_FALSE(isEnabled(MenuCommand::saveProject, facts));
    EXPECT_TRUE(isEnabled(MenuCommand::openProject, facts));
}

TEST(MenuItems, TheEditMenuNeedsWhatItWorksOn)
{
    const auto enabled = [](const EditFacts& edited) {
        MenuFacts facts = free();
        facts.edited = edited;
        std::set<MenuCommand> commands;
        for (const MenuCommand command : {MenuCommand::undo, MenuCommand::redo, MenuCommand::cut, MenuCommand::copy,
                                          MenuCommand::paste, MenuCommand::deleteSelection, MenuCommand::selectAll}) {
            if (isEnabled(command, facts))
                commands.insert(command);
        }
        return commands;
    };
    EXPECT_TRUE(enabled({}).empty());
    EXPECT_THAT(enabled({.canUndo = true}), ElementsAre(MenuCommand::undo));
    EXPECT_THAT(enabled({.canRedo = true}), ElementsAre(MenuCommand::redo));
    EXPECT_THAT(enabled({.canPaste = true}), ElementsAre(MenuCommand::paste));
    EXPECT_THAT(enabled({.hasSelection = true}),
                ElementsAre(MenuCommand::cut, MenuCommand::copy, MenuCommand::deleteSelection));
    EXPECT_THAT(enabled({.hasText = true}), ElementsAre(MenuCommand::selectAll));
}

TEST(MenuItems, PlaybackNeedsATimelineAndALockedSideOnlyStops)
{
    MenuFacts empty = free();
    empty.hasTimeline = false;
    MenuFacts locked = free();
    locked.isSideLocked = true;
    for (const MenuCommand command :
         {MenuCommand::playPause, MenuCommand::stepForward, MenuCommand::stepBackward, MenuCommand::stepForward10,
          MenuCommand::stepBackward10, MenuCommand::rewind, MenuCommand::fastForward}) {
        EXPECT_FALSE(isEnabled(command, empty)) << int(command);
        EXPECT_FALSE(isEnabled(command, locked)) << int(command);
    }
    EXPECT_FALSE(isEnabled(MenuCommand::stop, empty));
    EXPECT_TRUE(isEnabled(MenuCommand::stop, locked));
}

TEST(MenuItems, UpdatesAreAskedForOnlyWhereThatCanBeDone)
{
    MenuFacts facts = free();
    facts.canCheckForUpdates = false;
    EXPECT_FALSE(isEnabled(MenuCommand::checkForUpdates, facts));
}

constexpr MenuLine kOn = MenuLine::enabled;
constexpr MenuLine kOff = MenuLine::disabled;
constexpr MenuLine kDivider = MenuLine::divider;

TEST(MenuLines, ArrowsPassOverDividersAndWhatCannotAct)
{
    const std::vector<MenuLine> lines{kOn, kDivider, kOff, kOn};
    EXPECT_EQ(nextLine(lines, 0, 1), 3);
    EXPECT_EQ(nextLine(lines, 3, -1), 0);
}

TEST(MenuLines, ArrowsGoAroundTheEnds)
{
    const std::vector<MenuLine> lines{kOff, kOn, kOn, kOff};
    EXPECT_EQ(nextLine(lines, 2, 1), 1);
    EXPECT_EQ(nextLine(lines, 1, -1), 2);
}

TEST(MenuLines, FromNoLineTheyComeToTheFirstOrTheLast)
{
    const std::vector<MenuLine> lines{kOff, kOn, kOn, kDivider};
    EXPECT_EQ(nextLine(lines, -1, 1), 1);
    EXPECT_EQ(nextLine(lines, -1, -1), 2);
}

TEST(MenuLines, OfAMenuThatCannotActNoneIsChosen)
{
    EXPECT_EQ(nextLine({kOff, kDivider, kOff}, -1, 1), -1);
    EXPECT_EQ(nextLine({}, -1, 1), -1);
}

}
}
