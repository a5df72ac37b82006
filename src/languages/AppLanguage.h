// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QStringList>
#include <array>
#include <optional>

namespace zumeta {

/// The languages that the program speaks, in the order in which a picker lists them.
enum class AppLanguage { japanese, english, chinese, korean, portuguese, spanish, french, german, italian };

inline constexpr std::array kAllAppLanguages = {
    AppLanguage::japanese, AppLanguage::english, AppLanguage::chinese, AppLanguage::korean,  AppLanguage::portuguese,
    AppLanguage::spanish,  AppLanguage::french,  AppLanguage::german,  AppLanguage::italian,
};

/// The language's own name for itself: shown in the picker, and stored.
QString rawValue(AppLanguage language);
std::optional<AppLanguage> appLanguageFromRawValue(const QString& rawValue);

/// Two letters, such as "ja".
QString localeIdentifier(AppLanguage language);

/// The language for a user who prefers these, best first, each a locale such as "pt-BR"; English when the program
/// speaks none of them.
AppLanguage appLanguageForPreferred(const QStringList& locales);

}
