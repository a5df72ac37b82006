// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Log.h"
#include "platform/SettingsFile.h"
#include "support/FileSandbox.h"
#include "support/MemoryUserDefaults.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

namespace zumeta {
namespace {

const QString kKey = QStringLiteral("UseSystemLanguage");
/// As the first-run flag's: a key may hold dots.
const QString kDottedKey = QStringLiteral("ZumetaApp.hasSeenFirstRunOnboarding.v1");

class SettingsFileTest : public testing::Test {
protected:
    QString path() const { return QString::fromStdString(m_sandbox.path() / "settings" / "ZumetaApp.ini"); }
    void writeFile(const char* content) const
    {
        std::filesystem::create_directories(m_sandbox.path() / "settings");
        std::ofstream(path().toStdString()) << content;
    }
    const test::FileSandbox& sandbox() const { return m_sandbox; }

private:
    test::FileSandbox m_sandbox;
};

/// What both kinds promise.
class AnyUserDefaults : public testing::TestWithParam<const char*> {
protected:
    UserDefaults& defaults()
    {
        return GetParam() == std::string_view("file") ? static_cast<UserDefaults&>(m_file) : m_memory;
    }

private:
    test::FileSandbox m_sandbox;
    SettingsFile m_file{QString::fromStdString(m_sandbox.path() / "ZumetaApp.ini")};
    test::MemoryUserDefaults m_memory;
};

}

INSTANTIATE_TEST_SUITE_P(UserDefaults, AnyUserDefaults, testing::Values("file", "memory"),
                         [](const auto& kind) { return std::string(kind.param); });

TEST_P(AnyUserDefaults, AValueNeverStoredIsAbsent)
{
    EXPECT_EQ(defaults().boolean(kKey), std::nullopt);
    EXPECT_EQ(defaults().string(kKey), std::nullopt);
}

TEST_P(AnyUserDefaults, GiveBackWhatWasStored)
{
    defaults().setBoolean(kKey, false);
    defaults().setBoolean(kDottedKey, true);
    defaults().setString(QStringLiteral("AppLanguage"), QStringLiteral(u"日本語"));
    EXPECT_EQ(defaults().boolean(kKey), false);
    EXPECT_EQ(defaults().boolean(kDottedKey), true);
    EXPECT_EQ(defaults().string(QStringLiteral("AppLanguage")), QStringLiteral(u"日本語"));
}

TEST_P(AnyUserDefaults, TheNewestValueCounts)
{
    defaults().setBoolean(kKey, false);
    defaults().setBoolean(kKey, true);
    EXPECT_EQ(defaults().boolean(kKey), true);
}

TEST_P(AnyUserDefaults, AnEmptyTextIsAValue)
{
    defaults().setString(kKey, QString());
    EXPECT_EQ(defaults().string(kKey), QString());
}

TEST_P(AnyUserDefaults, ARemovedValueIsAbsent)
{
    defaults().setBoolean(kKey, true);
    defaults().remove(kKey);
    defaults().remove(kDottedKey);
    EXPECT_EQ(defaults().boolean(kKey), std::nullopt);
}

TEST_P(AnyUserDefaults, ATextThatIsNeitherTrueNorFalseIsNoBoolean)
{
    defaults().setString(kKey, QStringLiteral("perhaps"));
    EXPECT_EQ(defaults().boolean(kKey), std::nullopt);
    EXPECT_EQ(defaults().string(kKey), QStringLiteral("perhaps"));
}

TEST_P(AnyUserDefaults, KeepTextsThatTheFilesOwnSignsRunThrough)
{
    const QString text = QStringLiteral("a, b; \"c\" = @Invalid() \\ %20\n[x]");
    defaults().setString(kKey, text);
    EXPECT_EQ(defaults().string(kKey), text);
}

TEST_F(SettingsFileTest, AChangeIsInTheFileAtOnce)
{
    SettingsFile writer(path());
    writer.setBoolean(kKey, false);
    writer.setString(kDottedKey, QStringLiteral(u"中文, 한국어"));

    const SettingsFile reader(path());
    EXPECT_EQ(reader.boolean(kKey), false);
    EXPECT_EQ(reader.string(kDottedKey), QStringLiteral(u"中文, 한국어"));
    EXPECT_GT(std::filesystem::file_size(path().toStdString()), 0U);
}

TEST_F(SettingsFileTest, LookingLeavesNoFileBehind)
{
    const SettingsFile reader(path());
    EXPECT_EQ(reader.boolean(kKey), std::nullopt);
    EXPECT_FALSE(std::filesystem::exists(path().toStdString()));
}

TEST_F(SettingsFileTest, ReadsAFileThatSomeoneWroteByHand)
{
    writeFile("[General]\nUseSystemLanguage=false\nAppLanguage=Deutsch\n");
    const SettingsFile reader(path());
    EXPECT_EQ(reader.boolean(kKey), false);
    EXPECT_EQ(reader.string(QStringLiteral("AppLanguage")), QStringLiteral("Deutsch"));
}

TEST_F(SettingsFileTest, AListOrAnObjectInTheFileIsAbsent)
{
    writeFile("[General]\nUseSystemLanguage=true, false\nAppLanguage=@Point(1 2)\n");
    const SettingsFile reader(path());
    EXPECT_EQ(reader.boolean(kKey), std::nullopt);
    EXPECT_EQ(reader.string(QStringLiteral("AppLanguage")), std::nullopt);
}

TEST_F(SettingsFileTest, AFileThatIsNoSettingsFileHoldsNothing)
{
    writeFile("\x7f"
              "ELF not settings at all ]]] =\n\n[[[");
    const SettingsFile reader(path());
    EXPECT_EQ(reader.boolean(kKey), std::nullopt);
}

TEST_F(SettingsFileTest, WhereNothingCanBeWrittenAChangeHoldsForThisRunAndIsLogged)
{
    // A file stands where the folder would have to be.
    std::ofstream(sandbox().path() / "settings") << "in the way";
    QStringList lines;
    const LogCapture capture([&lines](const QString& line) { lines << line; });
    SettingsFile settings(path());

    settings.setBoolean(kKey, false);

    EXPECT_EQ(settings.boolean(kKey), false);
    EXPECT_EQ(lines, QStringList{QStringLiteral("Settings could not be written to ") + path()});
}

TEST_F(SettingsFileTest, TheApplicationsOwnFileStandsInTheConfigurationFolder)
{
    qputenv("XDG_CONFIG_HOME", QByteArray::fromStdString(sandbox().path()));
    EXPECT_EQ(SettingsFile::defaultPath(), QString::fromStdString(sandbox().path() / "ZumetaApp" / "ZumetaApp.ini"));
    qunsetenv("XDG_CONFIG_HOME");
}

}
