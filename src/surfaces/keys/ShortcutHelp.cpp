// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/keys/ShortcutHelp.h"

namespace zumeta {

namespace {

ShortcutHelpSection playback()
{
    return {QStringLiteral("Shortcut Section Playback"),
            {{QStringLiteral("Space"), QStringLiteral("Shortcut Play Pause")},
             {QStringLiteral("← / →"), QStringLiteral("Shortcut Frame Step")},
             {QStringLiteral("Shift + ← / →"), QStringLiteral("Shortcut Large Frame Step")}}};
}

ShortcutHelpSection history()
{
    return {QStringLiteral("Shortcut Section History"),
            {{QStringLiteral("Ctrl+Z"), QStringLiteral("Shortcut Undo")},
             {QStringLiteral("Ctrl+Shift+Z"), QStringLiteral("Shortcut Redo")}}};
}

ShortcutHelpSection adjustment()
{
    return {QStringLiteral("Shortcut Section Adjustment"),
            {{QStringLiteral("← / →"), QStringLiteral("Shortcut Numeric Step")},
             {QStringLiteral("Shift + ← / →"), QStringLiteral("Shortcut Numeric Large Step")}}};
}

ShortcutHelpSection markers()
{
    return {QStringLiteral("Shortcut Section Markers"),
            {{QStringLiteral("M"), QStringLiteral("Shortcut Add Marker")},
             {QStringLiteral("↑ / ↓"), QStringLiteral("Shortcut Navigate Trim Points")},
             {QStringLiteral("Delete"), QStringLiteral("Shortcut Delete Selected Marker")}}};
}

ShortcutHelpSection range()
{
    return {QStringLiteral("Shortcut Section Range"),
            {{QStringLiteral("I"), QStringLiteral("Shortcut Set Trim Start")},
             {QStringLiteral("O"), QStringLiteral("Shortcut Set Trim End")}}};
}

}

const std::vector<ShortcutHelpSection>& step3ShortcutHelp()
{
    static const std::vector<ShortcutHelpSection> sections{playback(), adjustment(), history()};
    return sections;
}

const std::vector<ShortcutHelpSection>& step4ShortcutHelp()
{
    static const std::vector<ShortcutHelpSection> sections{playback(), markers(), range(), history()};
    return sections;
}

}
