// SPDX-License-Identifier: GPL-3.0-or-later
#include "languages/LanguageManager.h"

#include "languages/Translations.h"
#include "platform/UserDefaults.h"

#include <QLocale>
#include <utility>

namespace zumeta {

LanguageManager::LanguageManager(UserDefaults& userDefaults, PreferredLanguages preferredLanguages, QObject* parent)
    : QObject(parent)
    , m_userDefaults(userDefaults)
    , m_preferredLanguages(std::move(preferredLanguages))
    , m_usesSystemLanguage(userDefaults.boolean(usesSystemLanguageKey()).value_or(true))
    , m_currentLanguage(languageAtStart())
{}

QStringList LanguageManager::systemLanguages()
{
    return QLocale::system().uiLanguages();
}

AppLanguage LanguageManager::languageAtStart() const
{
    if (!m_usesSystemLanguage) {
        const QString stored = m_userDefaults.string(languageStorageKey()).value_or(QString());
        if (const std::optional<AppLanguage> language = appLanguageFromRawValue(stored))
            return *language;
    }
    return appLanguageForPreferred(m_preferredLanguages());
}

QString LanguageManager::localized(const QString& key) const
{
    const Translations& window = Translations::ofTheWindow();
    return (window.contains(key) ? window : Translations::compiled()).text(key, m_currentLanguage);
}

void LanguageManager::setLanguage(AppLanguage language)
{
    m_userDefaults.setBoolean(usesSystemLanguageKey(), false);
    m_userDefaults.setString(languageStorageKey(), rawValue(language));
    publish(language, false);
}

void LanguageManager::useSystemLanguage()
{
    m_userDefaults.setBoolean(usesSystemLanguageKey(), true);
    publish(appLanguageForPreferred(m_preferredLanguages()), true);
}

void LanguageManager::publish(AppLanguage language, bool usesSystemLanguage)
{
    const bool languageChanges = std::exchange(m_currentLanguage, language) != language;
    const bool followingChanges = std::exchange(m_usesSystemLanguage, usesSystemLanguage) != usesSystemLanguage;
    if (languageChanges)
        Q_EMIT currentLanguageChanged();
    if (followingChanges)
        Q_EMIT usesSystemLanguageChanged();
}

}
