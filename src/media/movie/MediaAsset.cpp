// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/movie/MediaAsset.h"

#include "media/movie/Demuxer.h"

#include <algorithm>
#include <cmath>
#include <string_view>

extern "C" {
#include <libavutil/display.h>
}

namespace zumeta {

namespace {

/// A whole number that a header uses for "unknown".
constexpr int64_t kUnknown32 = 0xFFFFFFFF;

bool saysItsDuration(const AVStream& stream)
{
    // Fragmented files and Matroska tell no count of samples; what they say of a track's length is a guess at best.
    return stream.duration != AV_NOPTS_VALUE && stream.duration > 0 && stream.duration != kUnknown32 &&
           stream.nb_frames > 0;
}

/// The end of the stream found by reading its packets from the last sync sample on. Nothing if it has none there.
std::optional<MediaTime> endByReading(Demuxer& demuxer, AVStream* stream)
{
    demuxer.select(stream);
    // A fragmented file claims lengths that cannot be seeked to: it is read through.
    if (stream->duration == AV_NOPTS_VALUE && demuxer.format().duration > 0)
        demuxer.seekToLastSyncSample(stream);
    else
        demuxer.rewind();
    std::optional<MediaTime> end;
    while (const Packet packet = demuxer.read()) {
        const int64_t start = presentationTimeStamp(*packet);
        if (start == AV_NOPTS_VALUE)
            continue;
        const MediaTime packetEnd = toMediaTime(start + std::max<int64_t>(packet->duration, 0), stream->time_base);
        end = end ? std::max(*end, packetEnd) : packetEnd;
    }
    return end;
}

int64_t startOf(const AVStream& stream)
{
    return stream.start_time != AV_NOPTS_VALUE ? stream.start_time : 0;
}

MediaTime endOf(Demuxer& demuxer, AVStream* stream)
{
    if (saysItsDuration(*stream))
        return toMediaTime(startOf(*stream) + stream->duration, stream->time_base);
    return endByReading(demuxer, stream).value_or(toMediaTime(startOf(*stream), stream->time_base));
}

PreferredTransform transformOf(const AVStream& stream)
{
    size_t bytes = 0;
    const uint8_t* const data = av_stream_get_side_data(&stream, AV_PKT_DATA_DISPLAYMATRIX, &bytes);
    if (!data || bytes < 9 * sizeof(int32_t))
        return {};
    const auto* const matrix = reinterpret_cast<const int32_t*>(data);
    constexpr double kOne = 65536; // 16.16 fixed point
    return {matrix[0] / kOne, matrix[1] / kOne, matrix[3] / kOne, matrix[4] / kOne};
}

float averageRate(const AVStream& stream)
{
    const double rate = stream.avg_frame_rate.den != 0 ? av_q2d(stream.avg_frame_rate) : 0;
    return std::isfinite(rate) && rate > 0 ? float(rate) : 0.0F;
}

MediaTime shortestSpacing(AVStream* stream)
{
    int64_t shortest = 0;
    const int count = avformat_index_get_entries_count(stream);
    for (int i = 1; i < count; ++i) {
        const int64_t gap =
            avformat_index_get_entry(stream, i)->timestamp - avformat_index_get_entry(stream, i - 1)->timestamp;
        if (gap > 0 && (shortest == 0 || gap < shortest))
            shortest = gap;
    }
    if (shortest > 0 && saysItsDuration(*stream))
        return toMediaTime(shortest, stream->time_base);
    const AVRational rate = stream->avg_frame_rate;
    return rate.num > 0 && rate.den > 0 ? MediaTime{rate.den, rate.num} : MediaTime{0, 1};
}

/// Decoding times of the first and the last frame that the index lists.
struct IndexSpan {
    int64_t first = 0;
    int64_t last = 0;
    int shownFrames = 0; ///< those that an edit list does not hide
};

IndexSpan indexSpanOf(AVStream* stream)
{
    IndexSpan span;
    const int count = avformat_index_get_entries_count(stream);
    for (int i = 0; i < count; ++i) {
        const AVIndexEntry* const entry = avformat_index_get_entry(stream, i);
        span.first = i == 0 ? entry->timestamp : span.first;
        span.last = entry->timestamp;
        span.shownFrames += entry->flags & AVINDEX_DISCARD_FRAME ? 0 : 1;
    }
    return span;
}

/// The end of a track whose frames are reordered and unevenly spaced. What libav calls its duration is the sum of the
/// distances in decoding order, which says nothing of when the last frame is shown. Nothing for other tracks.
std::optional<MediaTime> endOfReorderedUnevenTrack(Demuxer& demuxer, AVStream* stream, MediaTime shortest)
{
    if (stream->codecpar->video_delay == 0 || !saysItsDuration(*stream))
        return std::nullopt;
    const IndexSpan span = indexSpanOf(stream);
    const int count = avformat_index_get_entries_count(stream);
    if (count < 3 || toMediaTime(span.last - span.first, stream->time_base) ==
                         MediaTime{shortest.value * (count - 1), shortest.timescale})
        return std::nullopt;
    // The last frame lasts as long as the last distance in the table, where that is still to be told.
    const int64_t rest = stream->duration - (span.last - span.first);
    const MediaTime lastLength = rest > 0 ? toMediaTime(rest, stream->time_base) : shortest;
    demuxer.select(stream);
    demuxer.seekToLastSyncSample(stream);
    std::optional<MediaTime> end;
    while (const Packet packet = demuxer.read()) {
        const int64_t start = presentationTimeStamp(*packet);
        if (start == AV_NOPTS_VALUE || packet->flags & AV_PKT_FLAG_DISCARD)
            continue;
        const MediaTime length = packet->duration > 0 ? toMediaTime(packet->duration, stream->time_base) : lastLength;
        const MediaTime packetEnd = toMediaTime(start, stream->time_base) + length;
        end = end ? std::max(*end, packetEnd) : packetEnd;
    }
    return end;
}

VideoTrack videoTrackOf(Demuxer& demuxer, AVStream* stream)
{
    VideoTrack track;
    track.streamIndex = stream->index;
    const AVRational aspect = av_guess_sample_aspect_ratio(&demuxer.format(), stream, nullptr);
    const double pixelAspect = aspect.num > 0 && aspect.den > 0 ? av_q2d(aspect) : 1;
    track.pixelAspect = pixelAspect;
    track.reorderedFrames = stream->codecpar->video_delay;
    track.naturalWidth = stream->codecpar->width * pixelAspect;
    track.naturalHeight = stream->codecpar->height;
    track.nominalFrameRate = averageRate(*stream);
    track.minFrameDuration = shortestSpacing(stream);
    track.preferredTransform = transformOf(*stream);
    // Other containers count what they guess, or list frames that no decoder gives.
    if (saysItsDuration(*stream) && std::string_view(demuxer.format().iformat->name).starts_with("mov"))
        track.frameCount = indexSpanOf(stream).shownFrames;
    return track;
}

}

MediaAsset MediaAsset::load(const FileUrl& url, std::stop_token interrupt)
{
    Demuxer demuxer = Demuxer::open(url, std::move(interrupt));
    AVStream* const video = demuxer.firstStream(AVMEDIA_TYPE_VIDEO);
    AVStream* const audio = demuxer.firstStream(AVMEDIA_TYPE_AUDIO);
    MediaAsset asset;
    asset.url = url;
    asset.duration = {0, 1};
    if (const AVStream* const first = video ? video : audio)
        asset.timeShift = toMediaTime(startOf(*first), first->time_base);
    if (video) {
        asset.video = videoTrackOf(demuxer, video);
        const auto unevenEnd = endOfReorderedUnevenTrack(demuxer, video, asset.video->minFrameDuration);
        const MediaTime end = unevenEnd ? *unevenEnd : endOf(demuxer, video);
        asset.video->length = std::max(end - asset.timeShift, MediaTime{0, 1});
        if (unevenEnd && asset.video->length > MediaTime{0, 1})
            asset.video->nominalFrameRate = float(indexSpanOf(video).shownFrames / asset.video->length.seconds());
        asset.duration = asset.video->length;
    }
    // Sound that nothing here can decode is no sound: the picture goes without.
    if (audio && audio->codecpar->sample_rate > 0 && avcodec_find_decoder(audio->codecpar->codec_id)) {
        asset.audio = AudioTrack{audio->index, audio->codecpar->sample_rate, audio->codecpar->ch_layout.nb_channels,
                                 endOf(demuxer, audio) - asset.timeShift};
        asset.duration = std::max(asset.duration, asset.audio->end);
    }
    return asset;
}

}
