// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Bookmarks.h"

#include "platform/BookmarkSearch.h"

#include <QCoroFuture>
#include <QtConcurrentRun>

namespace zumeta {

namespace {

using Made = std::vector<std::optional<QByteArray>>;

Made makeNow(const std::vector<FileUrl>& urls, const std::stop_token& stop)
{
    Made made(urls.size());
    for (size_t i = 0; i < urls.size() && !stop.stop_requested(); ++i) {
        try {
            made[i] = makeBookmark(urls[i]);
        } catch (const std::exception&) {
            made[i].reset();
        }
    }
    return made;
}

std::vector<BookmarkOutcome> resolveNow(const ThreadedBookmarks::Resolve& resolve,
                                        const std::vector<QByteArray>& bookmarks,
                                        const std::vector<std::filesystem::path>& searchFolders,
                                        const std::stop_token& stop)
{
    try {
        return resolve(bookmarks, searchFolders, stop);
    } catch (const std::exception& error) { // nothing is thrown across a future
        return std::vector<BookmarkOutcome>(bookmarks.size(),
                                            BookmarkError(BookmarkError::Kind::notFound, error.what()));
    }
}

}

ThreadedBookmarks::ThreadedBookmarks()
    : ThreadedBookmarks([](const auto& bookmarks, const auto& searchFolders, const std::stop_token& stop) {
        return resolveBookmarks(bookmarks, searchFolders, {}, MonotonicClock(), stop);
    })
{}

ThreadedBookmarks::ThreadedBookmarks(Resolve resolve)
    : m_resolve(std::move(resolve))
{}

ThreadedBookmarks::~ThreadedBookmarks()
{
    m_stop.request_stop();
    m_threads.waitForDone();
}

Task<Made> ThreadedBookmarks::make(std::vector<FileUrl> urls)
{
    // The future is named first: awaiting the call itself destroys its captures twice under GCC 12.
    const QFuture<Made> made = QtConcurrent::run(&m_threads, makeNow, std::move(urls), m_stop.get_token());
    co_return co_await made;
}

Task<std::vector<BookmarkOutcome>> ThreadedBookmarks::resolve(std::vector<QByteArray> bookmarks,
                                                              std::vector<std::filesystem::path> searchFolders)
{
    const QFuture<std::vector<BookmarkOutcome>> outcomes = QtConcurrent::run(
        &m_threads, resolveNow, m_resolve, std::move(bookmarks), std::move(searchFolders), m_stop.get_token());
    co_return co_await outcomes;
}

}
