// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/theme/IconProvider.h"

#include <QColor>
#include <QDir>
#include <gtest/gtest.h>

namespace zumeta {
namespace {

QImage icon(const QString& id, int size)
{
    IconProvider provider;
    QSize told;
    return provider.requestImage(id, &told, QSize(size, size));
}

/// The strongest colour of the picture, without its transparency.
QColor inkOf(const QImage& image)
{
    QColor strongest(Qt::transparent);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (const QColor colour = image.pixelColor(x, y); colour.alpha() > strongest.alpha())
                strongest = colour;
        }
    }
    return strongest;
}

TEST(Icons, AreDrawnInTheColourThatIsAskedFor)
{
    const QColor ink = inkOf(icon(QStringLiteral("globe/b6f23a"), 48));
    EXPECT_NEAR(ink.red(), 0xb6, 2);
    EXPECT_NEAR(ink.green(), 0xf2, 2);
    EXPECT_NEAR(ink.blue(), 0x3a, 2);
    EXPECT_EQ(ink.alpha(), 255);
}

TEST(Icons, MayBeTranslucent)
{
    EXPECT_NEAR(inkOf(icon(QStringLiteral("globe/80b6f23a"), 48)).alpha(), 128, 2);
}

TEST(Icons, HaveTheSizeThatIsAskedFor)
{
    EXPECT_EQ(icon(QStringLiteral("globe/ffffff"), 37).size(), QSize(37, 37));
}

TEST(Icons, ThatAreUnknownGiveNoPicture)
{
    EXPECT_TRUE(icon(QStringLiteral("nonsense/ffffff"), 24).isNull());
    EXPECT_TRUE(icon(QStringLiteral(""), 24).isNull());
}

TEST(Icons, AllShowSomething)
{
    const QStringList files = QDir(QStringLiteral(":/qt/qml/Zumeta/theme/icons")).entryList({QStringLiteral("*.svg")});
    ASSERT_GT(files.size(), 30);
    for (const QString& file : files) {
        const QString name = file.chopped(4);
        EXPECT_GT(inkOf(icon(name + QStringLiteral("/ffffff"), 24)).alpha(), 200) << name.toStdString();
    }
}

}
}
