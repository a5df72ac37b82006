// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/movie/AudioReader.h"
#include "media/movie/FrameReader.h"
#include "media/movie/MediaAsset.h"
#include "media/movie/PictureScaling.h"

#include <functional>
#include <memory>
#include <stop_token>

namespace zumeta {

struct TranscoderOptions {
    int width = 1280; ///< of the box into which the picture is fitted, pixels
    int height = 720;
    int threads = 1; ///< cores that it may keep busy
    /// What fills the pictures, in place of a plain scaling that keeps the source's colours and names them: eight bits
    /// hold wide colours and HDR badly, and the floor that knows better stands above this one.
    PictureScalingMaker scaling;
};

/// Width and height of a picture, pixels.
struct PictureSize {
    int width = 0;
    int height = 0;
    friend bool operator==(const PictureSize&, const PictureSize&) = default;
};

/// The largest even size within the box that has the natural size's shape, and is not larger than it.
PictureSize fittedSize(double naturalWidth, double naturalHeight, const TranscoderOptions& box);

/// Makes a small copy of one file that shows the same frames at the same times on the same clock, for scrubbing: MP4
/// with key frames only, the index at the front, square pixels, the stored orientation, and the sound as AAC. Lives on
/// one thread, besides those that it starts.
class Transcoder {
public:
    /// Fractions 0 to 1, rising.
    using Progress = std::function<void(double)>;

    /// Throws MovieError when the file cannot be opened or has no picture that can be decoded.
    static std::unique_ptr<Transcoder> open(const FileUrl& source, TranscoderOptions options, std::stop_token stop);
    ~Transcoder();
    Transcoder(const Transcoder&) = delete; // it stands for open files
    Transcoder& operator=(const Transcoder&) = delete;

    /// Makes a new file, once. Throws MovieError, also when the source ends before its end; what was written is
    /// removed then.
    void write(const FileUrl& output, const Progress& progress);

private:
    class Run;
    Transcoder(MediaAsset asset, TranscoderOptions options, std::stop_token stop);

    const MediaAsset m_asset;
    const TranscoderOptions m_options;
    const std::stop_token m_stop;
    std::unique_ptr<FrameReader> m_frames;
    std::unique_ptr<AudioReader> m_sound; ///< null without sound
};

}
