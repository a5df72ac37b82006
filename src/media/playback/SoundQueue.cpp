// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/playback/SoundQueue.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace zumeta {

namespace {

constexpr int kChannels = AudioSource::kChannels;
constexpr int kRate = AudioSource::kSampleRate;
constexpr auto kFadeFrames = int64_t(SoundQueue::kFade * kRate);

int16_t clipped(float value)
{
    return int16_t(std::lround(std::clamp(value, -32768.0F, 32767.0F)));
}

}

void SoundQueue::await(uint64_t serial, OldRun old)
{
    const std::scoped_lock lock(m_mutex);
    m_awaited = serial;
    m_isWanted = true;
    m_isComplete = false;
    if (old == OldRun::ends)
        endRun();
    m_roomOrNews.notify_all();
}

void SoundQueue::awaitNothing()
{
    const std::scoped_lock lock(m_mutex);
    m_awaited = 0;
    m_isWanted = false;
    m_isComplete = true;
    endRun();
    m_roomOrNews.notify_all();
}

bool SoundQueue::begin(uint64_t serial, double hostTime)
{
    const std::scoped_lock lock(m_mutex);
    if (serial != m_awaited)
        return false;
    endRun();
    m_hasRun = true;
    m_run = serial;
    m_runHost = hostTime;
    return true;
}

bool SoundQueue::put(uint64_t serial, std::span<const int16_t> samples, const std::stop_token& stop)
{
    std::unique_lock lock(m_mutex);
    while (!samples.empty()) {
        const bool goesOn =
            m_roomOrNews.wait(lock, stop, [&] { return serial != m_awaited || m_ring.room(m_position) > 0; });
        if (!goesOn || serial != m_awaited)
            return false;
        const auto room = size_t(m_ring.room(m_position)) * kChannels;
        const size_t count = std::min(room, samples.size());
        m_ring.add(samples.first(count));
        samples = samples.subspan(count);
    }
    return true;
}

void SoundQueue::end(uint64_t serial)
{
    const std::scoped_lock lock(m_mutex);
    if (serial != m_awaited)
        return;
    m_isComplete = true;
    if (m_hasRun && m_run != serial)
        endRun();
}

double SoundQueue::readyUntil() const
{
    const std::scoped_lock lock(m_mutex);
    if (m_isComplete)
        return std::numeric_limits<double>::infinity();
    return m_hasRun && m_run == m_awaited ? m_runHost + double(m_ring.end()) / kRate
                                          : -std::numeric_limits<double>::infinity();
}

void SoundQueue::endRun()
{
    if (m_hasRun && m_isPlaced)
        fadeOutFrom(m_position);
    m_hasRun = false;
    m_isPlaced = false;
    m_position = 0;
    m_gain = 0;
    m_ring.clear();
}

void SoundQueue::fadeOutFrom(int64_t position)
{
    std::vector<float> tail(m_tail.begin() + ptrdiff_t(m_tailTaken), m_tail.end());
    tail.resize(size_t(kFadeFrames * kChannels));
    for (int64_t i = 0; i < kFadeFrames && m_ring.contains(position + i); ++i) {
        const float gain = m_gain * float(kFadeFrames - i) / float(kFadeFrames);
        for (int channel = 0; channel < kChannels; ++channel)
            tail[size_t(i * kChannels + channel)] += gain * float(m_ring.frame(position + i)[channel]);
    }
    m_tail = std::move(tail);
    m_tailTaken = 0;
}

bool SoundQueue::pull(std::span<int16_t> samples, double heardAt)
{
    std::fill(samples.begin(), samples.end(), int16_t(0));
    const std::scoped_lock lock(m_mutex);
    if (m_hasRun && place(heardAt))
        mixRun(samples);
    mixTail(samples);
    m_roomOrNews.notify_all();
    return m_isWanted || m_tailTaken < m_tail.size();
}

bool SoundQueue::place(double heardAt)
{
    const int64_t due = std::llround((heardAt - m_runHost) * kRate);
    if (m_isPlaced) {
        if (std::abs(due - m_position) <= int64_t(kTolerance * kRate))
            return true;
        fadeOutFrom(m_position);
    }
    // Also while it cannot begin: what is past makes room for what is to come.
    m_position = due;
    m_gain = 0;
    m_isPlaced = m_isComplete || m_ring.end() >= due + int64_t(kAhead * kRate);
    return m_isPlaced;
}

void SoundQueue::mixRun(std::span<int16_t> samples)
{
    constexpr float kStep = 1.0F / float(kFadeFrames);
    const auto frames = int64_t(samples.size()) / kChannels;
    for (int64_t i = 0; i < frames; ++i, ++m_position) {
        if (!m_ring.contains(m_position)) {
            m_gain = 0;
            continue;
        }
        // The end of what is there is known before it is reached: the sound is out by then.
        const float left = float(m_ring.end() - m_position) * kStep;
        m_gain = std::min({m_gain + kStep, left, 1.0F});
        for (int channel = 0; channel < kChannels; ++channel)
            samples[size_t(i * kChannels + channel)] = clipped(m_gain * float(m_ring.frame(m_position)[channel]));
    }
}

void SoundQueue::mixTail(std::span<int16_t> samples)
{
    const size_t count = std::min(samples.size(), m_tail.size() - m_tailTaken);
    for (size_t i = 0; i < count; ++i)
        samples[i] = clipped(float(samples[i]) + m_tail[m_tailTaken + i]);
    m_tailTaken += count;
}

}
