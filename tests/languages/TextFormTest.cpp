// SPDX-License-Identifier: GPL-3.0-or-later
// How a text must look to stand in its place: short enough, and set as its language sets text.
#include "languages/EnglishTexts.h"
#include "languages/Translations.h"

#include <QRegularExpression>
#include <gtest/gtest.h>

namespace zumeta {
namespace {

using enum AppLanguage;

constexpr std::array kTranslated = {japanese, chinese, korean, portuguese, spanish, french, german, italian};

/// Width in half widths: a letter of Chinese, Japanese or Korean is as wide as two of the others.
qsizetype width(const QString& text)
{
    qsizetype cells = 0;
    for (const QChar letter : text)
        cells += letter.unicode() >= 0x2E80 ? 2 : 1;
    return cells;
}

void expectNoWiderThan(qsizetype bound, std::initializer_list<const char*> keys)
{
    for (const char* key : keys) {
        for (const AppLanguage language : kAllAppLanguages) {
            const QString name = QString::fromLatin1(key);
            const QString text = Translations::compiled().text(name, language);
            EXPECT_TRUE(Translations::compiled().data.contains(name)) << key;
            EXPECT_LE(width(text), bound) << key << ": " << text.toStdString();
        }
    }
}

/// Each translated text with its English one.
template <typename Check> void forEachTranslation(Check check)
{
    for (const test::EnglishText& english : test::englishTexts()) {
        for (const AppLanguage language : kTranslated) {
            const QString text = Translations::compiled().text(english.keyString(), language);
            SCOPED_TRACE(testing::Message() << text.toStdString() << " in " << rawValue(language).toStdString());
            check(english.textString(), language, text);
        }
    }
}

bool hasEastAsianStops(AppLanguage language)
{
    return language == japanese || language == chinese;
}

}

TEST(TextWidth, ThePillsOfTheStepBarHoldOneOrTwoShortWords)
{
    expectNoWiderThan(12, {"Above", "Below", "Adjust", "Export"});
}

TEST(TextWidth, LabelsLeaveRoomForTheValueBesideThem)
{
    expectNoWiderThan(22, {"Waterline Height", "Person Height", "Horizontal Position", "Zoom", "Timing",
                           "Boundary Blur", "Trim Start", "Trim End", "Start Cut", "Export Duration"});
    expectNoWiderThan(2, {"seconds"});
}

TEST(TextWidth, ButtonsSideBySideShareOneRow)
{
    expectNoWiderThan(18,
                      {"Loop Playback", "Slow Playback", "Unlock", "Next", "Back", "Start", "Run", "Cancel", "OK",
                       "Close", "Replace", "Select", "Restart", "Clear All Markers Confirm", "Alert.Action.Cancel"});
    expectNoWiderThan(24, {"Skip Guide", "Exporting...", "Drag Here"});
}

TEST(TextWidth, ButtonsAsWideAsThePanelFitIntoIt)
{
    expectNoWiderThan(32, {"Lock 5m Line",
                           "Go to Step 2",
                           "Go to Step 3",
                           "Go to Step 4",
                           "Reset All",
                           "Reset Above Only",
                           "Reset Below Only",
                           "Reset Adjustment Values",
                           "Reset Trim Markers",
                           "Start to Selected Marker",
                           "End to Selected Marker",
                           "Add Timeline Marker",
                           "Clear Timeline Markers",
                           "Mark Trim Start",
                           "Mark Trim End",
                           "Reset Adjustments",
                           "Choose Above Video",
                           "Choose Below Video",
                           "Choose Video File",
                           "Choose Different Video",
                           "Delete Selected Marker",
                           "Show Skeleton",
                           "Show Zumeta Mark",
                           "Select Resolution"});
}

TEST(TextWidth, ChecklistsAndAlertButtonsFitIntoOneLine)
{
    expectNoWiderThan(36, {"Check 1-1", "Check 1-2", "Check 1-3", "Check 1-4", "Check 2-1", "Alert.Action.StartOver",
                           "Alert.Action.ReconnectAboveVideo", "Alert.Action.ReconnectBelowVideo",
                           "Step 1: Above Video", "Step 2: Below Video", "Step 3: Fine Tune", "Step 4: Export",
                           "Begin First Project", "Choose Video from File"});
}

TEST(TextForm, NoTextBeginsEndsOrBreaksWithStraySpace)
{
    forEachTranslation([](const QString&, AppLanguage, const QString& text) {
        EXPECT_EQ(text, text.trimmed());
        EXPECT_FALSE(text.contains(QLatin1String("  ")));
    });
}

TEST(TextForm, QuotesAndApostrophesAreTheTypographicOnes)
{
    forEachTranslation([](const QString&, AppLanguage, const QString& text) {
        EXPECT_FALSE(text.contains(u'\'') || text.contains(u'"') || text.contains(u'`'));
    });
}

TEST(TextForm, AnEllipsisIsOneCharacterWhereEnglishHasThreeDots)
{
    forEachTranslation([](const QString& english, AppLanguage, const QString& text) {
        EXPECT_EQ(text.endsWith(QChar(0x2026)), english.endsWith(QLatin1String("...")));
        EXPECT_FALSE(text.contains(QLatin1String("...")));
    });
}

TEST(TextForm, SentencesEndAsTheEnglishOnesDo)
{
    forEachTranslation([](const QString& english, AppLanguage language, const QString& text) {
        const QString stops = hasEastAsianStops(language) ? QStringLiteral(u"。？！") : QStringLiteral(".?!");
        const qsizetype kind = QStringLiteral(".?!").indexOf(english.back());
        if (kind < 0 || english.endsWith(QLatin1String("..."))) {
            EXPECT_FALSE(stops.contains(text.back()));
        } else {
            EXPECT_EQ(text.back(), stops[kind]);
        }
    });
}

TEST(TextForm, JapaneseAndChineseUseTheirOwnStops)
{
    static const QRegularExpression western(QStringLiteral(u"[,;?!]|[^0-9][.:]|[\u3040-\u30ff\u4e00-\u9fff][.:]"));
    forEachTranslation([](const QString&, AppLanguage language, const QString& text) {
        const bool expected = hasEastAsianStops(language);
        EXPECT_FALSE(expected && western.match(QString(text).remove(QLatin1String("%.2f"))).hasMatch());
    });
}

TEST(TextForm, FrenchKeepsANoBreakSpaceBeforeItsDoubleSigns)
{
    static const QRegularExpression bare(QStringLiteral(u"[^\u00a0\\d][:;?!»]|[^\u00a0]»|«[^\u00a0]"));
    for (const test::EnglishText& english : test::englishTexts()) {
        const QString text = Translations::compiled().text(english.keyString(), french);
        EXPECT_FALSE(bare.match(text).hasMatch()) << text.toStdString();
    }
}

TEST(TextForm, SpanishOpensItsQuestionsAndExclamations)
{
    for (const test::EnglishText& english : test::englishTexts()) {
        const QString text = Translations::compiled().text(english.keyString(), spanish);
        EXPECT_EQ(text.count(u'?'), text.count(QChar(0xBF))) << text.toStdString();
        EXPECT_EQ(text.count(u'!'), text.count(QChar(0xA1))) << text.toStdString();
    }
}

TEST(TextForm, AMetreStaysWithItsNumber)
{
    static const QRegularExpression loose(QStringLiteral("5 ?m\\b"));
    for (const test::EnglishText& english : test::englishTexts()) {
        for (const AppLanguage language : {portuguese, spanish, french, german, italian}) {
            const QString text = Translations::compiled().text(english.keyString(), language);
            EXPECT_FALSE(loose.match(text).hasMatch()) << text.toStdString();
        }
    }
}

}
