// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/movie/VideoPicture.h"
#include "render/CompositeGeometry.h"
#include "render/MarkImage.h"

#include <memory>

namespace zumeta {

/// Which inner loops to use; the pictures are the same to the bit.
enum class CompositorKernels { best, portable };

struct CompositorOptions {
    int threads = 1; ///< that share the rows of a frame, the caller included
    /// Laid over every frame; of the layout's size.
    std::shared_ptr<const MarkImage> mark;
    CompositorKernels kernels = CompositorKernels::best;
};

/// Composes frames as a layout tells: the below picture fills the frame, the above picture lies over it and fades in
/// over the band; where the above picture does not reach, the below picture shows.
///
/// Works plane by plane on the gamma-coded Y'CbCr values and computes only samples that are seen, at sub-pixel
/// positions, with a Catmull-Rom kernel that is widened when a picture is shrunk. Sources of any format are converted
/// to 8-bit 4:2:0 BT.709 limited range on the way: those above 8 bit are dithered, the others rounded.
///
/// A compositor holds its plan and buffers from frame to frame and serves one thread at a time.
class FrameCompositor {
public:
    /// The layout's picture is the size of the frames, whole and even.
    explicit FrameCompositor(const CompositeLayout& layout, CompositorOptions options = {});
    ~FrameCompositor();
    FrameCompositor(FrameCompositor&&) noexcept;
    FrameCompositor& operator=(FrameCompositor&&) noexcept;

    /// Another layout for the frames that follow; threads and buffers stay. A mark is drawn only over frames of its
    /// size.
    void setLayout(const CompositeLayout& layout);

    /// `out` has the size of the layout's picture. Without an above picture the frame is the below picture alone.
    /// Formats may change from call to call, at the price of a new plan.
    void compose(const VideoPicture& below, const VideoPicture* above, const WritablePicture& out);

private:
    class Implementation;
    std::unique_ptr<Implementation> m_implementation;
};

}
