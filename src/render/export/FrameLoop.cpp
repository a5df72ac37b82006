// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/export/FrameLoop.h"

namespace zumeta {

int64_t runFrameLoop(const FrameLoopPlan& plan, FrameSource& below, FrameSource& above, FrameCompositor& compositor,
                     const FrameSink& sink, const std::stop_token& stop, const std::function<void(int64_t)>& report)
{
    int64_t frameIndex = 0;
    while (frameIndex < plan.totalFrames && !stop.stop_requested()) {
        const std::optional<FrameSlot> belowSlot = below.next();
        if (!belowSlot)
            break;
        // Read in any case: a pass that makes no frame moves both sides on.
        const std::optional<FrameSlot> aboveSlot = above.next();
        if (!belowSlot->picture)
            continue;
        const VideoPicture* const abovePicture = aboveSlot && aboveSlot->picture ? &*aboveSlot->picture : nullptr;
        WritablePicture picture = sink.nextPicture();
        compositor.compose(*belowSlot->picture, abovePicture, picture);
        if (stop.stop_requested())
            break;
        sink.append(picture, {frameIndex * plan.frameDuration.value, plan.frameDuration.timescale});
        ++frameIndex;
        report(frameIndex);
    }
    return frameIndex;
}

}
