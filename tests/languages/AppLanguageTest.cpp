// SPDX-License-Identifier: GPL-3.0-or-later
#include "languages/AppLanguage.h"

#include <gtest/gtest.h>

namespace zumeta {

TEST(AppLanguage, ThereAreNineInTheOrderOfThePicker)
{
    using enum AppLanguage;
    const std::array expected = {japanese, english, chinese, korean, portuguese, spanish, french, german, italian};
    EXPECT_EQ(kAllAppLanguages, expected);
    EXPECT_EQ(int(japanese), 0);
    EXPECT_EQ(int(italian), 8);
}

TEST(AppLanguage, TheRawValueIsTheLanguagesOwnName)
{
    QStringList names;
    for (const AppLanguage language : kAllAppLanguages)
        names << rawValue(language);
    const QStringList expected = {
        QStringLiteral(u"日本語"),   QStringLiteral("English"),    QStringLiteral(u"中文"),
        QStringLiteral(u"한국어"),   QStringLiteral(u"Português"), QStringLiteral(u"Español"),
        QStringLiteral(u"Français"), QStringLiteral("Deutsch"),    QStringLiteral("Italiano"),
    };
    EXPECT_EQ(names, expected);
}

TEST(AppLanguage, EachHasItsTwoLetterCode)
{
    QStringList codes;
    for (const AppLanguage language : kAllAppLanguages)
        codes << localeIdentifier(language);
    EXPECT_EQ(codes.join(u' '), QStringLiteral("ja en zh ko pt es fr de it"));
}

TEST(AppLanguage, IsFoundAgainByItsRawValue)
{
    for (const AppLanguage language : kAllAppLanguages)
        EXPECT_EQ(appLanguageFromRawValue(rawValue(language)), language);
}

TEST(AppLanguage, AnotherNameIsNoLanguage)
{
    EXPECT_EQ(appLanguageFromRawValue(QStringLiteral("Klingon")), std::nullopt);
    EXPECT_EQ(appLanguageFromRawValue(QStringLiteral("english")), std::nullopt);
    EXPECT_EQ(appLanguageFromRawValue(QStringLiteral("de")), std::nullopt);
    EXPECT_EQ(appLanguageFromRawValue(QString()), std::nullopt);
}

TEST(PreferredLanguage, ALocalesPrefixDecides)
{
    const std::pair<const char*, AppLanguage> expected[] = {
        {"ja-JP", AppLanguage::japanese},      {"es-419", AppLanguage::spanish}, {"pt-BR", AppLanguage::portuguese},
        {"ko", AppLanguage::korean},           {"fr-CA", AppLanguage::french},   {"de-CH", AppLanguage::german},
        {"it_IT.UTF-8", AppLanguage::italian}, {"en-GB", AppLanguage::english},
    };
    for (const auto& [locale, language] : expected)
        EXPECT_EQ(appLanguageForPreferred({QString::fromLatin1(locale)}), language) << locale;
}

TEST(PreferredLanguage, AnyLocaleOfChineseIsTheOneChinese)
{
    for (const char* locale : {"zh", "zh-CN", "zh-TW", "zh-Hant-HK", "zh_SG", "zh-Hans"})
        EXPECT_EQ(appLanguageForPreferred({QString::fromLatin1(locale)}), AppLanguage::chinese) << locale;
}

TEST(PreferredLanguage, TheFirstThatIsSpokenWins)
{
    EXPECT_EQ(appLanguageForPreferred({QStringLiteral("it-IT"), QStringLiteral("ja-JP")}), AppLanguage::italian);
    EXPECT_EQ(appLanguageForPreferred({QStringLiteral("ja-JP"), QStringLiteral("it-IT")}), AppLanguage::japanese);
}

TEST(PreferredLanguage, OutsideTheNineTheSecondChoiceOfGermanCounts)
{
    EXPECT_EQ(appLanguageForPreferred({QStringLiteral("sv-SE"), QStringLiteral("de-DE"), QStringLiteral("en")}),
              AppLanguage::german);
}

TEST(PreferredLanguage, IsEnglishWhenNoneIsSpoken)
{
    EXPECT_EQ(appLanguageForPreferred({QStringLiteral("sv-SE"), QStringLiteral("C"), QString()}), AppLanguage::english);
    EXPECT_EQ(appLanguageForPreferred({}), AppLanguage::english);
}

}
