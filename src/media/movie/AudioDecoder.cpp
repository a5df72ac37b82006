// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/movie/AudioDecoder.h"

#include <algorithm>
#include <cmath>

extern "C" {
#include <libavutil/channel_layout.h>
#include <libavutil/opt.h>
#include <libavutil/samplefmt.h>
}

namespace zumeta {

namespace {

/// Decoders of overlapping transforms need the packet before the first wanted sample; a quarter second is plenty.
constexpr double kPreRollSeconds = 0.25;
/// Containers that count in milliseconds are off by up to half of one; more than this is a real gap.
constexpr double kJitterSeconds = 0.003;
/// A gap is filled in pieces of this many input samples.
constexpr int64_t kSilencePiece = 8192;
/// Longer gaps than this come from broken time stamps.
constexpr double kLongestGapSeconds = 3600;

/// The first output sample at or after `time`, counted from `origin`.
int64_t sampleAtOrAfter(MediaTime time, MediaTime origin)
{
    return int64_t(std::ceil((time - origin).seconds() * AudioSource::kSampleRate - 1e-6));
}

}

AudioDecoder::AudioDecoder(const MediaAsset& asset, MediaTime from, MediaTime to, std::stop_token interrupt)
    : m_demuxer(Demuxer::openAgain(asset.url, AVMEDIA_TYPE_AUDIO, std::move(interrupt)))
    , m_packet(checkAllocated(av_packet_alloc()))
    , m_timeShift(asset.timeShift)
    , m_from(from)
    , m_to(to)
{
    const std::string name = asset.url.lastPathComponent();
    m_stream = m_demuxer.firstStream(AVMEDIA_TYPE_AUDIO);
    if (!m_stream)
        throw MovieError(MovieError::Kind::cannotDecode, name + ": no audio track");
    const AVCodec* const decoder = avcodec_find_decoder(m_stream->codecpar->codec_id);
    if (!decoder)
        throw MovieError(MovieError::Kind::cannotDecode,
                         name + ": no decoder for " + avcodec_get_name(m_stream->codecpar->codec_id));
    m_codec.reset(checkAllocated(avcodec_alloc_context3(decoder)));
    checkAv(avcodec_parameters_to_context(m_codec.get(), m_stream->codecpar), MovieError::Kind::cannotDecode, name);
    m_codec->pkt_timebase = m_stream->time_base;
    checkAv(avcodec_open2(m_codec.get(), decoder, nullptr), MovieError::Kind::cannotDecode, name);
    m_demuxer.select(m_stream);
    const double target = (from + m_timeShift).seconds() - kPreRollSeconds;
    const int64_t first = m_stream->start_time != AV_NOPTS_VALUE ? m_stream->start_time : 0;
    const auto timeStamp = int64_t(std::floor(target / av_q2d(m_stream->time_base)));
    if (timeStamp > first)
        m_demuxer.seekToSyncSample(m_stream, timeStamp);
}

std::optional<AudioBuffer> AudioDecoder::next()
{
    while (true) {
        m_output.clear();
        if (!decodeMore())
            return std::nullopt;
        if (std::optional<AudioBuffer> buffer = takeBuffer())
            return buffer;
        if (m_samplesTaken > 0 && m_samplesTaken >= sampleAtOrAfter(m_to, m_origin))
            return std::nullopt;
    }
}

bool AudioDecoder::decodeMore()
{
    if (m_drained)
        return false;
    const Frame frame(checkAllocated(av_frame_alloc()));
    while (true) {
        const int code = avcodec_receive_frame(m_codec.get(), frame.get());
        if (code >= 0) {
            placeFrame(*frame);
            return true;
        }
        if (code == AVERROR_EOF || (code == AVERROR(EAGAIN) && m_flushing)) {
            m_drained = true;
            resample(nullptr);
            return true;
        }
        if (code != AVERROR(EAGAIN))
            continue; // a damaged packet: what follows is placed by its own time
        const Packet packet = m_demuxer.read();
        m_flushing = !packet;
        avcodec_send_packet(m_codec.get(), packet.get());
    }
}

bool AudioDecoder::takesResamplerOf(const AVFrame& frame) const
{
    return m_resampler && frame.format == m_inputFormat && frame.sample_rate == m_inputRate &&
           frame.ch_layout.nb_channels == m_inputChannels;
}

bool AudioDecoder::makeResampler(const AVFrame& frame)
{
    m_resampler.reset();
    if (frame.sample_rate < 1 || frame.ch_layout.nb_channels < 1)
        return false;
    AVChannelLayout from{};
    if (frame.ch_layout.order == AV_CHANNEL_ORDER_UNSPEC)
        av_channel_layout_default(&from, frame.ch_layout.nb_channels);
    else
        av_channel_layout_copy(&from, &frame.ch_layout);
    AVChannelLayout to{};
    av_channel_layout_default(&to, AudioSource::kChannels);
    SwrContext* context = nullptr;
    const int code = swr_alloc_set_opts2(&context, &to, AV_SAMPLE_FMT_S16, AudioSource::kSampleRate, &from,
                                         AVSampleFormat(frame.format), frame.sample_rate, 0, nullptr);
    Resampler resampler(context);
    av_channel_layout_uninit(&from);
    if (code < 0 || swr_init(context) < 0)
        return false;
    m_resampler = std::move(resampler);
    // What is placed already counts on in the new rate.
    if (m_inputRate > 0)
        m_samplesIn = av_rescale(m_samplesIn, frame.sample_rate, m_inputRate);
    m_inputRate = frame.sample_rate;
    m_inputFormat = frame.format;
    m_inputChannels = frame.ch_layout.nb_channels;
    return true;
}

void AudioDecoder::placeFrame(const AVFrame& frame)
{
    const int64_t timeStamp = frame.pts != AV_NOPTS_VALUE ? frame.pts : frame.best_effort_timestamp;
    const bool hasTime = timeStamp != AV_NOPTS_VALUE;
    if (!takesResamplerOf(frame)) {
        // A track may change its channels or its rate half way; what the old form holds back comes out first.
        resample(nullptr);
        const bool isFirst = m_inputRate == 0;
        if (!makeResampler(frame))
            return; // sound in a form that nothing can convert is as good as damaged
        if (isFirst)
            m_origin = hasTime ? toMediaTime(timeStamp, m_stream->time_base) - m_timeShift : MediaTime{0, 1};
    }
    if (hasTime) {
        const MediaTime expected = m_origin + MediaTime{m_samplesIn, m_inputRate};
        const double late = (toMediaTime(timeStamp, m_stream->time_base) - m_timeShift - expected).seconds();
        if (late > kJitterSeconds && late < kLongestGapSeconds)
            feedSilence(int64_t(std::llround(late * m_inputRate)));
        else if (late < -kJitterSeconds)
            return; // sound that was already there
    }
    resample(&frame);
    m_samplesIn += frame.nb_samples;
}

void AudioDecoder::feedSilence(int64_t samples)
{
    m_samplesIn += samples;
    while (samples > 0) {
        const auto piece = int(std::min(samples, kSilencePiece));
        swr_inject_silence(m_resampler.get(), piece);
        samples -= piece;
        const auto capacity = size_t(swr_get_out_samples(m_resampler.get(), 0));
        const size_t before = m_output.size();
        m_output.resize(before + capacity * AudioSource::kChannels);
        auto* out = reinterpret_cast<uint8_t*>(m_output.data() + before);
        const int count = std::max(0, swr_convert(m_resampler.get(), &out, int(capacity), nullptr, 0));
        m_output.resize(before + size_t(count) * AudioSource::kChannels);
    }
}

void AudioDecoder::resample(const AVFrame* frame)
{
    if (!m_resampler)
        return;
    const int samples = frame ? frame->nb_samples : 0;
    const int bound = swr_get_out_samples(m_resampler.get(), samples);
    if (bound <= 0)
        return;
    const size_t before = m_output.size();
    m_output.resize(before + size_t(bound) * AudioSource::kChannels);
    auto* out = reinterpret_cast<uint8_t*>(m_output.data() + before);
    const auto** const input = frame ? const_cast<const uint8_t**>(frame->extended_data) : nullptr;
    const int count = std::max(0, swr_convert(m_resampler.get(), &out, bound, input, samples));
    m_output.resize(before + size_t(count) * AudioSource::kChannels);
}

std::optional<AudioBuffer> AudioDecoder::takeBuffer()
{
    const auto count = int64_t(m_output.size()) / AudioSource::kChannels;
    const int64_t begin = m_samplesTaken;
    m_samplesTaken += count;
    const int64_t first = std::max(begin, sampleAtOrAfter(m_from, m_origin));
    const int64_t last = std::min(begin + count, sampleAtOrAfter(m_to, m_origin));
    if (first >= last)
        return std::nullopt;
    AudioBuffer buffer;
    buffer.presentationTime = m_origin + MediaTime{first, AudioSource::kSampleRate};
    buffer.samples.assign(m_output.begin() + (first - begin) * AudioSource::kChannels,
                          m_output.begin() + (last - begin) * AudioSource::kChannels);
    return buffer;
}

}
