// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/Bookmark.h"
#include "platform/Task.h"

#include <QThreadPool>
#include <functional>
#include <optional>
#include <stop_token>

namespace zumeta {

/// Makes and resolves bookmarks without keeping the main thread waiting. Main thread; several calls may be under way at
/// once. Answers keep the order of what was asked.
class Bookmarks {
public:
    Bookmarks() = default;
    virtual ~Bookmarks() = default;
    Bookmarks(const Bookmarks&) = delete; // an interface: copying would slice
    Bookmarks& operator=(const Bookmarks&) = delete;

    /// Nothing in place of a file of which none can be made.
    virtual Task<std::vector<std::optional<QByteArray>>> make(std::vector<FileUrl> urls) = 0;
    /// One search for all of them, which as a whole costs no more than the default limits.
    virtual Task<std::vector<BookmarkOutcome>> resolve(std::vector<QByteArray> bookmarks,
                                                       std::vector<std::filesystem::path> searchFolders) = 0;
};

/// On threads of its own. At its end it stops what is under way and waits for it no longer than one file takes; who
/// still waits for an answer then gets one that says less than the disk does.
class ThreadedBookmarks final : public Bookmarks {
public:
    using Resolve = std::function<std::vector<BookmarkOutcome>(
        const std::vector<QByteArray>&, const std::vector<std::filesystem::path>&, const std::stop_token&)>;

    ThreadedBookmarks();
    explicit ThreadedBookmarks(Resolve resolve);
    ~ThreadedBookmarks() override;

    Task<std::vector<std::optional<QByteArray>>> make(std::vector<FileUrl> urls) override;
    Task<std::vector<BookmarkOutcome>> resolve(std::vector<QByteArray> bookmarks,
                                               std::vector<std::filesystem::path> searchFolders) override;

private:
    Resolve m_resolve;
    std::stop_source m_stop;
    QThreadPool m_threads;
};

}
