// SPDX-License-Identifier: GPL-3.0-or-later
#include "Markdown.h"
#include "support/ChildProcess.h"
#include "zumeta-render/RenderArguments.h"

#include <QRegularExpression>
#include <QSet>
#include <gmock/gmock.h>

namespace zumeta::test {

namespace {

QSet<QString> matchesIn(const QString& text, const QString& pattern)
{
    QSet<QString> found;
    for (auto match = QRegularExpression(pattern).globalMatch(text); match.hasNext();)
        found << match.next().captured();
    return found;
}

QSet<QString> optionsIn(const QString& text)
{
    return matchesIn(text, QStringLiteral("(?<![\\w-])--[a-z][a-z-]*"));
}

QSet<QString> scriptsIn(const QString& text)
{
    return matchesIn(text, QStringLiteral("(?<![\\w/])script/[a-z]+(?![\\w./])"));
}

/// What stands in backticks and in blocks of code: the commands that a reader would try.
QStringList commandsOf(const Markdown& document)
{
    QStringList commands = document.commands();
    for (const QString& word : matchesIn(document.text(), QStringLiteral("`[^`\n]+`")))
        commands << word.mid(1, word.size() - 2);
    return commands;
}

QString helpOf(const QString& script)
{
    const ProcessResult result =
        runProcess({(projectFolder() / script.toStdString()).string(), {"--help"}, std::chrono::seconds(20), {}, {}});
    return result.exitCode == 0 ? QString::fromUtf8(result.out) : QString();
}

}

TEST(Readme, TheToolsOptionsAreThoseOfItsHelp)
{
    const QSet<QString> told = optionsIn(QString::fromUtf8(kRenderUsage));
    QSet<QString> table = optionsIn(Markdown("README.md").section(QStringLiteral("Joining your own recordings")));
    // What every program has needs no row.
    EXPECT_EQ(table + QSet<QString>{QStringLiteral("--help")}, told);
}

TEST(Readme, ListsEveryScript)
{
    QSet<QString> there;
    for (const auto& entry : std::filesystem::directory_iterator(projectFolder() / "script")) {
        if (entry.path().extension() != ".sh") // shared by the others and never run
            there << QStringLiteral("script/") + QString::fromStdString(entry.path().filename());
    }
    QSet<QString> listed;
    for (const QStringList& row : Markdown("README.md").rows(QStringLiteral("Scripts")))
        listed += scriptsIn(row.front());
    EXPECT_GE(listed.size(), 8);
    EXPECT_EQ(listed, there);
}

TEST(Documents, CommandsOfScriptsAreKnownToThem)
{
    for (const char* const name : {"README.md", "CONTRIBUTING.md", "docs/user-guide.md"}) {
        int count = 0;
        for (const QString& command : commandsOf(Markdown(name))) {
            for (const QString& script : scriptsIn(command)) {
                const QString help = helpOf(script);
                EXPECT_FALSE(help.isEmpty()) << name << ": " << script.toStdString();
                if (!command.startsWith(script))
                    continue;
                const QString own = command.section(QLatin1Char('#'), 0, 0); // a remark tells of other things
                EXPECT_TRUE(
                    (optionsIn(own) - QSet<QString>{QStringLiteral("--help")}).subtract(optionsIn(help)).isEmpty())
                    << name << ": " << command.toStdString();
                ++count;
            }
        }
        EXPECT_GT(count, 0) << name;
    }
}

TEST(Readme, ProgramsLieWhereItSays)
{
    const QString text = Markdown("README.md").text();
    EXPECT_TRUE(text.contains(QStringLiteral("build/release/" WINDOW_IN_THE_BUILD "\n")));
    // Each tool has a folder of its own in this one.
    const QString tools = QStringLiteral("build/release/" TOOL_FOLDER_IN_THE_BUILD).section(QLatin1Char('/'), 0, -2);
    EXPECT_TRUE(text.contains(QStringLiteral("`%1`").arg(tools))) << tools.toStdString();
}

TEST(Readme, ShowsTheWindowAndAComposite)
{
    const QStringList links = Markdown("README.md").links();
    EXPECT_TRUE(links.contains(QStringLiteral("docs/pictures/window.jpg")));
    EXPECT_TRUE(links.contains(QStringLiteral("docs/pictures/composite.jpg")));
    EXPECT_TRUE(links.contains(QStringLiteral("docs/user-guide.md")));
}

}
