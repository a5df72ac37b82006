// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "platform/FileUrl.h"

#include <QByteArray>
#include <QString>
#include <QUuid>
#include <cstdint>
#include <optional>
#include <vector>

namespace zumeta {

/// One loaded video: a file, or several that are played as one.
struct VideoAsset {
    QUuid id;                      ///< new at every load
    std::vector<FileUrl> fileURLs; ///< playback order
    QString fileName;              ///< shown to the user; counts the further chapters
    int64_t fileSize = 0;          ///< bytes over all files
    double duration = 0;           ///< seconds over all files
    int64_t width = 0;             ///< natural width of the first file's first video track, cut; 0 without one
    int64_t height = 0;
    double frameRate = 0; ///< frames per second of that track; 0 without one
    std::optional<QByteArray> bookmarkData;
    std::optional<std::vector<QByteArray>> bookmarkDataList;
    std::optional<FileUrl> proxyURL;

    /// The first file, or the URL of the empty path.
    FileUrl fileURL() const { return fileURLs.empty() ? FileUrl() : fileURLs.front(); }

    friend bool operator==(const VideoAsset&, const VideoAsset&) = default;
};

}
