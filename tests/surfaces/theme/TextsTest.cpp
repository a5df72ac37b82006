// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/theme/Texts.h"
#include "languages/LanguageManager.h"
#include "support/MemoryUserDefaults.h"
#include "surfaces/theme/Typography.h"

#include <QFontMetricsF>

#include <gmock/gmock.h>

namespace zumeta {
namespace {

struct Languages : testing::Test {
    test::MemoryUserDefaults defaults;
    LanguageManager manager{defaults, [] { return QStringList{QStringLiteral("de-DE")}; }};
    Texts texts{manager};
    Typography typography{manager};
};

TEST_F(Languages, AreOfferedAfterTheDevicesOwnEachByItsOwnName)
{
    ASSERT_EQ(texts.languages().size(), 10);
    EXPECT_EQ(texts.languages()[0], manager.localized(QStringLiteral("Use Device Language")));
    EXPECT_EQ(texts.languages()[1], rawValue(AppLanguage::japanese));
    EXPECT_EQ(texts.languages()[9], rawValue(AppLanguage::italian));
}

TEST_F(Languages, StartWithTheDevicesOwn)
{
    EXPECT_EQ(texts.chosenLanguage(), 0);
    EXPECT_EQ(manager.currentLanguage(), AppLanguage::german);
}

TEST_F(Languages, ChangeAtOnceAndAreTold)
{
    int told = 0;
    QObject::connect(&texts, &Texts::languageChanged, [&] { ++told; });
    const int revision = texts.revision();
    texts.chooseLanguage(1);
    EXPECT_EQ(manager.currentLanguage(), AppLanguage::japanese);
    EXPECT_EQ(texts.chosenLanguage(), 1);
    EXPECT_GT(texts.revision(), revision);
    EXPECT_GE(told, 1);
    EXPECT_EQ(texts.localized(QStringLiteral("Start")), manager.localized(QStringLiteral("Start")));
}

TEST_F(Languages, GoBackToTheDevicesOwn)
{
    texts.chooseLanguage(5);
    texts.chooseLanguage(0);
    EXPECT_TRUE(manager.usesSystemLanguage());
    EXPECT_EQ(texts.chosenLanguage(), 0);
    EXPECT_EQ(manager.currentLanguage(), AppLanguage::german);
}

TEST_F(Languages, IgnoreAChoiceThatIsNotOffered)
{
    texts.chooseLanguage(10);
    EXPECT_EQ(texts.chosenLanguage(), 0);
}

TEST_F(Languages, ChooseTheFontOfTheirCharacters)
{
    EXPECT_EQ(typography.body().families().constFirst(), QStringLiteral("Inter"));
    for (const auto& [index, family] :
         {std::pair(1, "Noto Sans CJK JP"), {3, "Noto Sans CJK SC"}, {4, "Noto Sans CJK KR"}}) {
        texts.chooseLanguage(index);
        EXPECT_TRUE(typography.body().families().contains(QLatin1String(family))) << family;
        EXPECT_EQ(typography.bodyStrong().weight(), QFont::Bold);
        EXPECT_EQ(typography.extraLineHeight(), 2);
        EXPECT_EQ(typography.wordmark().letterSpacing(), 0);
    }
    texts.chooseLanguage(8);
    EXPECT_EQ(typography.bodyStrong().weight(), QFont::DemiBold);
    EXPECT_EQ(typography.extraLineHeight(), 0);
    EXPECT_NEAR(typography.wordmark().letterSpacing(), -0.6, 0.01); // fonts keep it in 64ths
}

TEST_F(Languages, LeaveTheDigitsThatRunInAFontOfTheirOwn)
{
    EXPECT_EQ(typography.time().families().constFirst(), QStringLiteral("Zumeta Digits"));
    const QFontMetricsF metrics(typography.time());
    for (const QChar digit : QStringLiteral("0123456789"))
        EXPECT_NEAR(metrics.horizontalAdvance(digit), metrics.horizontalAdvance(QLatin1Char('0')), 1.0 / 64);
}

}
}
