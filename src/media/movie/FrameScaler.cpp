// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/movie/FrameScaler.h"

#include <algorithm>

extern "C" {
#include <libavutil/opt.h>
#include <libavutil/pixdesc.h>
}

namespace zumeta {

namespace {

constexpr size_t kPooledFrames = 4;

AVPixelFormat pixelFormatOf(const PictureFormat& format)
{
    struct Subsampling {
        int shiftX;
        int shiftY;
        const char* name;
    };
    constexpr Subsampling kSubsamplings[] = {{1, 1, "420"}, {1, 0, "422"}, {0, 0, "444"},
                                             {0, 1, "440"}, {2, 0, "411"}, {2, 2, "410"}};
    for (const Subsampling& subsampling : kSubsamplings) {
        if (subsampling.shiftX != format.chromaShiftX || subsampling.shiftY != format.chromaShiftY)
            continue;
        // The native order's formats are found under the name without an order.
        const std::string depth = format.bitDepth > 8 ? std::to_string(format.bitDepth) : std::string();
        const AVPixelFormat found = av_get_pix_fmt(("yuv" + std::string(subsampling.name) + "p" + depth).c_str());
        if (found != AV_PIX_FMT_NONE)
            return found;
    }
    throw MovieError(MovieError::Kind::cannotDecode, "a picture in a form that cannot be scaled");
}

/// Where the first chroma sample sits, in 256ths of a luma sample.
struct ChromaPlace {
    int x = -513; // libswscale's word for "not told": planes without subsampling
    int y = -513;
};

ChromaPlace chromaPlaceOf(const PictureFormat& format)
{
    constexpr int kBetween = 128;
    ChromaPlace place;
    if (format.chromaShiftX == 1)
        place.x = format.siting == ChromaSiting::centre ? kBetween : 0;
    if (format.chromaShiftY == 1)
        place.y = format.siting == ChromaSiting::topLeft ? 0 : kBetween;
    return place;
}

const int* coefficientsOf(ColourMatrix matrix)
{
    switch (matrix) {
    case ColourMatrix::bt601:
        return sws_getCoefficients(SWS_CS_ITU601);
    case ColourMatrix::bt2020:
        return sws_getCoefficients(SWS_CS_BT2020);
    case ColourMatrix::bt709:
        break;
    }
    return sws_getCoefficients(SWS_CS_ITU709);
}

}

bool isBeyondStandardColours(const PictureFormat& format)
{
    return format.transfer != TransferFunction::sdr || format.primaries != ColourPrimaries::bt709 ||
           format.matrix == ColourMatrix::bt2020;
}

FrameScaler::FrameScaler(int width, int height, PictureScaling scaling)
    : m_width(width)
    , m_height(height)
    , m_scaling(std::move(scaling))
{}

PictureFormat FrameScaler::outputFormat(const PictureFormat& source) const
{
    PictureFormat output;
    if (!m_scaling) {
        output.range = source.range;
        output.matrix = source.matrix;
        output.transfer = source.transfer;
        output.primaries = source.primaries;
        const bool has420 = source.chromaShiftX == 1 && source.chromaShiftY == 1;
        output.siting = has420 ? source.siting : ChromaSiting::left;
    }
    output.width = m_width;
    output.height = m_height;
    return output;
}

Scaler FrameScaler::openScaler(const PictureFormat& from, const PictureFormat& to)
{
    Scaler scaler(checkAllocated(sws_alloc_context()));
    const auto set = [&scaler](const char* name, int64_t value) { av_opt_set_int(scaler.get(), name, value, 0); };
    set("srcw", from.width);
    set("srch", from.height);
    set("src_format", pixelFormatOf(from));
    set("dstw", to.width);
    set("dsth", to.height);
    set("dst_format", pixelFormatOf(to));
    set("sws_flags", SWS_BILINEAR);
    const ChromaPlace fromPlace = chromaPlaceOf(from);
    const ChromaPlace toPlace = chromaPlaceOf(to);
    set("src_h_chr_pos", fromPlace.x);
    set("src_v_chr_pos", fromPlace.y);
    set("dst_h_chr_pos", toPlace.x);
    set("dst_v_chr_pos", toPlace.y);
    set("src_range", from.range == ColourRange::full);
    set("dst_range", to.range == ColourRange::full);
    checkAv(sws_init_context(scaler.get(), nullptr, nullptr), MovieError::Kind::cannotDecode, "scaling a picture");
    sws_setColorspaceDetails(scaler.get(), coefficientsOf(from.matrix), from.range == ColourRange::full,
                             coefficientsOf(to.matrix), to.range == ColourRange::full, 0, 1 << 16, 1 << 16);
    return scaler;
}

void FrameScaler::run(std::optional<Step>& step, const VideoPicture& source, const PictureFormat& to, AVFrame& target)
{
    if (!step || step->from != source.format || step->to != to)
        step = Step{source.format, to, openScaler(source.format, to)};
    const uint8_t* planes[4] = {source.planes[0].data, source.planes[1].data, source.planes[2].data, nullptr};
    const int strides[4] = {int(source.planes[0].stride), int(source.planes[1].stride), int(source.planes[2].stride),
                            0};
    checkAv(sws_scale(step->scaler.get(), planes, strides, 0, source.format.height, target.data, target.linesize),
            MovieError::Kind::cannotDecode, "scaling a picture");
}

Frame FrameScaler::scale(const VideoPicture& source, const PictureFormat& output)
{
    Frame target = pooledFrame();
    if (!m_scaling) {
        run(m_finishing, source, output, *target);
        return target;
    }
    VideoPicture picture = isBeyondStandardColours(source.format) ? shrunk(source) : source;
    // The whole picture goes into the whole frame: what even sizes bend, the frame's pixel aspect puts right.
    picture.format.pixelAspect =
        double(m_width) / m_height * double(picture.format.height) / double(picture.format.width);
    WritablePicture out;
    out.width = m_width;
    out.height = m_height;
    for (size_t i = 0; i < out.planes.size(); ++i)
        out.planes[i] = {target->data[i], target->linesize[i]};
    m_scaling(picture, out);
    return target;
}

/// The picture in its own form and the output's size: going through light costs more than everything else, and goes by
/// samples.
VideoPicture FrameScaler::shrunk(const VideoPicture& source)
{
    VideoPicture picture;
    picture.format = source.format;
    picture.format.width = m_width;
    picture.format.height = m_height;
    Frame frame(checkAllocated(av_frame_alloc()));
    frame->format = pixelFormatOf(picture.format);
    frame->width = m_width;
    frame->height = m_height;
    checkAv(av_frame_get_buffer(frame.get(), 0), MovieError::Kind::cannotDecode, "scaling a picture");
    run(m_shrinking, source, picture.format, *frame);
    for (size_t i = 0; i < picture.planes.size(); ++i)
        picture.planes[i] = {frame->data[i], frame->linesize[i]};
    picture.owner = std::shared_ptr<const AVFrame>(std::move(frame));
    return picture;
}

Frame FrameScaler::pooledFrame()
{
    const auto free = std::find_if(m_pool.begin(), m_pool.end(),
                                   [](const Frame& pooled) { return av_frame_is_writable(pooled.get()) == 1; });
    Frame frame(checkAllocated(av_frame_alloc()));
    if (free != m_pool.end()) {
        checkAv(av_frame_ref(frame.get(), free->get()), MovieError::Kind::cannotEncode, "taking a frame");
        return frame;
    }
    frame->format = AV_PIX_FMT_YUV420P;
    frame->width = m_width;
    frame->height = m_height;
    checkAv(av_frame_get_buffer(frame.get(), 0), MovieError::Kind::cannotEncode, "allocating a frame");
    if (m_pool.size() < kPooledFrames) {
        m_pool.emplace_back(checkAllocated(av_frame_alloc()));
        checkAv(av_frame_ref(m_pool.back().get(), frame.get()), MovieError::Kind::cannotEncode, "taking a frame");
    }
    return frame;
}

}
