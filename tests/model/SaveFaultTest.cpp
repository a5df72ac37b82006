// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/ProjectDocument.h"
#include "model/ProjectFileError.h"
#include "model/ProjectStates.h"
#include "platform/FileBytes.h"
#include "support/FaultyCalls.h"
#include "support/FileSandbox.h"
#include "support/FileSizeLimit.h"

#include <gmock/gmock.h>
#include <map>
#include <sys/stat.h>

namespace zumeta::test {
namespace {

namespace fs = std::filesystem;
using testing::IsSupersetOf;

constexpr mode_t kOldPermissions = 0604;

enum class Start { newFile, replacedFile };
enum class Through { fileBytes, projectFile };

struct Case {
    Start start;
    Through through;
    int error;
    bool staysBroken;
    size_t largestWrite;
};

std::string nameOf(const Case& value)
{
    const std::map<int, std::string> errors{
        {ENOSPC, "FullDisk"}, {EIO, "BrokenDisk"}, {EACCES, "NoPermission"}, {EINTR, "Interruption"}};
    return std::string(value.start == Start::newFile ? "New" : "Replaced") +
           (value.through == Through::fileBytes ? "Bytes" : "Project") + errors.at(value.error) +
           (value.staysBroken ? "ForEver" : "Once") + (value.largestWrite == SIZE_MAX ? "" : "ShortWrites");
}

// Found by name: without it the bytes would be printed, and with them ctest would know no two runs' tests by one name.
void PrintTo(const Case& value, std::ostream* out)
{
    *out << nameOf(value);
}

std::vector<Case> allCases()
{
    std::vector<Case> cases;
    for (const Start start : {Start::newFile, Start::replacedFile}) {
        for (const Through through : {Through::fileBytes, Through::projectFile}) {
            for (const size_t largestWrite : {SIZE_MAX, size_t(500)}) {
                for (const int error : {ENOSPC, EIO, EACCES, EINTR})
                    cases.push_back({start, through, error, false, largestWrite});
                // Not EINTR: what is interrupted for ever never ends, by right.
                for (const int error : {ENOSPC, EIO, EACCES})
                    cases.push_back({start, through, error, true, largestWrite});
            }
        }
    }
    return cases;
}

ProjectState oldState()
{
    ProjectState state = fullProjectState();
    state.name = QStringLiteral("old");
    return state;
}

size_t openDescriptors()
{
    return size_t(std::distance(fs::directory_iterator("/proc/self/fd"), fs::directory_iterator()));
}

/// Zero, or the error number; -1 where a failure does not tell it.
int save(Through through, const FileUrl& url)
{
    try {
        if (through == Through::fileBytes)
            replaceFileBytes(url, fullProjectState().encode());
        else
            writeProjectFile(url, fullProjectState());
        return 0;
    } catch (const std::system_error& error) {
        return error.code().value();
    } catch (const ProjectFileError& error) {
        EXPECT_EQ(error.kind(), ProjectFileError::Kind::fileNotWritten);
        return -1;
    }
}

class EveryCallOfASave : public testing::TestWithParam<Case> {
protected:
    EveryCallOfASave()
    {
        if (GetParam().start == Start::replacedFile) {
            writeProjectFile(m_url, oldState());
            ::chmod(m_url.path().c_str(), kOldPermissions);
        }
    }

    void expectNewFile() const
    {
        EXPECT_EQ(m_sandbox.names(), std::vector<std::string>{"swim.zumetaproj"});
        EXPECT_EQ(readFileBytes(m_url, 1'000'000), fullProjectState().encode());
        if (GetParam().start == Start::replacedFile) {
            struct stat status = {};
            ::stat(m_url.path().c_str(), &status);
            EXPECT_EQ(status.st_mode & 07777, kOldPermissions);
        }
    }

    void expectOldFile() const
    {
        if (GetParam().start == Start::newFile) {
            EXPECT_EQ(m_sandbox.names(), std::vector<std::string>{});
        } else {
            EXPECT_EQ(m_sandbox.names(), std::vector<std::string>{"swim.zumetaproj"});
            EXPECT_EQ(readFileBytes(m_url, 1'000'000), oldState().encode());
        }
    }

