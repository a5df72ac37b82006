// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "languages/AppLanguage.h"

#include <QObject>
#include <functional>

namespace zumeta {
class UserDefaults;

/// Where every visible text comes from, and the language that they are in: the system's, or the one that the user has
/// picked. A change takes effect at once in whatever reads again on `currentLanguageChanged`. Main thread.
class LanguageManager final : public QObject {
    Q_OBJECT
    Q_PROPERTY(zumeta::AppLanguage currentLanguage READ currentLanguage NOTIFY currentLanguageChanged FINAL)
    Q_PROPERTY(bool usesSystemLanguage READ usesSystemLanguage NOTIFY usesSystemLanguageChanged FINAL)
    /// Two letters, such as "ja".
    Q_PROPERTY(QString localeIdentifier READ localeIdentifier NOTIFY currentLanguageChanged FINAL)
public:
    /// The user's languages as locales, best first.
    using PreferredLanguages = std::function<QStringList()>;

    static QString languageStorageKey() { return QStringLiteral("AppLanguage"); }
    static QString usesSystemLanguageKey() { return QStringLiteral("UseSystemLanguage"); }

    /// Takes up the choice that is stored. The settings must outlive it.
    explicit LanguageManager(UserDefaults& userDefaults, PreferredLanguages preferredLanguages = systemLanguages,
                             QObject* parent = nullptr);

    AppLanguage currentLanguage() const { return m_currentLanguage; }
    bool usesSystemLanguage() const { return m_usesSystemLanguage; }
    QString localeIdentifier() const { return zumeta::localeIdentifier(m_currentLanguage); }

    /// The text of the key in the current language; a key that the table lacks is its own text.
    Q_INVOKABLE QString localized(const QString& key) const;

    void setLanguage(AppLanguage language);
    void useSystemLanguage();

    static QStringList systemLanguages();

Q_SIGNALS:
    void currentLanguageChanged();
    void usesSystemLanguageChanged();

private:
    AppLanguage languageAtStart() const;
    /// Announces what has changed once both fields agree.
    void publish(AppLanguage language, bool usesSystemLanguage);

    UserDefaults& m_userDefaults;
    PreferredLanguages m_preferredLanguages;
    bool m_usesSystemLanguage;
    AppLanguage m_currentLanguage;
};

}
