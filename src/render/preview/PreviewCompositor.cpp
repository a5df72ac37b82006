// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/preview/PreviewCompositor.h"

#include <cstring>

namespace zumeta {

namespace {

/// The backdrop in the frames' own terms: the nearest there is.
constexpr std::array<uint8_t, 3> kBackdropSamples{41, 143, 119};

void fill(const WritablePicture& picture, const std::array<uint8_t, 3>& samples)
{
    for (size_t plane = 0; plane < 3; ++plane) {
        const int width = plane == 0 ? picture.width : picture.width / 2;
        const int height = plane == 0 ? picture.height : picture.height / 2;
        for (int row = 0; row < height; ++row)
            std::memset(picture.planes[plane].data + picture.planes[plane].stride * row, samples[plane], size_t(width));
    }
}

bool hasSize(const WritablePicture& picture, PixelSize size)
{
    return picture.owner && picture.width == size.width && picture.height == size.height;
}

}

PreviewCompositor::PreviewCompositor(int threads)
    : m_threads(threads)
    , m_workers(threads)
{}

const VideoPicture& PreviewCompositor::backdrop(PixelSize size)
{
    if (!hasSize(m_backdrop, size)) {
        m_backdrop = WritablePicture::allocate(size.width, size.height);
        fill(m_backdrop, kBackdropSamples);
        m_backdropView = m_backdrop.view();
    }
    return m_backdropView;
}

const WritablePicture& PreviewCompositor::compose(const PreviewRequest& request)
{
    const PixelSize size{int(request.layout.picture.width), int(request.layout.picture.height)};
    if (!hasSize(m_frame, size))
        m_frame = WritablePicture::allocate(size.width, size.height);
    if (m_compositor)
        m_compositor->setLayout(request.layout);
    else
        m_compositor.emplace(request.layout, CompositorOptions{.threads = m_threads, .mark = {}});
    const VideoPicture& below = request.below ? *request.below : backdrop(size);
    m_compositor->compose(below, request.above ? &*request.above : nullptr, m_frame);
    return m_frame;
}

ScreenPicture PreviewCompositor::composeForScreen(const PreviewRequest& request)
{
    const WritablePicture& frame = compose(request);
    ScreenPicture picture = m_pool.take(frame.width, frame.height);
    m_conversion.convert(frame, picture, m_workers);
    return picture;
}

}
