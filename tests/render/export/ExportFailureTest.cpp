// SPDX-License-Identifier: GPL-3.0-or-later
#include "Exporting.h"
#include "support/FileSizeLimit.h"

#include <QElapsedTimer>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

namespace zumeta::test {

namespace {

FootageSpec film(Side side, int frames = 30)
{
    FootageSpec spec;
    spec.side = side;
    spec.frames = frames;
    return spec;
}

std::filesystem::path good(Side side)
{
    return FootageMaker::make(film(side));
}

std::filesystem::path footage(const char* name)
{
    return std::filesystem::path(ZUMETA_FOOTAGE) / name;
}

/// Exports into an empty folder, expects no file in it afterwards, and gives the error.
std::string errorOf(const ExportParameters& params)
{
    const TemporaryFolder folder;
    const ExportReport report = runExport(params, folder.file("movie.mp4"));
    EXPECT_TRUE(report.inTime);
    EXPECT_EQ(report.error().find('\n'), std::string::npos) << report.error();
    EXPECT_TRUE(folder.names().empty());
    EXPECT_THAT(report.progress, testing::Not(testing::Contains(1.0)));
    return report.error();
}

std::string errorOf(const std::filesystem::path& above, const std::filesystem::path& below)
{
    return errorOf(compositeOf({above}, {below}));
}

/// A world in which one file vanishes right after it was looked at.
ExportEnvironment goneOnceLookedAt(const std::string& name)
{
    ExportEnvironment environment;
    environment.loadAsset = [name](const FileUrl& url, const std::stop_token& stop) {
        const MediaAsset asset = MediaAsset::load(url, stop);
        if (url.lastPathComponent() == name)
            std::filesystem::remove(url.path());
        return asset;
    };
    return environment;
}

/// Lets root be nobody in particular for a while; anyone else is that already.
class WithoutPrivileges {
public:
    WithoutPrivileges()
        : m_before(geteuid())
    {
        constexpr uid_t kNobody = 65534;
        if (m_before == 0 && seteuid(kNobody) != 0)
            throw std::runtime_error("root could not become nobody");
    }
    ~WithoutPrivileges()
    {
        if (seteuid(m_before) != 0)
            std::abort(); // the tests behind would measure something else
    }
    WithoutPrivileges(const WithoutPrivileges&) = delete; // it stands for the process's one user
    WithoutPrivileges& operator=(const WithoutPrivileges&) = delete;

private:
    uid_t m_before;
};

void write(const std::filesystem::path& file, std::string_view text)
{
    std::ofstream(file) << text;
}

std::string textIn(const std::filesystem::path& file)
{
    std::ifstream stream(file);
    return {std::istreambuf_iterator<char>(stream), {}};
}

}

TEST(ExportFailure, WithoutFilesIsAMissingVideoTrack)
{
    EXPECT_EQ(errorOf(compositeOf({}, {good(Side::below)})), "Missing video track in source");
    EXPECT_EQ(errorOf(compositeOf({good(Side::above)}, {})), "Missing video track in source");
}

TEST(ExportFailure, OfASourceWithoutPictureIsAMissingVideoTrack)
{
    EXPECT_EQ(errorOf(footage("multiple-aac-tracks.mp4"), good(Side::below)), "Missing video track in source");
    EXPECT_EQ(errorOf(good(Side::above), footage("full_blocks.mkv")), "Missing video track in source");
}

TEST(ExportFailure, OfChaptersThatAllFailIsAMissingVideoTrack)
{
    EXPECT_EQ(errorOf(compositeOf({footage("hello.mp4"), footage("multiple-aac-tracks.mp4")}, {good(Side::below)})),
              "Missing video track in source");
}

TEST(ExportFailure, OfAFileThatIsNoVideoSaysSoInOneLine)
{
    const TemporaryFolder folder;
    write(folder.file("empty.mp4"), "");
    write(folder.file("text.mp4"), "not a movie at all");
    for (const std::filesystem::path& file :
         {folder.file("empty.mp4"), folder.file("text.mp4"), folder.file("missing.mp4"), footage("hello.mp4"),
          FootageMaker::truncated(footage("max-heromode.mp4"), 1'000'000), folder.path()}) {
        EXPECT_GT(errorOf(file, good(Side::below)).size(), 10u) << file;
        EXPECT_GT(errorOf(good(Side::above), file).size(), 10u) << file;
    }
}

TEST(ExportFailure, OfAnUnreadableFileSaysSo)
{
    const ExportParameters params = compositeOf({good(Side::above)}, {good(Side::below)});
    const std::filesystem::path folder = params.aboveVideoURLs.front().path().parent_path();
    const auto rights = std::filesystem::status(folder).permissions();
    std::filesystem::permissions(folder, std::filesystem::perms::none);
    std::string text;
    {
        const WithoutPrivileges noRoot; // who reads everything
        text = errorOf(params);
    }
    std::filesystem::permissions(folder, rights);
    EXPECT_THAT(text, testing::HasSubstr("Permission denied"));
}

TEST(ExportFailure, WithoutOverlapOrWithEverythingTrimmedSaysSo)
{
    ExportParameters apart = compositeOf({good(Side::above)}, {good(Side::below)});
    apart.manualSyncTimeBelow = 5;
    EXPECT_EQ(errorOf(apart), "Export failed: Export duration is zero or negative");
    ExportParameters trimmed = compositeOf({good(Side::above)}, {good(Side::below)});
    trimmed.exportTrimStartSeconds = 99;
    EXPECT_EQ(errorOf(trimmed), "Export failed: Export duration is zero or negative");
}

TEST(ExportFailure, IntoAFolderThatIsMissingOrReadOnlyIsOneLineAndLeavesNothing)
{
    const TemporaryFolder folder;
    const ExportParameters params = compositeOf({good(Side::above)}, {good(Side::below)});
    const std::filesystem::path places[] = {folder.file("missing") / "movie.mp4", "/proc/movie.mp4",
                                            "/sys/kernel/movie.mp4"};
    for (const std::filesystem::path& place : places) {
        const ExportReport report = runExport(params, place);
        EXPECT_GT(report.error().size(), 10u) << place;
        EXPECT_EQ(report.error().find('\n'), std::string::npos);
        EXPECT_FALSE(std::filesystem::exists(place));
    }
}

TEST(ExportFailure, OntoAFolderLeavesTheFolder)
{
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder.file("movie.mp4"));
    write(folder.file("movie.mp4") / "kept", "x");
    EXPECT_NE(runExport(compositeOf({good(Side::above)}, {good(Side::below)}), folder.file("movie.mp4")).error(), "");
    EXPECT_TRUE(std::filesystem::exists(folder.file("movie.mp4") / "kept"));
}

