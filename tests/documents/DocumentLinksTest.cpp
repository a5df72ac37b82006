// SPDX-License-Identifier: GPL-3.0-or-later
#include "Markdown.h"

#include <QImageReader>
#include <QSet>
#include <gmock/gmock.h>

namespace zumeta::test {

namespace {

bool leadsAway(const QString& link)
{
    return link.contains(QLatin1String("://"));
}

/// The place in the project that a link of this document leads to.
std::filesystem::path targetOf(const QString& link, const std::filesystem::path& document)
{
    const QString path = link.section(QLatin1Char('#'), 0, 0);
    return path.isEmpty() ? document : (document.parent_path() / path.toStdString()).lexically_normal();
}

}

TEST(Documents, EveryLinkLeadsSomewhere)
{
    ASSERT_GE(documents().size(), 20u);
    for (const std::filesystem::path& document : documents()) {
        for (const QString& link : Markdown(document).links()) {
            if (leadsAway(link))
                continue;
            const std::filesystem::path target = targetOf(link, document);
            ASSERT_TRUE(std::filesystem::exists(projectFolder() / target)) << document << ": " << link.toStdString();
            const QString anchor = link.section(QLatin1Char('#'), 1);
            EXPECT_TRUE(anchor.isEmpty() || Markdown(target).anchors().contains(anchor))
                << document << ": " << link.toStdString();
        }
    }
}

TEST(Documents, EveryPictureIsShownAndCanBe)
{
    QSet<QString> shown;
    for (const std::filesystem::path& document : documents()) {
        for (const QString& link : Markdown(document).links())
            shown << QString::fromStdString(targetOf(link, document));
    }
    for (const auto& entry : std::filesystem::directory_iterator(projectFolder() / "docs/pictures")) {
        const QString name = QStringLiteral("docs/pictures/") + QString::fromStdString(entry.path().filename());
        EXPECT_TRUE(shown.contains(name)) << name.toStdString();
        EXPECT_TRUE(QImageReader(QString::fromStdString(entry.path())).canRead()) << name.toStdString();
        // They are cloned by everybody.
        EXPECT_LT(entry.file_size(), 300'000u) << name.toStdString();
    }
}

}
