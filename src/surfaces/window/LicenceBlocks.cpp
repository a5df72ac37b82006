// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/window/LicenceBlocks.h"

#include <QRegularExpression>
#include <QStringList>
#include <algorithm>

namespace zumeta {

namespace {

bool isInTheMiddle(const QString& line)
{
    constexpr qsizetype kIndent = 10;
    const auto* const first = std::ranges::find_if(line, [](QChar sign) { return !sign.isSpace(); });
    return first - line.begin() >= kIndent;
}

QString trimmedLines(QStringList lines)
{
    for (QString& line : lines)
        line = line.trimmed();
    return lines.join(QLatin1Char('\n'));
}

QString withoutMarks(QString line)
{
    static const QRegularExpression link(QStringLiteral("\\[([^\\]]*)\\]\\([^)]*\\)"));
    static const QRegularExpression marks(QStringLiteral("`|\\*\\*"));
    return line.replace(link, QStringLiteral("\\1")).remove(marks).trimmed();
}

/// Between the head of a table and its rows.
bool isRule(const QString& line)
{
    static const QRegularExpression rule(QStringLiteral("^\\|[-:| ]+\\|$"));
    return rule.match(line).hasMatch();
}

LicenceBlock blockOfRow(const QString& line)
{
    QStringList cells = line.split(QLatin1Char('|'));
    cells = cells.mid(1, cells.size() - 2); // beside the outer bars there is nothing
    for (QString& cell : cells)
        cell = withoutMarks(cell);
    return {cells.value(0), cells.mid(1).join(QLatin1Char('\n'))};
}

/// Gathers lines until their paragraph ends.
class MarkdownReader {
public:
    void read(const QString& line)
    {
        if (line.startsWith(QLatin1Char('|')))
            return readRow(line);
        if (line.isEmpty() || line.startsWith(QLatin1String("<!--")))
            return endParagraph();
        if (line.startsWith(QLatin1Char('#'))) {
            endParagraph();
            const auto* const words = std::ranges::find_if(line, [](QChar sign) { return sign != QLatin1Char('#'); });
            m_blocks.push_back({withoutMarks(line.mid(words - line.begin())), {}});
            return;
        }
        if (line.startsWith(QLatin1String("- ")))
            endParagraph();
        m_paragraph << line;
    }
    std::vector<LicenceBlock> end()
    {
        endParagraph();
        return std::move(m_blocks);
    }

private:
    void readRow(const QString& line)
    {
        endParagraph();
        if (isRule(line) && !m_blocks.empty())
            m_blocks.pop_back(); // the head says what the rows say by themselves
        else
            m_blocks.push_back(blockOfRow(line));
    }
    void endParagraph()
    {
        if (!m_paragraph.empty())
            m_blocks.push_back({{}, withoutMarks(m_paragraph.join(QLatin1Char(' ')))});
        m_paragraph.clear();
    }

    std::vector<LicenceBlock> m_blocks;
    QStringList m_paragraph;
};

}

std::vector<LicenceBlock> blocksOfPlainText(const QString& text)
{
    std::vector<LicenceBlock> blocks;
    QStringList paragraph;
    const auto end = [&] {
        const bool isHeading = std::ranges::all_of(paragraph, isInTheMiddle);
        if (!paragraph.empty() && isHeading)
            blocks.push_back({trimmedLines(paragraph), {}});
        else if (!paragraph.empty())
            blocks.push_back({{}, trimmedLines(paragraph)});
        paragraph.clear();
    };
    for (const QString& line : text.split(QLatin1Char('\n'))) {
        if (line.trimmed().isEmpty())
            end();
        else
            paragraph << line;
    }
    end();
    return blocks;
}

std::vector<LicenceBlock> blocksOfMarkdown(const QString& text)
{
    MarkdownReader reader;
    for (const QString& line : text.split(QLatin1Char('\n')))
        reader.read(line.trimmed());
    return reader.end();
}

}
