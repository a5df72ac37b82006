// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/FileBytes.h"
#include "platform/FileDescriptor.h"
#include "support/FileSandbox.h"

#include <csignal>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zumeta {
namespace {

using test::FileSandbox;
namespace fs = std::filesystem;

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

/// No file of this process grows past a length while it lives: a full disk that a test can make.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes)
    {
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{bytes, m_before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        m_handler = std::signal(SIGXFSZ, SIG_IGN);
    }
    ~FileSizeLimit()
    {
        ::setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }
    FileSizeLimit(const FileSizeLimit&) = delete; // it stands for one setting of the process
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    rlimit m_before = {};
    void (*m_handler)(int) = nullptr;
};

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
