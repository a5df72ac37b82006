// SPDX-License-Identifier: GPL-3.0-or-later
#include "languages/Translations.h"

#include <gtest/gtest.h>

namespace zumeta {
namespace {

using enum AppLanguage;

const QString kKey = QStringLiteral("Key");

Translations withBaseTexts()
{
    Translations translations;
    translations.data.insert(kKey,
                             {{english, QStringLiteral("in English")}, {japanese, QStringLiteral("in Japanese")}});
    return translations;
}

}

TEST(LookUpOrder, TheExtraTableComesFirst)
{
    Translations translations = withBaseTexts();
    translations.data[kKey].insert(french, QStringLiteral("base French"));
    translations.extraData.insert(kKey, {{french, QStringLiteral("extra French")}});
    EXPECT_EQ(translations.text(kKey, french), QStringLiteral("extra French"));
}

TEST(LookUpOrder, TheBaseTableComesSecond)
{
    Translations translations = withBaseTexts();
    translations.extraData.insert(kKey, {{french, QStringLiteral("extra French")}});
    EXPECT_EQ(translations.text(kKey, japanese), QStringLiteral("in Japanese"));
}

TEST(LookUpOrder, FrenchWithAKeyOfTheBaseTableAloneIsEnglishAndNotJapanese)
{
    EXPECT_EQ(withBaseTexts().text(kKey, french), QStringLiteral("in English"));
}

TEST(LookUpOrder, AKeyInEnglishAndJapaneseAloneIsEnglishInTheOtherSeven)
{
    for (const AppLanguage language : {chinese, korean, portuguese, spanish, french, german, italian})
        EXPECT_EQ(withBaseTexts().text(kKey, language), QStringLiteral("in English"));
}

TEST(LookUpOrder, ARowOfTheExtraTableNeedNotHoldAllThree)
{
    Translations translations = withBaseTexts();
    translations.extraData.insert(kKey, {{italian, QStringLiteral("extra Italian")}});
    EXPECT_EQ(translations.text(kKey, italian), QStringLiteral("extra Italian"));
    EXPECT_EQ(translations.text(kKey, german), QStringLiteral("in English"));
}

TEST(LookUpOrder, AnUnknownKeyIsItsOwnText)
{
    const QString unknown = QStringLiteral("Unknown %@ …");
    for (const AppLanguage language : kAllAppLanguages)
        EXPECT_EQ(withBaseTexts().text(unknown, language), unknown);
}

TEST(LookUpOrder, AKeyWithoutEnglishIsItsOwnTextInOtherLanguages)
{
    Translations translations;
    translations.extraData.insert(kKey, {{german, QStringLiteral("extra German")}});
    EXPECT_EQ(translations.text(kKey, german), QStringLiteral("extra German"));
    EXPECT_EQ(translations.text(kKey, english), kKey);
    EXPECT_EQ(translations.text(kKey, japanese), kKey);
}

}
