// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/movie/MediaAsset.h"
#include "model/VideoAsset.h"
#include "platform/Task.h"

#include <QFuture>
#include <QString>
#include <QThreadPool>
#include <functional>
#include <stdexcept>
#include <variant>
#include <vector>

namespace zumeta {

enum class VideoMetadataError { noFilesProvided };
QString errorDescription(VideoMetadataError error);

/// Why no video was made of the files.
struct MetadataFailure {
    std::optional<VideoMetadataError> error; ///< absent when a file could not be read
    QString description;
};
using MetadataOutcome = std::variant<VideoAsset, MetadataFailure>;

/// Turns the files of one recording into a VideoAsset: the picture's properties come from the first file, length and
/// size are those of all. No frame is decoded, and no bookmark made.
class VideoMetadataLoader {
public:
    using AssetLoader = std::function<MediaAsset(const FileUrl&)>;

    explicit VideoMetadataLoader(AssetLoader load = [](const FileUrl& url) { return MediaAsset::load(url); });

    /// Off the calling thread; the calls of one loader run one at a time, in order. The future is never cancelled and
    /// holds no exception. The loader waits at its end for the call under way.
    QFuture<MetadataOutcome> loadMetadata(std::vector<FileUrl> urls);
    /// The same, to be awaited. Main thread.
    Task<MetadataOutcome> load(std::vector<FileUrl> urls);

    /// The same on the calling thread.
    static MetadataOutcome loadNow(const std::vector<FileUrl>& urls, const AssetLoader& load);

private:
    AssetLoader m_load;
    QThreadPool m_thread;
};

}
