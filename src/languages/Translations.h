// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "languages/AppLanguage.h"

#include <QHash>

namespace zumeta {

/// Every text that a user sees, by key and language. A key is a name and not its English text.
struct Translations {
    using Table = QHash<QString, QHash<AppLanguage, QString>>;

    /// Japanese and English for each key; Chinese, Korean, Portuguese and Spanish where they exist.
    Table data;
    /// French, German and Italian where they exist, and nothing else.
    Table extraData;

    /// What is compiled into the program; built when it is first asked for.
    static const Translations& compiled();

    /// The texts that belong to this window alone, in a table apart: every key in all languages.
    static const Translations& ofTheWindow();

    bool contains(const QString& key) const { return data.contains(key); }
    /// The key's text in the language; else its English text; else the key itself.
    QString text(const QString& key, AppLanguage language) const;
};

}
