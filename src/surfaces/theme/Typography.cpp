// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/theme/Typography.h"

#include "languages/LanguageManager.h"
#include "surfaces/theme/SurfaceContext.h"

#include <QFontDatabase>

namespace zumeta {

namespace {

const QString kDigits = QStringLiteral("Zumeta Digits");

QString cjkFamily(AppLanguage language)
{
    switch (language) {
    case AppLanguage::chinese:
        return QStringLiteral("Noto Sans CJK SC");
    case AppLanguage::korean:
        return QStringLiteral("Noto Sans CJK KR");
    default:
        return QStringLiteral("Noto Sans CJK JP");
    }
}

bool isCjk(AppLanguage language)
{
    return language == AppLanguage::japanese || language == AppLanguage::chinese || language == AppLanguage::korean;
}

/// False when one of them cannot be read.
bool loadDigits()
{
    const QString folder = QStringLiteral(":/qt/qml/Zumeta/theme/fonts/ZumetaDigits-");
    for (const char* const weight : {"Regular", "Medium", "SemiBold"}) {
        if (QFontDatabase::addApplicationFont(folder + QLatin1String(weight) + QStringLiteral(".otf")) < 0)
            return false;
    }
    return true;
}

}

Typography::Typography(LanguageManager& languages, QObject* parent)
    : QObject(parent)
    , m_languages(languages)
{
    static const bool isLoaded = loadDigits(); // a program has one set of fonts
    m_hasOwnDigits = isLoaded;
    connect(&languages, &LanguageManager::currentLanguageChanged, this, &Typography::changed);
}

Typography* Typography::create(QQmlEngine* engine, QJSEngine*)
{
    return &SurfaceContext::of(*engine).typography();
}

int Typography::extraLineHeight() const
{
    constexpr int kExtra = 2; // logical pixels
    return isCjk(m_languages.currentLanguage()) ? kExtra : 0;
}

QFont Typography::text(int size, QFont::Weight weight, double spacing) const
{
    const AppLanguage language = m_languages.currentLanguage();
    QFont font(QStringList{QStringLiteral("Inter"), cjkFamily(language), QStringLiteral("DejaVu Sans")});
    font.setPixelSize(size);
    // Their fonts have no weight between medium and bold, and their characters stand in squares.
    font.setWeight(isCjk(language) && weight == QFont::DemiBold ? QFont::Bold : weight);
    if (!isCjk(language))
        font.setLetterSpacing(QFont::AbsoluteSpacing, spacing);
    return font;
}

QFont Typography::digits(int size, QFont::Weight weight) const
{
    QFont font(m_hasOwnDigits ? QStringList{kDigits, QStringLiteral("Inter")}
                              : QStringList{QStringLiteral("JetBrains Mono"), QStringLiteral("DejaVu Sans Mono")});
    font.setPixelSize(m_hasOwnDigits ? size : size - 1);
    font.setWeight(weight);
    return font;
}

}
