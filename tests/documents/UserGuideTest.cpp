// SPDX-License-Identifier: GPL-3.0-or-later
#include "Markdown.h"
#include "languages/Translations.h"
#include "languages/texts/TextGroups.h"
#include "media/ProxyGenerator.h"
#include "media/VideoFileHelper.h"
#include "platform/NotificationCenter.h"
#include "platform/SettingsFile.h"
#include "shell/WindowKeys.h"
#include "surfaces/keys/KeyRule.h"
#include "surfaces/keys/ShortcutHelp.h"
#include "surfaces/preview/PickByKeys.h"
#include "surfaces/timeline/KeyboardScrub.h"
#include "surfaces/window/AppMenus.h"

#include <QDir>
#include <QSet>
#include <gmock/gmock.h>

namespace zumeta::test {

namespace {

using Table = std::vector<QStringList>;

const Markdown& guide()
{
    static const Markdown document("docs/user-guide.md");
    return document;
}

QString english(const QString& key)
{
    return Translations::compiled().text(key, AppLanguage::english);
}

Table tableOf(const std::vector<ShortcutHelpSection>& sections)
{
    Table rows;
    for (const ShortcutHelpSection& section : sections) {
        for (const ShortcutHelpRow& row : section.rows)
            rows.push_back({row.keys, english(row.descriptionKey)});
    }
    return rows;
}

/// Every English text of the window.
QSet<QString> textsOfTheWindow()
{
    QSet<QString> texts;
    for (const auto& rows : {adjustmentTexts(), shortcutTexts(), stepTexts(), previewTexts(), menuTexts(),
                             messageTexts(), guideTexts(), tutorialTexts(), windowTexts()}) {
        for (const TextRow& row : rows)
            texts << QString::fromUtf16(row.english.data(), qsizetype(row.english.size()));
    }
    return texts;
}

QString keysThatTell(const QString& heading, const QString& action)
{
    for (const QStringList& row : guide().rows(heading)) {
        if (row.at(1).contains(action))
            return row.front();
    }
    return {};
}

}

TEST(UserGuide, ListsTheKeysOfStepThreeAsTheWindowDoes)
{
    EXPECT_EQ(guide().rows(QStringLiteral("Step 3")), tableOf(step3ShortcutHelp()));
}

TEST(UserGuide, ListsTheKeysOfStepFourAsTheWindowDoes)
{
    EXPECT_EQ(guide().rows(QStringLiteral("Step 4")), tableOf(step4ShortcutHelp()));
}

TEST(UserGuide, ListsTheKeysOfTheMenus)
{
    Table rows;
    for (const Menu& menu : appMenus(UpdateCheck::isNotConfigured)) {
        for (const MenuItem& item : menu.items) {
            if (!item.shortcut.isEmpty())
                rows.push_back({item.shortcut, english(item.titleKey)});
        }
    }
    EXPECT_EQ(guide().rows(QStringLiteral("In the menus")), rows);
}

TEST(UserGuide, TheKeysOfEveryStepDoWhatItSays)
{
    const QString heading = QStringLiteral("In every step");
    const auto posted = [](KeyCode key) {
        KeyEvent event;
        event.keyCode = key;
        return handleKeyEvent(event, {}).value_or(KeyNotification());
    };
    EXPECT_EQ(keysThatTell(heading, QStringLiteral("lock the landmark")), QStringLiteral("M"));
    EXPECT_EQ(posted(KeyCode::m).name, notifications::kMarkSyncPoint);
    EXPECT_EQ(keysThatTell(heading, QStringLiteral("Stop")), QStringLiteral("K"));
    EXPECT_EQ(posted(KeyCode::k).name, notifications::kPausePlaybackShortcut);
    EXPECT_EQ(keysThatTell(heading, QStringLiteral("Play forward")), QStringLiteral("L"));
    EXPECT_EQ(posted(KeyCode::l).userInfo.value(QStringLiteral("faster")), true);
    EXPECT_EQ(keysThatTell(heading, QStringLiteral("Play backward")), QStringLiteral("J"));
    EXPECT_EQ(posted(KeyCode::j).userInfo.value(QStringLiteral("faster")), false);
    EXPECT_EQ(keysThatTell(heading, QStringLiteral("Fill the screen")), QStringLiteral("F11"));
    EXPECT_EQ(windowKey({.key = Qt::Key_F11}, {}).action, WindowKeyAction::toggleWindowFullScreen);
    EXPECT_EQ(keysThatTell(heading, QStringLiteral("leave full screen")), QStringLiteral("Escape"));
    EXPECT_EQ(windowKey({.key = Qt::Key_Escape}, {.isFullScreen = true, .isCompositeStep = true}).action,
              WindowKeyAction::leaveFullScreen);
}

TEST(UserGuide, TheKeysForTheSliderAndThePickDoWhatItSays)
{
    const QString heading = QStringLiteral("By keyboard alone");
    EXPECT_EQ(keysThatTell(heading, QStringLiteral("go to its ends")), QStringLiteral("Home, End"));
    EXPECT_EQ(keysThatTell(heading, QStringLiteral("a twentieth of its length; with Shift by a second")),
              QStringLiteral("Page Up, Page Down"));
    EXPECT_EQ(scrubTarget(ScrubKey::pageUp, ScrubPace::coarse, 10, 100), 15);
    EXPECT_EQ(scrubTarget(ScrubKey::pageDown, ScrubPace::fine, 10, 100), 9);
    EXPECT_EQ(keysThatTell(heading, QStringLiteral("move the line; with Shift finely")),
              QStringLiteral("Page Up, Page Down"));
    EXPECT_EQ(pickKey(Qt::Key_PageUp, Qt::NoModifier), PickKey::up);
    EXPECT_EQ(pickKey(Qt::Key_PageDown, Qt::ShiftModifier), PickKey::downFine);
    EXPECT_EQ(keysThatTell(heading, QStringLiteral("pick the line")), QStringLiteral("Return"));
    EXPECT_EQ(pickKey(Qt::Key_Return, Qt::NoModifier), PickKey::pick);
}

TEST(UserGuide, WhatStandsInBoldStandsInTheWindow)
{
    const QSet<QString> texts = textsOfTheWindow() + QSet<QString>{QStringLiteral("bold")}; // it explains itself
    const QStringList words = guide().boldWords();
    EXPECT_GE(words.size(), 30);
    for (const QString& word : words)
        EXPECT_TRUE(texts.contains(word)) << word.toStdString();
}

TEST(UserGuide, FilesLieWhereItSays)
{
    qunsetenv("XDG_CONFIG_HOME");
    qunsetenv("XDG_DATA_HOME");
    QString settings = SettingsFile::defaultPath();
    QString proxies = QString::fromStdString(ProxyGenerator::defaultProxyDirectory());
    QStringList places;
    for (const QStringList& row : guide().rows(QStringLiteral("Where files lie")))
        places << row.at(1);
    for (QString* const path : {&settings, &proxies}) {
        ASSERT_TRUE(path->startsWith(QDir::homePath())) << path->toStdString();
        path->replace(0, QDir::homePath().size(), QStringLiteral("~"));
        EXPECT_TRUE(places.contains(QStringLiteral("`%1`").arg(*path))) << path->toStdString();
    }
}

TEST(UserGuide, NamesTheFilesThatAreRead)
{
    const QString needed = guide().section(QStringLiteral("What you need")).simplified();
    QString list = needed.section(QStringLiteral(" write "), 1, 1).section(QStringLiteral(" files"), 0, 0);
    QStringList named = list.replace(QStringLiteral(" or "), QStringLiteral(", ")).split(QStringLiteral(", "));
    named.sort();
    QStringList read;
    for (const std::string& extension : VideoFileHelper::supportedExtensions())
        read << QString::fromStdString(extension);
    read.sort();
    EXPECT_EQ(named, read);
}

}
