// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "render/FrameCompositor.h"
#include "render/preview/PreviewRequest.h"
#include "render/preview/ScreenConversion.h"

namespace zumeta {

/// What shows where neither side's picture is: the preview's dark blue, 0xRRGGBB.
inline constexpr uint32_t kPreviewBackdrop = 0x0d1f3c;

/// Composes the pictures of the preview with the export's own compositor. Holds plans and memory from picture to
/// picture and serves one thread at a time.
class PreviewCompositor {
public:
    /// That share the rows of a picture, the caller included.
    explicit PreviewCompositor(int threads);

    /// The frame as an export of that size makes it, before it is encoded. Good until the next call.
    const WritablePicture& compose(const PreviewRequest& request);
    ScreenPicture composeForScreen(const PreviewRequest& request);

private:
    const VideoPicture& backdrop(PixelSize size);

    const int m_threads;
    std::optional<FrameCompositor> m_compositor;
    WritablePicture m_frame;
    WritablePicture m_backdrop;
    VideoPicture m_backdropView;
    ScreenConversion m_conversion;
    ScreenPicturePool m_pool;
    WorkerPool m_workers;
};

}
