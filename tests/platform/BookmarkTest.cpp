// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Bookmark.h"
#include "support/FileSandbox.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace zumeta {
namespace {

namespace fs = std::filesystem;
using test::FileSandbox;
using Kind = BookmarkError::Kind;

std::optional<Kind> failureOf(const std::function<void()>& action)
{
    try {
        action();
    } catch (const BookmarkError& error) {
        EXPECT_FALSE(std::string(error.what()).empty());
        return error.kind();
    }
    return std::nullopt;
}

void move(const FileUrl& from, const FileUrl& to)
{
    fs::create_directories(to.path().parent_path());
    fs::rename(from.path(), to.path());
}

/// The bytes with one value exchanged: as if the file had been remembered with another.
QByteArray withValue(QByteArray bookmark, const QByteArray& key, const QByteArray& value)
{
    const qsizetype start = bookmark.indexOf("\"" + key + "\":") + key.size() + 3;
    qsizetype end = start;
    while (bookmark[end] != ',' && bookmark[end] != '}')
        ++end;
    return bookmark.replace(start, end - start, value);
}

}

TEST(Bookmark, TwoBookmarksOfAnUnchangedFileAreEqual)
{
    const FileSandbox sandbox;
    const FileUrl url = sandbox.write("clip.mp4", "picture");
    const QByteArray first = makeBookmark(url);
    EXPECT_FALSE(first.isEmpty());
    EXPECT_EQ(makeBookmark(url), first);
}

TEST(Bookmark, AnUnchangedFileResolvesToItsPathAndIsNotStale)
{
    const FileSandbox sandbox;
    const FileUrl url = sandbox.write("clip.mp4", "picture");
    const ResolvedBookmark found = resolveBookmark(makeBookmark(url), {});
    EXPECT_EQ(found.url, url);
    EXPECT_FALSE(found.isStale);
}

TEST(Bookmark, ANameThatIsNotUtf8IsFoundAtItsPathAndAfterAMove)
{
    const FileSandbox sandbox;
    const FileUrl url = sandbox.write("caf\xe9/\xff\xfe.mp4", "picture");
    const QByteArray bookmark = makeBookmark(url);
    EXPECT_EQ(resolveBookmark(bookmark, {}).url.path().native(), url.path().native());
    const FileUrl moved = sandbox.url("n\xf6rd/\xfd.mp4");
    move(url, moved);
    EXPECT_EQ(resolveBookmark(bookmark, {}).url.path().native(), moved.path().native());
}

TEST(Bookmark, AFileThatGrewAtItsPathIsStaleAndFound)
{
    const FileSandbox sandbox;
    const FileUrl url = sandbox.write("clip.mp4", "picture");
    const QByteArray bookmark = makeBookmark(url);
    fs::resize_file(url.path(), 100);
    const ResolvedBookmark found = resolveBookmark(bookmark, {});
    EXPECT_EQ(found.url, url);
    EXPECT_TRUE(found.isStale);
}

TEST(Bookmark, ACopyThatTookTheFilesPlaceIsStaleAndFound)
{
    const FileSandbox sandbox;
    const FileUrl url = sandbox.write("clip.mp4", "picture");
    const QByteArray bookmark = makeBookmark(url);
    sandbox.write("clip.mp4", "picture");
    const ResolvedBookmark found = resolveBookmark(bookmark, {});
    EXPECT_EQ(found.url, url);
    EXPECT_TRUE(found.isStale);
}

TEST(Bookmark, AVolumeThatCameBackUnderAnotherNumberIsStaleAndFound)
{
    const FileSandbox sandbox;
    const FileUrl url = sandbox.write("clip.mp4", "picture");
    const ResolvedBookmark found = resolveBookmark(withValue(makeBookmark(url), "device", "\"12345\""), {});
    EXPECT_EQ(found.url, url);
    EXPECT_TRUE(found.isStale);
}

TEST(Bookmark, AnotherFileThatTookTheNameIsNotTheFile)
{
    const FileSandbox sandbox;
    const FileUrl url = sandbox.write("clip.mp4", "picture");
    const QByteArray bookmark = makeBookmark(url);
    sandbox.write("clip.mp4", "another");
    EXPECT_EQ(failureOf([&] { resolveBookmark(bookmark, {}); }), Kind::notFound);
}

