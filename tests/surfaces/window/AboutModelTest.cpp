// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/window/AboutModel.h"

#include "platform/BundleInfo.h"
#include "surfaces/panels/ScrollRange.h"

#include <Qt>
#include <gmock/gmock.h>

namespace zumeta {
namespace {

QString textOf(const char* version, const char* number, const char* date)
{
    return versionText(BundleInfo::fromValues(QString::fromLatin1(version), QString::fromLatin1(number),
                                              {{QStringLiteral("ZumetaBuildDate"), QString::fromLatin1(date)}}));
}

TEST(VersionText, HasWhatTheBuildKnows)
{
    EXPECT_EQ(textOf("1.2.0", "34", "2026-03-14"), QStringLiteral("1.2.0 (34) · 2026-03-14"));
    EXPECT_EQ(textOf("1.2.0", "34", ""), QStringLiteral("1.2.0 (34)"));
    EXPECT_EQ(textOf("1.2.0", "", ""), QStringLiteral("1.2.0"));
}

struct About : testing::Test {
    AboutModel model{nullptr};

    QString text(int row, AboutModel::Role role) { return model.data(model.index(row), role).toString(); }
    /// Of everything that is shown.
    QString all()
    {
        QStringList texts;
        for (int row = 0; row < model.rowCount(); ++row)
            texts << text(row, AboutModel::TitleRole) << text(row, AboutModel::WordsRole);
        return texts.join(QLatin1Char(' '));
    }
};

TEST_F(About, BeginsWithWhatIsUsedOfOthers)
{
    EXPECT_EQ(text(0, AboutModel::TitleRole), QStringLiteral("What Zumeta uses of others"));
    for (const char* const library : {"Qt 6", "FFmpeg", "x264"})
        EXPECT_TRUE(all().contains(QString::fromLatin1(library))) << library;
}

TEST_F(About, HasTheWholeLicence)
{
    EXPECT_TRUE(all().contains(QStringLiteral("GNU GENERAL PUBLIC LICENSE\nVersion 3, 29 June 2007")));
    EXPECT_TRUE(all().contains(QStringLiteral("END OF TERMS AND CONDITIONS")));
    EXPECT_FALSE(all().contains(QStringLiteral("SPDX")));
}

TEST_F(About, HasTheBuildsVersion)
{
    EXPECT_EQ(model.version(), versionText(BundleInfo::main()));
    EXPECT_TRUE(model.version().startsWith(*BundleInfo::main().shortVersion));
}

TEST(ReadingByKeys, GoesByLinesAndPagesAndToTheEnds)
{
    const ScrollRange range{500, 200, 1000};
    EXPECT_EQ(range.topByKey(Qt::Key_Down), 536);
    EXPECT_EQ(range.topByKey(Qt::Key_Up), 464);
    EXPECT_EQ(range.topByKey(Qt::Key_PageDown), 664) << "a line stays in sight";
    EXPECT_EQ(range.topByKey(Qt::Key_PageUp), 336);
    EXPECT_EQ(range.topByKey(Qt::Key_Home), 0);
    EXPECT_EQ(range.topByKey(Qt::Key_End), 800);
    EXPECT_EQ(range.topByKey(Qt::Key_Return), std::nullopt);
}

TEST(ReadingByKeys, StopsAtTheEnds)
{
    EXPECT_EQ((ScrollRange{780, 200, 1000}.topByKey(Qt::Key_PageDown)), 800);
    EXPECT_EQ((ScrollRange{10, 200, 1000}.topByKey(Qt::Key_Up)), 0);
    EXPECT_EQ((ScrollRange{0, 200, 100}.topByKey(Qt::Key_End)), 0) << "all of it is seen";
}

}
}
