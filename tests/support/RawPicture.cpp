// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/RawPicture.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <stdexcept>

namespace zumeta::test {

size_t RawPicture::byteCount(const PictureFormat& format)
{
    const size_t luma = size_t(format.width) * size_t(format.height);
    const size_t chroma = size_t(format.chromaWidth()) * size_t(format.chromaHeight());
    return (luma + 2 * chroma) * size_t(format.bytesPerSample());
}

RawPicture::RawPicture(const PictureFormat& format)
    : m_format(format)
    , m_bytes(std::make_shared<std::vector<uint8_t>>(byteCount(format)))
{}

RawPicture::RawPicture(const VideoPicture& picture)
    : RawPicture(picture.format)
{
    for (int plane = 0; plane < 3; ++plane) {
        const PlaneView& source = picture.planes[size_t(plane)];
        for (int y = 0; y < planeHeight(plane); ++y)
            std::memcpy(m_bytes->data() + offset(plane, 0, y), source.data + y * source.stride,
                        size_t(planeWidth(plane)) * size_t(m_format.bytesPerSample()));
    }
}

size_t RawPicture::offset(int plane, int x, int y) const
{
    size_t samples = size_t(y) * size_t(planeWidth(plane)) + size_t(x);
    for (int before = 0; before < plane; ++before)
        samples += size_t(planeWidth(before)) * size_t(planeHeight(before));
    return samples * size_t(m_format.bytesPerSample());
}

int RawPicture::sample(int plane, int x, int y) const
{
    x = std::clamp(x, 0, planeWidth(plane) - 1);
    y = std::clamp(y, 0, planeHeight(plane) - 1);
    const uint8_t* const at = m_bytes->data() + offset(plane, x, y);
    return m_format.bytesPerSample() == 2 ? at[0] | at[1] << 8 : at[0];
}

void RawPicture::setSample(int plane, int x, int y, int value)
{
    uint8_t* const at = m_bytes->data() + offset(plane, x, y);
    at[0] = uint8_t(value & 0xff);
    if (m_format.bytesPerSample() == 2)
        at[1] = uint8_t(value >> 8);
}

double RawPicture::luma(int x, int y) const
{
    const int value = sample(0, x, y);
    if (m_format.range == ColourRange::full)
        return value / double((1 << m_format.bitDepth) - 1);
    const double unit = 1 << (m_format.bitDepth - 8);
    return (value / unit - 16) / 219;
}

VideoPicture RawPicture::view() const
{
    VideoPicture picture;
    picture.format = m_format;
    for (int plane = 0; plane < 3; ++plane)
        picture.planes[size_t(plane)] = {m_bytes->data() + offset(plane, 0, 0),
                                         ptrdiff_t(planeWidth(plane)) * m_format.bytesPerSample()};
    picture.owner = m_bytes;
    return picture;
}

double planePsnr(const RawPicture& a, const RawPicture& b, int plane)
{
    if (a.planeWidth(plane) != b.planeWidth(plane) || a.planeHeight(plane) != b.planeHeight(plane) ||
        a.format().bitDepth != b.format().bitDepth)
        throw std::invalid_argument("pictures of different formats have no signal to noise ratio");
    double sum = 0;
    for (int y = 0; y < a.planeHeight(plane); ++y) {
        for (int x = 0; x < a.planeWidth(plane); ++x) {
            const double difference = a.sample(plane, x, y) - b.sample(plane, x, y);
            sum += difference * difference;
        }
    }
    if (sum == 0)
        return std::numeric_limits<double>::infinity();
    const double peak = (1 << a.format().bitDepth) - 1;
    return 10 * std::log10(peak * peak * a.planeWidth(plane) * a.planeHeight(plane) / sum);
}

double worstPsnr(const RawPicture& a, const RawPicture& b)
{
    return std::min({planePsnr(a, b, 0), planePsnr(a, b, 1), planePsnr(a, b, 2)});
}

int largestDifference(const RawPicture& a, const RawPicture& b)
{
    int largest = 0;
    for (int plane = 0; plane < 3; ++plane) {
        for (int y = 0; y < a.planeHeight(plane); ++y) {
            for (int x = 0; x < a.planeWidth(plane); ++x)
                largest = std::max(largest, std::abs(a.sample(plane, x, y) - b.sample(plane, x, y)));
        }
    }
    return largest;
}

}
