// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/ProjectDocument.h"
#include "model/ProjectStates.h"
#include "platform/FileBytes.h"
#include "platform/FileDescriptor.h"
#include "support/FileSandbox.h"
#include "support/LongRun.h"

#include <array>
#include <csignal>
#include <gmock/gmock.h>
#include <iostream>
#include <random>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace zumeta::test {
namespace {

using std::chrono::microseconds;

/// Saves one project after the other over the same file until it is killed. What it writes was encoded beforehand: the
/// more of its time goes into the file, the more kills fall into a save.
class EndlessSaver {
public:
    EndlessSaver(const FileUrl& url, const std::array<QByteArray, 2>& contents)
    {
        std::array<int, 2> ends{};
        if (::pipe(ends.data()) != 0)
            throw std::system_error(errno, std::generic_category());
        const FileDescriptor reading(ends[0]);
        FileDescriptor writing(ends[1]);
        m_process = ::fork();
        if (m_process == 0) {
            replaceFileBytes(url, contents[0]);
            writing.close(); // the first save, which clears up, is over
            for (size_t i = 1;; ++i)
                replaceFileBytes(url, contents[i % 2]);
        }
        writing.close();
        char nothing = 0;
        EXPECT_EQ(::read(reading.get(), &nothing, 1), 0);
    }
    ~EndlessSaver() { kill(); }
    EndlessSaver(const EndlessSaver&) = delete; // it stands for a process
    EndlessSaver& operator=(const EndlessSaver&) = delete;

    /// How it ended: by the signal, as long as no save of it failed.
    int kill()
    {
        int status = 0;
        if (m_process > 0) {
            ::kill(m_process, SIGKILL);
            ::waitpid(m_process, &status, 0);
        }
        m_process = -1;
        return WIFSIGNALED(status) ? WTERMSIG(status) : 0;
    }

private:
    pid_t m_process = -1;
};

/// A small project, and one whose writing takes a while.
std::array<ProjectState, 2> smallAndLarge()
{
    ProjectState small = fullProjectState();
    ProjectState large = fullProjectState();
    small.name = QStringLiteral("small");
    large.name = QStringLiteral("large");
    large.aboveVideo->bookmarkDataList = std::vector<QByteArray>(200, QByteArray(5'000, 'b'));
    return {small, large};
}

microseconds timeOfTwoSaves(const FileUrl& url, const std::array<QByteArray, 2>& contents)
{
    const auto start = std::chrono::steady_clock::now();
    for (const QByteArray& bytes : contents)
        replaceFileBytes(url, bytes);
    return std::chrono::duration_cast<microseconds>(std::chrono::steady_clock::now() - start);
}

}

TEST(KilledSave, LeavesTheOldOrTheNewProjectWhole)
{
    const FileSandbox sandbox;
    const FileUrl url = sandbox.url("swim.zumetaproj");
    const std::array<ProjectState, 2> states = smallAndLarge();
    const std::array<QByteArray, 2> contents{ProjectDocument{states[0]}.fileContents(),
                                             ProjectDocument{states[1]}.fileContents()};
    const auto seed = std::random_device()();
    std::cout << "seed " << seed << '\n';
    std::mt19937 random(seed);
    std::uniform_int_distribution<int64_t> moment(0, 2 * timeOfTwoSaves(url, contents).count());

    const int kills = longRun() ? 200 : 25;
    int midway = 0;
    std::array<int, 2> found{};
    for (int i = 0; i < kills && !HasFailure(); ++i) {
        EndlessSaver saver(url, contents);
        std::this_thread::sleep_for(microseconds(moment(random)));
        ASSERT_EQ(saver.kill(), SIGKILL);
        const ProjectState there = readProjectFile(url);
        ASSERT_TRUE(there == states[0] || there == states[1]) << "kill " << i;
        ++found[there == states[0] ? 0 : 1];
        // What earlier kills left was cleared by this saver's first save.
        const size_t left = sandbox.names().size() - 1;
        ASSERT_LE(left, 1U);
        midway += int(left);
    }
    std::cout << kills << " kills, " << midway << " of them midway; found " << found[0] << " small and " << found[1]
              << " large projects\n";
    EXPECT_GT(midway, 0); // otherwise nothing was shown
    writeProjectFile(url, states[0]);
    EXPECT_EQ(sandbox.names(), std::vector<std::string>{"swim.zumetaproj"});
}

}