TEST(ExportFailure, OnAFullDiskTellsTheSystemsReasonAndLeavesNothing)
{
    const TemporaryFolder folder;
    FootageSpec above = film(Side::above, 120);
    above.sound = SoundSpec{};
    const ExportParameters params =
        compositeOf({FootageMaker::make(above)}, {FootageMaker::make(film(Side::below, 120))});
    for (const rlim_t bytes : {rlim_t(0), rlim_t(10'000), rlim_t(400'000)}) {
        ExportReport report;
        {
            const FileSizeLimit limit(bytes);
            report = runExport(params, folder.file("movie.mp4"));
        }
        EXPECT_TRUE(report.inTime);
        EXPECT_EQ(report.error(), "Asset writer failed: File too large") << bytes;
        EXPECT_TRUE(folder.names().empty()) << bytes;
    }
}

TEST(ExportFailure, AnOldFileIsReplacedByTheMovie)
{
    const TemporaryFolder folder;
    write(folder.file("movie.mp4"), "old");
    EXPECT_EQ(runExport(compositeOf({good(Side::above)}, {good(Side::below)}), folder.file("movie.mp4")).error(), "");
    EXPECT_EQ(MovieProbe::facts(folder.file("movie.mp4")).count("video"), 1);
}

TEST(ExportFailure, AnOldFileIsGoneAlsoWhenTheExportFailsAfterwards)
{
    const TemporaryFolder folder;
    write(folder.file("movie.mp4"), "old");
    EXPECT_NE(runExport(compositeOf({footage("hello.mp4")}, {good(Side::below)}), folder.file("movie.mp4")).error(),
              "");
    EXPECT_TRUE(folder.names().empty());
}

TEST(ExportFailure, ALinkAtTheOutputIsReplacedAndItsTargetKept)
{
    const TemporaryFolder folder;
    write(folder.file("precious"), "kept");
    std::filesystem::create_symlink(folder.file("precious"), folder.file("movie.mp4"));
    EXPECT_EQ(runExport(compositeOf({good(Side::above)}, {good(Side::below)}), folder.file("movie.mp4")).error(), "");
    EXPECT_FALSE(std::filesystem::is_symlink(folder.file("movie.mp4")));
    EXPECT_EQ(textIn(folder.file("precious")), "kept");
}

