// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/VideoMetadataLoader.h"

#include "media/VideoFileHelper.h"

#include <QCoroFuture>
#include <QtConcurrentRun>
#include <cmath>
#include <system_error>

namespace zumeta {

namespace {

int64_t fileSize(const FileUrl& url)
{
    std::error_code error;
    const auto size = std::filesystem::file_size(url.path(), error);
    return error ? 0 : int64_t(size);
}

VideoAsset assetOf(const std::vector<FileUrl>& sorted, const VideoMetadataLoader::AssetLoader& load)
{
    VideoAsset result;
    result.id = QUuid::createUuid();
    result.fileURLs = sorted;
    result.fileName = sorted.front().displayName();
    if (sorted.size() > 1)
        result.fileName += QStringLiteral(" (+%1 chapters)").arg(sorted.size() - 1);
    for (size_t i = 0; i < sorted.size(); ++i) {
        const MediaAsset asset = load(sorted[i]);
        if (i == 0 && asset.video) {
            result.width = int64_t(std::trunc(asset.video->naturalWidth));
            result.height = int64_t(std::trunc(asset.video->naturalHeight));
            result.frameRate = double(asset.video->nominalFrameRate);
        }
        result.duration += asset.duration.seconds();
        result.fileSize += fileSize(sorted[i]);
    }
    return result;
}

}

QString errorDescription(VideoMetadataError)
{
    return QStringLiteral("No video files provided");
}

VideoMetadataLoader::VideoMetadataLoader(AssetLoader load)
    : m_load(std::move(load))
{
    m_thread.setMaxThreadCount(1);
}

QFuture<MetadataOutcome> VideoMetadataLoader::loadMetadata(std::vector<FileUrl> urls)
{
    return QtConcurrent::run(&m_thread, [urls = std::move(urls), load = m_load] { return loadNow(urls, load); });
}

Task<MetadataOutcome> VideoMetadataLoader::load(std::vector<FileUrl> urls)
{
    // Named first: awaiting the call itself destroys its captures twice under GCC 12.
    const QFuture<MetadataOutcome> outcome = loadMetadata(std::move(urls));
    co_return co_await outcome;
}

MetadataOutcome VideoMetadataLoader::loadNow(const std::vector<FileUrl>& urls, const AssetLoader& load)
{
    if (urls.empty()) {
        constexpr auto kError = VideoMetadataError::noFilesProvided;
        return MetadataFailure{kError, errorDescription(kError)};
    }
    try {
        return assetOf(VideoFileHelper::sortedByName(urls), load);
    } catch (const std::exception& error) {
        return MetadataFailure{std::nullopt, QString::fromUtf8(error.what())};
    }
}

}
