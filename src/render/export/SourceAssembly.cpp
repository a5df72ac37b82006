// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/export/SourceAssembly.h"

#include "media/movie/MovieError.h"
#include "platform/Log.h"
#include "render/export/ExportError.h"

namespace zumeta {

namespace {

/// Gives the length that the clip takes up.
MediaTime addClip(MediaComposition& composition, const FileUrl& url, MediaTime insertTime, const ClipSteps& steps)
{
    const MediaAsset asset = steps.load(url);
    if (!asset.video) {
        logLine(QStringLiteral("No video track in ") + url.displayName());
        return {0, 1};
    }
    composition.insertVideo(asset, insertTime);
    if (asset.audio)
        steps.insertAudio(composition, asset, insertTime);
    logLine(QStringLiteral("📎 Export: Added chapter: %1 (duration: %2s)")
                .arg(url.displayName(), QString::number(asset.duration.seconds())));
    return asset.duration;
}

}

ClipSteps ClipSteps::with(std::function<MediaAsset(const FileUrl&)> load)
{
    return {std::move(load), [](MediaComposition& composition, const MediaAsset& asset, MediaTime at) {
                composition.insertAudio(asset, at);
            }};
}

MediaComposition createAssetFromURLs(const std::vector<FileUrl>& urls, const ClipSteps& steps)
{
    if (urls.empty())
        throw ExportError(ExportError::Case::missingVideoTrack);
    if (urls.size() == 1)
        return MediaComposition(steps.load(urls.front()));
    MediaComposition composition;
    composition.addAudioTrack();
    MediaTime insertTime;
    for (const FileUrl& url : urls) {
        try {
            insertTime = insertTime + addClip(composition, url, insertTime, steps);
        } catch (const std::exception& error) {
            logLine(QStringLiteral("Failed to add %1 to export composition: %2")
                        .arg(url.displayName(), QString::fromUtf8(error.what())));
        }
    }
    logLine(QStringLiteral("📎 Export: Total composition duration: %1s").arg(QString::number(insertTime.seconds())));
    return composition;
}

}
