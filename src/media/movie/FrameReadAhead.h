// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/movie/FrameReader.h"

#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>

namespace zumeta {

/// Runs a source on a thread of its own, a bounded number of frames ahead of whoever takes them, so that decoding
/// goes on while the last frame is composed and encoded.
class FrameReadAhead final : public FrameSource {
public:
    /// `depth` frames wait at most; the thread sleeps while they do.
    FrameReadAhead(std::unique_ptr<FrameSource> source, size_t depth);
    ~FrameReadAhead() override;
    FrameReadAhead(const FrameReadAhead&) = delete; // the thread holds its address
    FrameReadAhead& operator=(const FrameReadAhead&) = delete;

    /// Waits for the next frame; nothing at the end.
    std::optional<FrameSlot> next() override;
    /// Lets next() return nothing from now on. Any thread.
    void stop();

private:
    void run();

    std::unique_ptr<FrameSource> m_source; ///< the thread's
    const size_t m_depth;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<FrameSlot> m_waiting;
    bool m_ended = false;
    bool m_stopped = false;
    std::jthread m_thread; ///< last: it must end before what it uses
};

}
