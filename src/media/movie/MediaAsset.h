// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/movie/MediaTime.h"
#include "platform/FileUrl.h"

#include <optional>
#include <stop_token>

namespace zumeta {

/// The linear part of the transform that would turn a stored picture upright; it is never applied to pixels.
struct PreferredTransform {
    double a = 1;
    double b = 0;
    double c = 0;
    double d = 1;
    friend bool operator==(const PreferredTransform&, const PreferredTransform&) = default;
};

struct VideoTrack {
    int streamIndex = 0;
    double naturalWidth = 0;    ///< pixels once they are square
    double naturalHeight = 0;   ///< stored rows
    float nominalFrameRate = 0; ///< average frames per second; 0 when the file does not tell
    MediaTime minFrameDuration; ///< the shortest spacing that the track declares; 0 when unknown
    PreferredTransform preferredTransform;
    double pixelAspect = 1;  ///< width of a pixel over its height
    int reorderedFrames = 0; ///< that a decoder holds back to give the others in order
    int64_t frameCount = 0;  ///< frames that the header lists; 0 where it lists none
    MediaTime length;        ///< from the first picture to the end of the last one
};

struct AudioTrack {
    int streamIndex = 0;
    int sampleRate = 0;
    int channels = 0;
    MediaTime end; ///< where the sound ends, on the file's clock
};

/// What a media file says of itself. Its clock starts at the first picture (in a file without one, at the first
/// sound); sound from before that lies below 0. Loaded off the main thread: reading the end of some containers takes
/// a while. No frame is decoded.
struct MediaAsset {
    FileUrl url;
    std::optional<VideoTrack> video; ///< the first track of its kind
    std::optional<AudioTrack> audio;
    MediaTime duration;  ///< the longest of picture and sound
    MediaTime timeShift; ///< the container's time at which the clock starts

    /// Throws MovieError::cannotOpen.
    static MediaAsset load(const FileUrl& url, std::stop_token interrupt = {});
};

}
