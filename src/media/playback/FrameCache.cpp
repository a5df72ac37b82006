// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/playback/FrameCache.h"

#include <algorithm>
#include <cmath>

namespace zumeta {

namespace {

size_t bytesOfFrame(const FrameCache::Frame& frame)
{
    return frame.picture ? FrameCache::bytesOf(*frame.picture) : 0;
}

bool covers(const FrameCache::Frame& frame, double seconds)
{
    return frameHasBegun(frame.begin, seconds) && frame.end && !frameHasBegun(*frame.end, seconds);
}

}

size_t FrameCache::bytesOf(const VideoPicture& picture)
{
    const PictureFormat& format = picture.format;
    size_t bytes = 0;
    for (size_t i = 0; i < picture.planes.size(); ++i) {
        const int rows = i == 0 ? format.height : format.chromaHeight();
        bytes += size_t(std::abs(picture.planes[i].stride)) * size_t(rows);
    }
    return bytes;
}

void FrameCache::erase(Frames::const_iterator frame)
{
    m_bytes -= bytesOfFrame(frame->second);
    m_frames.erase(frame);
}

void FrameCache::clear()
{
    m_frames.clear();
    m_bytes = 0;
}

void FrameCache::put(Frame frame)
{
    auto next = m_frames.lower_bound(frame.begin);
    if (next != m_frames.begin()) {
        Frame& before = std::prev(next)->second;
        if (before.end && *before.end > frame.begin)
            before.end = frame.begin;
    }
    while (next != m_frames.end() && (next->first == frame.begin || (frame.end && next->first < *frame.end))) {
        if (next->first == frame.begin && !frame.end)
            frame.end = next->second.end; // decoded a second time: what was certain of it still is
        const auto covered = next++;
        erase(covered);
    }
    m_bytes += bytesOfFrame(frame);
    const MediaTime begin = frame.begin;
    m_frames.insert_or_assign(begin, std::move(frame));
}

void FrameCache::setEnd(MediaTime begin, std::optional<MediaTime> end)
{
    const auto found = m_frames.find(begin);
    if (found == m_frames.end())
        return;
    found->second.end = end;
    for (auto next = std::next(found); end && next != m_frames.end() && next->first < *end;) {
        const auto covered = next++;
        erase(covered);
    }
}

FrameCache::Frames::const_iterator FrameCache::lastBegun(double seconds) const
{
    // The first one that has not begun yet: where a search by the nearest time would be, give or take the tolerance.
    auto next = m_frames.lower_bound(MediaTime::nearest(seconds, 1'000'000));
    while (next != m_frames.end() && frameHasBegun(next->first, seconds))
        ++next;
    while (next != m_frames.begin() && !frameHasBegun(std::prev(next)->first, seconds))
        --next;
    return next == m_frames.begin() ? m_frames.end() : std::prev(next);
}

const FrameCache::Frame* FrameCache::nearestPicture(double seconds) const
{
    auto begun = lastBegun(seconds);
    auto next = begun == m_frames.end() ? m_frames.begin() : std::next(begun);
    while (begun != m_frames.end() && !begun->second.picture)
        begun = begun == m_frames.begin() ? m_frames.end() : std::prev(begun);
    while (next != m_frames.end() && !next->second.picture)
        ++next;
    if (begun == m_frames.end() || next == m_frames.end()) {
        const auto only = begun == m_frames.end() ? next : begun;
        return only == m_frames.end() ? nullptr : &only->second;
    }
    const bool isNextNearer = next->first.seconds() - seconds < seconds - begun->first.seconds();
    return isNextNearer ? &next->second : &begun->second;
}

FrameCache::Pick FrameCache::pick(double seconds) const
{
    auto begun = lastBegun(seconds);
    if (begun != m_frames.end() && covers(begun->second, seconds)) {
        // Where nothing can be decoded, the picture from before stays.
        while (!begun->second.picture && begun != m_frames.begin())
            --begun;
        return {begun->second.picture ? &begun->second : nearestPicture(seconds), true};
    }
    return {nearestPicture(seconds), false};
}

const FrameCache::Frame* FrameCache::beginningAt(MediaTime begin) const
{
    const auto found = m_frames.find(begin);
    return found != m_frames.end() ? &found->second : nullptr;
}

std::optional<FrameCache::Stretch> FrameCache::stretchAround(double seconds) const
{
    auto first = lastBegun(seconds);
    if (first == m_frames.end() || !covers(first->second, seconds))
        return std::nullopt;
    auto last = first;
    while (first != m_frames.begin() && std::prev(first)->second.end == first->first)
        --first;
    MediaTime end = *last->second.end;
    for (auto next = std::next(last); next != m_frames.end() && next->first == end && next->second.end;
         next = std::next(last)) {
        end = *next->second.end;
        last = next;
    }
    return Stretch{first->first.seconds(), end.seconds()};
}

size_t FrameCache::bytesBetween(double from, double to) const
{
    size_t bytes = 0;
    auto frame = lastBegun(from);
    if (frame == m_frames.end())
        frame = m_frames.begin();
    for (; frame != m_frames.end() && frame->first.seconds() <= to; ++frame)
        bytes += bytesOfFrame(frame->second);
    return bytes;
}

void FrameCache::shrink(size_t budget, double seconds, double rate)
{
    // Behind a moving playhead only what a stop can still bring back.
    constexpr size_t kBehindForward = 4; // a part of the budget
    constexpr size_t kBehindBackward = 10;
    while (m_bytes > budget && m_frames.size() > 1) {
        const auto first = m_frames.cbegin();
        const auto last = std::prev(m_frames.cend());
        auto current = lastBegun(seconds);
        if (current == m_frames.end())
            current = first;
        bool dropsFirst = seconds - first->first.seconds() > last->first.seconds() - seconds;
        if (rate > 0)
            dropsFirst = bytesBetween(first->first.seconds(), seconds) > budget / kBehindForward;
        else if (rate < 0)
            dropsFirst = bytesBetween(seconds, last->first.seconds()) <= budget / kBehindBackward;
        if (first == current)
            dropsFirst = false;
        else if (last == current)
            dropsFirst = true;
        erase(dropsFirst ? first : last);
    }
}

}
