// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/movie/FrameReadAhead.h"

#include "platform/Log.h"

namespace zumeta {

FrameReadAhead::FrameReadAhead(std::unique_ptr<FrameSource> source, size_t depth)
    : m_source(std::move(source))
    , m_depth(depth)
    , m_thread([this] { run(); })
{}

FrameReadAhead::~FrameReadAhead()
{
    stop();
}

void FrameReadAhead::stop()
{
    const std::lock_guard lock(m_mutex);
    m_stopped = true;
    m_waiting.clear();
    m_changed.notify_all();
}

void FrameReadAhead::run()
{
    while (true) {
        std::optional<FrameSlot> slot;
        try {
            slot = m_source->next();
        } catch (const std::exception& error) {
            // What was read so far still makes a movie.
            logLine(QStringLiteral("Reading stops: ") + QString::fromUtf8(error.what()));
        }
        std::unique_lock lock(m_mutex);
        if (!slot || m_stopped) {
            m_ended = true;
            m_changed.notify_all();
            return;
        }
        m_waiting.push_back(std::move(*slot));
        m_changed.notify_all();
        m_changed.wait(lock, [this] { return m_stopped || m_waiting.size() < m_depth; });
        if (m_stopped)
            return; // one more frame would only be thrown away
    }
}

std::optional<FrameSlot> FrameReadAhead::next()
{
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, [this] { return m_stopped || m_ended || !m_waiting.empty(); });
    if (m_waiting.empty())
        return std::nullopt;
    FrameSlot slot = std::move(m_waiting.front());
    m_waiting.pop_front();
    m_changed.notify_all();
    return slot;
}

}
