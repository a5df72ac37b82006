// SPDX-License-Identifier: GPL-3.0-or-later
#include "languages/EnglishTexts.h"
#include "languages/Translations.h"

#include <QRegularExpression>
#include <QSet>
#include <gtest/gtest.h>

namespace zumeta {
namespace {

using enum AppLanguage;

/// Every key with each language's own text, without the fall back to English.
template <typename Check> void forEachText(Check check)
{
    for (const test::EnglishText& english : test::englishTexts()) {
        const QString key = english.keyString();
        for (const AppLanguage language : kAllAppLanguages) {
            const Translations& table = Translations::compiled();
            const QString text = table.extraData.value(key).value(language, table.data.value(key).value(language));
            SCOPED_TRACE(testing::Message() << key.toStdString() << " in " << rawValue(language).toStdString());
            check(english, language, text);
        }
    }
}

QStringList placeholders(const QString& text)
{
    static const QRegularExpression pattern(QStringLiteral("%(@|d|\\.\\d+f|.|$)"));
    QStringList found;
    for (auto matches = pattern.globalMatch(text); matches.hasNext();)
        found << matches.next().captured();
    return found;
}

}

TEST(TextTable, Has212DifferentKeys)
{
    QSet<QString> keys;
    for (const test::EnglishText& english : test::englishTexts())
        keys.insert(english.keyString());
    EXPECT_EQ(test::englishTexts().size(), 212U);
    EXPECT_EQ(keys.size(), 212);
}

TEST(TextTable, HoldsTheseKeysAndNoOther)
{
    QSet<QString> keys;
    for (const test::EnglishText& english : test::englishTexts())
        keys.insert(english.keyString());
    const QStringList data = Translations::compiled().data.keys();
    const QStringList extraData = Translations::compiled().extraData.keys();
    for (const QString& key : data)
        EXPECT_TRUE(keys.contains(key)) << key.toStdString();
    EXPECT_EQ(data.size(), keys.size());
    EXPECT_EQ(QSet<QString>(extraData.begin(), extraData.end()), QSet<QString>(data.begin(), data.end()));
}

TEST(TextTable, EachTableHoldsItsOwnLanguagesAlone)
{
    for (const auto& texts : Translations::compiled().data) {
        for (const AppLanguage extra : {french, german, italian})
            EXPECT_FALSE(texts.contains(extra));
        EXPECT_TRUE(texts.contains(english) && texts.contains(japanese));
    }
    for (const auto& texts : Translations::compiled().extraData) {
        for (const AppLanguage base : {english, japanese, chinese, korean, portuguese, spanish})
            EXPECT_FALSE(texts.contains(base));
    }
}

TEST(TextTable, EveryKeyReadsItsEnglishText)
{
    for (const test::EnglishText& expected : test::englishTexts())
        EXPECT_EQ(Translations::compiled().text(expected.keyString(), english), expected.textString());
}

TEST(TextTable, EveryKeyHasATextInAllNineLanguages)
{
    forEachText([](const auto&, AppLanguage, const QString& text) { EXPECT_FALSE(text.trimmed().isEmpty()); });
}

TEST(TextTable, PlaceholdersAreThoseOfTheEnglishTextInTheSameOrder)
{
    int filled = 0;
    forEachText([&filled](const test::EnglishText& english, AppLanguage, const QString& text) {
        EXPECT_EQ(placeholders(text), placeholders(english.textString()));
        filled += placeholders(text).isEmpty() ? 0 : 1;
    });
    EXPECT_EQ(filled, 6 * 9) << "six keys are templates";
}

TEST(TextTable, KeyboardLettersStayWithTheirButtons)
{
    static const QRegularExpression letter(QStringLiteral("\\([A-Z]\\)$"));
    int lettered = 0;
    forEachText([&lettered](const test::EnglishText& english, AppLanguage, const QString& text) {
        const QString expected = letter.match(english.textString()).captured();
        EXPECT_EQ(letter.match(text).captured(), expected);
        lettered += expected.isEmpty() ? 0 : 1;
    });
    EXPECT_EQ(lettered, 6 * 9) << "M, I, O, K, J and L";
}

TEST(TextTable, NamesOfProductsStayAsTheyAre)
{
    forEachText([](const test::EnglishText& english, AppLanguage, const QString& text) {
        for (const char* name : {"Zumeta", "GoPro", "Insta360", "PoC", "16:9", "4:3"})
            EXPECT_EQ(text.count(QLatin1String(name)), english.textString().count(QLatin1String(name))) << name;
    });
}

TEST(TextTable, NumbersOfTheEnglishTextStandInEveryLanguage)
{
    static const QRegularExpression digits(QStringLiteral("(?<![.%])\\d+"));
    forEachText([](const test::EnglishText& english, AppLanguage, const QString& text) {
        for (auto matches = digits.globalMatch(english.textString()); matches.hasNext();) {
            const QString number = matches.next().captured();
            EXPECT_TRUE(text.contains(number)) << number.toStdString();
        }
    });
}

TEST(TextTable, OnlyTextsKnownToBeTheSameEverywhereReadLikeEnglish)
{
    const QHash<AppLanguage, const char*> sameAsEnglish = {
        {japanese, "Menu.ZumetaApp|OK"},
        {chinese, "Menu.ZumetaApp"},
        {korean, "Menu.ZumetaApp"},
        {portuguese, "Menu.ZumetaApp|OK|Window Zoom|Zoom|seconds"},
        {spanish, "Error Format|Menu.ZumetaApp|Window Zoom|Zoom|seconds"},
        {french, "Menu.ZumetaApp|OK|Window Zoom|Zoom|seconds"},
        {german, "Menu.ZumetaApp|OK|Timing|Zoom|seconds"},
        {italian, "Menu.File|Menu.ZumetaApp|OK|Privacy Policy|Window Zoom|Zoom|seconds"},
    };
    QHash<AppLanguage, QStringList> found;
    forEachText([&found](const test::EnglishText& english, AppLanguage language, const QString& text) {
        if (language != AppLanguage::english && text == english.textString())
            found[language] << english.keyString();
    });
    for (const AppLanguage language : kAllAppLanguages) {
        QStringList keys = found.value(language);
        keys.sort();
        EXPECT_EQ(keys.join(u'|'), QLatin1String(sameAsEnglish.value(language))) << rawValue(language).toStdString();
    }
}

}
