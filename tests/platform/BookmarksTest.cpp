// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Bookmarks.h"
#include "support/FileSandbox.h"

#include <QCoreApplication>
#include <QCoroCore>
#include <QElapsedTimer>
#include <QThread>
#include <atomic>
#include <condition_variable>
#include <gmock/gmock.h>
#include <mutex>
#include <thread>

namespace zumeta {
namespace {

namespace fs = std::filesystem;
using test::FileSandbox;

Task<> keep(Bookmarks& bookmarks, std::vector<QByteArray> list, std::vector<BookmarkOutcome>& outcomes)
{
    outcomes = co_await bookmarks.resolve(std::move(list), {});
}

/// Stands for a search that would take for ever; it ends when it is told to.
std::vector<BookmarkOutcome> untilStopped(const std::stop_token& stop, std::atomic<bool>& isUnderWay)
{
    std::mutex mutex;
    std::condition_variable_any wakeUp;
    isUnderWay = true;
    std::unique_lock lock(mutex);
    wakeUp.wait(lock, stop, [] { return false; });
    return {BookmarkError(BookmarkError::Kind::notFound, "stopped")};
}

}

TEST(ThreadedBookmarks, MakesAndResolvesInOrder)
{
    const FileSandbox sandbox;
    const FileUrl first = sandbox.write("first.mp4", "first");
    const FileUrl second = sandbox.write("second.mp4", "second");
    ThreadedBookmarks bookmarks;
    const auto made = QCoro::waitFor(bookmarks.make({first, sandbox.url("none.mp4"), second}));
    ASSERT_EQ(made.size(), 3U);
    EXPECT_EQ(made[0], makeBookmark(first));
    EXPECT_EQ(made[1], std::nullopt);
    EXPECT_EQ(made[2], makeBookmark(second));

    fs::create_directory(sandbox.path() / "moved");
    fs::rename(second.path(), sandbox.path() / "moved/second.mp4");
    const auto outcomes =
        QCoro::waitFor(bookmarks.resolve({*made[2], QByteArray("no bookmark"), *made[0]}, {sandbox.path() / "moved"}));
    ASSERT_EQ(outcomes.size(), 3U);
    EXPECT_EQ(std::get<ResolvedBookmark>(outcomes[0]).url, sandbox.url("moved/second.mp4"));
    EXPECT_TRUE(std::get<ResolvedBookmark>(outcomes[0]).isStale);
    EXPECT_EQ(std::get<BookmarkError>(outcomes[1]).kind(), BookmarkError::Kind::malformed);
    EXPECT_EQ(std::get<ResolvedBookmark>(outcomes[2]).url, first);
    EXPECT_FALSE(std::get<ResolvedBookmark>(outcomes[2]).isStale);
}

TEST(ThreadedBookmarks, OfNothingAnswerNothing)
{
    ThreadedBookmarks bookmarks;
    EXPECT_TRUE(QCoro::waitFor(bookmarks.make({})).empty());
    EXPECT_TRUE(QCoro::waitFor(bookmarks.resolve({}, {})).empty());
}

TEST(ThreadedBookmarks, SearchOnAThreadOfTheirOwnAndAnswerOnTheCallers)
{
    std::atomic<QThread*> searchedOn = nullptr;
    ThreadedBookmarks bookmarks([&](const auto& list, const auto&, const auto&) {
        searchedOn = QThread::currentThread();
        return std::vector<BookmarkOutcome>(list.size(), BookmarkError(BookmarkError::Kind::notFound, "none"));
    });
    const auto outcomes = QCoro::waitFor(bookmarks.resolve({"a", "b"}, {}));
    EXPECT_EQ(outcomes.size(), 2U);
    EXPECT_NE(searchedOn.load(), nullptr);
    EXPECT_NE(searchedOn.load(), QThread::currentThread());
}

TEST(ThreadedBookmarks, GiveAFailureOfTheSystemAsAValue)
{
    ThreadedBookmarks bookmarks(
        [](const auto&, const auto&, const auto&) -> std::vector<BookmarkOutcome> { throw std::bad_alloc(); });
    const auto outcomes = QCoro::waitFor(bookmarks.resolve({"a", "b"}, {}));
    ASSERT_EQ(outcomes.size(), 2U);
    EXPECT_EQ(std::get<BookmarkError>(outcomes[1]).kind(), BookmarkError::Kind::notFound);
}

TEST(ThreadedBookmarks, EndASearchThatIsUnderWayWhenTheyGo)
{
    std::atomic<bool> isUnderWay = false;
    std::vector<BookmarkOutcome> outcomes;
    {
        ThreadedBookmarks bookmarks(
            [&](const auto&, const auto&, const std::stop_token& stop) { return untilStopped(stop, isUnderWay); });
        keep(bookmarks, {"a"}, outcomes);
        while (!isUnderWay)
            std::this_thread::yield();
    }
    EXPECT_TRUE(outcomes.empty()); // an answer comes through the event loop and nowhere else
    while (outcomes.empty())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    EXPECT_TRUE(std::holds_alternative<BookmarkError>(outcomes.front()));
}

TEST(ThreadedBookmarks, KeepSearchesApartThatAreUnderWayAtOnce)
{
    const FileSandbox sandbox;
    const FileUrl first = sandbox.write("first.mp4", "first");
    const FileUrl second = sandbox.write("second.mp4", "second");
    ThreadedBookmarks bookmarks;
    std::vector<BookmarkOutcome> ofFirst;
    std::vector<BookmarkOutcome> ofSecond;
    keep(bookmarks, {makeBookmark(first)}, ofFirst);
    keep(bookmarks, {makeBookmark(second)}, ofSecond);
    while (ofFirst.empty() || ofSecond.empty())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    EXPECT_EQ(std::get<ResolvedBookmark>(ofFirst.front()).url, first);
    EXPECT_EQ(std::get<ResolvedBookmark>(ofSecond.front()).url, second);
}

}
