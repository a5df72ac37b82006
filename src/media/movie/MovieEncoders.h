// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/movie/LibavHandles.h"
#include "media/movie/MovieWriter.h"

#include <functional>

namespace zumeta {

/// The timescale of a movie's picture and of its edit list: every whole frame rate up to 60 and the trims' 600 fit.
inline constexpr int kMovieTimescale = 60000;

CodecContext openVideoEncoder(const MovieVideoSettings& settings);
CodecContext openAudioEncoder(const MovieAudioSettings& settings);

/// Hands a frame (null: the end) to the encoder and every packet that comes out to `write`.
void encode(AVCodecContext& codec, const AVFrame* frame, const std::function<void(AVPacket&)>& write);

/// A pooled 8-bit 4:2:0 frame with the tags of the movie.
Frame allocateVideoFrame(const MovieVideoSettings& settings);

}
