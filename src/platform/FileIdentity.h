// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/FileUrl.h"

#include <cstdint>
#include <optional>

namespace zumeta {

/// What a bookmark remembers of a file.
struct FileIdentity {
    FileUrl url;
    uint64_t device = 0;
    uint64_t inode = 0;
    int64_t size = 0;
    int64_t modifiedNanoseconds = 0; ///< since 1970
    /// Inode numbers are given out again as soon as a file is deleted; its birth tells the new file from the old one.
    /// Not every file system knows it.
    std::optional<int64_t> birthNanoseconds;
    QByteArray key; ///< see fileKey

    /// Throws std::system_error when the file cannot be read.
    static FileIdentity of(const FileUrl& url);

    bool isSameFileAs(const FileIdentity& other) const;
    bool hasSameContentAs(const FileIdentity& other) const { return size == other.size && key == other.key; }
    friend bool operator==(const FileIdentity&, const FileIdentity&) = default;
};

}
