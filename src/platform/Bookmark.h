// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/FileUrl.h"

#include <chrono>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <variant>
#include <vector>

namespace zumeta {

class BookmarkError : public std::runtime_error {
public:
    enum class Kind {
        unreadableFile, ///< no bookmark can be made: the file is not there, not readable or not a regular file
        malformed,      ///< the bytes are no bookmark of this system
        notFound,       ///< neither at its path nor in the folders that were searched
    };
    BookmarkError(Kind kind, const std::string& text)
        : std::runtime_error(text)
        , m_kind(kind)
    {}
    Kind kind() const { return m_kind; }

private:
    Kind m_kind;
};

struct ResolvedBookmark {
    FileUrl url;
    /// A new bookmark of the file would read differently: it was moved, renamed, copied or changed.
    bool isStale = false;
};

using BookmarkOutcome = std::variant<ResolvedBookmark, BookmarkError>;

/// How much a search for a moved file may cost, over all folders together.
struct BookmarkSearchLimits {
    size_t entries = 20'000;
    std::chrono::milliseconds time{2'000};
};

/// Opaque bytes by which a file is found again after it was moved or renamed. Two bookmarks of an unchanged file are
/// equal. Throws BookmarkError (unreadableFile).
QByteArray makeBookmark(const FileUrl& url);

/// Finds the file: at its path when the same content is there, or the same file and it still begins as it did; else the
/// same content in its old folder, then under each of `searchFolders` in turn, then under the old folder's parent.
/// Hidden folders and links are not followed. Of several copies the file itself counts before its copies, its old name
/// before other names, and then the smallest path. Throws BookmarkError (malformed, notFound).
ResolvedBookmark resolveBookmark(const QByteArray& bookmark, const std::vector<std::filesystem::path>& searchFolders,
                                 BookmarkSearchLimits limits = {});

}
