// SPDX-License-Identifier: GPL-3.0-or-later
// A render that is given up half way leaves nothing, at once.
#include "Programs.h"
#include "SampleSwim.h"
#include "support/FootageMaker.h"
#include "support/MovieProbe.h"
#include "support/TemporaryFolder.h"

#include <QElapsedTimer>
#include <QFile>
#include <csignal>
#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <pty.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace zumeta::test {

namespace {

/// Far more than a render gets done before it is given up.
std::filesystem::path endless(const std::filesystem::path& file)
{
    return FootageMaker::derive({"-stream_loop", "20", "-i", file, "-map", "0", "-c", "copy"}, "mp4");
}

std::vector<std::string> endlessSwim()
{
    const SampleSwim& swim = SampleSwim::wide();
    return {"--above", endless(swim.above[0]), "--below", endless(swim.below)};
}

/// The same as a project. Only a finished movie keeps one, so it is made of the swim's beginning, and its end is given
/// back in the file.
std::filesystem::path endlessProject(const TemporaryFolder& folder)
{
    const std::filesystem::path project = folder.file("swim.zumetaproj");
    const std::vector<std::string> beginning = {"--quiet", "--resolution", "720p",  "--trim-end",
                                                "41.5",    "--keep",       project, folder.file("beginning.mp4")};
    render(endlessSwim() + beginning);
    std::filesystem::remove(folder.file("beginning.mp4"));
    QFile file(QString::fromStdString(project.string()));
    const QByteArray trim = "\"exportTrimEndSeconds\" : 41.5";
    QByteArray text;
    if (file.open(QIODevice::ReadWrite) && (text = file.readAll()).contains(trim)) {
        file.resize(0);
        file.write(text.replace(trim, "\"exportTrimEndSeconds\" : 0"));
    }
    return project;
}

struct Interruption {
    const char* name;
    int signal;
    const char* resolution;
};

std::ostream& operator<<(std::ostream& out, const Interruption& interruption)
{
    return out << interruption.name;
}

class EveryInterruption : public testing::TestWithParam<Interruption> {};

}

TEST_P(EveryInterruption, EndsARunningRenderWithinASecondAndLeavesNothing)
{
    const TemporaryFolder folder;
    std::vector<std::string> swim = endlessSwim();
    RunningRender running(swim +
                          std::vector<std::string>{"--resolution", GetParam().resolution, folder.file("swim.mp4")});
    // Only then frames are being made, and there is a file that has to go.
    ASSERT_TRUE(running.waitForOutput("10 %\n")) << running.err().toStdString();
    ASSERT_THAT(folder.names(), testing::ElementsAre("swim.mp4"));
    ASSERT_TRUE(running.isRunning());
    QElapsedTimer sinceSignal;
    sinceSignal.start();
    running.send(GetParam().signal);
    EXPECT_EQ(running.waitForExit(), 1);
    EXPECT_LT(sinceSignal.elapsed(), 1000);
    EXPECT_EQ(running.err(), "zumeta-render: Export was cancelled\n");
    EXPECT_FALSE(running.out().contains("100 %"));
    EXPECT_TRUE(folder.names().empty());
}

INSTANTIATE_TEST_SUITE_P(Signals, EveryInterruption,
                         testing::Values(Interruption{"CtrlC", SIGINT, "720p"},
                                         Interruption{"CtrlCAtTheLargestSize", SIGINT, "4K"},
                                         Interruption{"RequestToEnd", SIGTERM, "720p"},
                                         Interruption{"ClosedTerminal", SIGHUP, "720p"}),
                         [](const auto& parameter) { return parameter.param.name; });

