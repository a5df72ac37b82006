// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/movie/FrameCursor.h"
#include "media/playback/DecodePlan.h"
#include "media/playback/FrameCache.h"
#include "media/playback/Player.h"

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

namespace zumeta {

/// What a player has to show.
struct PictureDemand {
    double seconds = 0; ///< on the item's clock
    double rate = 0;
    SeekTolerance tolerance = SeekTolerance::zero; ///< of the newest seek, for a player that stands
    uint64_t seek = 0;                             ///< a number of its own for every seek

    friend bool operator==(const PictureDemand&, const PictureDemand&) = default;
};

/// Decodes the pictures of one player on a thread of its own, which starts with the first item and sleeps while all is
/// there that may be needed soon. Called on the main thread.
class PictureEngine {
public:
    /// Called on any thread.
    struct Listener {
        std::function<void()> pictureChanged;
        /// The length of an item that was given as a file; nothing when it cannot be read.
        std::function<void(uint64_t item, std::optional<MediaTime> length)> lengthKnown;
    };

    /// `frameThreads` under each decoder, 0: as many as pay.
    PictureEngine(size_t cacheBytes, int frameThreads, Listener listener);
    ~PictureEngine();
    PictureEngine(const PictureEngine&) = delete; // it stands for a thread
    PictureEngine& operator=(const PictureEngine&) = delete;

    /// Gives the item's number.
    uint64_t setItem(std::optional<PlayerItem> item, ItemChange change, const PictureDemand& demand);
    void setDemand(const PictureDemand& demand);
    std::optional<ShownPicture> pictureAt(double seconds);

private:
    using Lock = std::unique_lock<std::mutex>;
    using Instant = std::chrono::steady_clock::time_point;

    struct Told {
        MediaTime begin;
        bool isExact = false;
        friend bool operator==(const Told&, const Told&) = default;
    };

    // With m_mutex held.
    double pictureTime() const;
    void keepForLater();
    bool pictureHasChanged();
    std::optional<DecodeNeed> need() const;
    std::optional<DecodeNeed> needWithHoles() const;
    DecodeSituation situation() const;
    void accept(FrameNews&& news);
    size_t budget() const;

    // Decode thread.
    void run(const std::stop_token& stop);
    void openItem(Lock& lock);
    std::unique_ptr<FrameCursor> cursorFor(const PlayerItem& item, uint64_t number, const std::stop_token& stop);
    bool workOnNeed(Lock& lock, const std::stop_token& stop);
    bool mayBeReachedOnward(const DecodeNeed& need) const;
    bool owesPicture() const;
    void seekCursor(const DecodeNeed& need, Lock& lock);
    void advanceCursor(Lock& lock);
    bool hop(Lock& lock);
    Pace pace() const;
    double passOverBefore(const DecodeNeed& need) const;
    void setPassingOver(double end);
    void measure(std::chrono::duration<double> spent, size_t pictures);

    const size_t m_cacheBytes;
    const int m_frameThreads;
    const Listener m_listener;

    std::mutex m_mutex;
    std::condition_variable_any m_wake;
    // Under m_mutex.
    bool m_hasNews = false; ///< for the decode thread
    uint64_t m_item = 0;
    bool m_itemIsNew = false;
    std::optional<PlayerItem> m_nextItem;
    std::stop_source m_itemStop;
    PictureDemand m_demand;
    Instant m_readAheadFrom;         ///< not before: another seek may follow at once
    std::optional<double> m_landing; ///< the key frame of a seek that asked for no more
    FrameCache m_cache;
    FrameCache m_retired; ///< the same recording from another file, until this one's pictures are there
    size_t m_frameBytes = 0;
    std::optional<Told> m_told;

    // Decode thread only.
    std::unique_ptr<FrameCursor> m_cursor;
    double m_itemEnd = 0;
    std::optional<DecodeNeed> m_job; ///< what the cursor was set on
    bool m_jobIsLanding = false;
    uint64_t m_jobSeek = 0;
    int m_futileSeeks = 0;
    double m_passOverBefore = 0;
    bool m_isHopping = false;          ///< by key frames
    std::optional<double> m_lastHop;   ///< the moment that was hopped to
    std::optional<double> m_lastEntry; ///< the key frame that was found there
    double m_decodeSeconds = 0;        ///< per frame, on the average of late; 0 before the first
    double m_spentOnFrame = 0;
    bool m_hasPictureSinceSeek = true;
    Instant m_lastPicture;

    std::jthread m_thread; ///< last, so that it ends first
};

}
