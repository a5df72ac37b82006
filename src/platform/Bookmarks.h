// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/Bookmark.h"
#include "platform/Task.h"

#include <optional>
#include <variant>

namespace zumeta {

using BookmarkOutcome = std::variant<ResolvedBookmark, BookmarkError>;

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

}
