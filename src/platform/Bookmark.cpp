// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Bookmark.h"

#include "platform/BookmarkBytes.h"
#include "platform/BookmarkSearch.h"
#include "platform/Clock.h"

#include <system_error>

namespace zumeta {

QByteArray makeBookmark(const FileUrl& url)
{
    try {
        return bookmarkBytes(FileIdentity::of(url));
    } catch (const std::system_error& error) {
        throw BookmarkError(BookmarkError::Kind::unreadableFile,
                            url.displayName().toStdString() + ": " + error.code().message());
    }
}

ResolvedBookmark resolveBookmark(const QByteArray& bookmark, const std::vector<std::filesystem::path>& searchFolders,
                                 BookmarkSearchLimits limits)
{
    const BookmarkOutcome outcome = resolveBookmarks({bookmark}, searchFolders, limits, MonotonicClock(), {}).front();
    if (const auto* const error = std::get_if<BookmarkError>(&outcome))
        throw *error;
    return std::get<ResolvedBookmark>(outcome);
}

}
