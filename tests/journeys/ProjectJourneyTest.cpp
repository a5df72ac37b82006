// SPDX-License-Identifier: GPL-3.0-or-later
// A composition that was kept gives its movie again, wherever its recordings went.
#include "Programs.h"
#include "SampleSwim.h"
#include "support/MovieProbe.h"
#include "support/TemporaryFolder.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zumeta::test {

namespace {

namespace fs = std::filesystem;

const std::vector<std::string> kValues = {"--offset",     "12.5",         "--horizontal-offset",
                                          "-20",          "--zoom",       "6",
                                          "--waterline",  "310",          "--blend",
                                          "30",           "--timing",     "-4",
                                          "--trim-start", ".1",           "--trim-end",
                                          "2.3",          "--sync-above", "1.55",
                                          "--sync-below", "2.6",          "--resolution",
                                          "720p",         "--quiet"};

/// What a decoder gives for every frame and for the sound: equal movies give equal lines.
std::string contentOf(const fs::path& movie)
{
    return runOrThrow({"ffmpeg",
                       {"-v", "error", "-i", movie, "-map", "0", "-c:v", "rawvideo", "-c:a", "pcm_s16le", "-f",
                        "framemd5", "-"},
                       std::chrono::seconds(60),
                       {},
                       {}})
        .toStdString();
}

/// A folder "project" with a kept composition, whose recordings lie in "recordings" beside it.
class KeptSwim : public testing::Test {
protected:
    void SetUp() override
    {
        fs::create_directory(project.parent_path());
        const ProcessResult result =
            render(swim.files() + kValues + std::vector<std::string>{"--keep", project, folder.file("flags.mp4")});
        ASSERT_EQ(result.exitCode, 0) << result.err.toStdString();
        ASSERT_TRUE(fs::exists(project));
    }

    ProcessResult renderProject(const char* name) const
    {
        return render({"--resolution", "720p", project, folder.file(name)});
    }

    void moveRecordings(const fs::path& place) const
    {
        fs::create_directories(place.parent_path());
        fs::rename(folder.file("recordings"), place);
    }

    const TemporaryFolder folder;
    const fs::path project = folder.file("project") / "swim.zumetaproj";
    const SampleSwim swim = SampleSwim::wide().copiedTo(folder.file("recordings"));
};

}

TEST_F(KeptSwim, GivesTheSameMovieAsTheValuesItWasKeptFrom)
{
    const ProcessResult result = renderProject("project.mp4");
    ASSERT_EQ(result.exitCode, 0) << result.err.toStdString();
    const std::string fromFlags = contentOf(folder.file("flags.mp4"));
    EXPECT_EQ(contentOf(folder.file("project.mp4")), fromFlags);
    EXPECT_GT(linesOf(QByteArray::fromStdString(fromFlags)).size(), 60u); // and it is a movie with many frames
    EXPECT_NE(MovieProbe::facts(folder.file("project.mp4")).tag("com.apple.quicktime.comment"),
              MovieProbe::facts(folder.file("flags.mp4")).tag("com.apple.quicktime.comment"));
}

TEST_F(KeptSwim, ShowsEveryOneOfItsValues)
{
    // Guards the comparison above: a value that did not arrive would go unseen where the movie does not show it.
    const ProcessResult result = render(swim.files() + kValues + std::vector<std::string>{folder.file("again.mp4")});
    ASSERT_EQ(result.exitCode, 0);
    const std::string same = contentOf(folder.file("again.mp4"));
    ASSERT_EQ(same, contentOf(folder.file("flags.mp4")));
    for (size_t i = 0; i + 1 < kValues.size(); i += 2) {
        if (kValues[i] == "--resolution")
            continue;
        std::vector<std::string> changed = kValues;
        // The shift in time is counted in hundredths: one alone may lie within a frame.
        changed[i + 1] = std::to_string(std::stod(kValues[i + 1]) + (kValues[i] == "--timing" ? 5 : 1));
        ASSERT_EQ(render(swim.files() + changed + std::vector<std::string>{folder.file("other.mp4")}).exitCode, 0);
        EXPECT_NE(contentOf(folder.file("other.mp4")), same) << kValues[i];
    }
}

TEST_F(KeptSwim, FindsRecordingsThatWereMovedUnderTheProjectsFolder)
{
    moveRecordings(project.parent_path() / "deeper" / "media");
    const ProcessResult result = renderProject("moved.mp4");
    ASSERT_EQ(result.exitCode, 0) << result.err.toStdString();
    EXPECT_EQ(contentOf(folder.file("moved.mp4")), contentOf(folder.file("flags.mp4")));
}

TEST_F(KeptSwim, KeepsItsTrims)
{
    const ProcessResult result = renderProject("trimmed.mp4");
    ASSERT_EQ(result.exitCode, 0) << result.err.toStdString();
    const auto seconds = [](const fs::path& file) { return MovieProbe::facts(file).duration(); };
    const double above = seconds(swim.above[0]) + seconds(swim.above[1]);
    // By the locks and the shift, the below video runs so far ahead.
    const double ahead = 2.6 - 1.55 + 0.04;
    const double common = std::min(above + ahead, seconds(swim.below)) - ahead;
    EXPECT_NEAR(seconds(folder.file("trimmed.mp4")), common - 0.1 - 2.3, 0.05);
}

TEST_F(KeptSwim, TellsItsProgressInLines)
{
    const ProcessResult result = renderProject("movie.mp4");
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.err, "");
    std::vector<int> percents;
    for (const std::string& line : linesOf(result.out)) {
        ASSERT_THAT(line, testing::EndsWith(" %"));
        percents.push_back(std::stoi(line));
    }
    ASSERT_GE(percents.size(), 5u);
    EXPECT_EQ(percents.back(), 100);
    for (size_t i = 1; i < percents.size(); ++i)
        EXPECT_GT(percents[i], percents[i - 1]);
}

