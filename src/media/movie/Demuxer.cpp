// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/movie/Demuxer.h"

#include <algorithm>
#include <filesystem>
#include <string_view>
#include <system_error>

namespace zumeta {

namespace {

int isInterrupted(void* token)
{
    return static_cast<const std::stop_token*>(token)->stop_requested() ? 1 : 0;
}

/// MP4 and MOV with a full table of samples and the decoder's set-up in the header. Fragmented files have neither their
/// start nor their order there.
bool headerTellsAll(const AVFormatContext& format, const AVStream& stream)
{
    const AVCodecParameters& codec = *stream.codecpar;
    const bool isSetUp =
        codec.extradata_size > 0 && (codec.codec_id == AV_CODEC_ID_H264 || codec.codec_id == AV_CODEC_ID_HEVC ||
                                     (codec.codec_id == AV_CODEC_ID_AAC && codec.sample_rate > 0));
    return isSetUp && stream.nb_frames > 0 && stream.start_time != AV_NOPTS_VALUE &&
           std::string_view(format.iformat->name).starts_with("mov");
}

/// Throws when `code` is a failure, in the words of somebody who only knows the file.
void checkOpened(int code, const FileUrl& file)
{
    if (code != AVERROR_INVALIDDATA) {
        checkAv(code, MovieError::Kind::cannotOpen, file.lastPathComponent());
        return;
    }
    std::error_code ignored;
    const bool isEmpty = std::filesystem::file_size(file.path(), ignored) == 0;
    throw MovieError(MovieError::Kind::cannotOpen,
                     file.lastPathComponent() + (isEmpty ? ": the file is empty"
                                                         : ": not a readable video; it is damaged, cut short, or no "
                                                           "video at all"));
}

}

Demuxer Demuxer::openHeader(const FileUrl& file, std::stop_token interrupt)
{
    quietLibav();
    Demuxer demuxer;
    demuxer.m_interrupt = std::make_unique<std::stop_token>(std::move(interrupt));
    AVFormatContext* context = checkAllocated(avformat_alloc_context());
    context->interrupt_callback = {isInterrupted, demuxer.m_interrupt.get()};
    // The protocol in front keeps names that look like an option or a protocol from being taken for one.
    const std::string name = "file:" + file.path().native();
    // A failing open frees the context by itself.
    checkOpened(avformat_open_input(&context, name.c_str(), nullptr, nullptr), file);
    demuxer.m_format.reset(context);
    return demuxer;
}

Demuxer Demuxer::open(const FileUrl& file, std::stop_token interrupt)
{
    Demuxer demuxer = openHeader(file, std::move(interrupt));
    checkOpened(avformat_find_stream_info(demuxer.m_format.get(), nullptr), file);
    return demuxer;
}

Demuxer Demuxer::openAgain(const FileUrl& file, AVMediaType kind, std::stop_token interrupt)
{
    Demuxer demuxer = openHeader(file, std::move(interrupt));
    const AVStream* const stream = demuxer.firstStream(kind);
    if (!stream || !headerTellsAll(demuxer.format(), *stream))
        checkOpened(avformat_find_stream_info(demuxer.m_format.get(), nullptr), file);
    return demuxer;
}

AVStream* Demuxer::firstStream(AVMediaType kind) const
{
    for (unsigned i = 0; i < m_format->nb_streams; ++i) {
        AVStream* const stream = m_format->streams[i];
        if (stream->codecpar->codec_type == kind && !(stream->disposition & AV_DISPOSITION_ATTACHED_PIC))
            return stream;
    }
    return nullptr;
}

void Demuxer::select(const AVStream* stream)
{
    m_selected = stream;
    for (unsigned i = 0; i < m_format->nb_streams; ++i)
        m_format->streams[i]->discard = m_format->streams[i] == stream ? AVDISCARD_DEFAULT : AVDISCARD_ALL;
}

Packet Demuxer::read()
{
    if (m_pending)
        return std::move(m_pending);
    Packet packet(checkAllocated(av_packet_alloc()));
    // A damaged stretch can make a read fail that a later one gets past; a bound keeps that from going on for ever.
    constexpr int kMostFailures = 64;
    int failures = 0;
    while (failures < kMostFailures) {
        const int code = av_read_frame(m_format.get(), packet.get());
        if (code == AVERROR_EOF || code == AVERROR_EXIT || code == AVERROR(EIO))
            return nullptr;
        if (code < 0) {
            ++failures;
            continue;
        }
        if (!m_selected || packet->stream_index == m_selected->index)
            return packet;
        av_packet_unref(packet.get());
    }
    return nullptr;
}

void Demuxer::rewind()
{
    m_pending.reset();
    const int64_t start = m_format->start_time != AV_NOPTS_VALUE ? m_format->start_time : 0;
    if (av_seek_frame(m_format.get(), -1, start, AVSEEK_FLAG_BACKWARD) < 0)
        av_seek_frame(m_format.get(), -1, 0, AVSEEK_FLAG_BYTE);
}

void Demuxer::seekToSyncSample(const AVStream* stream, int64_t target)
{
    const int64_t second = std::max<int64_t>(1, av_rescale(1, stream->time_base.den, stream->time_base.num));
    int64_t wanted = target;
    int64_t step = second;
    constexpr int kMostTries = 40; // the step doubles: enough for any length
    for (int tries = 0; tries < kMostTries; ++tries) {
        m_pending.reset();
        if (av_seek_frame(m_format.get(), stream->index, wanted, AVSEEK_FLAG_BACKWARD) < 0)
            break;
        Packet packet = read();
        if (packet && presentationTimeStamp(*packet) <= target && (packet->flags & AV_PKT_FLAG_KEY)) {
            m_pending = std::move(packet);
            return;
        }
        if (packet && packet->dts != AV_NOPTS_VALUE && packet->dts <= wanted && (packet->flags & AV_PKT_FLAG_KEY)) {
            wanted = packet->dts - 1;
        } else {
            wanted -= step;
            step *= 2;
        }
    }
    rewind();
}

std::optional<int64_t> Demuxer::indexedSyncSample(AVStream* stream, int64_t target)
{
    const AVIndexEntry* const entry = avformat_index_get_entry_from_timestamp(stream, target, AVSEEK_FLAG_BACKWARD);
    return entry ? std::optional(entry->timestamp) : std::nullopt;
}

bool Demuxer::hasOnlySyncSamples(AVStream* stream)
{
    const int count = avformat_index_get_entries_count(stream);
    if (count < 1 || count < stream->nb_frames)
        return false;
    for (int i = 0; i < count; ++i) {
        if (!(avformat_index_get_entry(stream, i)->flags & AVINDEX_KEYFRAME))
            return false;
    }
    return stream->nb_frames > 0;
}

void Demuxer::seekToLastSyncSample(const AVStream* stream)
{
    m_pending.reset();
    const int64_t length = av_rescale_q(std::max<int64_t>(m_format->duration, 0), {1, AV_TIME_BASE}, stream->time_base);
    if (av_seek_frame(m_format.get(), stream->index, length, AVSEEK_FLAG_BACKWARD) < 0)
        rewind();
}

}
