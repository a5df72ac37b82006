// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/movie/MediaTime.h"
#include "media/movie/VideoPicture.h"

#include <map>
#include <optional>

namespace zumeta {

/// Decoded frames by the time from which they are shown. Knows of each until when it is shown as soon as that is
/// certain, and so which stretches of time are covered without a hole. A frame without a picture stands for a stretch
/// in which nothing can be decoded.
class FrameCache {
public:
    struct Frame {
        MediaTime begin;
        std::optional<MediaTime> end; ///< where the next one takes over
        MediaTime presentationTime;
        std::optional<VideoPicture> picture;
    };
    struct Pick {
        const Frame* frame = nullptr; ///< with a picture; null when there is none at all
        bool isExact = false;         ///< it is known that this one belongs there, and no other
    };
    /// Seconds.
    struct Stretch {
        double begin = 0;
        double end = 0;
    };

    /// In place of what it overlaps.
    void put(Frame frame);
    /// For a frame that is still there.
    void setEnd(MediaTime begin, std::optional<MediaTime> end);
    void clear();

    bool isEmpty() const { return m_frames.empty(); }
    size_t bytes() const { return m_bytes; }

    /// The frame for a moment, or else the one that is nearest to it.
    Pick pick(double seconds) const;
    /// The frame that begins exactly there.
    const Frame* beginningAt(MediaTime begin) const;
    /// What is covered around a moment without a hole; nothing when the moment itself is not.
    std::optional<Stretch> stretchAround(double seconds) const;
    /// Bytes of the frames that begin between two moments, the first one shown before the former counted too.
    size_t bytesBetween(double from, double to) const;

    /// Lets frames go until `budget` bytes are left, those first that a playhead at `seconds` moving at `rate` needs
    /// last. The frame at the playhead stays.
    void shrink(size_t budget, double seconds, double rate);

    static size_t bytesOf(const VideoPicture& picture);

private:
    using Frames = std::map<MediaTime, Frame>;
    Frames::const_iterator lastBegun(double seconds) const;
    const Frame* nearestPicture(double seconds) const;
    void erase(Frames::const_iterator frame);

    Frames m_frames;
    size_t m_bytes = 0;
};

}
