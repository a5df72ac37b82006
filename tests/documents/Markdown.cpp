// SPDX-License-Identifier: GPL-3.0-or-later
#include "Markdown.h"

#include <QFile>
#include <QRegularExpression>
#include <algorithm>
#include <stdexcept>

namespace zumeta::test {

namespace {

QStringList firstGroups(const QString& text, const QString& pattern)
{
    QStringList found;
    for (auto match = QRegularExpression(pattern, QRegularExpression::MultilineOption).globalMatch(text);
         match.hasNext();)
        found << match.next().captured(1).simplified();
    return found;
}

/// Without what stands in blocks of code, which have hashes and stars of their own.
QString proseOf(QString text)
{
    static const QRegularExpression block(QStringLiteral("^```.*?^```$"),
                                          QRegularExpression::MultilineOption |
                                              QRegularExpression::DotMatchesEverythingOption);
    return text.remove(block);
}

}

std::filesystem::path projectFolder()
{
    return PROJECT_FOLDER;
}

std::vector<std::filesystem::path> documents()
{
    std::vector<std::filesystem::path> found;
    const auto take = [&](const std::filesystem::path& file) {
        if (file.extension() == ".md")
            found.push_back(std::filesystem::relative(file, projectFolder()));
    };
    for (const auto& entry : std::filesystem::directory_iterator(projectFolder()))
        take(entry.path());
    for (const auto& entry : std::filesystem::recursive_directory_iterator(projectFolder() / "docs"))
        take(entry.path());
    std::ranges::sort(found);
    return found;
}

Markdown::Markdown(const std::filesystem::path& name)
{
    QFile file(projectFolder() / name);
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error("cannot read " + name.string());
    m_text = QString::fromUtf8(file.readAll());
}

QString Markdown::section(const QString& heading) const
{
    const QRegularExpression head(QStringLiteral("^#+ %1\n").arg(QRegularExpression::escape(heading)),
                                  QRegularExpression::MultilineOption);
    const QRegularExpressionMatch match = head.match(m_text);
    if (!match.hasMatch())
        return {};
    const QString rest = m_text.mid(match.capturedEnd());
    static const QRegularExpression next(QStringLiteral("^#+ "), QRegularExpression::MultilineOption);
    return rest.left(rest.indexOf(next));
}

std::vector<QStringList> Markdown::rows(const QString& heading) const
{
    std::vector<QStringList> found;
    int line = 0; // of the table
    for (const QString& text : section(heading).split(QLatin1Char('\n'))) {
        line = text.startsWith(QLatin1Char('|')) ? line + 1 : 0;
        if (line < 3) // its head and the rule below that
            continue;
        QStringList cells;
        for (const QString& cell : text.mid(1, text.lastIndexOf(QLatin1Char('|')) - 1).split(QLatin1Char('|')))
            cells << cell.trimmed();
        found.push_back(cells);
    }
    return found;
}

QStringList Markdown::boldWords() const
{
    QStringList words = firstGroups(proseOf(m_text), QStringLiteral("\\*\\*([^*]+)\\*\\*"));
    words.removeDuplicates();
    return words;
}

QStringList Markdown::commands() const
{
    QStringList lines;
    bool isCode = false;
    for (const QString& line : m_text.split(QLatin1Char('\n'))) {
        if (line.startsWith(QLatin1String("```")))
            isCode = !isCode;
        else if (isCode)
            lines << line;
    }
    return lines;
}

QStringList Markdown::links() const
{
    return firstGroups(proseOf(m_text), QStringLiteral("\\]\\(([^)]+)\\)"));
}

QStringList Markdown::anchors() const
{
    QStringList anchors;
    for (QString heading : firstGroups(proseOf(m_text), QStringLiteral("^#+ (.+)$"))) {
        static const QRegularExpression sign(QStringLiteral("[^\\w -]"),
                                             QRegularExpression::UseUnicodePropertiesOption);
        anchors << heading.toLower().remove(sign).replace(QLatin1Char(' '), QLatin1Char('-'));
    }
    return anchors;
}

}
