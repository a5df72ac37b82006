// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/guides/ShortcutHelpModel.h"

#include <gmock/gmock.h>

namespace zumeta {
namespace {

using testing::ElementsAre;

QStringList rows(ShortcutHelpModel& model)
{
    QStringList all;
    for (int row = 0; row < model.rowCount(); ++row) {
        const QModelIndex index = model.index(row, 0);
        const QString text = index.data(ShortcutHelpModel::TextKey).toString();
        all.append(index.data(ShortcutHelpModel::IsTitle).toBool()
                       ? QStringLiteral("# ") + text
                       : index.data(ShortcutHelpModel::Keys).toStringList().join(u' ') + QStringLiteral(": ") + text);
    }
    return all;
}

TEST(ShortcutHelpList, HasASectionsTitleBeforeItsShortcuts)
{
    ShortcutHelpModel model;
    model.setStep(3);
    EXPECT_THAT(
        rows(model),
        ElementsAre(
            QStringLiteral("# Shortcut Section Playback"), QStringLiteral("Space: Shortcut Play Pause"),
            QStringLiteral("← / →: Shortcut Frame Step"), QStringLiteral("Shift + ← / →: Shortcut Large Frame Step"),
            QStringLiteral("# Shortcut Section Adjustment"), QStringLiteral("← / →: Shortcut Numeric Step"),
            QStringLiteral("Shift + ← / →: Shortcut Numeric Large Step"), QStringLiteral("# Shortcut Section History"),
            QStringLiteral("Ctrl Z: Shortcut Undo"), QStringLiteral("Ctrl Shift Z: Shortcut Redo")));
}

TEST(ShortcutHelpList, OfStepFourHasMarkersAndRange)
{
    ShortcutHelpModel model;
    model.setStep(4);
    EXPECT_EQ(model.rowCount(), 14);
    EXPECT_THAT(rows(model),
                testing::IsSupersetOf(
                    {QStringLiteral("# Shortcut Section Markers"), QStringLiteral("M: Shortcut Add Marker"),
                     QStringLiteral("# Shortcut Section Range"), QStringLiteral("O: Shortcut Set Trim End")}));
}

TEST(SplitKeys, KeepsSignsBetweenKeysAndDropsThoseWithinACombination)
{
    EXPECT_THAT(splitKeys(QStringLiteral("Shift + ← / →")),
                ElementsAre(QStringLiteral("Shift"), QStringLiteral("+"), QStringLiteral("←"), QStringLiteral("/"),
                            QStringLiteral("→")));
    EXPECT_THAT(splitKeys(QStringLiteral("Ctrl+Shift+Z")),
                ElementsAre(QStringLiteral("Ctrl"), QStringLiteral("Shift"), QStringLiteral("Z")));
    EXPECT_THAT(splitKeys(QStringLiteral("M")), ElementsAre(QStringLiteral("M")));
}

}
}
