// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/window/LicenceBlocks.h"

#include <gmock/gmock.h>
#include <ostream>

namespace zumeta {

static void PrintTo(const LicenceBlock& block, std::ostream* out)
{
    *out << '[' << block.title.toStdString() << "] " << block.words.toStdString();
}

namespace {

using testing::ElementsAre;

LicenceBlock titled(const char* title, const char* words = "")
{
    return {QString::fromUtf8(title), QString::fromUtf8(words)};
}
LicenceBlock words(const char* words)
{
    return titled("", words);
}
std::vector<LicenceBlock> ofPlainText(const char* text)
{
    return blocksOfPlainText(QString::fromUtf8(text));
}
std::vector<LicenceBlock> ofMarkdown(const char* text)
{
    return blocksOfMarkdown(QString::fromUtf8(text));
}

TEST(PlainLicence, IsSplitAtEmptyLinesAndKeepsItsOwn)
{
    EXPECT_THAT(ofPlainText("one\ntwo\n\n  1. Three.\n \n\nfour"),
                ElementsAre(words("one\ntwo"), words("1. Three."), words("four")));
}

TEST(PlainLicence, WhatStandsInTheMiddleIsAHeading)
{
    EXPECT_THAT(ofPlainText("              A LICENCE\n           Version 3\n\n    indented\n"),
                ElementsAre(titled("A LICENCE\nVersion 3"), words("indented")));
}

TEST(PlainLicence, OfNothingIsNothing)
{
    EXPECT_TRUE(ofPlainText("").empty());
    EXPECT_TRUE(ofPlainText("\n\n  \n").empty());
}

TEST(Markdown, HasHeadingsAndParagraphsOnOneLine)
{
    EXPECT_THAT(ofMarkdown("<!-- a comment -->\n# Title\n\none\ntwo\n\nthree\n## Next\nfour"),
                ElementsAre(titled("Title"), words("one two"), words("three"), titled("Next"), words("four")));
}

TEST(Markdown, RowsOfATableAreBlocksAndItsHeadIsNone)
{
    EXPECT_THAT(ofMarkdown("before\n| Name | Licence |\n|---|:--|\n| A | free, `or` not |\n| B | other |\nafter"),
                ElementsAre(words("before"), titled("A", "free, or not"), titled("B", "other"), words("after")));
}

TEST(Markdown, RowsOfMoreCellsHaveALineForEach)
{
    EXPECT_THAT(ofMarkdown("| A | one | two |"), ElementsAre(titled("A", "one\ntwo")));
}

TEST(Markdown, MarksWithinALineAreLeftOut)
{
    EXPECT_THAT(ofMarkdown("see **this** in `file` ([page 1](docs/1.md), [2](2.md))"),
                ElementsAre(words("see this in file (page 1, 2)")));
}

TEST(Markdown, PointsOfAListStandApart)
{
    EXPECT_THAT(ofMarkdown("- one\n  more\n- two"), ElementsAre(words("- one more"), words("- two")));
}

}
}
