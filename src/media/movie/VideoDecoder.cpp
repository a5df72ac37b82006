// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/movie/VideoDecoder.h"

#include "media/movie/FramePicture.h"

#include <cmath>
#include <string_view>

namespace zumeta {

namespace {

CodecContext openDecoder(const AVStream& stream, const FrameReaderOptions& options, const std::string& name)
{
    const AVCodec* const decoder = avcodec_find_decoder(stream.codecpar->codec_id);
    if (!decoder)
        throw MovieError(MovieError::Kind::cannotDecode,
                         name + ": no decoder for " + avcodec_get_name(stream.codecpar->codec_id));
    CodecContext context(checkAllocated(avcodec_alloc_context3(decoder)));
    checkAv(avcodec_parameters_to_context(context.get(), stream.codecpar), MovieError::Kind::cannotDecode, name);
    context->pkt_timebase = stream.time_base;
    context->thread_count = options.decoderThreads;
    context->thread_type = FF_THREAD_FRAME;
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
    m_demuxer.select(m_stream);
    double target = (start + kFrameTimeTolerance + m_timeShift.seconds()) / av_q2d(m_stream->time_base);
    // AVI counts frames in decoding order, in which a frame stands up to this far behind its place in time.
    constexpr int kMostReordered = 16;
    if (!m_timeStampsAreReal)
        target -= kMostReordered;
    if (start > 0)
        m_demuxer.seekToSyncSample(m_stream, int64_t(std::floor(target)));
}

MediaTime VideoDecoder::onFileClock(int64_t timeStamp) const
{
    return toMediaTime(timeStamp, m_stream->time_base) - m_timeShift;
}

std::optional<FrameSlot> VideoDecoder::next()
{
    while (m_ready.empty() && !m_ended && !m_interrupt.stop_requested()) {
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
    }
    if (m_ready.empty())
        return std::nullopt;
    FrameSlot slot = std::move(m_ready.front());
    m_ready.pop_front();
    return slot;
}

void VideoDecoder::send()
{
    if (m_flushing) {
        m_ended = true;
        return;
    }
    const Packet packet = m_demuxer.read();
    if (!packet) {
        m_flushing = true;
        avcodec_send_packet(m_codec.get(), nullptr);
        return;
    }
    const int64_t timeStamp = presentationTimeStamp(*packet);
    if (m_timeStampsAreReal && timeStamp != AV_NOPTS_VALUE && !(packet->flags & AV_PKT_FLAG_DISCARD))
        m_awaited.insert(timeStamp);
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

void VideoDecoder::receive(Frame frame)
{
    const int64_t timeStamp = timeStampOf(*frame);
    if (timeStamp == AV_NOPTS_VALUE)
        return;
    m_lastTimeStamp = timeStamp;
    releaseBefore(timeStamp);
    m_awaited.erase(timeStamp);
    m_ready.push_back({onFileClock(timeStamp), std::nullopt});
    m_lastWasWhole = isWhole(*frame);
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
    while (!m_awaited.empty() && *m_awaited.begin() < timeStamp) {
        m_ready.push_back({onFileClock(*m_awaited.begin()), std::nullopt});
        m_awaited.erase(m_awaited.begin());
        m_lastWasWhole = false;
    }
}

}
