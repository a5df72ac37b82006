// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/movie/AudioReader.h"
#include "media/movie/Demuxer.h"

namespace zumeta {

/// The sound of one file's first audio track in AudioSource's form, from a moment to another on the file's clock.
/// A stretch that is missing inside the track comes out as silence, so what follows stays at its time.
class AudioDecoder {
public:
    /// Throws MovieError.
    AudioDecoder(const MediaAsset& asset, MediaTime from, MediaTime to, std::stop_token interrupt);

    /// Buffers on the file's clock; nothing at the end.
    std::optional<AudioBuffer> next();

private:
    bool decodeMore();
    void resample(const AVFrame* frame);
    bool takesResamplerOf(const AVFrame& frame) const;
    bool makeResampler(const AVFrame& frame);
    void placeFrame(const AVFrame& frame);
    void feedSilence(int64_t samples);
    std::optional<AudioBuffer> takeBuffer();

    Demuxer m_demuxer;
    AVStream* m_stream = nullptr;
    CodecContext m_codec;
    Resampler m_resampler;
    Packet m_packet;
    MediaTime m_timeShift;
    MediaTime m_from;
    MediaTime m_to;
    int m_inputRate = 0;
    int m_inputFormat = 0;
    int m_inputChannels = 0;
    MediaTime m_origin;         ///< of the first sample that went into the resampler
    int64_t m_samplesIn = 0;    ///< at the input rate, since the origin
    int64_t m_samplesTaken = 0; ///< at the output rate, since the origin
    bool m_flushing = false;
    bool m_drained = false;
    std::vector<int16_t> m_output;
};

}
