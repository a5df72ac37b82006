// SPDX-License-Identifier: GPL-3.0-or-later
// Whatever is wrong, the user gets one line that says it, and nothing else changes on disk.
#include "Programs.h"
#include "SampleSwim.h"
#include "support/FootageMaker.h"
#include "support/TemporaryFolder.h"

#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zumeta::test {

namespace {

namespace fs = std::filesystem;

constexpr const char* kNoVideo = ": not a readable video; it is damaged, cut short, or no video at all";

/// Root reads and writes everything; without its privileges it does what anybody does.
constexpr const char* kWithoutPrivileges = R"sh(
    if [ "$(id -u)" = 0 ]; then exec setpriv --bounding-set -all --inh-caps -all "$@"; else exec "$@"; fi)sh";

fs::path footage(const char* name)
{
    return fs::path(ZUMETA_FOOTAGE) / name;
}

const fs::path& good()
{
    return SampleSwim::wide().below;
}

std::string bytesOf(const fs::path& file)
{
    std::ifstream stream(file);
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// The one line without the program's name in front.
std::string messageOf(const ProcessResult& result)
{
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_FALSE(result.timedOut);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(linesOf(result.err).size(), 1u) << result.err.toStdString();
    EXPECT_TRUE(result.err.startsWith("zumeta-render: "));
    return result.err.mid(int(std::string_view("zumeta-render: ").size())).trimmed().toStdString();
}

/// A folder in which nothing may appear or disappear.
class BadInput : public testing::Test {
protected:
    std::string errorOf(const fs::path& above, const fs::path& below, const fs::path& output) const
    {
        const std::vector<std::string> before = folder.names();
        const std::string message = messageOf(render({"--above", above, "--below", below, output}));
        EXPECT_EQ(folder.names(), before);
        return message;
    }
    /// With the file on either side the message is the same.
    std::string errorOfSource(const fs::path& file) const
    {
        const std::string message = errorOf(file, good(), folder.file("swim.mp4"));
        EXPECT_EQ(errorOf(good(), file, folder.file("swim.mp4")), message);
        return message;
    }
    std::string errorOfOutput(const fs::path& output) const { return errorOf(good(), good(), output); }

    fs::path written(const char* name, std::string_view text) const
    {
        std::ofstream(folder.file(name)) << text;
        return folder.file(name);
    }

    const TemporaryFolder folder;
};

}

TEST_F(BadInput, AnEmptyFile)
{
    EXPECT_EQ(errorOfSource(written("empty.mp4", "")), "empty.mp4: the file is empty");
}

TEST_F(BadInput, AFileThatWasCutShort)
{
    // The index of a camera's file comes last.
    const fs::path cut = FootageMaker::truncated(footage("GH010042.MP4"), 1'000'000);
    EXPECT_EQ(errorOfSource(cut), cut.filename().string() + kNoVideo);
}

TEST_F(BadInput, TextUnderAVideosName)
{
    EXPECT_EQ(errorOfSource(footage("hello.mp4")), std::string("hello.mp4") + kNoVideo);
    EXPECT_EQ(errorOfSource(written("short.mp4", "x")), std::string("short.mp4") + kNoVideo);
}

TEST_F(BadInput, SoundOrSubtitlesAlone)
{
    EXPECT_EQ(errorOfSource(footage("multiple-aac-tracks.mp4")), "Missing video track in source");
    EXPECT_EQ(errorOfSource(footage("full_blocks.mkv")), "Missing video track in source");
}

TEST_F(BadInput, NoSuchFile)
{
    EXPECT_EQ(errorOfSource(folder.file("none.mp4")), "none.mp4: No such file or directory");
    EXPECT_EQ(errorOfSource(folder.file("no folder") / "none.mp4"), "none.mp4: No such file or directory");
}

TEST_F(BadInput, AFolderInPlaceOfAFile)
{
    fs::create_directory(folder.file("folder.mp4"));
    EXPECT_EQ(errorOfSource(folder.file("folder.mp4")), "folder.mp4: Is a directory");
}

TEST_F(BadInput, AFileThatMayNotBeRead)
{
    fs::permissions(written("locked.mp4", "x"), fs::perms::none);
    const ProcessResult result = renderInShell(
        kWithoutPrivileges, {"--above", folder.file("locked.mp4"), "--below", good(), folder.file("swim.mp4")});
    EXPECT_EQ(messageOf(result), "locked.mp4: Permission denied");
    EXPECT_THAT(folder.names(), testing::ElementsAre("locked.mp4"));
}

TEST_F(BadInput, ALineBreakInANameStaysInTheLine)
{
    EXPECT_EQ(errorOfSource(folder.file("two\nlines\x1b[31m.mp4")), "two?lines?[31m.mp4: No such file or directory");
}

