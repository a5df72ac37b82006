// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/playback/PictureEngine.h"
#include "media/playback/PlayerSound.h"
#include "media/playback/PlayerTransport.h"

#include <memory>

namespace zumeta {

struct MoviePlayerOptions {
    /// For decoded pictures: a group of 30 at 1080p fits, so that it can be played backward.
    size_t cacheBytes = size_t(104) << 20;
    int frameThreads = 0; ///< under the decoder; 0: as many as pay
};

/// Plays movies: the time of PlayerTransport, pictures that a thread of its own decodes, and sound. Main thread.
class MoviePlayer final : public Player {
public:
    /// Clock and queue must outlive the player; `sound` may be null.
    MoviePlayer(PlaybackClock& clock, MainQueue& queue, std::unique_ptr<PlayerSound> sound,
                const MoviePlayerOptions& options = {});
    ~MoviePlayer() override;

    void replaceCurrentItem(std::optional<PlayerItem> item, ItemChange change = ItemChange::startsOver) override;
    bool hasCurrentItem() const override { return m_transport.hasItem(); }
    void play() override { setRate(1); }
    void pause() override { setRate(0); }
    double rate() const override { return m_transport.rate(); }
    void setRate(double rate) override;
    MediaTime currentTime() const override { return m_transport.currentTime(); }
    void seek(MediaTime target, SeekTolerance tolerance) override;
    ObserverToken addPeriodicTimeObserver(TimeObserver observer) override;
    void removeTimeObserver(ObserverToken token) override;
    std::optional<ShownPicture> shownPicture(double hostTime) override;
    void setPictureObserver(std::function<void()> observer) override;

private:
    PictureDemand demand() const;
    void follow();
    void lengthIsKnown(uint64_t item, std::optional<MediaTime> length);
    PictureEngine::Listener listener();

    PlaybackClock& m_clock;
    MainQueue& m_queue;
    PlayerTransport m_transport;
    std::unique_ptr<PlayerSound> m_sound;
    uint64_t m_item = 0;
    ItemChange m_change = ItemChange::startsOver; ///< of the item
    std::optional<MediaTime> m_length;            ///< of the item, as far as it is known
    SeekTolerance m_tolerance = SeekTolerance::zero;
    uint64_t m_seek = 0;
    double m_followedRate = 0;
    std::function<void()> m_pictureObserver;
    std::shared_ptr<const bool> m_alive = std::make_shared<const bool>(true); ///< posted work looks whether it is there
    PictureEngine m_engine;                                                   ///< last: it calls back until it is gone
};

}
