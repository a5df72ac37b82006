// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/CompositorScaling.h"

#include "render/FrameCompositor.h"

namespace zumeta {

PictureScalingMaker compositorScaling()
{
    return [](int width, int height) -> PictureScaling {
        CompositeLayout layout;
        layout.picture = {double(width), double(height)};
        // Shared, because a function object can be copied and a compositor cannot.
        const auto compositor = std::make_shared<FrameCompositor>(layout);
        return [compositor](const VideoPicture& source, const WritablePicture& out) {
            compositor->compose(source, nullptr, out);
        };
    };
}

}
