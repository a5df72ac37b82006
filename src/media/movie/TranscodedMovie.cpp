// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/movie/TranscodedMovie.h"

#include "media/movie/MovieEncoders.h"

#include <algorithm>

namespace zumeta {

namespace {

/// Measured (script/bench proxies): the fastest preset makes files that also decode fastest, and at this quality a
/// picture of key frames only still looks like its source.
constexpr char kPreset[] = "ultrafast";
constexpr char kTune[] = "fastdecode";
constexpr char kQuality[] = "28";
/// Rates further out are nonsense of a header; the encoder takes them for its rate control only.
constexpr double kSlowestRate = 1;
constexpr double kFastestRate = 1000;

AVColorSpace colourSpaceOf(ColourMatrix matrix)
{
    switch (matrix) {
    case ColourMatrix::bt601:
        return AVCOL_SPC_SMPTE170M;
    case ColourMatrix::bt2020:
        return AVCOL_SPC_BT2020_NCL;
    case ColourMatrix::bt709:
        break;
    }
    return AVCOL_SPC_BT709;
}

AVColorTransferCharacteristic transferOf(TransferFunction transfer)
{
    switch (transfer) {
    case TransferFunction::pq:
        return AVCOL_TRC_SMPTE2084;
    case TransferFunction::hlg:
        return AVCOL_TRC_ARIB_STD_B67;
    case TransferFunction::sdr:
        break;
    }
    return AVCOL_TRC_BT709;
}

AVChromaLocation locationOf(ChromaSiting siting)
{
    switch (siting) {
    case ChromaSiting::centre:
        return AVCHROMA_LOC_CENTER;
    case ChromaSiting::topLeft:
        return AVCHROMA_LOC_TOPLEFT;
    case ChromaSiting::left:
        break;
    }
    return AVCHROMA_LOC_LEFT;
}

void describeColours(AVCodecContext& context, const PictureFormat& picture)
{
    context.color_range = picture.range == ColourRange::full ? AVCOL_RANGE_JPEG : AVCOL_RANGE_MPEG;
    context.colorspace = colourSpaceOf(picture.matrix);
    context.color_trc = transferOf(picture.transfer);
    context.color_primaries = picture.primaries == ColourPrimaries::bt2020 ? AVCOL_PRI_BT2020 : AVCOL_PRI_BT709;
    context.chroma_sample_location = locationOf(picture.siting);
}

CodecContext openEncoder(const TranscodedMovieSettings& settings)
{
    const AVCodec* const encoder = avcodec_find_encoder_by_name("libx264");
    if (!encoder)
        throw MovieError(MovieError::Kind::cannotEncode, "no H.264 encoder");
    CodecContext context(checkAllocated(avcodec_alloc_context3(encoder)));
    context->width = settings.picture.width;
    context->height = settings.picture.height;
    context->pix_fmt = AV_PIX_FMT_YUV420P;
    context->framerate = av_d2q(std::clamp(settings.frameRate, kSlowestRate, kFastestRate), 100'000);
    // Frames are counted towards the encoder: it needs no times, and uneven ones would only lead its rate control on.
    context->time_base = av_inv_q(context->framerate);
    context->gop_size = 1;
    context->max_b_frames = 0;
    context->slices = 2; // two threads of a player decode a picture that stands alone in three quarters of the time
    describeColours(*context, settings.picture);
    context->sample_aspect_ratio = settings.pixelAspect;
    context->flags |= AV_CODEC_FLAG_GLOBAL_HEADER;
    context->thread_count = settings.encoderThreads;
    AVDictionary* options = nullptr;
    av_dict_set(&options, "preset", kPreset, 0);
    av_dict_set(&options, "tune", kTune, 0);
    av_dict_set(&options, "crf", kQuality, 0);
    const int code = avcodec_open2(context.get(), encoder, &options);
    av_dict_free(&options);
    checkAv(code, MovieError::Kind::cannotEncode, "starting the H.264 encoder");
    return context;
}

}

TranscodedMovie::TranscodedMovie(const FileUrl& file, const TranscodedMovieSettings& settings)
    : m_settings(settings)
    , m_output(file)
{
    quietLibav();
    try {
        start(file);
    } catch (const std::exception& error) {
        m_output.remove();
        throw MovieError(MovieError::Kind::cannotStart,
                         m_output.failure().empty() ? std::string(error.what()) : m_output.failure());
    }
}

void TranscodedMovie::start(const FileUrl& file)
{
    AVFormatContext* context = nullptr;
    constexpr auto kKind = MovieError::Kind::cannotStart;
    // The name is for moving the index to the front, for which the file is opened once more.
    checkAv(avformat_alloc_output_context2(&context, nullptr, "mp4", ("file:" + file.path().native()).c_str()), kKind,
            "starting the movie file");
    m_format.reset(context);
    context->pb = m_output.context();
    context->flags |= AVFMT_FLAG_BITEXACT; // no name of the muxer in the metadata
    m_video = openEncoder(m_settings);
    m_videoStream = addStream(*m_video, {1, int(m_settings.timescale)});
    m_videoStream->avg_frame_rate = m_video->framerate;
    m_videoStream->sample_aspect_ratio = m_settings.pixelAspect;
    if (m_settings.soundEnd) {
        m_sound = std::make_unique<SoundEncoder>(MovieAudioSettings{}, *m_settings.soundEnd);
        m_soundStream = addStream(m_sound->codec(), m_sound->codec().time_base);
    }
    AVDictionary* options = nullptr;
    av_dict_set(&options, "movflags", "+faststart", 0);
    av_dict_set_int(&options, "movie_timescale", m_settings.timescale, 0);
    const int code = avformat_write_header(context, &options);
    av_dict_free(&options);
    checkAv(code, kKind, "starting the movie file");
}

AVStream* TranscodedMovie::addStream(const AVCodecContext& codec, AVRational timeBase)
{
    AVStream* const stream = checkAllocated(avformat_new_stream(m_format.get(), nullptr));
    checkAv(avcodec_parameters_from_context(stream->codecpar, &codec), MovieError::Kind::cannotWrite, "adding a track");
    stream->time_base = timeBase;
    return stream;
}

void TranscodedMovie::appendVideo(AVFrame& frame, int64_t timeStamp)
{
    if (timeStamp <= m_lastTimeStamp)
        return;
    m_lastTimeStamp = timeStamp;
    m_timeStamps.push_back(timeStamp);
    frame.pts = m_frames++;
    frame.pict_type = AV_PICTURE_TYPE_NONE;
    encodeVideo(&frame);
}

void TranscodedMovie::encodeVideo(const AVFrame* frame)
{
    encode(*m_video, frame, [this](AVPacket& packet) { holdVideo(packet); });
}

void TranscodedMovie::holdVideo(AVPacket& packet)
{
    // No frame is reordered, so packets come out as frames went in.
    const int64_t timeStamp = m_timeStamps.front();
    m_timeStamps.pop_front();
    if (m_held)
        writeHeld(timeStamp - m_held->pts);
    m_held.reset(checkAllocated(av_packet_alloc()));
    av_packet_move_ref(m_held.get(), &packet);
    m_held->pts = timeStamp;
    m_held->dts = timeStamp;
}

void TranscodedMovie::writeHeld(int64_t duration)
{
    m_held->duration = std::max<int64_t>(1, duration);
    m_held->stream_index = m_videoStream->index;
    av_packet_rescale_ts(m_held.get(), {1, int(m_settings.timescale)}, m_videoStream->time_base);
    // The packet is handed on in our own time: writing changes it, and the next one's distance is taken from it.
    const Packet packet = std::move(m_held);
    write(*packet);
}

void TranscodedMovie::appendAudio(std::span<const int16_t> samples, MediaTime presentationTime)
{
    if (m_sound)
        m_sound->append(samples, presentationTime, [this](AVPacket& packet) { writeSound(packet); });
}

void TranscodedMovie::writeSound(AVPacket& packet)
{
    packet.stream_index = m_soundStream->index;
    av_packet_rescale_ts(&packet, m_sound->codec().time_base, m_soundStream->time_base);
    write(packet);
}

void TranscodedMovie::write(AVPacket& packet)
{
    if (av_write_frame(m_format.get(), &packet) < 0 || !m_output.failure().empty())
        throw MovieError(MovieError::Kind::cannotWrite,
                         m_output.failure().empty() ? "the movie file refused a packet" : m_output.failure());
}

void TranscodedMovie::finish()
{
    encodeVideo(nullptr);
    if (m_held) {
        const int64_t end = av_rescale_q_rnd(m_settings.length.value, {1, int(m_settings.length.timescale)},
                                             {1, int(m_settings.timescale)}, AV_ROUND_NEAR_INF);
        // A length that lies before the last frame is a header's nonsense; such a frame lasts as long as others do.
        const auto usual = int64_t(double(m_settings.timescale) * av_q2d(m_video->time_base));
        writeHeld(end > m_held->pts ? end - m_held->pts : usual);
    }
    if (m_sound)
        m_sound->finish([this](AVPacket& packet) { writeSound(packet); });
    const int code = av_write_trailer(m_format.get());
    if (!m_output.failure().empty())
        throw MovieError(MovieError::Kind::cannotWrite, m_output.failure());
    checkAv(code, MovieError::Kind::cannotWrite, "finishing the movie file");
    m_output.close();
}

}
