// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/movie/MediaComposition.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <stop_token>
#include <vector>

namespace zumeta {

/// Interleaved 16-bit stereo samples and the moment of the first one, on the source's clock.
struct AudioBuffer {
    MediaTime presentationTime;
    std::vector<int16_t> samples;
};

/// Sound in order of time.
class AudioSource {
public:
    static constexpr int kSampleRate = 44100; ///< hertz
    static constexpr int kChannels = 2;

    virtual ~AudioSource() = default;
    /// Nothing at the end, and where the source cannot be read any further.
    virtual std::optional<AudioBuffer> next() = 0;
};

/// Reads a stretch of a composition's first audio tracks, decoded to the source's rate and channels and cut to the
/// sample at both ends. Sound that a file lacks leaves a gap between two buffers. Lives on one thread at a time.
class AudioReader final : public AudioSource {
public:
    /// Throws MovieError when the first file's sound cannot be opened. A composition without sound ends at once.
    AudioReader(MediaComposition source, MediaTime start, double length, std::stop_token interrupt = {});
    ~AudioReader() override;
    AudioReader(const AudioReader&) = delete; // it stands for a place in open files
    AudioReader& operator=(const AudioReader&) = delete;

    std::optional<AudioBuffer> next() override;

private:
    bool openSegment(size_t index);

    MediaComposition m_source;
    MediaTime m_start;
    MediaTime m_end;
    std::stop_token m_interrupt;
    size_t m_segment = 0;
    std::unique_ptr<class AudioDecoder> m_file;
};

}