TEST(Bookmark, AnotherVideoCopiedOverTheFileIsNotTheFile)
{
    const FileSandbox sandbox;
    const FileUrl url = sandbox.write("clip.mp4", "picture");
    const QByteArray bookmark = makeBookmark(url);
    // Copying over a file keeps its inode and its birth.
    const FileUrl other = sandbox.write("other/clip.mp4", "another and longer one");
    fs::copy_file(other.path(), url.path(), fs::copy_options::overwrite_existing);
    EXPECT_EQ(failureOf([&] { resolveBookmark(bookmark, {}); }), Kind::notFound);
    const FileUrl moved = sandbox.write("elsewhere/clip.mp4", "picture");
    EXPECT_EQ(resolveBookmark(bookmark, {sandbox.path()}).url, moved);
}

TEST(Bookmark, AFileThatLostItsEndAtItsPathIsStaleAndFound)
{
    const FileSandbox sandbox;
    const FileUrl url = sandbox.write("clip.mp4", QByteArray(3'000'000, 'x'));
    const QByteArray bookmark = makeBookmark(url);
    fs::resize_file(url.path(), 2'000'000);
    const ResolvedBookmark found = resolveBookmark(bookmark, {});
    EXPECT_EQ(found.url, url);
    EXPECT_TRUE(found.isStale);
}

TEST(Bookmark, ANewFileWithTheInodeOfADeletedOneIsNotTheFile)
{
    const FileSandbox sandbox;
    const FileUrl url = sandbox.write("clip.mp4", "another");
    const QByteArray bookmark = makeBookmark(url);
    QByteArray ofDeleted = withValue(bookmark, "key", '"' + QByteArray(64, '0') + '"');
    if (bookmark.contains("\"birth\":")) // not every file system knows it; then the content tells
        ofDeleted = withValue(ofDeleted, "birth", "1000000000");
    EXPECT_EQ(failureOf([&] { resolveBookmark(ofDeleted, {}); }), Kind::notFound);
}

TEST(Bookmark, ARenamedFileIsFoundInItsFolder)
{
    const FileSandbox sandbox;
    const FileUrl url = sandbox.write("clip.mp4", "picture");
    sandbox.write("other.mp4", "erutcip");
    const QByteArray bookmark = makeBookmark(url);
    move(url, sandbox.url("swim.mp4"));
    const ResolvedBookmark found = resolveBookmark(bookmark, {});
    EXPECT_EQ(found.url, sandbox.url("swim.mp4"));
    EXPECT_TRUE(found.isStale);
}

TEST(Bookmark, AMovedFileIsFoundUnderASearchFolder)
{
    const FileSandbox sandbox;
    const FileUrl url = sandbox.write("camera/clip.mp4", "picture");
    const FileSandbox project;
    const QByteArray bookmark = makeBookmark(url);
    move(url, project.url("a/b/clip.mp4"));
    EXPECT_EQ(resolveBookmark(bookmark, {project.path()}).url, project.url("a/b/clip.mp4"));
    EXPECT_EQ(failureOf([&] { resolveBookmark(bookmark, {}); }), Kind::notFound);
}

TEST(Bookmark, AMovedFileIsFoundUnderTheOldFoldersParent)
{
    const FileSandbox sandbox;
    const FileUrl url = sandbox.write("camera/day/clip.mp4", "picture");
    const QByteArray bookmark = makeBookmark(url);
    move(url, sandbox.url("camera/sorted/deep/clip.mp4"));
    EXPECT_EQ(resolveBookmark(bookmark, {}).url, sandbox.url("camera/sorted/deep/clip.mp4"));
}

TEST(Bookmark, AFileWhoseOldFolderIsGoneIsFoundUnderASearchFolder)
{
    const FileSandbox sandbox;
    const FileUrl url = sandbox.write("x/camera/clip.mp4", "picture");
    const QByteArray bookmark = makeBookmark(url);
    move(url, sandbox.url("y/clip.mp4"));
    fs::remove_all(sandbox.path() / "x");
    EXPECT_EQ(resolveBookmark(bookmark, {sandbox.path() / "none", sandbox.path() / "y"}).url,
              sandbox.url("y/clip.mp4"));
}

TEST(Bookmark, FoldersAreSearchedInTheirOrder)
{
    const FileSandbox sandbox;
    const FileUrl url = sandbox.write("old/clip.mp4", "picture");
    const QByteArray bookmark = makeBookmark(url);
    sandbox.write("first/clip.mp4", "picture");
    sandbox.write("second/clip.mp4", "picture");
    fs::remove(url.path());
    const auto first = sandbox.path() / "first";
    const auto second = sandbox.path() / "second";
    EXPECT_EQ(resolveBookmark(bookmark, {first, second}).url, sandbox.url("first/clip.mp4"));
    EXPECT_EQ(resolveBookmark(bookmark, {second, first}).url, sandbox.url("second/clip.mp4"));
    sandbox.write("old/copy.mp4", "picture");
    EXPECT_EQ(resolveBookmark(bookmark, {first, second}).url, sandbox.url("old/copy.mp4"));
}

