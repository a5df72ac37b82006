// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/movie/SoundEncoder.h"

#include "media/movie/MovieEncoders.h"

#include <algorithm>

namespace zumeta {

namespace {

constexpr int kAacFrameSamples = 1024;

int64_t samplesAt(MediaTime time, int sampleRate)
{
    return av_rescale_q_rnd(time.value, {1, int(time.timescale)}, {1, sampleRate}, AV_ROUND_NEAR_INF);
}

}

SoundEncoder::SoundEncoder(const MovieAudioSettings& settings, MediaTime end)
    : m_settings(settings)
    , m_codec(openAudioEncoder(settings))
    , m_end(samplesAt(end, settings.sampleRate))
{}

void SoundEncoder::append(std::span<const int16_t> samples, MediaTime presentationTime, const Write& write)
{
    const int64_t place = samplesAt(presentationTime, m_settings.sampleRate);
    const auto count = int64_t(samples.size()) / m_settings.channels;
    if (place > m_samples)
        add(nullptr, std::min(place, m_end) - m_samples, write);
    // Buffers of two files may overlap by a sample where their ends were rounded.
    const int64_t skipped = std::clamp<int64_t>(m_samples - place, 0, count);
    const int64_t taken = std::min(count - skipped, m_end - m_samples);
    if (taken > 0)
        add(samples.data() + skipped * m_settings.channels, taken, write);
}

void SoundEncoder::add(const int16_t* samples, int64_t count, const Write& write)
{
    const int channels = m_settings.channels;
    constexpr float kScale = 1.0F / 32768.0F;
    while (count > 0) {
        if (!m_block) {
            m_block.reset(checkAllocated(av_frame_alloc()));
            m_block->format = AV_SAMPLE_FMT_FLTP;
            m_block->sample_rate = m_settings.sampleRate;
            m_block->nb_samples = kAacFrameSamples;
            av_channel_layout_default(&m_block->ch_layout, channels);
            checkAv(av_frame_get_buffer(m_block.get(), 0), MovieError::Kind::cannotEncode, "allocating sound");
            m_block->pts = m_samples;
        }
        const auto taken = int(std::min<int64_t>(count, kAacFrameSamples - m_fill));
        for (int channel = 0; channel < channels; ++channel) {
            auto* const out = reinterpret_cast<float*>(m_block->extended_data[channel]) + m_fill;
            for (int i = 0; i < taken; ++i)
                out[i] = samples ? float(samples[ptrdiff_t(i) * channels + channel]) * kScale : 0.0F;
        }
        if (samples)
            samples += ptrdiff_t(taken) * channels;
        count -= taken;
        m_samples += taken;
        m_fill += taken;
        if (m_fill == kAacFrameSamples)
            encodeBlock(kAacFrameSamples, write);
    }
}

void SoundEncoder::encodeBlock(int samples, const Write& write)
{
    const Frame frame = std::move(m_block);
    frame->nb_samples = samples;
    m_fill = 0;
    encode(*m_codec, frame.get(), write);
}

void SoundEncoder::finish(const Write& write)
{
    if (m_fill > 0)
        encodeBlock(m_fill, write);
    encode(*m_codec, nullptr, write);
}

}
