// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/movie/MediaComposition.h"
#include "media/movie/VideoPicture.h"

#include <memory>
#include <optional>
#include <stop_token>

namespace zumeta {

/// One frame's place in a recording. A damaged frame keeps its place without a picture, so that recordings that are
/// paired by order stay in step behind it.
struct FrameSlot {
    MediaTime presentationTime; ///< on the source's clock
    std::optional<VideoPicture> picture;
    bool isPassedOver = false; ///< there is one, but the decoder was told to leave it out
};

/// Frames in the order in which they are shown.
class FrameSource {
public:
    virtual ~FrameSource() = default;
    /// Nothing at the end, and where the source cannot be read any further.
    virtual std::optional<FrameSlot> next() = 0;
};

/// What a decoder with several threads is for.
enum class DecoderUse {
    reading, ///< long stretches in order
    seeking  ///< single pictures too: where every frame stands alone, none waits for those behind it
};

/// A decoder's smoothing of block edges. Without it decoding takes a sixth less, and small errors stay until the next
/// key frame: they are lost in a picture that is made smaller.
enum class LoopFilter { applied, skipped };

struct FrameReaderOptions {
    int decoderThreads = 1; ///< frame threads of the decoder; more cost memory and start-up
    std::stop_token interrupt = {};
    DecoderUse use = DecoderUse::reading;
    LoopFilter loopFilter = LoopFilter::applied;
};

/// Reads a stretch of a composition: the frame shown at its start, then every further frame that begins before its
/// end. Lives on one thread at a time. A file that fails on the way ends the reading with a log line.
class FrameReader final : public FrameSource {
public:
    /// Throws MovieError when the file at the start cannot be opened or has no decoder. Times in seconds.
    FrameReader(MediaComposition source, double start, double length, FrameReaderOptions options = {});
    ~FrameReader() override;
    FrameReader(const FrameReader&) = delete; // it stands for a place in open files
    FrameReader& operator=(const FrameReader&) = delete;

    std::optional<FrameSlot> next() override;

private:
    class FileReader;
    void openSegment(size_t index, double localStart);

    MediaComposition m_source;
    double m_end;
    FrameReaderOptions m_options;
    size_t m_segment = 0;
    std::unique_ptr<FileReader> m_file;
};

}
