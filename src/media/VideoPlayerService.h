// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/AssetLoader.h"
#include "media/playback/Player.h"
#include "model/VideoAsset.h"
#include "platform/Task.h"

#include <QObject>
#include <map>
#include <memory>

namespace zumeta {

/// Playback of one side: one player for its whole life, fed by a file, by chapter files joined end to end, or by a
/// proxy. Playing and seeking are told to the player itself. Main thread. Failures are log lines; the service goes on
/// with what it has.
class VideoPlayerService final : public QObject {
    Q_OBJECT
    Q_PROPERTY(bool isPlaying READ isPlaying NOTIFY isPlayingChanged FINAL)
    Q_PROPERTY(double currentTime READ currentTime NOTIFY currentTimeChanged FINAL)
    Q_PROPERTY(double duration READ duration NOTIFY durationChanged FINAL)
public:
    static constexpr MediaTime kDefaultFrameDuration{1, 30};

    /// The loader must outlive the service.
    VideoPlayerService(std::unique_ptr<Player> player, AssetLoader& assets);
    ~VideoPlayerService() override;

    /// Loads the proxy when it is wanted and there is one, else the source files. Of two loads that interleave, the one
    /// that was started first ends without effect, and so does one during which the service was reset.
    Task<> load(VideoAsset asset, bool useProxy);
    /// The same recording from another file, at the same time and rate.
    void switchSource(const FileUrl& url);
    /// Empties the player and the state.
    void reset();

    /// The side's playing flag, kept by the session.
    bool isPlaying() const { return m_isPlaying; }
    void setPlaying(bool isPlaying);
    double currentTime() const { return m_currentTime; } ///< seconds, as last reported
    double duration() const { return m_duration; }       ///< seconds
    MediaTime loadedFrameDuration() const { return m_loadedFrameDuration; }
    Player& player() { return *m_player; }
    const Player& player() const { return *m_player; }
    std::optional<QUuid> currentAssetID() const { return m_currentAssetID; }

Q_SIGNALS:
    void isPlayingChanged();
    void currentTimeChanged();
    /// Every report of the player, equal ones too, on a turn of its own.
    void timeReported(double seconds);
    /// Every assignment, equal ones too.
    void durationChanged();

private:
    Task<> loadSingleFile(FileUrl url);
    Task<> loadMultipleFiles(std::vector<FileUrl> urls);
    void setupTimeObserver();
    void setDuration(double seconds);
    void setCurrentTime(double seconds);
    static MediaTime validFrameDuration(const VideoTrack& track);

    AssetLoader& m_assets;
    bool m_isPlaying = false;
    double m_currentTime = 0;
    double m_duration = 0;
    std::map<QUuid, Player::ObserverToken> m_timeObservers; ///< by the asset that was loaded
    MediaTime m_loadedFrameDuration = kDefaultFrameDuration;
    std::optional<QUuid> m_currentAssetID;
    std::unique_ptr<Player> m_player; ///< last, so that no report reaches a half-gone service
};

}
