// SPDX-License-Identifier: GPL-3.0-or-later
// How zumeta-render talks.
#include "Programs.h"
#include "SampleSwim.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zumeta::test {

namespace {

std::vector<std::string> shortSwim()
{
    return SampleSwim::wide().arguments() + std::vector<std::string>{"--trim-end", "2.5"};
}

}

TEST(CommandLine, WrongUsageIsStatusTwoAReasonAndTheWayToHelp)
{
    const TemporaryFolder folder;
    const std::string output = folder.file("swim.mp4");
    const std::pair<std::vector<std::string>, std::string> wrong[] = {
        {{}, "a project and an output are needed, or --above, --below and an output"},
        {{"--above", "a.mp4", output}, "--below is missing"},
        {{"--above", "a.mp4", "--below", "b.mp4"}, "the output is missing"},
        {{"--above", "a.mp4", "--below", "b.mp4", "--zoom", "big", output}, "--zoom needs a number, not 'big'"},
        {{"--above", "a.mp4", "--below", "b.mp4", "--resolution", "8K", output},
         "--resolution is one of 720p, 960p, 1080p, 1440p, 4K, not '8K'"},
        {{"--faster", "swim.zumetaproj", output}, "unknown option --faster"},
        {{"swim.zumetaproj", output, "--zoom", "3"}, "--zoom does not go with a project"},
    };
    for (const auto& [arguments, reason] : wrong) {
        const ProcessResult result = render(arguments);
        EXPECT_EQ(result.exitCode, 2) << reason;
        EXPECT_EQ(result.out, "");
        EXPECT_EQ(result.err.toStdString(), "zumeta-render: " + reason + "\nTry 'zumeta-render --help'.\n");
    }
    EXPECT_TRUE(folder.names().empty());
}

TEST(CommandLine, HelpNamesEveryOptionAndSucceeds)
{
    const ProcessResult result = render({"--help"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.err, "");
    for (const char* const option :
         {"--above", "--below", "--sync-above", "--sync-below", "--point-above", "--point-below", "--waterline",
          "--offset", "--horizontal-offset", "--zoom", "--blend", "--timing", "--camera", "--trim-start", "--trim-end",
          "--resolution", "--keep", "--quiet"})
        EXPECT_TRUE(result.out.contains(option)) << option;
}

TEST(CommandLine, QuietSaysNothing)
{
    const TemporaryFolder folder;
    const ProcessResult result = render(shortSwim() + std::vector<std::string>{"--quiet", folder.file("swim.mp4")});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, "");
    EXPECT_THAT(folder.names(), testing::ElementsAre("swim.mp4"));
}

TEST(CommandLine, WithoutATerminalProgressIsPlainLines)
{
    const TemporaryFolder folder;
    const ProcessResult result = render(shortSwim() + std::vector<std::string>{folder.file("swim.mp4")});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_THAT(linesOf(result.out),
                testing::ElementsAre("10 %", "20 %", "30 %", "40 %", "50 %", "60 %", "70 %", "80 %", "90 %", "100 %"));
    EXPECT_EQ(result.err, "");
}

TEST(CommandLine, TheCommandThatTheSamplePrintsWorks)
{
    // sample-swim ends with a command to be copied; here it is run as a shell takes it.
    const SampleSwim& swim = SampleSwim::wide();
    const TemporaryFolder folder;
    const std::string said =
        runOrThrow({"cat", {swim.below.parent_path() / "said"}, std::chrono::seconds(9), {}, {}}).toStdString();
    const std::string command = linesOf(QByteArray::fromStdString(said)).back();
    ASSERT_THAT(command, testing::StartsWith("zumeta-render --above "));
    const ProcessResult result =
        renderInShell("cd '" + folder.path().string() + "'; PATH=\"${1%/*}:$PATH\"; " + command, {});
    EXPECT_EQ(result.exitCode, 0) << result.err.toStdString();
    EXPECT_THAT(folder.names(), testing::ElementsAre("OUT.mp4"));
}

}
