// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "render/preview/PreviewRequest.h"
#include "render/preview/ScreenPicture.h"

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace zumeta {

/// A picture that has been composed.
struct ComposedPreview {
    ScreenPicture picture;
    uint64_t number = 0; ///< of its request
    std::chrono::steady_clock::time_point askedAt;
};

/// Composes pictures for the preview on a thread of its own, one at a time. The newest request wins: an older one that
/// has not begun is dropped. Nothing here waits for a picture but the destructor, for the one in the making.
class PreviewComposer {
public:
    /// `finished` is called on the composing thread after every picture. `threads` share one picture; 0: as many as
    /// leave the decoders room.
    explicit PreviewComposer(std::function<void()> finished, int threads = 0);
    ~PreviewComposer();
    PreviewComposer(const PreviewComposer&) = delete; // it stands for a thread
    PreviewComposer& operator=(const PreviewComposer&) = delete;

    /// Any thread. Gives the request's number, which counts up.
    uint64_t ask(PreviewRequest request);
    /// The newest picture, once. Any thread.
    std::optional<ComposedPreview> takeNewest();

private:
    struct Job {
        PreviewRequest request;
        uint64_t number = 0;
        std::chrono::steady_clock::time_point askedAt;
    };

    void run(const std::stop_token& stop);

    const std::function<void()> m_finished;
    const int m_threads;

    std::mutex m_mutex;
    std::condition_variable_any m_wake;
    // Under m_mutex.
    uint64_t m_lastNumber = 0;
    std::optional<Job> m_next;
    std::vector<Job> m_dropped; ///< let go on the composing thread: their pictures may be the last of their kind
    std::optional<ComposedPreview> m_newest;

    std::jthread m_thread; ///< last, so that it ends first
};

}
