// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/Bookmark.h"
#include "platform/Clock.h"

#include <stop_token>

namespace zumeta {

/// Finds the files of many bookmarks in one search, as resolveBookmark does it for one. The limits count for the search
/// as a whole: each folder is listed once and each candidate read once, however many bookmarks ask for them, and the
/// nearest places are searched for all before the next nearest are searched for any. What is found at its own path
/// costs nothing of the limits.
///
/// Files of equal content stay apart: a file goes to the bookmark that is most its own (itself, then of its name), and
/// two bookmarks share one only when the whole search leaves no other.
///
/// Answers in the order of the bookmarks. A search that is told to stop answers notFound for what it has not looked
/// for.
std::vector<BookmarkOutcome> resolveBookmarks(const std::vector<QByteArray>& bookmarks,
                                              const std::vector<std::filesystem::path>& searchFolders,
                                              BookmarkSearchLimits limits, const Clock& clock,
                                              const std::stop_token& stop);

}