    /// False when the save was over before that call. After true the next one starts as this one did.
    bool failsAt(int call) const
    {
        const size_t descriptors = openDescriptors();
        int error = 0;
        bool hasFailed = false;
        std::vector<std::string> calls;
        {
            const FaultyCalls faulty({call, GetParam().error, GetParam().staysBroken, GetParam().largestWrite});
            error = save(GetParam().through, m_url);
            hasFailed = faulty.hasFailed();
            calls = faulty.calls();
        }
        SCOPED_TRACE("call " + std::to_string(call) + ": " + (hasFailed ? calls[size_t(call) - 1] : "none"));
        EXPECT_EQ(openDescriptors(), descriptors);
        if (error == 0) {
            expectNewFile();
            startAgain();
        } else {
            EXPECT_TRUE(hasFailed);
            EXPECT_TRUE(error == GetParam().error || error == -1) << error;
            expectOldFile();
        }
        return hasFailed;
    }

    FileSandbox m_sandbox;
    FileUrl m_url = m_sandbox.url("swim.zumetaproj");

private:
    void startAgain() const
    {
        fs::remove(m_url.path());
        if (GetParam().start == Start::replacedFile) {
            writeProjectFile(m_url, oldState());
            ::chmod(m_url.path().c_str(), kOldPermissions);
        }
    }
};

}

TEST_P(EveryCallOfASave, FailsInTurnAndTheOldOrTheNewFileIsThereWhole)
{
    int call = 1;
    while (failsAt(call) && !HasFailure())
        ++call;
    EXPECT_GT(call, GetParam().largestWrite == SIZE_MAX ? 8 : 10);
}

INSTANTIATE_TEST_SUITE_P(Save, EveryCallOfASave, testing::ValuesIn(allCases()),
                         [](const auto& test) { return nameOf(test.param); });

TEST(FaultsOfASave, ReachEveryKindOfCallThatItMakes)
{
    const FileSandbox sandbox;
    const FileUrl url = sandbox.url("swim.zumetaproj");
    writeProjectFile(url, oldState());
    const FaultyCalls faulty({});
    writeProjectFile(url, fullProjectState());
    EXPECT_THAT(faulty.calls(), IsSupersetOf({"stat", "faccessat", "open", "flock", "fstat", "fchmod", "write", "fsync",
                                              "fcntl", "close", "rename"}));
}

TEST(FaultsOfASave, AreOverWhenEveryWriteIsShort)
{
    const FileSandbox sandbox;
    const FileUrl url = sandbox.url("swim.zumetaproj");
    {
        const FaultyCalls faulty({0, 0, false, 7});
        writeProjectFile(url, fullProjectState());
        EXPECT_GT(std::count(faulty.calls().begin(), faulty.calls().end(), "write"), 100);
    }
    EXPECT_EQ(readProjectFile(url), fullProjectState());
}

TEST(FaultsOfASave, WhileItClearsUpAfterAKilledOneDoNotHinderIt)
{
    // Opening, looking at, locking and closing what was left behind; the save's own calls come behind them.
    for (const int call : {2, 3, 4, 5}) {
        const FileSandbox sandbox;
        const FileUrl url = sandbox.url("swim.zumetaproj");
        sandbox.write("left", "half a fi");
        fs::rename(sandbox.file("left"), sandbox.file(".zumeta-4711.part"));
        {
            const FaultyCalls faulty({call, EIO, false, SIZE_MAX});
            writeProjectFile(url, fullProjectState());
            EXPECT_TRUE(faulty.hasFailed());
        }
        EXPECT_EQ(readProjectFile(url), fullProjectState()) << call;
    }
}

TEST(FaultsOfASave, OnAFullDiskLeaveTheOldProjectAndNothingBesideIt)
{
    const FileSandbox sandbox;
    const FileUrl url = sandbox.url("swim.zumetaproj");
    writeProjectFile(url, oldState());
    ProjectState large = oldState();
    large.aboveVideo->bookmarkData = QByteArray(100'000, 'x');
    {
        const FileSizeLimit limit(50'000);
        EXPECT_THROW(writeProjectFile(url, large), ProjectFileError);
    }
    EXPECT_EQ(readProjectFile(url), oldState());
    EXPECT_EQ(sandbox.names(), std::vector<std::string>{"swim.zumetaproj"});
    writeProjectFile(url, large);
    EXPECT_EQ(readProjectFile(url), large);
}

}
