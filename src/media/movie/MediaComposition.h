// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/movie/MediaAsset.h"

#include <vector>

namespace zumeta {

/// A stretch of one file on the timeline of a composition.
struct MediaSegment {
    MediaAsset asset;
    MediaTime start; ///< on the composition's clock
    MediaTime length;
    MediaTime sourceStart; ///< on the file's clock

    MediaTime end() const { return start + length; }
};

/// Files laid one after the other, each at its own length, read as one source. A picture is held over a gap behind a
/// file's last frame, missing sound is silence. Also the form in which a single file is read.
class MediaComposition {
public:
    MediaComposition() = default;
    /// The file as it is, with the tracks that it has.
    explicit MediaComposition(const MediaAsset& asset);

    /// Puts the asset's first video track at `at`, over whatever stands there.
    void insertVideo(const MediaAsset& asset, MediaTime at);
    void insertAudio(const MediaAsset& asset, MediaTime at);
    /// A composition of several files carries an audio track even when no file has sound.
    void addAudioTrack() { m_hasAudioTrack = true; }

    bool hasVideoTrack() const { return !m_video.empty(); }
    bool hasAudioTrack() const { return m_hasAudioTrack; }
    const std::vector<MediaSegment>& video() const { return m_video; }
    const std::vector<MediaSegment>& audio() const { return m_audio; }
    MediaTime duration() const;
    /// Average frames per second over the files' pictures, gaps left out; 0 when unknown.
    float nominalFrameRate() const;

private:
    std::vector<MediaSegment> m_video;
    std::vector<MediaSegment> m_audio;
    bool m_hasAudioTrack = false;
};

/// The segment that is read for a moment: the last one that has begun by then. Null before the first.
const MediaSegment* segmentAt(const std::vector<MediaSegment>& segments, double seconds);

}
