// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QString>
#include <vector>

namespace zumeta {

/// A piece of a text about licences, as it is shown.
struct LicenceBlock {
    QString title; ///< a heading, or what the words below are about; may be empty
    QString words; ///< may be empty
    friend bool operator==(const LicenceBlock&, const LicenceBlock&) = default;
};

/// Of a licence as plain text: its paragraphs with their lines as they are, and what stands in the middle as headings.
std::vector<LicenceBlock> blocksOfPlainText(const QString& text);

/// Of Markdown with headings, paragraphs, lists and tables, whose rows become blocks of their own. Marks within a line
/// are left out, and of links the address.
std::vector<LicenceBlock> blocksOfMarkdown(const QString& text);

}
