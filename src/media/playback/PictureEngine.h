// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/playback/PictureStore.h"

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

namespace zumeta {

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

    // Decode thread.
    void run(const std::stop_token& stop);
    void freeDropped(Lock& lock);
    void openItem(Lock& lock);
    std::unique_ptr<FrameCursor> cursorFor(const PlayerItem& item, uint64_t number, const std::stop_token& stop);
    std::optional<DecodeNeed> need() const;
    std::optional<DecodeNeed> needWithHoles() const;
    bool workOnNeed(Lock& lock, const std::stop_token& stop);
    bool mayBeReachedOnward(const DecodeNeed& need) const;
    bool owesPicture() const;
    void seekCursor(const DecodeNeed& need, Lock& lock);
    void advanceCursor(Lock& lock);
    bool isLanding() const;
    void accept(FrameNews&& news);
    bool hop(Lock& lock);
    Pace pace() const;
    double passOverBefore(const DecodeNeed& need) const;
    void setPassingOver(double end);
    void measure(std::chrono::duration<double> spent, size_t pictures);

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
    PictureStore m_store;
    PictureStore::Dropped m_dropped; ///< to be freed on the decode thread
    Instant m_readAheadFrom;         ///< not before: another seek may follow at once

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
    int m_emptyHops = 0;               ///< in a row, that gave no picture
    double m_decodeSeconds = 0;        ///< per frame, on the average of late; 0 before the first
    double m_spentOnFrame = 0;
    bool m_hasPictureSinceSeek = true;
    Instant m_lastPicture;

    std::jthread m_thread; ///< last, so that it ends first
};

}
