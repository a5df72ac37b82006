// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/movie/LibavHandles.h"
#include "media/movie/MovieWriter.h"

#include <functional>
#include <span>

namespace zumeta {

/// Turns samples into AAC packets. The samples are laid one after the other from time 0 on; gaps become silence.
class SoundEncoder {
public:
    using Write = std::function<void(AVPacket&)>;

    /// Samples from `end` on are left out. Throws MovieError::cannotEncode.
    SoundEncoder(const MovieAudioSettings& settings, MediaTime end);

    const AVCodecContext& codec() const { return *m_codec; }
    /// Interleaved 16-bit samples in the settings' rate and channels. Every packet that comes out goes to `write`.
    void append(std::span<const int16_t> samples, MediaTime presentationTime, const Write& write);
    void finish(const Write& write);
    /// Seconds of sound taken so far, silence included.
    double position() const { return double(m_samples) / m_settings.sampleRate; }

private:
    void add(const int16_t* samples, int64_t count, const Write& write);
    void encodeBlock(int samples, const Write& write);

    const MovieAudioSettings m_settings;
    CodecContext m_codec;
    int64_t m_end = 0; ///< samples
    Frame m_block;
    int m_fill = 0;        ///< samples waiting in m_block
    int64_t m_samples = 0; ///< taken so far, silence included
};

}
