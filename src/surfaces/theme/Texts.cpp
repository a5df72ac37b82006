// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/theme/Texts.h"

#include "languages/LanguageManager.h"
#include "surfaces/theme/SurfaceContext.h"

#include <algorithm>

namespace zumeta {

Texts::Texts(LanguageManager& languages, QObject* parent)
    : QObject(parent)
    , m_languages(languages)
{
    const auto tell = [this] {
        ++m_revision;
        Q_EMIT languageChanged();
    };
    connect(&languages, &LanguageManager::currentLanguageChanged, this, tell);
    connect(&languages, &LanguageManager::usesSystemLanguageChanged, this, tell);
}

Texts* Texts::create(QQmlEngine* engine, QJSEngine*)
{
    return &SurfaceContext::of(*engine).texts();
}

QStringList Texts::languages() const
{
    QStringList names{m_languages.localized(QStringLiteral("Use Device Language"))};
    for (const AppLanguage language : kAllAppLanguages)
        names.push_back(rawValue(language));
    return names;
}

int Texts::chosenLanguage() const
{
    if (m_languages.usesSystemLanguage())
        return 0;
    const auto current = std::ranges::find(kAllAppLanguages, m_languages.currentLanguage());
    return 1 + int(current - kAllAppLanguages.begin());
}

QString Texts::localized(const QString& key) const
{
    return m_languages.localized(key);
}

void Texts::chooseLanguage(int index)
{
    if (index <= 0)
        m_languages.useSystemLanguage();
    else if (size_t(index) <= kAllAppLanguages.size())
        m_languages.setLanguage(kAllAppLanguages[size_t(index) - 1]);
}

}
