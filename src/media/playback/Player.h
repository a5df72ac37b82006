// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/movie/MediaComposition.h"
#include "media/movie/VideoPicture.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <variant>

namespace zumeta {

/// What a player plays: a file, which it opens by itself off the main thread, or files that were looked at before and
/// joined. A single file that was looked at is a composition too.
using PlayerItem = std::variant<FileUrl, MediaComposition>;

/// Where a seek may land.
enum class SeekTolerance {
    zero,    ///< on the frame that belongs to the target
    infinite ///< on the key frame at or before the target
};

/// What a new item does to the time of a player.
enum class ItemChange {
    startsOver, ///< time 0
    keepsTime ///< the same recording in another file: time runs on, the old picture stays until the new file's is there
};

/// The picture for a moment.
struct ShownPicture {
    VideoPicture picture;
    MediaTime presentationTime; ///< on the item's clock
    bool isExact = false;       ///< false: the nearest one at hand, while the frame that belongs there is on its way
};

/// Plays one item at a time. Main thread; nothing here waits for a disk or a decoder. All players of a session share
/// one PlaybackClock: what is told to them in one turn of the main thread happens at one instant, and they cannot
/// drift apart. Failures are log lines: an item that cannot be read has no picture and no sound.
class Player {
public:
    using TimeObserver = std::function<void(double seconds)>;
    using ObserverToken = uint64_t;

    Player() = default;
    virtual ~Player() = default;
    Player(const Player&) = delete; // it stands for open files and threads
    Player& operator=(const Player&) = delete;

    /// The rate stays as it is. Without an item time is 0.
    virtual void replaceCurrentItem(std::optional<PlayerItem> item, ItemChange change = ItemChange::startsOver) = 0;
    virtual bool hasCurrentItem() const = 0;

    /// Goes on at rate 1.
    virtual void play() = 0;
    /// Stops at the time that was last reported, so that what is shown and what was told agree.
    virtual void pause() = 0;
    /// 0 also at either end of the item, where time stays.
    virtual double rate() const = 0;
    /// −32 to 32; 0 is pause().
    virtual void setRate(double rate) = 0;

    /// The target of the newest seek from the moment of the call, later on what has been played since.
    virtual MediaTime currentTime() const = 0;
    /// Supersedes every earlier seek. The target is held inside the item; without an item it is forgotten.
    virtual void seek(MediaTime target, SeekTolerance tolerance) = 0;

    /// Called on a turn of its own, never inside a call to the player: 60 times a second while the item plays, and
    /// after every seek, change of item or rate, stop and end, also with the value of the call before. The value is the
    /// time of the moment at which the observer is called, on the grid of kSeekTimescale.
    virtual ObserverToken addPeriodicTimeObserver(TimeObserver observer) = 0;
    virtual void removeTimeObserver(ObserverToken token) = 0;

    /// The picture to show at a moment of the PlaybackClock, so that two players can be asked for one and the same
    /// moment. Nothing before the first picture of an item.
    virtual std::optional<ShownPicture> shownPicture(double hostTime) = 0;
    /// Called on a turn of its own when shownPicture() has something new for a player that stands still, and when the
    /// first picture of an item is there. One observer.
    virtual void setPictureObserver(std::function<void()> observer) = 0;
};

/// Seek targets and reported times are multiples of 1/60000 s: what is reported can be sought again exactly.
inline constexpr int64_t kSeekTimescale = 60000;

}
