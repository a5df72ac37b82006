// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/movie/MediaComposition.h"

#include <algorithm>

namespace zumeta {

namespace {

/// Lays a segment over the others: what it covers is cut away, and what stands behind it stays.
void layOver(std::vector<MediaSegment>& segments, const MediaSegment& added)
{
    std::vector<MediaSegment> result;
    for (const MediaSegment& old : segments) {
        if (old.end() <= added.start || old.start >= added.end()) {
            result.push_back(old);
            continue;
        }
        if (old.start < added.start) {
            MediaSegment head = old;
            head.length = added.start - old.start;
            result.push_back(head);
        }
        if (old.end() > added.end()) {
            MediaSegment tail = old;
            tail.sourceStart = old.sourceStart + (added.end() - old.start);
            tail.start = added.end();
            tail.length = old.end() - added.end();
            result.push_back(tail);
        }
    }
    result.push_back(added);
    std::stable_sort(result.begin(), result.end(),
                     [](const MediaSegment& a, const MediaSegment& b) { return a.start < b.start; });
    segments = std::move(result);
}

MediaTime endOf(const std::vector<MediaSegment>& segments)
{
    return segments.empty() ? MediaTime{0, 1} : segments.back().end();
}

}

MediaComposition::MediaComposition(const MediaAsset& asset)
{
    if (asset.video)
        insertVideo(asset, {0, 1});
    if (asset.audio)
        insertAudio(asset, {0, 1});
}

void MediaComposition::insertVideo(const MediaAsset& asset, MediaTime at)
{
    layOver(m_video, {asset, at, asset.duration, {0, 1}});
}

void MediaComposition::insertAudio(const MediaAsset& asset, MediaTime at)
{
    m_hasAudioTrack = true;
    layOver(m_audio, {asset, at, asset.duration, {0, 1}});
}

MediaTime MediaComposition::duration() const
{
    return std::max(endOf(m_video), endOf(m_audio));
}

float MediaComposition::nominalFrameRate() const
{
    double frames = 0;
    double seconds = 0;
    float only = 0;
    bool allEqual = true;
    for (const MediaSegment& segment : m_video) {
        const VideoTrack& track = *segment.asset.video;
        frames += double(track.nominalFrameRate) * track.length.seconds();
        seconds += track.length.seconds();
        allEqual = allEqual && (only == 0 || only == track.nominalFrameRate);
        only = track.nominalFrameRate;
    }
    // Chapters of one recording share their rate to the last digit, which a quotient would not keep.
    if (allEqual)
        return only;
    return seconds > 0 ? float(frames / seconds) : 0.0F;
}

const MediaSegment* segmentAt(const std::vector<MediaSegment>& segments, double seconds)
{
    const MediaSegment* found = nullptr;
    for (const MediaSegment& segment : segments) {
        if (frameHasBegun(segment.start, seconds))
            found = &segment;
    }
    return found;
}

}
