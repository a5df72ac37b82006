// SPDX-License-Identifier: GPL-3.0-or-later
#include "InstalledFiles.h"
#include "platform/BundleInfo.h"
#include "platform/LegalLinks.h"
#include "support/ChildProcess.h"

#include <QImageReader>
#include <QMap>
#include <QXmlStreamReader>
#include <gmock/gmock.h>

namespace zumeta::test {

namespace {

const std::string kName = std::string("share/metainfo/") + kApplicationId + ".metainfo.xml";

struct Element {
    QString parent;
    QMap<QString, QString> attributes;
    QString text;
};

/// All elements by their names, in the file's order.
QMultiMap<QString, Element> elements()
{
    QMultiMap<QString, Element> found;
    QXmlStreamReader reader(contentOf(installed(kName)));
    std::vector<std::pair<QString, Element>> open;
    while (!reader.atEnd()) {
        reader.readNext();
        if (reader.isStartElement()) {
            Element element{open.empty() ? QString() : open.back().first, {}, {}};
            for (const QXmlStreamAttribute& attribute : reader.attributes())
                element.attributes.insert(attribute.qualifiedName().toString(), attribute.value().toString());
            open.emplace_back(reader.name().toString(), element);
        } else if (reader.isCharacters() && !open.empty()) {
            open.back().second.text += reader.text();
        } else if (reader.isEndElement()) {
            found.insert(open.back().first, open.back().second);
            open.pop_back();
        }
    }
    return found;
}

Element only(const QString& name)
{
    const QList<Element> found = elements().values(name);
    return found.size() == 1 ? found.front() : Element();
}

QString page(const QString& kind)
{
    for (const Element& url : elements().values(QStringLiteral("url"))) {
        if (url.attributes.value(QStringLiteral("type")) == kind)
            return url.text;
    }
    return {};
}

}

TEST(Metainfo, IsValid)
{
    const ProcessResult result = runProcess({"appstreamcli",
                                             {"validate", "--strict", "--no-net", "--no-color", installed(kName)},
                                             std::chrono::seconds(30),
                                             {},
                                             {}});
    EXPECT_EQ(result.exitCode, 0) << result.out.toStdString() << result.err.toStdString();
}

TEST(Metainfo, BelongsToTheDesktopEntry)
{
    EXPECT_EQ(only(QStringLiteral("id")).text, QString::fromLatin1(kApplicationId));
    EXPECT_EQ(only(QStringLiteral("launchable")).text, QString::fromLatin1(kApplicationId) + QLatin1String(".desktop"));
    EXPECT_TRUE(std::filesystem::exists(installed("share/applications/com.zumetaapp.Zumeta.desktop")));
    QStringList programs;
    for (const Element& program : elements().values(QStringLiteral("binary")))
        programs << program.text;
    EXPECT_THAT(programs, ::testing::UnorderedElementsAre(QStringLiteral("zumeta"), QStringLiteral("zumeta-render")));
}

TEST(Metainfo, TellsTheVersionAndTheDayOfThisBuild)
{
    const Element release = only(QStringLiteral("release"));
    EXPECT_EQ(release.attributes.value(QStringLiteral("version")), *BundleInfo::main().shortVersion);
    EXPECT_EQ(release.attributes.value(QStringLiteral("date")), QStringLiteral(RELEASE_DATE));
}

TEST(Metainfo, SpeaksNineLanguages)
{
    const QMultiMap<QString, Element> all = elements();
    QMap<QString, int> texts; // of each language
    for (const auto& [name, parent] :
         {std::pair("summary", "component"), {"p", "description"}, {"caption", "screenshot"}}) {
        for (const Element& element : all.values(QString::fromLatin1(name))) {
            if (element.parent != QLatin1String(parent) || element.text.contains(QLatin1String("first release")))
                continue;
            EXPECT_FALSE(element.text.trimmed().isEmpty()) << name;
            ++texts[element.attributes.value(QStringLiteral("xml:lang"), QStringLiteral("en"))];
        }
    }
    EXPECT_GE(texts.value(QStringLiteral("en")), 5);
    EXPECT_EQ(texts.size(), qsizetype(std::size(kOtherLanguages)) + 1);
    for (const char* const language : kOtherLanguages)
        EXPECT_EQ(texts.value(QString::fromLatin1(language)), texts.value(QStringLiteral("en"))) << language;
}

TEST(Metainfo, ItsPagesAreThoseOfTheHelpMenu)
{
    const LegalLinks links = LegalLinks::configuredIn(BundleInfo::main());
    EXPECT_EQ(page(QStringLiteral("help")), links.support.toString());
    EXPECT_EQ(QUrl(page(QStringLiteral("homepage"))).host(), QStringLiteral("zumeta.example"));
}

TEST(Metainfo, ItsPicturesAreThoseOfTheDocuments)
{
    const QString site = page(QStringLiteral("homepage")) + QLatin1String("/pictures/");
    const QList<Element> images = elements().values(QStringLiteral("image"));
    EXPECT_GE(images.size(), 3);
    for (const Element& image : images) {
        ASSERT_TRUE(image.text.startsWith(site)) << image.text.toStdString();
        const std::filesystem::path file =
            std::filesystem::path(PROJECT_FOLDER) / "docs/pictures" / image.text.mid(site.size()).toStdString();
        const QSize size = QImageReader(QString::fromStdString(file)).size();
        // Catalogues want wide pictures that are no smaller than this.
        EXPECT_GE(size.width(), 1000) << file;
        EXPECT_GE(size.height(), 620) << file;
    }
}

}
