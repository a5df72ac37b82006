// SPDX-License-Identifier: GPL-3.0-or-later
#include "InstalledFiles.h"
#include "media/ProxyGenerator.h"
#include "platform/BundleInfo.h"
#include "platform/SettingsFile.h"
#include "zumeta-render/RenderArguments.h"

#include <QRegularExpression>
#include <QSet>
#include <gmock/gmock.h>

namespace zumeta::test {

namespace {

/// A manual page as it is written, hyphens plain.
QString page(const char* name)
{
    const QByteArray text = unzippedContentOf(installed(std::string("share/man/man1/") + name + ".1.gz"));
    return QString::fromUtf8(text).replace(QLatin1String("\\-"), QLatin1String("-"));
}

QSet<QString> optionsIn(const QString& text)
{
    static const QRegularExpression option(QStringLiteral("(?<![\\w-])--[a-z][a-z-]*"));
    QSet<QString> found;
    for (auto match = option.globalMatch(text); match.hasNext();)
        found << match.next().captured();
    return found;
}

}

TEST(ManualPages, ThereIsOneForEachProgram)
{
    for (const auto& entry : std::filesystem::directory_iterator(installed("bin"))) {
        const std::string name = entry.path().filename();
        EXPECT_TRUE(page(name.c_str()).contains(QLatin1String(".SH NAME\n") + QString::fromStdString(name))) << name;
    }
}

TEST(ManualPages, TellTheVersionAndTheDayOfThisBuild)
{
    for (const char* const name : {"zumeta", "zumeta-render"}) {
        EXPECT_TRUE(page(name).contains(QLatin1String(" 1 \"" RELEASE_DATE "\" \"Zumeta ") +
                                        *BundleInfo::main().shortVersion + QLatin1Char('"')))
            << name;
    }
}

TEST(ManualPages, TheToolsOptionsAreThoseOfItsHelp)
{
    const QSet<QString> told = optionsIn(QString::fromUtf8(kRenderUsage));
    EXPECT_GE(told.size(), 19);
    EXPECT_EQ(optionsIn(page("zumeta-render")), told);
}

TEST(ManualPages, TheWindowsFilesAreWhereItKeepsThem)
{
    const QString text = page("zumeta");
    const QString settings = SettingsFile::defaultPath();
    const QString proxies = QString::fromStdString(ProxyGenerator::defaultProxyDirectory());
    for (const auto& [variable, path] : {std::pair("$XDG_CONFIG_HOME", settings), {"$XDG_DATA_HOME", proxies}}) {
        const QString own = path.mid(path.indexOf(QLatin1String("/ZumetaApp/")));
        EXPECT_TRUE(own.startsWith(QLatin1String("/ZumetaApp/"))) << path.toStdString();
        EXPECT_TRUE(text.contains(QString::fromLatin1(variable) + own)) << own.toStdString();
    }
}

}
