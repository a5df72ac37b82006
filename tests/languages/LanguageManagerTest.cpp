// SPDX-License-Identifier: GPL-3.0-or-later
#include "languages/LanguageManager.h"
#include "support/MemoryUserDefaults.h"

#include <QLocale>
#include <gtest/gtest.h>

namespace zumeta {
namespace {

const QString kLanguageKey = QStringLiteral("AppLanguage");
const QString kFollowingKey = QStringLiteral("UseSystemLanguage");

class LanguageManagerTest : public testing::Test {
protected:
    LanguageManager manager()
    {
        return LanguageManager(userDefaults, [this] { return preferred; });
    }

    test::MemoryUserDefaults userDefaults;
    QStringList preferred = {QStringLiteral("fr-FR")};
};

/// What was announced, with the state that a listener saw at that moment.
struct Announcements {
    explicit Announcements(const LanguageManager& manager)
    {
        const auto note = [this, &manager](const char* what) {
            texts << QStringLiteral("%1 %2 %3")
                         .arg(QLatin1String(what), manager.localeIdentifier(),
                              manager.usesSystemLanguage() ? QStringLiteral("system") : QStringLiteral("picked"));
        };
        QObject::connect(&manager, &LanguageManager::currentLanguageChanged, [note] { note("language"); });
        QObject::connect(&manager, &LanguageManager::usesSystemLanguageChanged, [note] { note("following"); });
    }
    QStringList texts;
};

}

TEST_F(LanguageManagerTest, WithNothingStoredItFollowsTheSystem)
{
    const LanguageManager languages = manager();
    EXPECT_TRUE(languages.usesSystemLanguage());
    EXPECT_EQ(languages.currentLanguage(), AppLanguage::french);
    EXPECT_TRUE(userDefaults.values.isEmpty());
}

TEST_F(LanguageManagerTest, TakesTheStoredLanguageWhenItDoesNotFollowTheSystem)
{
    userDefaults.setBoolean(kFollowingKey, false);
    userDefaults.setString(kLanguageKey, QStringLiteral(u"한국어"));
    const LanguageManager languages = manager();
    EXPECT_FALSE(languages.usesSystemLanguage());
    EXPECT_EQ(languages.currentLanguage(), AppLanguage::korean);
}

TEST_F(LanguageManagerTest, FollowingTheSystemPassesOverTheStoredLanguage)
{
    userDefaults.setString(kLanguageKey, QStringLiteral(u"한국어"));
    EXPECT_EQ(manager().currentLanguage(), AppLanguage::french);
    userDefaults.setBoolean(kFollowingKey, true);
    EXPECT_EQ(manager().currentLanguage(), AppLanguage::french);
}

TEST_F(LanguageManagerTest, AStoredNameNoLongerKnownFallsToTheSystemsLanguagesAndStaysPicked)
{
    userDefaults.setBoolean(kFollowingKey, false);
    userDefaults.setString(kLanguageKey, QStringLiteral("Esperanto"));
    preferred = {QStringLiteral("sv"), QStringLiteral("de")};
    const LanguageManager languages = manager();
    EXPECT_EQ(languages.currentLanguage(), AppLanguage::german);
    EXPECT_FALSE(languages.usesSystemLanguage());
    EXPECT_EQ(userDefaults.string(kLanguageKey), QStringLiteral("Esperanto"));
}

TEST_F(LanguageManagerTest, PickedButWithNoNameStoredFallsToTheSystemsLanguages)
{
    userDefaults.setBoolean(kFollowingKey, false);
    const LanguageManager languages = manager();
    EXPECT_EQ(languages.currentLanguage(), AppLanguage::french);
    EXPECT_FALSE(languages.usesSystemLanguage());
}

TEST_F(LanguageManagerTest, WithTheSystemOutsideTheNineAndGermanSecondGermanIsChosen)
{
    preferred = {QStringLiteral("nl-NL"), QStringLiteral("de-AT"), QStringLiteral("en-US")};
    EXPECT_EQ(manager().currentLanguage(), AppLanguage::german);
}

TEST_F(LanguageManagerTest, PickingALanguageTakesEffectAndIsStored)
{
    LanguageManager languages = manager();
    languages.setLanguage(AppLanguage::portuguese);
    EXPECT_EQ(languages.currentLanguage(), AppLanguage::portuguese);
    EXPECT_FALSE(languages.usesSystemLanguage());
    EXPECT_EQ(userDefaults.boolean(kFollowingKey), false);
    EXPECT_EQ(userDefaults.string(kLanguageKey), QStringLiteral(u"Português"));
}

TEST_F(LanguageManagerTest, APickedLanguageIsThereAfterARestart)
{
    LanguageManager before = manager();
    before.setLanguage(AppLanguage::japanese);
    const LanguageManager after = manager();
    EXPECT_EQ(after.currentLanguage(), AppLanguage::japanese);
    EXPECT_FALSE(after.usesSystemLanguage());
}

TEST_F(LanguageManagerTest, ReturningToTheSystemReadsItsLanguagesAnewAndIsStored)
{
    LanguageManager languages = manager();
    languages.setLanguage(AppLanguage::japanese);
    preferred = {QStringLiteral("it-CH")};
    languages.useSystemLanguage();
    EXPECT_EQ(languages.currentLanguage(), AppLanguage::italian);
    EXPECT_TRUE(languages.usesSystemLanguage());
    EXPECT_EQ(userDefaults.boolean(kFollowingKey), true);
    // The name of the last pick stays; nothing reads it while the system is followed.
    EXPECT_EQ(userDefaults.string(kLanguageKey), QStringLiteral(u"日本語"));
}

TEST_F(LanguageManagerTest, AChangeIsAnnouncedOnceBothFieldsAgree)
{
    LanguageManager languages = manager();
    const Announcements heard(languages);
    languages.setLanguage(AppLanguage::spanish);
    languages.useSystemLanguage();
    const QStringList expected = {
        QStringLiteral("language es picked"),
        QStringLiteral("following es picked"),
        QStringLiteral("language fr system"),
        QStringLiteral("following fr system"),
    };
    EXPECT_EQ(heard.texts, expected);
}

TEST_F(LanguageManagerTest, PickingTheLanguageThatTheSystemGaveAnnouncesOnlyThePick)
{
    LanguageManager languages = manager();
    const Announcements heard(languages);
    languages.setLanguage(AppLanguage::french);
    EXPECT_EQ(heard.texts, QStringList{QStringLiteral("following fr picked")});
}

TEST_F(LanguageManagerTest, TextsChangeWithTheLanguageAtOnce)
{
    LanguageManager languages = manager();
    EXPECT_EQ(languages.localized(QStringLiteral("Cancel")), QStringLiteral("Annuler"));
    languages.setLanguage(AppLanguage::german);
    EXPECT_EQ(languages.localized(QStringLiteral("Cancel")), QStringLiteral("Abbrechen"));
    EXPECT_EQ(languages.localeIdentifier(), QStringLiteral("de"));
}

TEST_F(LanguageManagerTest, AnUnknownKeyReturnsItselfUnchanged)
{
    LanguageManager languages = manager();
    EXPECT_EQ(languages.localized(QStringLiteral(" No such Key %@ ")), QStringLiteral(" No such Key %@ "));
    EXPECT_EQ(languages.localized(QString()), QString());
}

TEST_F(LanguageManagerTest, WithNoOtherSourceTheDesktopsLanguagesAreFollowed)
{
    const QStringList desktop = QLocale::system().uiLanguages();
    ASSERT_FALSE(desktop.isEmpty());
    EXPECT_EQ(LanguageManager::systemLanguages(), desktop);
    EXPECT_EQ(LanguageManager(userDefaults).currentLanguage(), appLanguageForPreferred(desktop));
}

}
