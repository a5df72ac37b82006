// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/VideoPlayerService.h"

#include "platform/Log.h"

#include <QPointer>

namespace zumeta {

VideoPlayerService::VideoPlayerService(std::unique_ptr<Player> player, AssetLoader& assets)
    : m_assets(assets)
    , m_player(std::move(player))
{}

VideoPlayerService::~VideoPlayerService() = default;

Task<> VideoPlayerService::load(VideoAsset asset, bool useProxy)
{
    m_currentAssetID = asset.id;
    if (useProxy && asset.proxyURL)
        co_await loadSingleFile(*asset.proxyURL);
    else if (asset.fileURLs.size() == 1)
        co_await loadSingleFile(asset.fileURLs.front());
    else
        co_await loadMultipleFiles(asset.fileURLs);
}

Task<> VideoPlayerService::loadSingleFile(FileUrl url)
{
    const QPointer<VideoPlayerService> self(this);
    const std::optional<QUuid> assetID = m_currentAssetID;
    const AssetOutcome outcome = co_await m_assets.load(url);
    if (!self || m_currentAssetID != assetID)
        co_return;
    if (const MovieError* const error = std::get_if<MovieError>(&outcome)) {
        logLine(QStringLiteral("Failed to load duration: ") + QString::fromUtf8(error->what()));
        m_loadedFrameDuration = kDefaultFrameDuration;
        m_player->replaceCurrentItem(url);
    } else {
        const MediaAsset& asset = std::get<MediaAsset>(outcome);
        setDuration(asset.duration.seconds());
        m_loadedFrameDuration = asset.video ? validFrameDuration(*asset.video) : kDefaultFrameDuration;
        m_player->replaceCurrentItem(MediaComposition(asset));
    }
    setupTimeObserver();
}

Task<> VideoPlayerService::loadMultipleFiles(std::vector<FileUrl> urls)
{
    const QPointer<VideoPlayerService> self(this);
    const std::optional<QUuid> assetID = m_currentAssetID;
    MediaComposition composition;
    composition.addAudioTrack();
    MediaTime insertTime;
    std::optional<MediaTime> frameDuration;
    for (const FileUrl& url : urls) {
        const AssetOutcome outcome = co_await m_assets.load(url);
        if (!self || m_currentAssetID != assetID)
            co_return;
        if (const MovieError* const error = std::get_if<MovieError>(&outcome)) {
            logLine(QStringLiteral("Failed to add %1 to composition: %2")
                        .arg(url.displayName(), QString::fromUtf8(error->what())));
            continue;
        }
        const MediaAsset& asset = std::get<MediaAsset>(outcome);
        if (!asset.video) {
            logLine(QStringLiteral("No video track in ") + url.displayName());
            continue;
        }
        if (!frameDuration)
            frameDuration = validFrameDuration(*asset.video);
        composition.insertVideo(asset, insertTime);
        if (asset.audio)
            composition.insertAudio(asset, insertTime);
        insertTime = insertTime + asset.duration;
        logLine(QStringLiteral("📎 Added chapter: %1 (duration: %2s)")
                    .arg(url.displayName(), QString::number(asset.duration.seconds())));
    }
    setDuration(insertTime.seconds());
    m_loadedFrameDuration = frameDuration.value_or(kDefaultFrameDuration);
    logLine(QStringLiteral("📎 Total composition duration: %1s").arg(QString::number(m_duration)));
    m_player->replaceCurrentItem(std::move(composition));
    setupTimeObserver();
}

MediaTime VideoPlayerService::validFrameDuration(const VideoTrack& track)
{
    return track.minFrameDuration > MediaTime{} ? track.minFrameDuration : kDefaultFrameDuration;
}

void VideoPlayerService::switchSource(const FileUrl& url)
{
    m_player->replaceCurrentItem(url, ItemChange::keepsTime);
}

void VideoPlayerService::reset()
{
    m_player->pause();
    setPlaying(false);
    m_player->replaceCurrentItem(std::nullopt);
    m_currentAssetID.reset();
    setDuration(0);
    setCurrentTime(0);
    m_loadedFrameDuration = kDefaultFrameDuration;
}

void VideoPlayerService::setupTimeObserver()
{
    if (m_currentAssetID) {
        if (const auto existing = m_timeObservers.find(*m_currentAssetID); existing != m_timeObservers.end()) {
            m_player->removeTimeObserver(existing->second);
            m_timeObservers.erase(existing);
        }
    }
    const Player::ObserverToken token = m_player->addPeriodicTimeObserver([this](double seconds) {
        setCurrentTime(seconds);
        Q_EMIT timeReported(seconds);
    });
    if (m_currentAssetID)
        m_timeObservers[*m_currentAssetID] = token;
}

void VideoPlayerService::setPlaying(bool isPlaying)
{
    if (m_isPlaying == isPlaying)
        return;
    m_isPlaying = isPlaying;
    Q_EMIT isPlayingChanged();
}

void VideoPlayerService::setDuration(double seconds)
{
    m_duration = seconds;
    Q_EMIT durationChanged();
}

void VideoPlayerService::setCurrentTime(double seconds)
{
    if (m_currentTime == seconds)
        return;
    m_currentTime = seconds;
    Q_EMIT currentTimeChanged();
}

}