TEST(ExportFailure, OntoOneOfItsSourcesIsRefusedBeforeAnythingIsTouched)
{
    const TemporaryFolder folder;
    std::filesystem::copy_file(good(Side::above), folder.file("above.mp4"));
    std::filesystem::copy_file(good(Side::below), folder.file("below.mp4"));
    std::filesystem::copy_file(good(Side::below), folder.file("chapter.mp4"));
    std::filesystem::create_symlink(folder.file("above.mp4"), folder.file("soft.mp4"));
    std::filesystem::create_hard_link(folder.file("below.mp4"), folder.file("hard.mp4"));
    const ExportParameters params =
        compositeOf({folder.file("above.mp4")}, {folder.file("below.mp4"), folder.file("chapter.mp4")});
    const std::string before = textIn(folder.file("above.mp4")) + textIn(folder.file("below.mp4"));
    for (const char* const name :
         {"above.mp4", "below.mp4", "chapter.mp4", "soft.mp4", "hard.mp4", "../x/../above.mp4"}) {
        const std::filesystem::path output =
            std::string_view(name).starts_with("..") ? folder.path() / "." / "above.mp4" : folder.file(name);
        EXPECT_EQ(runExport(params, output).error(), "Output file already exists") << name;
    }
    EXPECT_EQ(textIn(folder.file("above.mp4")) + textIn(folder.file("below.mp4")), before);
    EXPECT_EQ(folder.names().size(), 5u);
}

TEST(ExportFailure, ACancelledExportWasRunningEndsWithinASecondAndLeavesNothing)
{
    const TemporaryFolder folder;
    FootageSpec above = film(Side::above, 900);
    above.scene = Scene::plain;
    above.sound = SoundSpec{};
    FootageSpec below = above;
    below.side = Side::below;
    ExportParameters params = compositeOf({FootageMaker::make(above)}, {FootageMaker::make(below)});
    params.resolution = ExportResolutionType::hd1080;
    QElapsedTimer sinceCancel;
    uintmax_t sizeWhenCancelled = 0;
    const ExportReport report =
        runExport(params, folder.file("movie.mp4"), [&](ExportService& service, double fraction) {
            if (sinceCancel.isValid() || fraction < 0.1)
                return;
            sizeWhenCancelled = std::filesystem::exists(folder.file("movie.mp4"));
            sinceCancel.start();
            service.cancel();
        });
    ASSERT_TRUE(sinceCancel.isValid());
    EXPECT_LT(sinceCancel.elapsed(), 1000);
    EXPECT_EQ(sizeWhenCancelled, 1u); // it stood there, and was being written
    EXPECT_EQ(report.error(), "Export was cancelled");
    EXPECT_LT(report.progress.back(), 0.9);
    EXPECT_TRUE(folder.names().empty());
}

TEST(ExportFailure, ACancelAtOnceWritesNothing)
{
    const TemporaryFolder folder;
    ExportService service;
    service.cancel();
    auto future =
        service.start(compositeOf({good(Side::above)}, {good(Side::below)}), folder.url("movie.mp4"), [](double) {});
    future.waitForFinished();
    ASSERT_TRUE(future.result());
    EXPECT_EQ(future.result()->errorDescription().toStdString(), "Export was cancelled");
    EXPECT_TRUE(folder.names().empty());
    EXPECT_TRUE(service.isCancelled());
}

TEST(ExportFailure, ASourceThatBreaksOffGivesAShorterMovie)
{
    FootageSpec spec = film(Side::below, 60);
    spec.encoder = {"-c:v", "libx264", "-preset", "veryfast", "-crf", "12", "-g", "1"};
    spec.container = {"-movflags", "+faststart"};
    const auto whole = FootageMaker::make(spec);
    const auto cut = FootageMaker::truncated(whole, std::filesystem::file_size(whole) / 2);
    const TemporaryFolder folder;
    const ExportParameters params = compositeOf({FootageMaker::make(film(Side::above, 60))}, {cut});
    ASSERT_EQ(runExport(params, folder.file("movie.mp4")).error(), "");
    const ShownFrames shown = framesShownIn(folder.file("movie.mp4"), params, pictureFormat(spec), pictureFormat(spec));
    ASSERT_GT(shown.below.size(), 15u);
    ASSERT_LT(shown.below.size(), 50u);
    EXPECT_EQ(shown.below, counting(0, int(shown.below.size())));
    EXPECT_EQ(shown.above, shown.below);
}

