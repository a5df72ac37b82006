// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/preview/ScreenPicture.h"

namespace zumeta {

ScreenPicture ScreenPicturePool::take(int width, int height)
{
    const size_t count = size_t(width) * size_t(height);
    std::unique_ptr<Pixels> pixels;
    std::vector<std::unique_ptr<Pixels>> outgrown; // freed outside the lock
    {
        const std::lock_guard lock(m_shelf->mutex);
        if (m_shelf->pixelCount != count) {
            outgrown.swap(m_shelf->kept);
            m_shelf->pixelCount = count;
        } else if (!m_shelf->kept.empty()) {
            pixels = std::move(m_shelf->kept.back());
            m_shelf->kept.pop_back();
        }
    }
    if (!pixels)
        pixels = std::make_unique<Pixels>(count);
    ScreenPicture picture{width, height, nullptr};
    picture.pixels = std::shared_ptr<Pixels>(
        pixels.release(), [shelf = m_shelf](Pixels* memory) { giveBack(*shelf, std::unique_ptr<Pixels>(memory)); });
    return picture;
}

void ScreenPicturePool::giveBack(Shelf& shelf, std::unique_ptr<Pixels> pixels)
{
    constexpr size_t kMostKept = 4; // one shown, one waiting, one in the making, one on its way back
    const std::lock_guard lock(shelf.mutex);
    if (pixels->size() == shelf.pixelCount && shelf.kept.size() < kMostKept)
        shelf.kept.push_back(std::move(pixels));
}

}
