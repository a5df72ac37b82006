// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace zumeta {

enum class ColourRange { limited, full };
enum class ColourMatrix { bt601, bt709, bt2020 };
enum class TransferFunction { sdr, pq, hlg };
enum class ColourPrimaries { bt709, bt2020 };
/// Where a chroma sample sits among the luma samples that share it.
enum class ChromaSiting { left, centre, topLeft };

/// How the samples of a decoded picture are to be read. Always three planes: Y', Cb, Cr.
struct PictureFormat {
    int width = 0;        ///< stored luma samples in a row
    int height = 0;       ///< stored rows
    int bitDepth = 8;     ///< 8 to 16; above 8 a sample takes two bytes, native order, value in the low bits
    int chromaShiftX = 1; ///< log2 of luma columns per chroma column: 4:2:0 and 4:2:2 have 1, 4:4:4 has 0
    int chromaShiftY = 1; ///< log2 of luma rows per chroma row: 4:2:0 has 1
    ColourRange range = ColourRange::limited;
    ColourMatrix matrix = ColourMatrix::bt709;
    TransferFunction transfer = TransferFunction::sdr;
    ColourPrimaries primaries = ColourPrimaries::bt709;
    ChromaSiting siting = ChromaSiting::left;
    double pixelAspect = 1; ///< width of a pixel over its height

    /// Width once the pixels are square; the height never changes.
    double squaredWidth() const { return width * pixelAspect; }
    /// A chroma plane of an odd size rounds up.
    int chromaWidth() const { return (width + (1 << chromaShiftX) - 1) >> chromaShiftX; }
    int chromaHeight() const { return (height + (1 << chromaShiftY) - 1) >> chromaShiftY; }
    int bytesPerSample() const { return bitDepth > 8 ? 2 : 1; }

    friend bool operator==(const PictureFormat&, const PictureFormat&) = default;
};

/// Rows from the top down, `stride` bytes apart. No row has readable bytes promised beyond its samples.
struct PlaneView {
    const uint8_t* data = nullptr;
    ptrdiff_t stride = 0;
};

/// A decoded picture, shared and never written to. Copying copies the handle.
struct VideoPicture {
    PictureFormat format;
    std::array<PlaneView, 3> planes;
    std::shared_ptr<const void> owner; ///< keeps the samples alive
};

struct WritablePlane {
    uint8_t* data = nullptr;
    ptrdiff_t stride = 0;
};

/// A picture to be filled: 8 bit 4:2:0, BT.709, limited range, chroma sited left. Width and height are even.
struct WritablePicture {
    int width = 0;
    int height = 0;
    std::array<WritablePlane, 3> planes;
    std::shared_ptr<void> owner;

    /// A picture in memory of its own, for tests, tools and the preview. Rows are 64-byte aligned.
    static WritablePicture allocate(int width, int height);
    /// The same samples for reading.
    VideoPicture view() const;
};

}