TEST(ExportFailure, SourcesInWhichNothingDecodesEndWithoutCrash)
{
    const TemporaryFolder folder;
    const ExportReport below =
        runExport(compositeOf({good(Side::above)}, {footage("zero_empty_stsc.mp4")}), folder.file("movie.mp4"));
    EXPECT_TRUE(below.inTime);
    const ExportParameters params = compositeOf({footage("annex-b.mp4")}, {good(Side::below)});
    const ExportReport above = runExport(params, folder.file("other.mp4"));
    EXPECT_EQ(above.error(), "");
    EXPECT_EQ(MovieProbe::frames(folder.file("other.mp4"), exportedFormat(params)).size(), 30u);
}

TEST(ExportFailure, SourcesThatVanishWhileTheyAreReadDoNotHangOrCrash)
{
    const TemporaryFolder folder;
    const TemporaryFolder output;
    FootageSpec above = film(Side::above, 400);
    above.scene = Scene::plain;
    above.sound = SoundSpec{};
    above.container = {"-movflags", "+faststart"};
    FootageSpec below = above;
    below.side = Side::below;
    std::filesystem::copy_file(FootageMaker::make(above), folder.file("above.mp4"));
    std::filesystem::copy_file(FootageMaker::make(below), folder.file("below.mp4"));
    const ExportParameters params = compositeOf({folder.file("above.mp4")}, {folder.file("below.mp4")});
    bool done = false;
    const ExportReport report = runExport(params, output.file("movie.mp4"), [&](ExportService&, double) {
        if (std::exchange(done, true))
            return;
        std::filesystem::remove(folder.file("above.mp4"));
        std::filesystem::resize_file(folder.file("below.mp4"),
                                     std::filesystem::file_size(folder.file("below.mp4")) / 3);
    });
    EXPECT_TRUE(done);
    EXPECT_TRUE(report.inTime);
    if (report.error().empty())
        EXPECT_EQ(MovieProbe::facts(output.file("movie.mp4")).count("video"), 1);
    else
        EXPECT_TRUE(output.names().empty());
}

TEST(ExportFailure, AVideoThatCannotBeReadAnyMoreDoesNotStart)
{
    for (const bool isAbove : {true, false}) {
        const TemporaryFolder folder;
        const TemporaryFolder output;
        std::filesystem::copy_file(good(Side::above), folder.file("passing.mp4"));
        const ExportParameters params = isAbove ? compositeOf({folder.file("passing.mp4")}, {good(Side::below)})
                                                : compositeOf({good(Side::below)}, {folder.file("passing.mp4")});
        const ExportReport report = runExport(params, output.file("movie.mp4"), {}, goneOnceLookedAt("passing.mp4"));
        EXPECT_EQ(report.error(), "Asset writer failed: Failed to start reading") << isAbove;
        EXPECT_TRUE(output.names().empty());
    }
}

TEST(ExportFailure, SoundThatCannotBeReadAnyMoreDoesNotStart)
{
    // The picture starts in the first chapter, the sound in the second.
    const TemporaryFolder folder;
    const TemporaryFolder output;
    FootageSpec sounding = film(Side::above);
    sounding.sound = SoundSpec{};
    std::filesystem::copy_file(FootageMaker::make(sounding), folder.file("passing.mp4"));
    const ExportParameters params =
        compositeOf({good(Side::above), folder.file("passing.mp4")}, {FootageMaker::make(film(Side::below, 60))});
    const ExportReport report = runExport(params, output.file("movie.mp4"), {}, goneOnceLookedAt("passing.mp4"));
    EXPECT_EQ(report.error(), "Asset writer failed: Failed to start audio reading");
    EXPECT_TRUE(output.names().empty());
}

TEST(ExportFailure, AnEncoderThatDoesNotStartSaysSo)
{
    const TemporaryFolder folder;
    ExportEnvironment environment;
    environment.encoderPreset = "no such preset";
    const ExportReport report =
        runExport(compositeOf({good(Side::above)}, {good(Side::below)}), folder.file("movie.mp4"), {}, environment);
    EXPECT_THAT(report.error(), testing::StartsWith("Asset writer failed: starting the H.264 encoder"));
    EXPECT_TRUE(folder.names().empty());
}

TEST(ExportFailure, AChapterThatIsNoVideoIsLeftOut)
{
    const TemporaryFolder folder;
    const ExportParameters params =
        compositeOf({footage("hello.mp4"), good(Side::above), footage("full_blocks.mkv")}, {good(Side::below)});
    ASSERT_EQ(runExport(params, folder.file("movie.mp4")).error(), "");
    EXPECT_EQ(framesShownIn(folder.file("movie.mp4"), params, pictureFormat(film(Side::above)),
                            pictureFormat(film(Side::below)))
                  .above,
              counting(0, 30));
}

}
