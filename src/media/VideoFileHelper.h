// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/FileUrl.h"

#include <QString>
#include <set>
#include <string>
#include <variant>
#include <vector>

namespace zumeta {

/// The order of a recording's files: by last path component, canonically composed, code point by code point. Case
/// counts, numbers do not, folders do not. Bytes that are not UTF-8 come after every character, in their own order.
struct FileNameOrder {
    bool operator()(const FileUrl& a, const FileUrl& b) const;
};

/// What one item of a drop turned out to be.
struct DropFailure {
    QString text;
};
struct DropOfAnotherKind {};
using DroppedItem = std::variant<QByteArray, DropFailure, DropOfAnotherKind>; ///< the bytes of a URL, or none

/// Which files count as video, and the order in which the files of one recording follow each other.
struct VideoFileHelper {
    /// Lower case, without the dot.
    static const std::set<std::string>& supportedExtensions();

    /// The files in FileNameOrder; equal names keep the order given. No filter.
    static std::vector<FileUrl> sortedByName(std::vector<FileUrl> urls);
    /// The files of a supported extension, in FileNameOrder.
    static std::vector<FileUrl> sortedVideoURLs(std::vector<FileUrl> urls);
    /// The video files of a drop, in FileNameOrder. An item that failed is logged; what is no file URL is skipped.
    static std::vector<FileUrl> loadDroppedVideoURLs(const std::vector<DroppedItem>& items);
};

}