TEST(Bookmark, TheFileItselfCountsBeforeItsCopiesAndItsOldNameBeforeOthers)
{
    const FileSandbox sandbox;
    const FileUrl url = sandbox.write("camera/day/clip.mp4", "picture");
    const QByteArray bookmark = makeBookmark(url);
    sandbox.write("camera/a.mp4", "picture");
    sandbox.write("camera/b/clip.mp4", "picture");
    move(url, sandbox.url("camera/z.mp4"));
    EXPECT_EQ(resolveBookmark(bookmark, {}).url, sandbox.url("camera/z.mp4"));
    fs::remove(sandbox.url("camera/z.mp4").path());
    EXPECT_EQ(resolveBookmark(bookmark, {}).url, sandbox.url("camera/b/clip.mp4"));
    fs::remove(sandbox.url("camera/b/clip.mp4").path());
    sandbox.write("camera/0.mp4", "picture");
    EXPECT_EQ(resolveBookmark(bookmark, {}).url, sandbox.url("camera/0.mp4"));
}

TEST(Bookmark, HiddenFoldersAndLinksAreNotFollowed)
{
    const FileSandbox sandbox;
    const FileSandbox elsewhere;
    const FileUrl url = sandbox.write("camera/day/clip.mp4", "picture");
    const QByteArray bookmark = makeBookmark(url);
    move(url, sandbox.url("camera/.trash/clip.mp4"));
    elsewhere.write("clip.mp4", "picture");
    fs::create_directory_symlink(elsewhere.path(), sandbox.path() / "camera" / "link");
    fs::create_directory_symlink(sandbox.path() / "camera", sandbox.path() / "camera" / "loop");
    fs::create_symlink(elsewhere.url("clip.mp4").path(), sandbox.path() / "camera" / "link.mp4");
    EXPECT_EQ(failureOf([&] { resolveBookmark(bookmark, {}); }), Kind::notFound);
}

TEST(Bookmark, TheSearchEndsWhenItsEntriesOrItsTimeAreUsedUp)
{
    const FileSandbox sandbox;
    const FileUrl url = sandbox.write("camera/day/clip.mp4", "picture");
    const QByteArray bookmark = makeBookmark(url);
    move(url, sandbox.url("camera/far/clip.mp4"));
    // Two folders and one file lie on the way.
    EXPECT_EQ(resolveBookmark(bookmark, {}, {.entries = 3}).url, sandbox.url("camera/far/clip.mp4"));
    EXPECT_EQ(failureOf([&] { resolveBookmark(bookmark, {}, {.entries = 2}); }), Kind::notFound);
    EXPECT_EQ(failureOf([&] { resolveBookmark(bookmark, {}, {.time = std::chrono::milliseconds(0)}); }),
              Kind::notFound);
}

TEST(Bookmark, NoneIsMadeOfWhatCannotBeRead)
{
    const FileSandbox sandbox;
    ASSERT_EQ(::mkfifo(sandbox.url("pipe").path().c_str(), 0600), 0);
    EXPECT_EQ(failureOf([&] { makeBookmark(sandbox.url("none.mp4")); }), Kind::unreadableFile);
    EXPECT_EQ(failureOf([&] { makeBookmark(FileUrl(sandbox.path())); }), Kind::unreadableFile);
    EXPECT_EQ(failureOf([&] { makeBookmark(sandbox.url("pipe")); }), Kind::unreadableFile);
    EXPECT_EQ(failureOf([&] { makeBookmark(FileUrl()); }), Kind::unreadableFile);
}

TEST(Bookmark, BytesOfAnotherKindAreRefused)
{
    const FileSandbox sandbox;
    const QByteArray good = makeBookmark(sandbox.write("clip.mp4", "picture"));
    const std::vector<QByteArray> bad{
        "",
        "book\0\0",
        "[]",
        "{}",
        good.left(good.size() - 1),
        withValue(good, "version", "2"),
        withValue(good, "version", "1.5"),
        withValue(good, "url", "\"http://x/\""),
        withValue(good, "url", "\"file://\""),
        withValue(good, "inode", "12"),
        withValue(good, "inode", "\"-1\""),
        withValue(good, "size", "\"7\""),
        withValue(good, "modified", "null"),
        withValue(good, "key", "\"00\""),
    };
    for (const QByteArray& bytes : bad)
        EXPECT_EQ(failureOf([&] { resolveBookmark(bytes, {}); }), Kind::malformed) << bytes.toStdString();
}

}
