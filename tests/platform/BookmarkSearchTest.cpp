// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/BookmarkSearch.h"
#include "support/FileSandbox.h"

#include <fstream>
#include <gmock/gmock.h>

namespace zumeta {
namespace {

namespace fs = std::filesystem;
using test::FileSandbox;
using testing::ElementsAre;

/// Stands still, and at a chosen number of looks at it does what the test says: jumps, or something else.
class CountingClock final : public Clock {
public:
    double now() const override
    {
        if (++looks == jumpAt && atJump)
            atJump();
        return looks >= jumpAt ? jumpTo : 0.0;
    }

    mutable int looks = 0;
    int jumpAt = std::numeric_limits<int>::max();
    double jumpTo = 1000.0; ///< seconds
    std::function<void()> atJump;
};

struct Request {
    std::vector<fs::path> searchFolders;
    BookmarkSearchLimits limits;
};

std::vector<BookmarkOutcome> resolved(const std::vector<QByteArray>& bookmarks, const Request& request = {})
{
    return resolveBookmarks(bookmarks, request.searchFolders, request.limits, MonotonicClock(), {});
}

/// The path that was found, below the folder; empty for none. A "~" follows a stale one.
std::string shown(const BookmarkOutcome& outcome, const fs::path& folder)
{
    const auto* const found = std::get_if<ResolvedBookmark>(&outcome);
    return found ? found->url.path().lexically_relative(folder).native() + (found->isStale ? "~" : "") : "";
}

std::vector<std::string> shown(const std::vector<BookmarkOutcome>& outcomes, const FileSandbox& sandbox)
{
    std::vector<std::string> result;
    for (const BookmarkOutcome& outcome : outcomes)
        result.push_back(shown(outcome, sandbox.path()));
    return result;
}

void move(const FileUrl& from, const FileUrl& to)
{
    fs::create_directories(to.path().parent_path());
    fs::rename(from.path(), to.path());
}

/// As it arrives on another disk: the same bytes, another file.
void moveToAnotherDisk(const FileUrl& from, const FileUrl& to)
{
    fs::create_directories(to.path().parent_path());
    fs::copy_file(from.path(), to.path());
    fs::remove(from.path());
}

void fill(const fs::path& folder, int files)
{
    fs::create_directories(folder);
    for (int i = 0; i < files; ++i)
        std::ofstream(folder / ("other" + std::to_string(i) + ".mp4")) << "not one that is looked for";
}

std::string chapterName(int number)
{
    return "chapter" + std::to_string(number) + ".mp4";
}

/// Chapters of equal length and different content.
std::vector<FileUrl> writeChapters(const FileSandbox& sandbox, const std::string& folder, int count)
{
    std::vector<FileUrl> urls;
    for (int i = 0; i < count; ++i)
        urls.push_back(sandbox.write(folder + "/" + chapterName(i), QByteArray::number(1000 + i)));
    return urls;
}

std::vector<QByteArray> bookmarksOf(const std::vector<FileUrl>& urls)
{
    std::vector<QByteArray> bookmarks;
    for (const FileUrl& url : urls)
        bookmarks.push_back(makeBookmark(url));
    return bookmarks;
}

}

TEST(BookmarkSearch, AnswersEachBookmarkInTheOrderAsked)
{
    const FileSandbox sandbox;
    const FileUrl kept = sandbox.write("day/kept.mp4", "kept");
    const FileUrl gone = sandbox.write("day/gone.mp4", "was here");
    const FileUrl renamed = sandbox.write("day/renamed.mp4", "still here");
    const std::vector<QByteArray> bookmarks{makeBookmark(renamed), "no bookmark", makeBookmark(gone),
                                            makeBookmark(kept)};
    fs::remove(gone.path());
    move(renamed, sandbox.url("day/swim.mp4"));
    const auto outcomes = resolved(bookmarks);
    EXPECT_THAT(shown(outcomes, sandbox), ElementsAre("day/swim.mp4~", "", "", "day/kept.mp4"));
    EXPECT_EQ(std::get<BookmarkError>(outcomes[1]).kind(), BookmarkError::Kind::malformed);
    EXPECT_EQ(std::get<BookmarkError>(outcomes[2]).kind(), BookmarkError::Kind::notFound);
}

TEST(BookmarkSearch, FindsChaptersInANeighbouringFolder)
{
    const FileSandbox sandbox;
    const auto chapters = writeChapters(sandbox, "camera/monday", 3);
    const auto bookmarks = bookmarksOf(chapters);
    for (const FileUrl& chapter : chapters)
        moveToAnotherDisk(chapter, sandbox.url("camera/tuesday/" + chapter.lastPathComponent()));
    EXPECT_THAT(
        shown(resolved(bookmarks), sandbox),
        ElementsAre("camera/tuesday/chapter0.mp4~", "camera/tuesday/chapter1.mp4~", "camera/tuesday/chapter2.mp4~"));
}

TEST(BookmarkSearch, FindsMediaThatMovedTogetherWithTheProjectFile)
{
    const FileSandbox before;
    const FileSandbox after;
    const auto chapters = writeChapters(before, "swim/media", 3);
    const auto bookmarks = bookmarksOf(chapters);
    for (const FileUrl& chapter : chapters)
        moveToAnotherDisk(chapter, after.url("swim/media/" + chapter.lastPathComponent()));
    fs::remove_all(before.path() / "swim");
    EXPECT_THAT(shown(resolved(bookmarks, {.searchFolders = {after.path() / "swim"}, .limits = {}}), after),
                ElementsAre("swim/media/chapter0.mp4~", "swim/media/chapter1.mp4~", "swim/media/chapter2.mp4~"));
}

TEST(BookmarkSearch, ADifferentVideoUnderTheOldNameIsPassedOverForTheOneElsewhere)
{
    const FileSandbox sandbox;
    const FileUrl above = sandbox.write("day/above.mp4", "above1");
    const FileUrl below = sandbox.write("day/below.mp4", "below1");
    const std::vector<QByteArray> bookmarks{makeBookmark(above), makeBookmark(below)};
    move(above, sandbox.url("kept/first.mp4"));
    fs::remove(below.path());
    sandbox.write("day/above.mp4", "above2");
    sandbox.write("day/below.mp4", "below2");
    EXPECT_THAT(shown(resolved(bookmarks), sandbox), ElementsAre("kept/first.mp4~", ""));
}

TEST(BookmarkSearch, ListsAFolderOnceForAllBookmarks)
{
    const FileSandbox sandbox;
    const auto chapters = writeChapters(sandbox, "camera/day", 30);
    const auto bookmarks = bookmarksOf(chapters);
    fill(sandbox.path() / "camera/day", 500);
    for (const FileUrl& chapter : chapters)
        moveToAnotherDisk(chapter, sandbox.url("project/media/" + chapter.lastPathComponent()));
    // 500 in the old folder, and "media" with its 30 files.
    const Request enough{.searchFolders = {sandbox.path() / "project"}, .limits = {.entries = 531}};
    const auto outcomes = resolved(bookmarks, enough);
    for (int i = 0; i < 30; ++i)
        EXPECT_EQ(shown(outcomes[size_t(i)], sandbox.path()), "project/media/" + chapterName(i) + "~");
}

TEST(BookmarkSearch, CountsEntriesOfAllFoldersTogether)
{
    const FileSandbox sandbox;
    const FileUrl one = sandbox.write("a/camera/one.mp4", "one");
    const FileUrl two = sandbox.write("b/camera/two.mp4", "two");
    const std::vector<QByteArray> bookmarks{makeBookmark(one), makeBookmark(two)};
    fs::remove(one.path());
    fill(one.path().parent_path(), 10);
    fill(two.path().parent_path(), 10);
    moveToAnotherDisk(two, sandbox.url("project/two.mp4"));
    const auto within = [&](size_t entries) {
        const Request request{.searchFolders = {sandbox.path() / "project"}, .limits = {.entries = entries}};
        return shown(resolved(bookmarks, request), sandbox);
    };
    EXPECT_THAT(within(21), ElementsAre("", "project/two.mp4~"));
    EXPECT_THAT(within(20), ElementsAre("", ""));
}

TEST(BookmarkSearch, AFileThatIsLostDoesNotUseUpWhatTheOthersNeed)
{
    const FileSandbox sandbox;
    const FileUrl lost = sandbox.write("full/camera/lost.mp4", "lost");
    const FileUrl renamed = sandbox.write("small/camera/clip.mp4", "found");
    const std::vector<QByteArray> bookmarks{makeBookmark(lost), makeBookmark(renamed)};
    fs::remove(lost.path());
    fill(sandbox.path() / "full/archive", 100);
    move(renamed, sandbox.url("small/camera/swim.mp4"));
    const Request tight{.searchFolders = {}, .limits = {.entries = 50}};
    EXPECT_THAT(shown(resolved(bookmarks, tight), sandbox), ElementsAre("", "small/camera/swim.mp4~"));
}

TEST(BookmarkSearch, AnUnchangedFileCostsNothingOfTheLimits)
{
    const FileSandbox sandbox;
    const auto chapters = writeChapters(sandbox, "day", 5);
    const auto bookmarks = bookmarksOf(chapters);
    const Request nothing{.searchFolders = {}, .limits = {.entries = 0, .time = std::chrono::milliseconds(0)}};
    EXPECT_THAT(shown(resolved(bookmarks, nothing), sandbox),
                ElementsAre("day/chapter0.mp4", "day/chapter1.mp4", "day/chapter2.mp4", "day/chapter3.mp4",
                            "day/chapter4.mp4"));
}

TEST(BookmarkSearch, TheTimeCountsWhileCandidatesAreRead)
{
    const FileSandbox sandbox;
    const auto chapters = writeChapters(sandbox, "day", 10);
    const auto bookmarks = bookmarksOf({chapters[3]});
    move(chapters[3], sandbox.url("day/swim.mp4"));
    const auto found = [&](int jumpAt) {
        CountingClock clock;
        clock.jumpAt = jumpAt;
        return shown(resolveBookmarks(bookmarks, {}, {}, clock, {}).front(), sandbox.path());
    };
    // One look at the start, one before the folder is opened, one for each of its ten entries; then one for each
    // candidate before it is read.
    EXPECT_EQ(found(100), "day/swim.mp4~");
    EXPECT_EQ(found(13), "");
}

TEST(BookmarkSearch, EndsEarlyWhenItIsToldToStop)
{
    const FileSandbox sandbox;
    const FileUrl url = sandbox.write("day/clip.mp4", "clip");
    const auto bookmarks = bookmarksOf({url});
    moveToAnotherDisk(url, sandbox.url("project/clip.mp4"));
    fill(sandbox.path() / "day", 1000);
    std::stop_source stop;
    CountingClock clock;
    clock.jumpAt = 50; // in the middle of the first folder, with all the time of the world left
    clock.jumpTo = 0;
    clock.atJump = [&] { stop.request_stop(); };
    const auto outcomes =
        resolveBookmarks(bookmarks, {sandbox.path() / "project"}, {.entries = 5000}, clock, stop.get_token());
    EXPECT_EQ(std::get<BookmarkError>(outcomes.front()).kind(), BookmarkError::Kind::notFound);
    EXPECT_LT(clock.looks, 60);
}

TEST(BookmarkSearch, EqualFilesThatMovedAreHandedOutByTheirNames)
{
    const FileSandbox sandbox;
    const FileUrl first = sandbox.write("day/b.mp4", "same");
    const FileUrl second = sandbox.write("day/a.mp4", "same");
    const auto bookmarks = bookmarksOf({first, second});
    moveToAnotherDisk(first, sandbox.url("next/b.mp4"));
    moveToAnotherDisk(second, sandbox.url("next/a.mp4"));
    EXPECT_THAT(shown(resolved(bookmarks), sandbox), ElementsAre("next/b.mp4~", "next/a.mp4~"));
}

TEST(BookmarkSearch, EqualFilesUnderNewNamesAreHandedOutOneToEach)
{
    const FileSandbox sandbox;
    const FileUrl first = sandbox.write("day/a.mp4", "same");
    const FileUrl second = sandbox.write("day/b.mp4", "same");
    const auto bookmarks = bookmarksOf({first, second});
    moveToAnotherDisk(first, sandbox.url("next/x.mp4"));
    moveToAnotherDisk(second, sandbox.url("next/y.mp4"));
    EXPECT_THAT(shown(resolved(bookmarks), sandbox), ElementsAre("next/x.mp4~", "next/y.mp4~"));
}

TEST(BookmarkSearch, AFileThatIsAnotherBookmarksOwnIsLeftToIt)
{
    const FileSandbox sandbox;
    const FileUrl moved = sandbox.write("day/a.mp4", "same");
    const FileUrl kept = sandbox.write("day/b.mp4", "same");
    const auto bookmarks = bookmarksOf({moved, kept});
    moveToAnotherDisk(moved, sandbox.url("next/a.mp4"));
    // The neighbour of equal content lies nearer, but it is spoken for.
    EXPECT_THAT(shown(resolved(bookmarks), sandbox), ElementsAre("next/a.mp4~", "day/b.mp4"));
}

TEST(BookmarkSearch, EqualFilesOfWhichOneIsLeftShareIt)
{
    const FileSandbox sandbox;
    const FileUrl gone = sandbox.write("day/a.mp4", "same");
    const FileUrl kept = sandbox.write("day/b.mp4", "same");
    const auto bookmarks = bookmarksOf({gone, kept});
    fs::remove(gone.path());
    EXPECT_THAT(shown(resolved(bookmarks), sandbox), ElementsAre("day/b.mp4~", "day/b.mp4"));
}

TEST(BookmarkSearch, TheSameBookmarkTwiceFindsTheSameFileTwice)
{
    const FileSandbox sandbox;
    const FileUrl url = sandbox.write("day/a.mp4", "same");
    sandbox.write("day/z.mp4", "same");
    const QByteArray bookmark = makeBookmark(url);
    move(url, sandbox.url("day/swim.mp4"));
    EXPECT_THAT(shown(resolved({bookmark, bookmark}), sandbox), ElementsAre("day/swim.mp4~", "day/swim.mp4~"));
}

TEST(BookmarkSearch, AFolderReachedBySeveralSpellingsIsListedOnce)
{
    const FileSandbox sandbox;
    const FileUrl url = sandbox.write("day/a.mp4", "clip");
    const auto bookmarks = bookmarksOf({url});
    fill(sandbox.path() / "day", 10);
    fs::create_directory(sandbox.path() / "x");
    moveToAnotherDisk(url, sandbox.url("last/a.mp4"));
    const Request request{
        .searchFolders = {sandbox.path() / "day/", sandbox.path() / "x/../day", sandbox.path() / "last"},
        .limits = {.entries = 11}};
    EXPECT_THAT(shown(resolved(bookmarks, request), sandbox), ElementsAre("last/a.mp4~"));
}

TEST(BookmarkSearch, ThirtyMissingChaptersInAFolderOfFiveThousandTakeNoLongerThanTheLimit)
{
    const FileSandbox sandbox;
    const auto chapters = writeChapters(sandbox, "camera/day", 30);
    const auto bookmarks = bookmarksOf(chapters);
    fill(sandbox.path() / "camera/day", 5000);
    for (size_t i = 0; i < chapters.size(); i += 2)
        fs::remove(chapters[i].path());
    for (size_t i = 1; i < chapters.size(); i += 2)
        move(chapters[i], sandbox.url("camera/sorted/" + chapters[i].lastPathComponent()));
    const auto start = std::chrono::steady_clock::now();
    const auto outcomes = resolved(bookmarks);
    const auto took = std::chrono::steady_clock::now() - start;
    for (size_t i = 0; i < chapters.size(); ++i)
        EXPECT_EQ(shown(outcomes[i], sandbox.path()), i % 2 == 0 ? "" : "camera/sorted/" + chapterName(int(i)) + "~");
    EXPECT_LT(took, std::chrono::milliseconds(2500));
    RecordProperty("milliseconds", int(std::chrono::duration_cast<std::chrono::milliseconds>(took).count()));
}

TEST(BookmarkSearch, LooksAtNoMoreThanTwentyThousandEntriesByDefault)
{
    const FileSandbox sandbox;
    const FileUrl url = sandbox.write("camera/day/clip.mp4", "clip");
    const auto bookmarks = bookmarksOf({url});
    fs::remove(url.path());
    // Names of one file: quick to make, and entries like any other.
    const FileUrl other = sandbox.write("other.mp4", "another video");
    for (int i = 0; i < 20'050; ++i)
        fs::create_hard_link(other.path(), url.path().parent_path() / std::to_string(i));
    CountingClock clock;
    const auto outcomes = resolveBookmarks(bookmarks, {}, {}, clock, {});
    EXPECT_EQ(shown(outcomes.front(), sandbox.path()), "");
    EXPECT_GE(clock.looks, 19'990);
    EXPECT_LE(clock.looks, 20'010);
}

}
