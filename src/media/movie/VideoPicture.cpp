// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/movie/VideoPicture.h"

#include <new>

namespace zumeta {

WritablePicture WritablePicture::allocate(int width, int height)
{
    constexpr size_t kAlignment = 64;
    const auto strideOf = [](int samples) { return (size_t(samples) + kAlignment - 1) / kAlignment * kAlignment; };
    const size_t lumaStride = strideOf(width);
    const size_t chromaStride = strideOf(width / 2);
    const size_t lumaBytes = lumaStride * size_t(height);
    const size_t chromaBytes = chromaStride * size_t(height / 2);
    // Vector code may store a whole register at the end of the last row.
    const size_t total = lumaBytes + 2 * chromaBytes + kAlignment;
    auto* const bytes = static_cast<uint8_t*>(::operator new(total, std::align_val_t(kAlignment)));
    WritablePicture picture;
    picture.owner = std::shared_ptr<void>(bytes, [](void* p) { ::operator delete(p, std::align_val_t(kAlignment)); });
    picture.width = width;
    picture.height = height;
    picture.planes = {WritablePlane{bytes, ptrdiff_t(lumaStride)},
                      WritablePlane{bytes + lumaBytes, ptrdiff_t(chromaStride)},
                      WritablePlane{bytes + lumaBytes + chromaBytes, ptrdiff_t(chromaStride)}};
    return picture;
}

VideoPicture WritablePicture::view() const
{
    VideoPicture picture;
    picture.format.width = width;
    picture.format.height = height;
    for (size_t i = 0; i < planes.size(); ++i)
        picture.planes[i] = {planes[i].data, planes[i].stride};
    picture.owner = owner;
    return picture;
}

}
