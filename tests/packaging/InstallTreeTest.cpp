// SPDX-License-Identifier: GPL-3.0-or-later
#include "InstalledFiles.h"
#include "platform/BundleInfo.h"
#include "support/ChildProcess.h"
#include "support/FootageMaker.h"
#include "support/MovieProbe.h"
#include "support/TemporaryFolder.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <gmock/gmock.h>

namespace zumeta::test {

namespace {

const std::string kIcons = "share/icons/hicolor/";

/// The share of a channel's full value by which two pictures of one size differ on the average.
double meanDifference(const QImage& first, const QImage& second)
{
    double sum = 0;
    for (int y = 0; y < first.height(); ++y) {
        for (int x = 0; x < first.width(); ++x) {
            const QColor a = first.pixelColor(x, y);
            const QColor b = second.pixelColor(x, y);
            sum += std::abs(a.redF() - b.redF()) + std::abs(a.greenF() - b.greenF()) + std::abs(a.blueF() - b.blueF()) +
                   std::abs(a.alphaF() - b.alphaF());
        }
    }
    return sum / (4.0 * first.width() * first.height());
}

}

TEST(InstallTree, HoldsTheseFilesAndNoOther)
{
    EXPECT_THAT(installedNames(),
                ::testing::UnorderedElementsAre("bin/zumeta", "bin/zumeta-render",
                                                "share/applications/com.zumetaapp.Zumeta.desktop", //
                                                "share/doc/zumeta/THIRD-PARTY.md",                 //
                                                "share/doc/zumeta/changelog.Debian.gz",            //
                                                "share/doc/zumeta/changelog.gz",                   //
                                                "share/doc/zumeta/copyright",                      //
                                                "share/icons/hicolor/128x128/apps/com.zumetaapp.Zumeta.png",
                                                "share/icons/hicolor/256x256/apps/com.zumetaapp.Zumeta.png",
                                                "share/icons/hicolor/48x48/apps/com.zumetaapp.Zumeta.png",
                                                "share/icons/hicolor/scalable/apps/com.zumetaapp.Zumeta.svg",
                                                "share/man/man1/zumeta-render.1.gz", "share/man/man1/zumeta.1.gz",
                                                "share/metainfo/com.zumetaapp.Zumeta.metainfo.xml"));
}

TEST(InstallTree, ProgramsNeedNothingOfTheBuild)
{
    for (const char* const program : {"bin/zumeta", "bin/zumeta-render"}) {
        const QByteArray headers =
            runOrThrow({"readelf", {"-d", installed(program)}, std::chrono::seconds(20), {}, {}});
        EXPECT_TRUE(headers.contains("NEEDED")) << program;
        EXPECT_FALSE(headers.contains("RPATH") || headers.contains("RUNPATH")) << program;
    }
}

TEST(InstallTree, TheInstalledToolWritesTheVersionIntoItsMovie)
{
    const TemporaryFolder folder;
    FootageSpec below;
    below.side = Side::below;
    const ProcessResult result = runProcess({installed("bin/zumeta-render"),
                                             {"--above", FootageMaker::make({}), "--below", FootageMaker::make(below),
                                              "--quiet", "--resolution", "720p", folder.file("swim.mp4")},
                                             std::chrono::seconds(60),
                                             {},
                                             {}});
    ASSERT_EQ(result.exitCode, 0) << result.err.toStdString();
    const BundleInfo& bundle = BundleInfo::main();
    const QString software = QStringLiteral("Zumeta %1 (%2)").arg(*bundle.shortVersion, *bundle.buildNumber);
    EXPECT_EQ(MovieProbe::facts(folder.file("swim.mp4")).tag("com.apple.quicktime.software"), software.toStdString());
}

TEST(InstallTree, TheChangesOfThePackageTellVersionBuildAndDay)
{
    const BundleInfo& bundle = BundleInfo::main();
    const QByteArray changes = unzippedContentOf(installed("share/doc/zumeta/changelog.Debian.gz"));
    EXPECT_TRUE(
        changes.startsWith(QStringLiteral("zumeta (%1-%2) ").arg(*bundle.shortVersion, *bundle.buildNumber).toUtf8()))
        << changes.toStdString();
    const QByteArray day =
        runOrThrow({"date", {"--utc", "--rfc-email", "--date=" RELEASE_DATE}, std::chrono::seconds(10), {}, {}});
    EXPECT_TRUE(changes.contains("  " + day)) << changes.toStdString();
    EXPECT_EQ(unzippedContentOf(installed("share/doc/zumeta/changelog.gz")),
              contentOf(std::filesystem::path(PROJECT_FOLDER) / "CHANGELOG.md"));
}

TEST(InstallTree, TheSmallIconsArePicturesOfTheScalableOne)
{
    QSvgRenderer drawing(contentOf(installed(kIcons + "scalable/apps/com.zumetaapp.Zumeta.svg")));
    ASSERT_TRUE(drawing.isValid());
    for (const int size : {48, 128, 256}) {
        const std::string name = std::to_string(size) + "x" + std::to_string(size);
        const QImage icon(QString::fromStdString(installed(kIcons + name + "/apps/com.zumetaapp.Zumeta.png")));
        ASSERT_EQ(icon.size(), QSize(size, size)) << name;
        QImage drawn(size, size, QImage::Format_ARGB32);
        drawn.fill(Qt::transparent);
        QPainter painter(&drawn);
        drawing.render(&painter);
        painter.end();
        // Two programs smooth edges differently, and nothing else.
        EXPECT_LT(meanDifference(icon, drawn), 0.01) << name;
        EXPECT_EQ(icon.pixelColor(0, 0).alpha(), 0) << name;
    }
}

}
