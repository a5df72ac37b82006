// SPDX-License-Identifier: GPL-3.0-or-later
#include "InstalledFiles.h"
#include "shell/ApplicationIdentity.h"
#include "support/ChildProcess.h"

#include <QColor>
#include <QGuiApplication>
#include <QIcon>
#include <QImage>
#include <QMap>
#include <gmock/gmock.h>

namespace zumeta::test {

namespace {

const std::string kName = std::string("share/applications/") + kApplicationId + ".desktop";

/// What the entry says, by its keys: "Comment[de]".
QMap<QString, QString> entry()
{
    QMap<QString, QString> values;
    const QStringList lines = QString::fromUtf8(contentOf(installed(kName))).split(QLatin1Char('\n'));
    for (const QString& line : lines) {
        const qsizetype equals = line.indexOf(QLatin1Char('='));
        if (equals > 0 && !line.startsWith(QLatin1Char('#')))
            values.insert(line.left(equals), line.mid(equals + 1));
    }
    return values;
}

}

TEST(DesktopEntry, IsValid)
{
    const ProcessResult result =
        runProcess({"desktop-file-validate", {installed(kName)}, std::chrono::seconds(20), {}, {}});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ((result.out + result.err).toStdString(), "");
}

TEST(DesktopEntry, SpeaksNineLanguages)
{
    const QMap<QString, QString> values = entry();
    for (const char* const key : {"GenericName", "Comment", "Keywords"}) {
        QStringList texts(values.value(QString::fromLatin1(key)));
        for (const char* const language : kOtherLanguages)
            texts << values.value(QStringLiteral("%1[%2]").arg(QLatin1String(key), QLatin1String(language)));
        EXPECT_FALSE(texts.contains(QString())) << key;
        texts.removeDuplicates();
        // Two languages may happen to agree on a short name; none is left in English.
        EXPECT_GE(texts.size(), 8) << key;
        EXPECT_EQ(texts.count(values.value(QString::fromLatin1(key))), 1) << key;
    }
}

TEST(DesktopEntry, StartsTheInstalledProgram)
{
    const QMap<QString, QString> values = entry();
    EXPECT_EQ(values.value(QStringLiteral("Exec")), QStringLiteral("zumeta"));
    EXPECT_EQ(values.value(QStringLiteral("TryExec")), QStringLiteral("zumeta"));
    EXPECT_TRUE(std::filesystem::exists(installed("bin/zumeta")));
}

TEST(DesktopEntry, ClaimsNoFilesBecauseTheProgramReadsNoCommandLine)
{
    EXPECT_FALSE(entry().contains(QStringLiteral("MimeType")));
}

TEST(DesktopEntry, IsTheOneThatTheProgramNames)
{
    nameApplication();
    EXPECT_EQ(QGuiApplication::desktopFileName(), QString::fromLatin1(kApplicationId));
    // The class of its windows is the application's name on X11.
    EXPECT_EQ(entry().value(QStringLiteral("StartupWMClass")), QCoreApplication::applicationName());
}

TEST(DesktopEntry, ItsIconIsInstalled)
{
    EXPECT_EQ(entry().value(QStringLiteral("Icon")), QString::fromLatin1(kApplicationId));
    EXPECT_TRUE(std::filesystem::exists(installed("share/icons/hicolor/scalable/apps/com.zumetaapp.Zumeta.svg")));
}

TEST(DesktopEntry, TheProgramsWindowsHaveItsIcon)
{
    giveApplicationItsIcon();
    const QImage own = QGuiApplication::windowIcon().pixmap(128).toImage();
    ASSERT_EQ(own.size(), QSize(128, 128));
    const QImage installedOne(
        QString::fromStdString(installed("share/icons/hicolor/128x128/apps/com.zumetaapp.Zumeta.png")));
    // Within the disc of the sun, and within the sea.
    for (const QPoint place : {QPoint(68, 60), QPoint(64, 112)}) {
        const QColor shown = own.pixelColor(place);
        const QColor wanted = installedOne.pixelColor(place);
        EXPECT_NEAR(shown.red(), wanted.red(), 6);
        EXPECT_NEAR(shown.green(), wanted.green(), 6);
        EXPECT_NEAR(shown.blue(), wanted.blue(), 6);
    }
}

}
