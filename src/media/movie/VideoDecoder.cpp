// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/movie/VideoDecoder.h"

#include "media/movie/FramePicture.h"

#include <algorithm>
#include <cmath>
#include <string_view>

namespace zumeta {

namespace {

/// Seconds behind every recording's end that still fit into time stamps.
constexpr double kFarAway = 1e9;

constexpr uint8_t kDelimiterH264[] = {0x09, 0xf0};
constexpr uint8_t kDelimiterHevc[] = {0x46, 0x01, 0x50};

CodecContext openDecoder(AVStream& stream, const FrameReaderOptions& options, const std::string& name)
{
    const AVCodec* const decoder = avcodec_find_decoder(stream.codecpar->codec_id);
    if (!decoder)
        throw MovieError(MovieError::Kind::cannotDecode,
                         name + ": no decoder for " + avcodec_get_name(stream.codecpar->codec_id));
    CodecContext context(checkAllocated(avcodec_alloc_context3(decoder)));
    checkAv(avcodec_parameters_to_context(context.get(), stream.codecpar), MovieError::Kind::cannotDecode, name);
    context->pkt_timebase = stream.time_base;
    context->thread_count = options.decoderThreads;
    // Each frame thread holds a frame back, and gains nothing for a single picture that stands alone.
    const bool standAlone = options.use == DecoderUse::seeking && Demuxer::hasOnlySyncSamples(&stream);
    context->thread_type = standAlone ? FF_THREAD_SLICE : FF_THREAD_FRAME;
    if (options.loopFilter == LoopFilter::skipped)
        context->skip_loop_filter = AVDISCARD_ALL;
    context->flags |= AV_CODEC_FLAG_OUTPUT_CORRUPT; // which of them are whole is judged in isWhole
    checkAv(avcodec_open2(context.get(), decoder, nullptr), MovieError::Kind::cannotDecode, name);
    return context;
}

}

VideoDecoder::VideoDecoder(const MediaAsset& asset, double start, const FrameReaderOptions& options)
    : m_demuxer(Demuxer::openAgain(asset.url, AVMEDIA_TYPE_VIDEO, options.interrupt))
    , m_interrupt(options.interrupt)
    , m_timeShift(asset.timeShift)
{
    const std::string name = asset.url.lastPathComponent();
    m_stream = m_demuxer.firstStream(AVMEDIA_TYPE_VIDEO);
    if (!m_stream)
        throw MovieError(MovieError::Kind::noVideoTrack, name + ": no video track");
    if (asset.video) {
        // The header alone may not tell these.
        m_pixelAspect = asset.video->pixelAspect;
        m_stream->codecpar->video_delay = asset.video->reorderedFrames;
    }
    m_codec = openDecoder(*m_stream, options, name);
    // AVI has no presentation times: what libav guesses cannot tell a late frame from a missing one.
    m_timeStampsAreReal = std::string_view(m_demuxer.format().iformat->name) != "avi";
    if (std::string_view(m_demuxer.format().iformat->name).starts_with("mov") && m_stream->avg_frame_rate.num > 0)
        m_indexLag =
            m_stream->codecpar->video_delay * av_rescale_q(1, av_inv_q(m_stream->avg_frame_rate), m_stream->time_base);
    m_demuxer.select(m_stream);
    preparePush();
    if (start > 0)
        enter(start);
}

void VideoDecoder::preparePush()
{
    // An access unit that consists of a delimiter alone. Frames in another order than that of their showing are held
    // back for other reasons too.
    const AVCodecParameters& codec = *m_stream->codecpar;
    const bool isH264 = codec.codec_id == AV_CODEC_ID_H264 && codec.extradata_size > 4 && codec.extradata[0] == 1;
    const bool isHevc = codec.codec_id == AV_CODEC_ID_HEVC && codec.extradata_size > 21 && codec.extradata[0] == 1;
    if ((!isH264 && !isHevc) || codec.video_delay > 0 || m_codec->active_thread_type != FF_THREAD_FRAME)
        return;
    const int prefix = (codec.extradata[isH264 ? 4 : 21] & 3) + 1; // bytes that tell the length
    const std::basic_string_view<uint8_t> delimiter =
        isH264 ? std::basic_string_view<uint8_t>(kDelimiterH264, sizeof kDelimiterH264)
               : std::basic_string_view<uint8_t>(kDelimiterHevc, sizeof kDelimiterHevc);
    Packet push(checkAllocated(av_packet_alloc()));
    const int size = prefix + int(delimiter.size());
    checkAv(av_new_packet(push.get(), size), MovieError::Kind::cannotDecode, "making a packet");
    std::fill_n(push->data, prefix - 1, uint8_t(0));
    push->data[prefix - 1] = uint8_t(delimiter.size());
    std::copy(delimiter.begin(), delimiter.end(), push->data + prefix);
    m_push = std::move(push);
}

void VideoDecoder::hurryTo(double moment)
{
    const int64_t timeStamp = timeStampFor(moment);
    if (m_push && std::exchange(m_hurryTo, timeStamp) != timeStamp)
        m_pushes = m_codec->thread_count - 1;
}

int64_t VideoDecoder::timeStampFor(double start) const
{
    double target = (latestBegin(start) + m_timeShift.seconds()) / av_q2d(m_stream->time_base);
    // AVI counts frames in decoding order, in which a frame stands up to this far behind its place in time.
    constexpr int kMostReordered = 16;
    if (!m_timeStampsAreReal)
        target -= kMostReordered;
    return int64_t(std::floor(target));
}

void VideoDecoder::seek(double start)
{
    avcodec_flush_buffers(m_codec.get());
    m_peeked.reset();
    m_awaited.clear();
    m_optional.clear();
    m_ready.clear();
    m_flushing = false;
    m_ended = false;
    m_lastTimeStamp = -1;
    m_lastSentDts = INT64_MIN;
    m_lastWasWhole = false;
    m_entry.reset();
    m_nextEntry.reset();
    m_entryIsGradual = false;
    m_buildingUp.reset();
    m_passOverBefore = INT64_MIN;
    m_endsBehindEntry = false;
    m_hasSent = false;
    m_pushes = 0;
    m_hurryTo = INT64_MAX;
    enter(start);
}

void VideoDecoder::seekForOneFrame(double start)
{
    seek(start);
    m_endsBehindEntry = true;
}

void VideoDecoder::passOverBefore(double end)
{
    if (m_timeStampsAreReal)
        m_passOverBefore = end < kFarAway ? timeStampFor(end) : INT64_MAX;
}

void VideoDecoder::enter(double start)
{
    m_isBehindSeek = start > 0;
    if (start > 0)
        m_demuxer.seekToSyncSample(m_stream, timeStampFor(start));
    else
        m_demuxer.rewind();
}

std::optional<double> VideoDecoder::entryPointFor(double start) const
{
    const std::optional<int64_t> entry = Demuxer::indexedSyncSample(m_stream, timeStampFor(start) - m_indexLag);
    return entry ? std::optional(onFileClock(*entry + m_indexLag).seconds()) : std::nullopt;
}

MediaTime VideoDecoder::onFileClock(int64_t timeStamp) const
{
    return toMediaTime(timeStamp, m_stream->time_base) - m_timeShift;
}

std::optional<FrameSlot> VideoDecoder::next()
{
    while (m_ready.empty() && work()) {
    }
    return take();
}

std::optional<FrameSlot> VideoDecoder::take()
{
    if (m_ready.empty())
        return std::nullopt;
    FrameSlot slot = std::move(m_ready.front());
    m_ready.pop_front();
    return slot;
}

bool VideoDecoder::work()
{
    if (m_ended || m_interrupt.stop_requested())
        return false;
    Frame frame(checkAllocated(av_frame_alloc()));
    const int code = avcodec_receive_frame(m_codec.get(), frame.get());
    if (code == AVERROR_EOF) {
        releaseBefore(INT64_MAX);
        m_ended = true;
    } else if (code == AVERROR(EAGAIN)) {
        send();
    } else if (code >= 0) {
        receive(std::move(frame));
    } // else the decoder gave one frame up; its slot shows later that nothing came for it
    return true;
}

std::optional<MediaTime> VideoDecoder::nextBegin()
{
    if (!m_ready.empty())
        return m_ready.front().presentationTime;
    if (!m_timeStampsAreReal)
        return std::nullopt;
    if (!m_peeked && (!m_flushing || m_endsBehindEntry))
        m_peeked = m_demuxer.read();
    int64_t next = m_awaited.empty() ? INT64_MAX : *m_awaited.begin();
    if (!m_optional.empty())
        next = std::min(next, *m_optional.begin());
    int64_t reached = m_lastSentDts;
    if (m_peeked && m_peeked->dts != AV_NOPTS_VALUE) {
        reached = m_peeked->dts;
        if (!(m_peeked->flags & AV_PKT_FLAG_DISCARD) && presentationTimeStamp(*m_peeked) > m_lastTimeStamp)
            next = std::min(next, presentationTimeStamp(*m_peeked));
    }
    // No frame is shown before its decoding time, and those only grow.
    return next <= reached ? std::optional(onFileClock(next)) : std::nullopt;
}

void VideoDecoder::send()
{
    if (m_flushing) {
        m_ended = true;
        return;
    }
    const bool isBehindEntry = m_endsBehindEntry && m_hasSent;
    Packet packet = isBehindEntry ? nullptr : m_peeked ? std::move(m_peeked) : m_demuxer.read();
    if (packet && m_pushes > 0 && m_hasSent && presentationTimeStamp(*packet) > m_hurryTo) {
        --m_pushes;
        m_peeked = std::move(packet);
        avcodec_send_packet(m_codec.get(), m_push.get());
        return;
    }
    if (!packet) {
        m_flushing = true;
        avcodec_send_packet(m_codec.get(), nullptr);
        return;
    }
    m_hasSent = true;
    noteEntry(*packet);
    const int64_t timeStamp = presentationTimeStamp(*packet);
    const bool passesOver = timeStamp != AV_NOPTS_VALUE && timeStamp < m_passOverBefore;
    if (m_timeStampsAreReal && timeStamp != AV_NOPTS_VALUE && !(packet->flags & AV_PKT_FLAG_DISCARD))
        (passesOver ? m_optional : m_awaited).insert(timeStamp);
    m_lastSentDts = packet->dts != AV_NOPTS_VALUE ? packet->dts : m_lastSentDts;
    m_codec->skip_frame = passesOver ? AVDISCARD_NONREF : AVDISCARD_DEFAULT;
    // A packet that the decoder refuses leaves its slot without a picture.
    avcodec_send_packet(m_codec.get(), packet.get());
}

int64_t VideoDecoder::timeStampOf(const AVFrame& frame) const
{
    if (m_timeStampsAreReal)
        return frame.pts != AV_NOPTS_VALUE ? frame.pts : frame.best_effort_timestamp;
    // A frame leaves the decoder with the packet that pushes it out, and the last ones when no packet is left.
    return frame.pkt_dts != AV_NOPTS_VALUE ? frame.pkt_dts - m_codec->has_b_frames : m_lastTimeStamp + 1;
}

bool VideoDecoder::isWhole(const AVFrame& frame) const
{
    if (frame.decode_error_flags != 0)
        return false;
    // Behind a seek, libav's H.264 decoder takes frames for unrecovered that it read before their entry point came
    // out, and forgets to put that right for those it still holds at the end of the file. They follow whole frames.
    return !(frame.flags & AV_FRAME_FLAG_CORRUPT) || (m_flushing && m_lastWasWhole);
}

void VideoDecoder::noteEntry(const AVPacket& packet)
{
    if (!m_isBehindSeek || !(packet.flags & AV_PKT_FLAG_KEY))
        return;
    const int64_t timeStamp = presentationTimeStamp(packet);
    if (!m_entry)
        m_entry = timeStamp;
    else if (!m_nextEntry && timeStamp > *m_entry)
        m_nextEntry = timeStamp;
}

bool VideoDecoder::isBuiltUp(int64_t timeStamp, bool isWhole)
{
    if (m_timeStampsAreReal && m_entry && timeStamp < *m_entry)
        return false; // it leans on frames from before the entry point, whatever the decoder says
    if (m_entry && timeStamp == *m_entry)
        m_entryIsGradual = !isWhole;
    if (!m_entryIsGradual || !isWhole)
        return isWhole;
    if (!m_buildingUp)
        m_buildingUp = timeStamp - *m_entry;
    // Encoders let refreshed parts lean on parts that are not: after the first pass a picture claims to be whole, only
    // after the second one it is.
    return m_nextEntry && timeStamp >= *m_nextEntry + *m_buildingUp;
}

void VideoDecoder::receive(Frame frame)
{
    const int64_t timeStamp = timeStampOf(*frame);
    if (timeStamp == AV_NOPTS_VALUE)
        return;
    m_lastTimeStamp = timeStamp;
    releaseBefore(timeStamp);
    m_awaited.erase(timeStamp);
    m_optional.erase(timeStamp);
    m_ready.push_back({onFileClock(timeStamp), std::nullopt});
    m_lastWasWhole = isBuiltUp(timeStamp, isWhole(*frame));
    if (!m_lastWasWhole)
        return;
    try {
        m_ready.back().picture = pictureFromFrame(std::move(frame), m_pixelAspect);
    } catch (const MovieError&) {
        // A picture in a form that nothing can read is as good as damaged.
    }
}

void VideoDecoder::releaseBefore(int64_t timeStamp)
{
    const auto first = [](const std::set<int64_t>& times) { return times.empty() ? INT64_MAX : *times.begin(); };
    for (int64_t next = std::min(first(m_awaited), first(m_optional)); next < timeStamp;
         next = std::min(first(m_awaited), first(m_optional))) {
        const bool isDamaged = m_awaited.erase(next) > 0;
        m_optional.erase(next);
        m_ready.push_back({onFileClock(next), std::nullopt, !isDamaged});
        m_lastWasWhole = m_lastWasWhole && !isDamaged;
    }
}

}
