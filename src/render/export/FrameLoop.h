// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/movie/FrameReader.h"
#include "render/FrameCompositor.h"

#include <functional>
#include <stop_token>

namespace zumeta {

struct FrameLoopPlan {
    int64_t totalFrames = 0;
    MediaTime frameDuration;
};

/// Where the composed frames go. Either may throw.
struct FrameSink {
    std::function<WritablePicture()> nextPicture; ///< one to fill
    std::function<void(const WritablePicture& picture, MediaTime presentationTime)> append;
};

/// Takes one frame of each source, composes them and hands the result to the sink, until the aimed number is
/// reached, the below source ends, or `stop` is asked for. Frames are paired by order of reading: sources of one rate
/// stay in step, and a place without a picture below costs the movie a frame. Throws what the sink throws.
/// `report` is called on this thread after each frame, with the number of frames so far. Gives that number.
int64_t runFrameLoop(const FrameLoopPlan& plan, FrameSource& below, FrameSource& above, FrameCompositor& compositor,
                     const FrameSink& sink, const std::stop_token& stop, const std::function<void(int64_t)>& report);

}
