// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QStringList>
#include <filesystem>
#include <vector>

namespace zumeta::test {

/// The project's own folder.
std::filesystem::path projectFolder();
/// Every document of the project, by its path within it.
std::vector<std::filesystem::path> documents();

/// A document of the project. Throws std::runtime_error when it cannot be read.
class Markdown {
public:
    explicit Markdown(const std::filesystem::path& name);

    const QString& text() const { return m_text; }
    /// What stands under a heading, up to the next one of any rank. Empty without it.
    QString section(const QString& heading) const;
    /// The rows of the section's tables without their heads, each a list of its cells.
    std::vector<QStringList> rows(const QString& heading) const;
    /// What stands in bold, once each.
    QStringList boldWords() const;
    /// The lines of all blocks of code.
    QStringList commands() const;
    /// Where links and pictures lead.
    QStringList links() const;
    /// The headings, as a link into the document names them.
    QStringList anchors() const;

private:
    QString m_text;
};

}
