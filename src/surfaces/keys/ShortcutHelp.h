// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QString>
#include <vector>

namespace zumeta {

/// One shortcut as the help shows it.
struct ShortcutHelpRow {
    QString keys;           ///< as it stands on the keys; not translated
    QString descriptionKey; ///< of the translations
    friend bool operator==(const ShortcutHelpRow&, const ShortcutHelpRow&) = default;
};

struct ShortcutHelpSection {
    QString titleKey; ///< of the translations
    std::vector<ShortcutHelpRow> rows;
    friend bool operator==(const ShortcutHelpSection&, const ShortcutHelpSection&) = default;
};

/// Above the sections.
inline const QString kShortcutHelpTitleKey = QStringLiteral("Shortcut Help");

/// What can be done by key in Step 3 and in Step 4.
const std::vector<ShortcutHelpSection>& step3ShortcutHelp();
const std::vector<ShortcutHelpSection>& step4ShortcutHelp();

}
