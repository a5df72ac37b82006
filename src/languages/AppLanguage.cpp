// SPDX-License-Identifier: GPL-3.0-or-later
#include "languages/AppLanguage.h"

#include <algorithm>

namespace zumeta {
namespace {

struct LanguageNames {
    QString rawValue;
    QString localeIdentifier;
};

LanguageNames namesOf(AppLanguage language)
{
    switch (language) {
    case AppLanguage::japanese:
        return {QStringLiteral(u"日本語"), QStringLiteral("ja")};
    case AppLanguage::english:
        return {QStringLiteral("English"), QStringLiteral("en")};
    case AppLanguage::chinese:
        return {QStringLiteral(u"中文"), QStringLiteral("zh")};
    case AppLanguage::korean:
        return {QStringLiteral(u"한국어"), QStringLiteral("ko")};
    case AppLanguage::portuguese:
        return {QStringLiteral(u"Português"), QStringLiteral("pt")};
    case AppLanguage::spanish:
        return {QStringLiteral(u"Español"), QStringLiteral("es")};
    case AppLanguage::french:
        return {QStringLiteral(u"Français"), QStringLiteral("fr")};
    case AppLanguage::german:
        return {QStringLiteral("Deutsch"), QStringLiteral("de")};
    case AppLanguage::italian:
        return {QStringLiteral("Italiano"), QStringLiteral("it")};
    }
    Q_UNREACHABLE();
}

}

QString rawValue(AppLanguage language)
{
    return namesOf(language).rawValue;
}

std::optional<AppLanguage> appLanguageFromRawValue(const QString& rawValue)
{
    const auto found = std::ranges::find(kAllAppLanguages, rawValue, &zumeta::rawValue);
    return found == kAllAppLanguages.end() ? std::nullopt : std::optional(*found);
}

QString localeIdentifier(AppLanguage language)
{
    return namesOf(language).localeIdentifier;
}

AppLanguage appLanguageForPreferred(const QStringList& locales)
{
    // The prefix alone decides: scripts and regions share the one text that there is for their language.
    for (const QString& locale : locales) {
        const auto found = std::ranges::find_if(kAllAppLanguages, [&locale](AppLanguage language) {
            return locale.startsWith(localeIdentifier(language));
        });
        if (found != kAllAppLanguages.end())
            return *found;
    }
    return AppLanguage::english;
}

}
