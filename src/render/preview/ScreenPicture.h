// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <cstddef>
#include <cstdint>
#include <memory>
#include <mutex>
#include <vector>

namespace zumeta {

/// A picture as screens take it: full-range R'G'B' of BT.709, which sRGB screens show as it is; 0xffRRGGBB in a word,
/// rows from the top down without gaps. Copying copies the handle.
struct ScreenPicture {
    int width = 0;
    int height = 0;
    std::shared_ptr<std::vector<uint32_t>> pixels; ///< written by its maker alone, before it is handed on

    uint32_t* row(int y) const { return pixels->data() + size_t(y) * size_t(width); }
    bool isEmpty() const { return pixels == nullptr; }
};

/// Pictures whose memory comes back when their last handle goes, on whatever thread. Any thread.
class ScreenPicturePool {
public:
    /// Its pixels are undefined.
    ScreenPicture take(int width, int height);

private:
    using Pixels = std::vector<uint32_t>;
    /// Outlives the pool as long as pictures do.
    struct Shelf {
        std::mutex mutex;
        size_t pixelCount = 0; ///< of all that is kept: the size that was asked for last
        std::vector<std::unique_ptr<Pixels>> kept;
    };
    static void giveBack(Shelf& shelf, std::unique_ptr<Pixels> pixels);

    std::shared_ptr<Shelf> m_shelf = std::make_shared<Shelf>();
};

}
