// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/movie/MediaTime.h"
#include "media/movie/MovieError.h"

#include <memory>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libavutil/dict.h>
#include <libavutil/frame.h>
#include <libswresample/swresample.h>
#include <libswscale/swscale.h>
}

namespace zumeta {

/// Deleter for libav's free functions that take the address of the pointer.
template <auto Free> struct FreesSlot {
    template <class T> void operator()(T* p) const noexcept { Free(&p); }
};
/// Deleter for those that take the pointer.
template <auto Free> struct Frees {
    template <class T> void operator()(T* p) const noexcept { Free(p); }
};

using Frame = std::unique_ptr<AVFrame, FreesSlot<av_frame_free>>;
using Packet = std::unique_ptr<AVPacket, FreesSlot<av_packet_free>>;
using CodecContext = std::unique_ptr<AVCodecContext, FreesSlot<avcodec_free_context>>;
using InputFormat = std::unique_ptr<AVFormatContext, FreesSlot<avformat_close_input>>;
using OutputFormat = std::unique_ptr<AVFormatContext, Frees<avformat_free_context>>;
using Scaler = std::unique_ptr<SwsContext, Frees<sws_freeContext>>;
using Resampler = std::unique_ptr<SwrContext, FreesSlot<swr_free>>;

/// Keeps libav from writing to standard error: what matters reaches us as return codes.
void quietLibav();
/// libav's own words for a return code.
std::string avErrorText(int code);
/// Throws a MovieError "what: libav's words" when `code` is an error; gives it back otherwise.
int checkAv(int code, MovieError::Kind kind, const std::string& what);
/// For constructors of libav that signal want of memory by a null pointer.
template <class T> T* checkAllocated(T* pointer)
{
    if (!pointer)
        throw std::bad_alloc();
    return pointer;
}

inline MediaTime toMediaTime(int64_t timeStamp, AVRational timeBase)
{
    return {timeStamp * timeBase.num, timeBase.den};
}

}
