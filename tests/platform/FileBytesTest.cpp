// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/FileBytes.h"
#include "platform/FileDescriptor.h"
#include "support/FileSandbox.h"
#include "support/FileSizeLimit.h"

#include <atomic>
#include <fcntl.h>
#include <fstream>
#include <gmock/gmock.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace zumeta {
namespace {

using test::FileSandbox;
using test::FileSizeLimit;
namespace fs = std::filesystem;
using testing::ElementsAre;

int errorOf(const std::function<void()>& action)
{
    try {
        action();
    } catch (const std::system_error& error) {
        return error.code().value();
    }
    return 0;
}

size_t entriesIn(const fs::path& folder)
{
    return size_t(std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
}

mode_t permissionsOf(const fs::path& path)
{
    struct stat status = {};
    EXPECT_EQ(::stat(path.c_str(), &status), 0);
    return status.st_mode & 07777;
}

/// Root may write everything; while this lives, root is someone who may not.
class NotRoot {
public:
    NotRoot() { become(m_user == 0 ? 65534 : m_user); }
    ~NotRoot() { become(m_user); }
    NotRoot(const NotRoot&) = delete; // it stands for one setting of the process
    NotRoot& operator=(const NotRoot&) = delete;

private:
    static void become(uid_t user) { EXPECT_EQ(::seteuid(user), 0); }
    uid_t m_user = ::geteuid();
};

}

TEST(FileBytes, WritesAndReadsBackUnderANameThatIsNotUtf8)
{
    const FileSandbox sandbox;
    const FileUrl url = sandbox.url("caf\xe9 \xff.zumetaproj");
    replaceFileBytes(url, "first");
    replaceFileBytes(url, QByteArray("se\0cond", 7));
    EXPECT_EQ(readFileBytes(url, 100), QByteArray("se\0cond", 7));
    ASSERT_EQ(entriesIn(sandbox.path()), 1U);
    EXPECT_EQ(fs::directory_iterator(sandbox.path())->path().filename().native(), "caf\xe9 \xff.zumetaproj");
}

TEST(FileBytes, ReadsAnEmptyFileAndOneOfManyBlocks)
{
    const FileSandbox sandbox;
    EXPECT_EQ(readFileBytes(sandbox.write("empty", ""), 10), "");
    const QByteArray large(3'000'001, 'x');
    EXPECT_EQ(readFileBytes(sandbox.write("large", large), large.size()), large);
}

TEST(FileBytes, RefusesAFileThatIsLongerThanTheLimit)
{
    const FileSandbox sandbox;
    const FileUrl url = sandbox.write("file", "12345");
    EXPECT_EQ(readFileBytes(url, 5), "12345");
    EXPECT_EQ(errorOf([&] { readFileBytes(url, 4); }), EFBIG);
}

TEST(FileBytes, RefusesToReadWhatIsNoRegularFileAndDoesNotWaitForAPipe)
{
    const FileSandbox sandbox;
    ASSERT_EQ(::mkfifo(sandbox.url("pipe").path().c_str(), 0600), 0);
    EXPECT_EQ(errorOf([&] { readFileBytes(sandbox.url("pipe"), 10); }), EINVAL);
    EXPECT_EQ(errorOf([&] { readFileBytes(FileUrl(sandbox.path()), 10); }), EISDIR);
    EXPECT_EQ(errorOf([&] { readFileBytes(sandbox.url("nothing"), 10); }), ENOENT);
}

TEST(FileBytes, ANewFileHasTheUsualPermissionsAndAReplacedOneKeepsItsOwn)
{
    const FileSandbox sandbox;
    const mode_t mask = ::umask(027);
    const FileUrl url = sandbox.write("file", "1");
    ::umask(mask);
    EXPECT_EQ(permissionsOf(url.path()), 0640U);
    fs::permissions(url.path(), fs::perms(0604));
    replaceFileBytes(url, "2");
    EXPECT_EQ(permissionsOf(url.path()), 0604U);
}

TEST(FileBytes, WritesThroughALinkAndLeavesTheLink)
{
    const FileSandbox sandbox;
    const FileUrl target = sandbox.write("elsewhere/target", "old");
    fs::create_symlink(target.path(), sandbox.url("link").path());
    replaceFileBytes(sandbox.url("link"), "new");
    EXPECT_TRUE(fs::is_symlink(sandbox.url("link").path()));
    EXPECT_EQ(readFileBytes(target, 10), "new");
}

TEST(FileBytes, AFullDiskLeavesTheOldFileAndNothingBesideIt)
{
    const FileSandbox sandbox;
    const FileUrl url = sandbox.write("file", "old");
    int error = 0;
    {
        const FileSizeLimit limit(1000);
        error = errorOf([&] { replaceFileBytes(url, QByteArray(100'000, 'x')); });
    }
    EXPECT_EQ(error, EFBIG);
    EXPECT_EQ(readFileBytes(url, 10), "old");
    EXPECT_EQ(entriesIn(sandbox.path()), 1U);
}

TEST(FileBytes, RemovesWhatAKilledProcessLeftBesideTheFile)
{
    const FileSandbox sandbox;
    const FileUrl url = sandbox.write("file", "old");
    std::ofstream(sandbox.file(".zumeta-4711.part")) << "half a fi";
    replaceFileBytes(url, "new");
    EXPECT_EQ(sandbox.names(), std::vector<std::string>{"file"});
}

TEST(FileBytes, LeavesAloneWhatSomebodyIsJustWriting)
{
    const FileSandbox sandbox;
    const FileUrl url = sandbox.write("file", "old");
    const FileDescriptor other(::open(sandbox.file(".zumeta-4711.part").c_str(), O_WRONLY | O_CREAT, 0600));
    ASSERT_EQ(::flock(other.get(), LOCK_EX), 0);
    replaceFileBytes(url, "new");
    EXPECT_THAT(sandbox.names(), ElementsAre(".zumeta-4711.part", "file"));
}

TEST(FileBytes, LeavesAloneWhatIsNotPlainlyItsOwn)
{
    const FileSandbox sandbox;
    const FileUrl url = sandbox.write("file", "old");
    const FileUrl elsewhere = sandbox.write("folder/precious", "precious");
    const std::vector<std::string> names{".zumeta-.part", ".zumeta-12.part.txt", ".zumeta-1a.part",
                                         "12.part",       "zumeta-1234.part",    ".zumeta-1234"};
    for (const std::string& name : names)
        std::ofstream(sandbox.file(name)) << "somebody's";
    fs::create_symlink(elsewhere.path(), sandbox.file(".zumeta-1.part"));
    fs::create_directory(sandbox.file(".zumeta-2.part"));
    ASSERT_EQ(::mkfifo(sandbox.file(".zumeta-3.part").c_str(), 0600), 0);
    replaceFileBytes(url, "new");
    EXPECT_EQ(sandbox.names().size(), names.size() + 5);
    EXPECT_EQ(readFileBytes(elsewhere, 10), "precious");
}

TEST(FileBytes, LeavesAloneWhatAnotherUserLeft)
{
    const FileSandbox sandbox;
    const FileUrl url = sandbox.write("file", "old");
    std::ofstream(sandbox.file(".zumeta-4711.part")) << "theirs";
    // Only root can make a file of somebody else's; for others it stays their own.
    const bool isTheirs = ::chown(sandbox.file(".zumeta-4711.part").c_str(), 65534, 65534) == 0;
    replaceFileBytes(url, "new");
    EXPECT_EQ(sandbox.names().size(), isTheirs ? 2U : 1U);
}

TEST(FileBytes, ManyWhoWriteOneFileAtOnceNeverClearAwayEachOthersWork)
{
    const FileSandbox sandbox;
    const FileUrl url = sandbox.url("file");
    std::atomic<int> failures = 0;
    {
        std::vector<std::jthread> writers;
        for (char letter = 'a'; letter < 'e'; ++letter) {
            writers.emplace_back([&, letter] {
                for (int i = 0; i < 50; ++i)
                    failures += errorOf([&] { replaceFileBytes(url, QByteArray(5'000, letter)); }) != 0 ? 1 : 0;
            });
        }
    }
    EXPECT_EQ(failures, 0);
    const QByteArray bytes = readFileBytes(url, 10'000);
    EXPECT_EQ(bytes, QByteArray(5'000, bytes.front()));
    EXPECT_EQ(sandbox.names(), std::vector<std::string>{"file"});
}

TEST(FileBytes, RefusesAMissingFolderAFolderAndAPipeAsTargets)
{
    const FileSandbox sandbox;
    EXPECT_EQ(errorOf([&] { replaceFileBytes(sandbox.url("none/file"), "x"); }), ENOENT);
    EXPECT_EQ(errorOf([&] { replaceFileBytes(FileUrl(sandbox.path()), "x"); }), EISDIR);
    ASSERT_EQ(::mkfifo(sandbox.url("pipe").path().c_str(), 0600), 0);
    EXPECT_EQ(errorOf([&] { replaceFileBytes(sandbox.url("pipe"), "x"); }), EINVAL);
    EXPECT_EQ(entriesIn(sandbox.path()), 1U);
}

TEST(FileBytes, AProtectedFileIsNotReplaced)
{
    const FileSandbox sandbox;
    const FileUrl url = sandbox.write("file", "old");
    fs::permissions(sandbox.path(), fs::perms(0777));
    fs::permissions(url.path(), fs::perms(0444));
    const NotRoot notRoot;
    EXPECT_EQ(errorOf([&] { replaceFileBytes(url, "new"); }), EACCES);
    EXPECT_EQ(readFileBytes(url, 10), "old");
}

TEST(FileDescriptor, ClosesWhatItHeldWhenItTakesAnother)
{
    const FileSandbox sandbox;
    const FileUrl url = sandbox.write("file", "x");
    FileDescriptor file = openForReading(url);
    const int first = file.get();
    file = openForReading(url);
    EXPECT_NE(file.get(), first);
    struct stat status = {};
    EXPECT_EQ(::fstat(first, &status), -1);
    EXPECT_EQ(file.close(), 0);
    EXPECT_FALSE(file.isOpen());
}

}
