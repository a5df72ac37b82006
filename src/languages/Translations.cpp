// SPDX-License-Identifier: GPL-3.0-or-later
#include "languages/Translations.h"

#include "languages/texts/TextGroups.h"

#include <initializer_list>
#include <utility>

namespace zumeta {
namespace {

using Cells = std::initializer_list<std::pair<AppLanguage, std::u16string_view>>;

void addRow(Translations::Table& table, std::u16string_view key, Cells cells)
{
    QHash<AppLanguage, QString> texts;
    for (const auto& [language, text] : cells) {
        if (!text.empty())
            texts.insert(language, QStringView(text).toString());
    }
    if (!texts.isEmpty())
        table.insert(QStringView(key).toString(), texts);
}

void addGroup(Translations& translations, std::span<const TextRow> group)
{
    using enum AppLanguage;
    for (const TextRow& row : group) {
        addRow(translations.data, row.key,
               {{english, row.english},
                {japanese, row.japanese},
                {chinese, row.chinese},
                {korean, row.korean},
                {portuguese, row.portuguese},
                {spanish, row.spanish}});
        addRow(translations.extraData, row.key, {{french, row.french}, {german, row.german}, {italian, row.italian}});
    }
}

Translations buildCompiled()
{
    Translations built;
    for (const auto& group : {adjustmentTexts(), shortcutTexts(), stepTexts(), previewTexts(), menuTexts(),
                              messageTexts(), guideTexts(), tutorialTexts()})
        addGroup(built, group);
    return built;
}

}

const Translations& Translations::compiled()
{
    static const Translations translations = buildCompiled();
    return translations;
}

const Translations& Translations::ofTheWindow()
{
    static const Translations translations = [] {
        Translations built;
        addGroup(built, windowTexts());
        return built;
    }();
    return translations;
}

QString Translations::text(const QString& key, AppLanguage language) const
{
    const auto lookUp = [&key](const Table& table, AppLanguage wanted) { return table.value(key).value(wanted); };
    for (const QString& found :
         {lookUp(extraData, language), lookUp(data, language), lookUp(data, AppLanguage::english)}) {
        if (!found.isNull())
            return found;
    }
    return key;
}

}