TEST(Interrupting, ARenderOfAProjectLeavesNothingEither)
{
    const TemporaryFolder folder;
    const std::filesystem::path project = endlessProject(folder);
    ASSERT_THAT(folder.names(), testing::ElementsAre("swim.zumetaproj"));
    RunningRender running({"--resolution", "720p", project, folder.file("swim.mp4")});
    ASSERT_TRUE(running.waitForOutput("10 %\n")) << running.err().toStdString();
    ASSERT_THAT(folder.names(), testing::ElementsAre("swim.mp4", "swim.zumetaproj"));
    ASSERT_TRUE(running.isRunning());
    QElapsedTimer sinceSignal;
    sinceSignal.start();
    running.send(SIGINT);
    EXPECT_EQ(running.waitForExit(), 1);
    EXPECT_LT(sinceSignal.elapsed(), 1000);
    EXPECT_EQ(running.err(), "zumeta-render: Export was cancelled\n");
    EXPECT_FALSE(running.out().contains("100 %"));
    EXPECT_THAT(folder.names(), testing::ElementsAre("swim.zumetaproj"));
}

TEST(Interrupting, WhileTheRecordingsAreBeingOpenedEndsAtOnceToo)
{
    const TemporaryFolder folder;
    const std::filesystem::path pipe = folder.file("never-comes.mp4");
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    RunningRender running({"--above", pipe, "--below", SampleSwim::wide().below, folder.file("swim.mp4")});
    // A pipe can be opened for writing, without waiting, once somebody is opening it for reading.
    int writer = -1;
    while (writer < 0 && !running.hasEnded())
        writer = ::open(pipe.c_str(), O_WRONLY | O_NONBLOCK | O_CLOEXEC);
    ASSERT_GE(writer, 0);
    QElapsedTimer sinceSignal;
    sinceSignal.start();
    running.send(SIGINT);
    EXPECT_EQ(running.waitForExit(), 1);
    EXPECT_LT(sinceSignal.elapsed(), 1000);
    EXPECT_EQ(running.err(), "zumeta-render: Export was cancelled\n");
    ::close(writer);
    EXPECT_THAT(folder.names(), testing::ElementsAre("never-comes.mp4"));
}

TEST(Interrupting, ATerminalShowsABarWithTheTimeLeftUntilCtrlC)
{
    const TemporaryFolder folder;
    std::vector<std::string> arguments = {ZUMETA_RENDER};
    arguments = arguments + endlessSwim() + std::vector<std::string>{folder.file("swim.mp4")};
    std::vector<char*> words;
    for (std::string& argument : arguments)
        words.push_back(argument.data());
    words.push_back(nullptr);
    int terminal = -1;
    const pid_t child = ::forkpty(&terminal, nullptr, nullptr, nullptr);
    ASSERT_GE(child, 0);
    if (child == 0) {
        ::execv(words[0], words.data());
        ::_exit(127);
    }
    QByteArray shown;
    bool interrupted = false;
    std::array<char, 4096> piece{};
    // The terminal's end comes as an error.
    for (ssize_t n = 0; (n = ::read(terminal, piece.data(), piece.size())) > 0;) {
        shown += QByteArray(piece.data(), n);
        if (!interrupted && shown.contains(" left")) {
            constexpr char kCtrlC = 3;
            interrupted = ::write(terminal, &kCtrlC, 1) == 1;
        }
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ::close(terminal);
    EXPECT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 1);
    EXPECT_TRUE(interrupted);
    EXPECT_THAT(shown.toStdString(), testing::ContainsRegex("\r\\[#*-+\\] +[0-9]+ %  [0-9]+:[0-9][0-9] left"));
    // The message stands in a line of its own below the bar.
    EXPECT_THAT(shown.toStdString(), testing::EndsWith("\r\nzumeta-render: Export was cancelled\r\n"));
    EXPECT_TRUE(folder.names().empty());
}

TEST(Interrupting, AReaderOfTheProgressThatGoesAwayDoesNotTakeTheMovieAlong)
{
    const TemporaryFolder folder;
    const ProcessResult result =
        renderInShell("cd '" + folder.path().string() + R"sh('; { "$@"; echo $? > status; } | true)sh",
                      SampleSwim::wide().arguments() + std::vector<std::string>{"--trim-end", "2", "swim.mp4"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_THAT(folder.names(), testing::ElementsAre("status", "swim.mp4"));
    EXPECT_EQ(MovieProbe::facts(folder.file("swim.mp4")).count("video"), 1);
}

}