TEST_F(KeptSwim, TakesCameraAndResolutionFromTheCommandLine)
{
    const auto projectWith = [&](const std::vector<std::string>& options, const fs::path& movie) {
        EXPECT_EQ(render(options + std::vector<std::string>{"--quiet", project, movie}).exitCode, 0);
        return contentOf(movie);
    };
    const std::vector<std::string> camera = {"--camera", "insta360"};
    std::vector<std::string> values = kValues;
    std::ranges::replace(values, "720p", "1080p");
    ASSERT_EQ(render(swim.files() + values + camera + std::vector<std::string>{folder.file("values.mp4")}).exitCode, 0);
    const std::string large =
        projectWith(camera + std::vector<std::string>{"--resolution", "1080p"}, folder.file("large.mp4"));
    EXPECT_EQ(large, contentOf(folder.file("values.mp4")));
    EXPECT_EQ(MovieProbe::facts(folder.file("large.mp4")).first("video")->number("height"), 1080);
    EXPECT_NE(projectWith(camera + std::vector<std::string>{"--resolution", "720p"}, folder.file("small.mp4")),
              contentOf(folder.file("flags.mp4")));
}

TEST_F(KeptSwim, WithoutRoomSaysSoInOneLineAndWritesNothing)
{
    // A disk of our own in a name space of our own, of which 1 MB is free.
    const fs::path disk = folder.file("disk");
    fs::create_directory(disk);
    const ProcessResult result =
        runProcess({"unshare",
                    {"-Urm", "sh", "-c", R"sh(mount -t tmpfs -o size=1M none "$1" || exit 99; "$2" "$3" "$1/swim.mp4"
                                              status=$?; ls "$1"; exit $status)sh",
                     "sh", disk, ZUMETA_RENDER, project},
                    std::chrono::seconds(60),
                    {},
                    {}});
    ASSERT_NE(result.exitCode, 99) << result.err.toStdString();
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(linesOf(result.err).size(), 1u) << result.err.toStdString();
    EXPECT_THAT(result.err.toStdString(), testing::ContainsRegex("^zumeta-render: .*[0-9] [kMG]B"));
}

TEST_F(KeptSwim, FindsRecordingsThatCameAlongToAnotherDisk)
{
    TemporaryFolder otherDisk("/dev/shm");
    fs::copy(swim.below.parent_path(), otherDisk.file("recordings"), fs::copy_options::recursive);
    fs::copy(project, otherDisk.file("swim.zumetaproj"));
    fs::remove_all(swim.below.parent_path());
    const ProcessResult result =
        render({"--resolution", "720p", otherDisk.file("swim.zumetaproj"), folder.file("other.mp4")});
    ASSERT_EQ(result.exitCode, 0) << result.err.toStdString();
    EXPECT_EQ(contentOf(folder.file("other.mp4")), contentOf(folder.file("flags.mp4")));
}

TEST_F(KeptSwim, SaysWhichSideIsMissing)
{
    fs::remove(swim.below);
    const ProcessResult below = renderProject("movie.mp4");
    EXPECT_EQ(below.exitCode, 1);
    EXPECT_EQ(below.out, "");
    EXPECT_EQ(below.err, "zumeta-render: the below video of the project cannot be found: " +
                             QByteArray::fromStdString(swim.below.filename()) + "\n");

    fs::remove(swim.above[0]);
    fs::remove(swim.above[1]);
    const ProcessResult both = renderProject("movie.mp4");
    EXPECT_EQ(both.exitCode, 1);
    EXPECT_THAT(both.err.toStdString(), testing::StartsWith("zumeta-render: the above video of the project cannot be"));
    EXPECT_EQ(linesOf(both.err).size(), 1u);
    EXPECT_FALSE(fs::exists(folder.file("movie.mp4")));
}

TEST_F(KeptSwim, IsNotOverwrittenByItsMovie)
{
    const auto size = fs::file_size(project);
    const ProcessResult result = render({project, project});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.err, "zumeta-render: the movie would replace the project: swim.zumetaproj\n");
    EXPECT_EQ(fs::file_size(project), size);
}

TEST(KeepingAProject, NeverReplacesARecordingOrTheMovie)
{
    const TemporaryFolder folder;
    const SampleSwim swim = SampleSwim::wide().copiedTo(folder.file("recordings"));
    fs::create_symlink(swim.below, folder.file("link.zumetaproj"));
    const auto size = fs::file_size(swim.below);
    const auto keep = [&](const fs::path& place) {
        return render(swim.files() + std::vector<std::string>{"--keep", place, folder.file("movie.mp4")});
    };
    for (const fs::path& place : {swim.below, folder.file("link.zumetaproj")}) {
        const ProcessResult result = keep(place);
        EXPECT_EQ(result.exitCode, 1);
        EXPECT_EQ(result.err.toStdString(), "zumeta-render: the project that is kept would replace a recording: " +
                                                place.filename().string() + "\n");
    }
    const ProcessResult movie = keep(folder.file("movie.mp4"));
    EXPECT_EQ(movie.exitCode, 1);
    EXPECT_EQ(movie.err, "zumeta-render: the project that is kept would replace the movie: movie.mp4\n");
    const ProcessResult nowhere = keep(folder.file("none") / "swim.zumetaproj");
    EXPECT_EQ(nowhere.exitCode, 1);
    EXPECT_EQ(nowhere.err, "zumeta-render: swim.zumetaproj cannot be written: its folder does not exist\n");
    EXPECT_EQ(fs::file_size(swim.below), size);
    EXPECT_THAT(folder.names(), testing::ElementsAre("link.zumetaproj", "recordings"));
}

}
