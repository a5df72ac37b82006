// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/preview/PreviewComposer.h"

#include "platform/Log.h"
#include "render/preview/PreviewCompositor.h"

#include <algorithm>

namespace zumeta {

namespace {

int threadsThatLeaveRoom()
{
    const int cores = int(std::thread::hardware_concurrency());
    return std::clamp(cores / 4, 1, 4);
}

}

PreviewComposer::PreviewComposer(std::function<void()> finished, int threads)
    : m_finished(std::move(finished))
    , m_threads(threads > 0 ? threads : threadsThatLeaveRoom())
    , m_thread([this](const std::stop_token& stop) { run(stop); })
{}

PreviewComposer::~PreviewComposer() = default;

uint64_t PreviewComposer::ask(PreviewRequest request)
{
    const std::lock_guard lock(m_mutex);
    if (m_next)
        m_dropped.push_back(std::move(*m_next));
    m_next.emplace(Job{std::move(request), ++m_lastNumber, std::chrono::steady_clock::now()});
    m_wake.notify_one();
    return m_lastNumber;
}

std::optional<ComposedPreview> PreviewComposer::takeNewest()
{
    const std::lock_guard lock(m_mutex);
    return std::exchange(m_newest, std::nullopt);
}

void PreviewComposer::run(const std::stop_token& stop)
{
    PreviewCompositor compositor(m_threads);
    std::unique_lock lock(m_mutex);
    while (m_wake.wait(lock, stop, [this] { return m_next.has_value(); }) && !stop.stop_requested()) {
        std::vector<Job> dropped = std::exchange(m_dropped, {});
        Job job = std::move(*m_next);
        m_next.reset();
        lock.unlock();
        dropped.clear();
        std::optional<ComposedPreview> composed;
        try {
            composed.emplace(ComposedPreview{compositor.composeForScreen(job.request), job.number, job.askedAt});
        } catch (const std::exception& error) { // memory may run out; what is shown stays
            logLine(QStringLiteral("[PreviewComposer] no picture: %1").arg(QString::fromUtf8(error.what())));
        }
        job = {};
        lock.lock();
        if (!composed)
            continue;
        std::swap(m_newest, composed);
        lock.unlock();
        composed.reset(); // one that nobody took
        m_finished();
        lock.lock();
    }
}

}