TEST_F(BadInput, ANameThatIsNotUtf8IsRead)
{
    // Only a shell hands such bytes over.
    const std::string script =
        "cd '" + folder.path().string() + "' && ln -s '" + good().string() + R"sh(' "$(printf 'swi\377m.mp4')" &&
        "$@" --quiet --trim-end 3 --above "$(printf 'swi\377m.mp4')" --below "$(printf 'swi\377m.mp4')" \
            "$(printf 'out\376.mp4')" && ls | od -c)sh";
    const ProcessResult read = renderInShell(script, {});
    EXPECT_EQ(read.exitCode, 0) << read.err.toStdString();
    EXPECT_TRUE(read.out.contains("o   u   t 376   .   m   p   4")) << read.out.toStdString();

    const ProcessResult missing = renderInShell(R"sh("$@" "$(printf 'no\377ne.mp4')")sh",
                                                {"--below", good(), folder.file("swim.mp4"), "--above"});
    EXPECT_EQ(messageOf(missing), "no\xef\xbf\xbdne.mp4: No such file or directory");
}

TEST_F(BadInput, ANameThatLooksLikeAnOptionIsRead)
{
    fs::create_symlink(good(), folder.file("-swim.mp4"));
    const ProcessResult result =
        renderInShell("cd '" + folder.path().string() + "' && \"$@\" -- -out.mp4",
                      {"--above", "-swim.mp4", "--below=-swim.mp4", "--quiet", "--trim-end", "3"});
    EXPECT_EQ(result.exitCode, 0) << result.err.toStdString();
    EXPECT_THAT(folder.names(), testing::ElementsAre("-out.mp4", "-swim.mp4"));
}

TEST_F(BadInput, AnOutputFolderThatIsMissing)
{
    EXPECT_EQ(errorOfOutput(folder.file("none") / "swim.mp4"), "swim.mp4 cannot be written: its folder does not exist");
    EXPECT_EQ(errorOfOutput(written("file", "x") / "swim.mp4"), "swim.mp4 cannot be written: Not a directory");
}

TEST_F(BadInput, AnOutputFolderThatMayNotBeWritten)
{
    fs::create_directory(folder.file("locked"));
    fs::permissions(folder.file("locked"), fs::perms::owner_read | fs::perms::owner_exec);
    const ProcessResult result =
        renderInShell(kWithoutPrivileges, {"--above", good(), "--below", good(), folder.file("locked") / "swim.mp4"});
    EXPECT_EQ(messageOf(result), "swim.mp4 cannot be written: Permission denied");
    EXPECT_TRUE(fs::is_empty(folder.file("locked")));
}

TEST_F(BadInput, AFolderAtTheOutput)
{
    fs::create_directory(folder.file("swim.mp4"));
    written("swim.mp4/kept", "x");
    EXPECT_EQ(errorOfOutput(folder.file("swim.mp4")), "swim.mp4 cannot be replaced: Is a directory");
    EXPECT_TRUE(fs::exists(folder.file("swim.mp4") / "kept"));
}

TEST_F(BadInput, AnOutputThatIsOneOfTheRecordings)
{
    const fs::path source = folder.file("recording.mp4");
    fs::copy_file(good(), source);
    fs::create_symlink(source, folder.file("soft.mp4"));
    fs::create_hard_link(source, folder.file("hard.mp4"));
    for (const char* const name : {"recording.mp4", "soft.mp4", "hard.mp4", "./recording.mp4"}) {
        EXPECT_EQ(errorOf(source, good(), folder.path() / name), "Output file already exists") << name;
        EXPECT_EQ(errorOf(good(), source, folder.path() / name), "Output file already exists") << name;
    }
    EXPECT_EQ(bytesOf(source), bytesOf(good()));
    EXPECT_TRUE(fs::is_symlink(folder.file("soft.mp4")));
}

TEST_F(BadInput, ADiskThatIsFull)
{
    // A file that may not grow further fails as on a full disk. In blocks of 512 bytes: nothing, the beginning, and
    // a good part of the movie.
    for (const char* const blocks : {"0", "8", "3000"}) {
        const ProcessResult result = renderInShell(std::string("ulimit -f ") + blocks + "; \"$@\"",
                                                   SampleSwim::wide().arguments() +
                                                       std::vector<std::string>{"--quiet", folder.file("swim.mp4")});
        EXPECT_THAT(messageOf(result), testing::EndsWith(": File too large")) << blocks;
        EXPECT_TRUE(folder.names().empty()) << blocks;
    }
}

TEST_F(BadInput, RecordingsThatDoNotOverlap)
{
    const ProcessResult result =
        render({"--above", good(), "--below", good(), "--sync-below", "1000", folder.file("swim.mp4")});
    EXPECT_EQ(messageOf(result), "Export failed: Export duration is zero or negative");
    EXPECT_TRUE(folder.names().empty());
}

TEST_F(BadInput, AProjectThatIsNone)
{
    const auto errorOfProject = [&](const fs::path& project) {
        return messageOf(render({project, folder.file("swim.mp4")}));
    };
    EXPECT_EQ(errorOfProject(folder.file("none.zumetaproj")), "none.zumetaproj: No such file or directory");
    EXPECT_THAT(errorOfProject(written("empty.zumetaproj", "")),
                testing::StartsWith("empty.zumetaproj: not valid JSON"));
    EXPECT_THAT(errorOfProject(footage("hello.mp4")), testing::StartsWith("hello.mp4: "));
    EXPECT_THAT(errorOfProject(good()), testing::StartsWith(good().filename().string() + ": "));
    EXPECT_FALSE(fs::exists(folder.file("swim.mp4")));
}

}
