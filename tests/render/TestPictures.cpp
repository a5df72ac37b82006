// SPDX-License-Identifier: GPL-3.0-or-later
#include "TestPictures.h"

#include <cstring>

namespace zumeta {

namespace {
constexpr int kGuardBytes = 32;
constexpr uint8_t kGuard = 0xA5;
}

int planeWidth(const PictureFormat& format, int plane)
{
    return plane == 0 ? format.width : format.chromaWidth();
}

int planeHeight(const PictureFormat& format, int plane)
{
    return plane == 0 ? format.height : format.chromaHeight();
}

VideoPicture makePicture(const PictureFormat& format, const SampleFunction& sampleAt)
{
    struct Memory {
        std::array<std::unique_ptr<uint8_t[]>, 3> planes;
    };
    const auto memory = std::make_shared<Memory>();
    VideoPicture picture;
    picture.format = format;
    for (int plane = 0; plane < 3; ++plane) {
        const int width = planeWidth(format, plane);
        const int height = planeHeight(format, plane);
        const size_t stride = size_t(width) * size_t(format.bytesPerSample());
        auto& bytes = memory->planes[size_t(plane)];
        bytes = std::make_unique<uint8_t[]>(stride * size_t(height));
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                const int value = sampleAt(plane, x, y);
                uint8_t* const at = bytes.get() + size_t(y) * stride + size_t(x) * size_t(format.bytesPerSample());
                if (format.bitDepth > 8) {
                    const uint16_t wide = uint16_t(value);
                    std::memcpy(at, &wide, sizeof(wide));
                } else {
                    *at = uint8_t(value);
                }
            }
        }
        picture.planes[size_t(plane)] = {bytes.get(), ptrdiff_t(stride)};
    }
    picture.owner = memory;
    return picture;
}

VideoPicture makeNoise(const PictureFormat& format, std::mt19937& random)
{
    std::uniform_int_distribution<int> value(0, (1 << format.bitDepth) - 1);
    return makePicture(format, [&](int, int, int) { return value(random); });
}

VideoPicture makeFlat(const PictureFormat& format, int y, int cb, int cr)
{
    const std::array<int, 3> values{y, cb, cr};
    return makePicture(format, [&](int plane, int, int) { return values[size_t(plane)]; });
}

int sampleOf(const VideoPicture& picture, int plane, int x, int y)
{
    const PlaneView& view = picture.planes[size_t(plane)];
    const uint8_t* const row = view.data + view.stride * y;
    if (picture.format.bitDepth == 8)
        return row[x];
    uint16_t value = 0;
    std::memcpy(&value, row + 2 * x, sizeof(value));
    return value;
}

GuardedFrame::GuardedFrame(int width, int height)
{
    picture.width = width;
    picture.height = height;
    const size_t lumaStride = size_t(width + kGuardBytes);
    const size_t chromaStride = size_t(width / 2 + kGuardBytes);
    const size_t size = lumaStride * size_t(height) + 2 * chromaStride * size_t(height / 2);
    const std::shared_ptr<uint8_t[]> bytes(new uint8_t[size]);
    std::memset(bytes.get(), kGuard, size);
    picture.owner = bytes;
    uint8_t* const chroma = bytes.get() + lumaStride * size_t(height);
    picture.planes = {WritablePlane{bytes.get(), ptrdiff_t(lumaStride)}, WritablePlane{chroma, ptrdiff_t(chromaStride)},
                      WritablePlane{chroma + chromaStride * size_t(height / 2), ptrdiff_t(chromaStride)}};
}

bool GuardedFrame::guardsHold() const
{
    for (int plane = 0; plane < 3; ++plane) {
        for (int y = 0; y < height(plane); ++y) {
            for (int x = width(plane); x < width(plane) + kGuardBytes; ++x) {
                if (at(plane, x, y) != kGuard)
                    return false;
            }
        }
    }
    return true;
}

bool GuardedFrame::sameAs(const GuardedFrame& other) const
{
    for (int plane = 0; plane < 3; ++plane) {
        for (int y = 0; y < height(plane); ++y) {
            for (int x = 0; x < width(plane); ++x) {
                if (at(plane, x, y) != other.at(plane, x, y))
                    return false;
            }
        }
    }
    return true;
}

}
