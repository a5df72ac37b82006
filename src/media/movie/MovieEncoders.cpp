// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/movie/MovieEncoders.h"

#include <algorithm>
#include <thread>

extern "C" {
#include <libavutil/opt.h>
}

namespace zumeta {

namespace {

constexpr int kBFrames = 2;
/// Measured against x264's presets at the export's own rates (docs/decisions/0003-x264-as-encoder.md): a step of the
/// fastest useful preset, with bits moved to where later frames need them. Always two B-frames, no search for fewer;
/// of the small partitions only the one that pays on real recordings; a short look ahead, whose frames are memory.
constexpr char kPreset[] = "superfast";
constexpr char kTuning[] = "mbtree=1:rc-lookahead=4:sync-lookahead=0:b-adapt=0:weightp=0:partitions=i8x8";
constexpr int kMostEncoderThreads = 12;
/// Pictures of more lines than this are coded by fewer threads: each holds frames, of tens of megabytes in 4K.
constexpr int kLargePictureLines = 1440;

void setOption(AVDictionary** options, const char* key, const std::string& value)
{
    if (av_dict_set(options, key, value.c_str(), 0) < 0)
        throw std::bad_alloc();
}

struct Options {
    AVDictionary* dictionary = nullptr;
    Options() = default;
    ~Options() { av_dict_free(&dictionary); }
    Options(const Options&) = delete; // owns the dictionary that libav edits in place
    Options& operator=(const Options&) = delete;
};

/// More than there are cores, so that none idles while a frame waits for the one that it refers to.
int encoderThreads(int lines)
{
    const int cores = int(std::thread::hardware_concurrency());
    return std::clamp(lines > kLargePictureLines ? cores * 3 / 2 : cores * 2, 2, kMostEncoderThreads);
}

}

CodecContext openVideoEncoder(const MovieVideoSettings& settings)
{
    const AVCodec* const encoder = avcodec_find_encoder_by_name("libx264");
    if (!encoder)
        throw MovieError(MovieError::Kind::cannotEncode, "no H.264 encoder");
    CodecContext context(checkAllocated(avcodec_alloc_context3(encoder)));
    context->width = settings.width;
    context->height = settings.height;
    context->pix_fmt = AV_PIX_FMT_YUV420P;
    context->time_base = {1, kMovieTimescale};
    context->framerate = av_d2q(settings.frameRate, 100'000);
    context->bit_rate = settings.bitRate;
    context->gop_size = settings.maxKeyFrameInterval;
    context->max_b_frames = kBFrames;
    context->profile = settings.profile == H264Profile::main ? FF_PROFILE_H264_MAIN : FF_PROFILE_H264_HIGH;
    context->color_range = AVCOL_RANGE_MPEG;
    context->colorspace = AVCOL_SPC_BT709;
    context->color_primaries = AVCOL_PRI_BT709;
    context->color_trc = AVCOL_TRC_BT709;
    context->chroma_sample_location = AVCHROMA_LOC_LEFT;
    context->sample_aspect_ratio = {1, 1};
    context->flags |= AV_CODEC_FLAG_GLOBAL_HEADER;
    context->thread_count = encoderThreads(settings.height);
    Options options;
    const bool ownSettings = settings.encoderPreset.empty();
    setOption(&options.dictionary, "preset", ownSettings ? kPreset : settings.encoderPreset);
    setOption(&options.dictionary, "profile", settings.profile == H264Profile::main ? "main" : "high");
    if (ownSettings)
        setOption(&options.dictionary, "x264-params", kTuning);
    checkAv(avcodec_open2(context.get(), encoder, &options.dictionary), MovieError::Kind::cannotEncode,
            "starting the H.264 encoder");
    return context;
}

CodecContext openAudioEncoder(const MovieAudioSettings& settings)
{
    const AVCodec* const encoder = avcodec_find_encoder(AV_CODEC_ID_AAC);
    if (!encoder)
        throw MovieError(MovieError::Kind::cannotEncode, "no AAC encoder");
    CodecContext context(checkAllocated(avcodec_alloc_context3(encoder)));
    context->sample_rate = settings.sampleRate;
    av_channel_layout_default(&context->ch_layout, settings.channels);
    context->sample_fmt = AV_SAMPLE_FMT_FLTP;
    context->bit_rate = settings.bitRate;
    context->time_base = {1, settings.sampleRate};
    context->flags |= AV_CODEC_FLAG_GLOBAL_HEADER;
    checkAv(avcodec_open2(context.get(), encoder, nullptr), MovieError::Kind::cannotEncode, "starting the AAC encoder");
    return context;
}

void encode(AVCodecContext& codec, const AVFrame* frame, const std::function<void(AVPacket&)>& write)
{
    checkAv(avcodec_send_frame(&codec, frame), MovieError::Kind::cannotEncode, "encoding");
    const Packet packet(checkAllocated(av_packet_alloc()));
    while (true) {
        const int code = avcodec_receive_packet(&codec, packet.get());
        if (code == AVERROR(EAGAIN) || code == AVERROR_EOF)
            return;
        checkAv(code, MovieError::Kind::cannotEncode, "encoding");
        write(*packet);
        av_packet_unref(packet.get());
    }
}

Frame allocateVideoFrame(const MovieVideoSettings& settings)
{
    Frame frame(checkAllocated(av_frame_alloc()));
    frame->format = AV_PIX_FMT_YUV420P;
    frame->width = settings.width;
    frame->height = settings.height;
    frame->color_range = AVCOL_RANGE_MPEG;
    frame->colorspace = AVCOL_SPC_BT709;
    frame->color_primaries = AVCOL_PRI_BT709;
    frame->color_trc = AVCOL_TRC_BT709;
    frame->chroma_location = AVCHROMA_LOC_LEFT;
    checkAv(av_frame_get_buffer(frame.get(), 0), MovieError::Kind::cannotEncode, "allocating a frame");
    return frame;
}

}
