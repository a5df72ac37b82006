// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/playback/MoviePlayer.h"
#include "support/BarCode.h"
#include "support/VirtualTime.h"

#include <chrono>
#include <condition_variable>
#include <mutex>

namespace zumeta::test {

/// The main thread's queue in virtual time, for work that real threads post: a test can wait until some comes.
class WaitableQueue final : public MainQueue {
public:
    explicit WaitableQueue(VirtualTime& time)
        : m_time(time)
    {}

    void post(Work work) override
    {
        m_time.post(std::move(work));
        const std::lock_guard lock(m_mutex);
        m_hasWork = true;
        m_arrived.notify_all();
    }
    void postAfter(double seconds, Work work) override { m_time.postAfter(seconds, std::move(work)); }

    /// False when nothing was posted by then.
    bool waitForWork(std::chrono::steady_clock::time_point deadline)
    {
        std::unique_lock lock(m_mutex);
        const bool came = m_arrived.wait_until(lock, deadline, [this] { return m_hasWork; });
        m_hasWork = false;
        return came;
    }

private:
    VirtualTime& m_time;
    std::mutex m_mutex;
    std::condition_variable m_arrived;
    bool m_hasWork = false;
};

/// A real player, decoding for real, whose time is the test's.
class PlayerHarness {
public:
    explicit PlayerHarness(const MoviePlayerOptions& options = {}, std::unique_ptr<PlayerSound> sound = nullptr)
        : player(clock, queue, std::move(sound), options)
    {
        player.setPictureObserver([this] { ++pictureChanges; });
    }

    /// The picture of the moment, as it is.
    std::optional<ShownPicture> shown() { return player.shownPicture(time.now()); }

    /// Waits until `isThere`; false when that takes longer than any sane decoder.
    template <class Condition> bool waitUntil(Condition isThere)
    {
        const auto deadline = std::chrono::steady_clock::now() + kPatience;
        for (;;) {
            time.runDueWork();
            if (isThere())
                return true;
            if (!queue.waitForWork(deadline))
                return isThere();
        }
    }

    /// The exact picture for a standing player; nothing when none comes.
    std::optional<ShownPicture> exactPicture()
    {
        std::optional<ShownPicture> picture;
        waitUntil([&] {
            picture = shown();
            return picture && picture->isExact;
        });
        return picture && picture->isExact ? picture : std::nullopt;
    }

    void seek(double seconds, SeekTolerance tolerance = SeekTolerance::zero)
    {
        player.seek(MediaTime::nearest(seconds, kSeekTimescale), tolerance);
    }

    static constexpr std::chrono::seconds kPatience{20};

    VirtualTime time;
    WaitableQueue queue{time};
    PlaybackClock clock{time, queue};
    int pictureChanges = 0;
    MoviePlayer player;
};

/// What the bar code of a picture says; nothing when there is none or it cannot be read.
inline std::optional<int> numberOf(const std::optional<ShownPicture>& picture)
{
    if (!picture)
        return std::nullopt;
    const std::optional<BarCode> code = readBarCode(RawPicture(picture->picture));
    return code ? std::optional(code->number) : std::nullopt;
}

}
