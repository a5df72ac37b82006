// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/keys/ShortcutHelp.h"
#include "languages/Translations.h"

#include <gtest/gtest.h>

namespace zumeta {
namespace {

QString english(const QString& key)
{
    return Translations::compiled().text(key, AppLanguage::english);
}

/// As the help reads, a line for each title and row.
QStringList shown(const std::vector<ShortcutHelpSection>& sections)
{
    QStringList lines;
    for (const ShortcutHelpSection& section : sections) {
        lines += section.titleKey;
        for (const ShortcutHelpRow& row : section.rows)
            lines += row.keys + QStringLiteral(": ") + english(row.descriptionKey);
    }
    return lines;
}

TEST(ShortcutHelp, StepThreeShowsPlaybackAdjustmentAndHistory)
{
    const QStringList expected{QStringLiteral("Shortcut Section Playback"),
                               QStringLiteral("Space: Play / pause"),
                               QStringLiteral("← / →: Move one frame"),
                               QStringLiteral("Shift + ← / →: Move by a larger step"),
                               QStringLiteral("Shortcut Section Adjustment"),
                               QStringLiteral("← / →: Fine tune the focused value"),
                               QStringLiteral("Shift + ← / →: Adjust the focused value by a larger step"),
                               QStringLiteral("Shortcut Section History"),
                               QStringLiteral("Ctrl+Z: Undo the last edit"),
                               QStringLiteral("Ctrl+Shift+Z: Redo the edit")};
    EXPECT_EQ(shown(step3ShortcutHelp()), expected);
}

TEST(ShortcutHelp, StepFourShowsPlaybackMarkersRangeAndHistory)
{
    const QStringList expected{QStringLiteral("Shortcut Section Playback"),
                               QStringLiteral("Space: Play / pause"),
                               QStringLiteral("← / →: Move one frame"),
                               QStringLiteral("Shift + ← / →: Move by a larger step"),
                               QStringLiteral("Shortcut Section Markers"),
                               QStringLiteral("M: Add a marker at the current position"),
                               QStringLiteral("↑ / ↓: Move between start, end, and markers"),
                               QStringLiteral("Delete: Delete the selected marker"),
                               QStringLiteral("Shortcut Section Range"),
                               QStringLiteral("I: Set start to the current position"),
                               QStringLiteral("O: Set end to the current position"),
                               QStringLiteral("Shortcut Section History"),
                               QStringLiteral("Ctrl+Z: Undo the last edit"),
                               QStringLiteral("Ctrl+Shift+Z: Redo the edit")};
    EXPECT_EQ(shown(step4ShortcutHelp()), expected);
}

TEST(ShortcutHelp, IsHeadedShortcuts)
{
    EXPECT_EQ(english(kShortcutHelpTitleKey), QStringLiteral("Shortcuts"));
}

TEST(ShortcutHelp, EveryTextIsTranslated)
{
    const auto& texts = Translations::compiled().data;
    for (const auto& sections : {step3ShortcutHelp(), step4ShortcutHelp()}) {
        for (const ShortcutHelpSection& section : sections) {
            EXPECT_TRUE(texts.contains(section.titleKey)) << qPrintable(section.titleKey);
            for (const ShortcutHelpRow& row : section.rows)
                EXPECT_TRUE(texts.contains(row.descriptionKey)) << qPrintable(row.descriptionKey);
        }
    }
}

}
}
