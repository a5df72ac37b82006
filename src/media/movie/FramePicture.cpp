// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/movie/FramePicture.h"

#include <bit>

extern "C" {
#include <libavutil/pixdesc.h>
}

namespace zumeta {

namespace {

/// Pictures from this many rows up are taken for high definition when nothing says which matrix they use.
constexpr int kHighDefinitionRows = 720;

bool isPlanarYCbCr(const AVPixFmtDescriptor& format)
{
    constexpr uint64_t kOther = AV_PIX_FMT_FLAG_RGB | AV_PIX_FMT_FLAG_PAL | AV_PIX_FMT_FLAG_HWACCEL |
                                AV_PIX_FMT_FLAG_BITSTREAM | AV_PIX_FMT_FLAG_FLOAT | AV_PIX_FMT_FLAG_BAYER;
    if ((format.flags & kOther) || !(format.flags & AV_PIX_FMT_FLAG_PLANAR) || format.nb_components < 3)
        return false;
    const int depth = format.comp[0].depth;
    const int bytes = depth > 8 ? 2 : 1;
    for (int i = 0; i < 3; ++i) {
        const AVComponentDescriptor& component = format.comp[i];
        if (component.plane != i || component.depth != depth || component.shift != 0 || component.step != bytes)
            return false;
    }
    const bool foreignOrder =
        bytes == 2 && ((format.flags & AV_PIX_FMT_FLAG_BE) != 0) != (std::endian::native == std::endian::big);
    return depth >= 8 && depth <= 16 && !foreignOrder;
}

ColourMatrix matrixOf(const AVFrame& frame)
{
    switch (frame.colorspace) {
    case AVCOL_SPC_BT709:
    case AVCOL_SPC_SMPTE240M:
        return ColourMatrix::bt709;
    case AVCOL_SPC_FCC:
    case AVCOL_SPC_BT470BG:
    case AVCOL_SPC_SMPTE170M:
        return ColourMatrix::bt601;
    case AVCOL_SPC_BT2020_NCL:
    case AVCOL_SPC_BT2020_CL:
        return ColourMatrix::bt2020;
    default:
        return frame.height >= kHighDefinitionRows ? ColourMatrix::bt709 : ColourMatrix::bt601;
    }
}

TransferFunction transferOf(const AVFrame& frame)
{
    switch (frame.color_trc) {
    case AVCOL_TRC_SMPTE2084:
        return TransferFunction::pq;
    case AVCOL_TRC_ARIB_STD_B67:
        return TransferFunction::hlg;
    default:
        return TransferFunction::sdr;
    }
}

ChromaSiting sitingOf(const AVFrame& frame)
{
    switch (frame.chroma_location) {
    case AVCHROMA_LOC_CENTER:
        return ChromaSiting::centre;
    case AVCHROMA_LOC_TOPLEFT:
        return ChromaSiting::topLeft;
    default:
        return ChromaSiting::left;
    }
}

bool isFullRangeFormat(int format)
{
    switch (format) {
    case AV_PIX_FMT_YUVJ420P:
    case AV_PIX_FMT_YUVJ422P:
    case AV_PIX_FMT_YUVJ444P:
    case AV_PIX_FMT_YUVJ440P:
    case AV_PIX_FMT_YUVJ411P:
        return true;
    default:
        return false;
    }
}

/// The same picture as 4:4:4 in BT.709, limited range.
Frame convertedTo444(const AVFrame& source, const AVPixFmtDescriptor& format)
{
    const bool deep = format.comp[0].depth > 8;
    Frame target(checkAllocated(av_frame_alloc()));
    target->format = deep ? AV_PIX_FMT_YUV444P12 : AV_PIX_FMT_YUV444P;
    target->width = source.width;
    target->height = source.height;
    const std::string what = "converting a picture";
    checkAv(av_frame_get_buffer(target.get(), 0), MovieError::Kind::cannotDecode, what);
    const Scaler scaler(sws_getContext(source.width, source.height, AVPixelFormat(source.format), source.width,
                                       source.height, AVPixelFormat(target->format),
                                       SWS_POINT | SWS_ACCURATE_RND | SWS_FULL_CHR_H_INT | SWS_FULL_CHR_H_INP, nullptr,
                                       nullptr, nullptr));
    if (!scaler)
        throw MovieError(MovieError::Kind::cannotDecode, std::string("no conversion from ") + format.name);
    const bool sourceIsRgb = (format.flags & (AV_PIX_FMT_FLAG_RGB | AV_PIX_FMT_FLAG_PAL)) != 0;
    const int sourceRange = sourceIsRgb || source.color_range == AVCOL_RANGE_JPEG ? 1 : 0;
    const int* const matrix709 = sws_getCoefficients(SWS_CS_ITU709);
    const int* const matrixIn =
        matrixOf(source) == ColourMatrix::bt601 && !sourceIsRgb ? sws_getCoefficients(SWS_CS_ITU601) : matrix709;
    sws_setColorspaceDetails(scaler.get(), matrixIn, sourceRange, matrix709, 0, 0, 1 << 16, 1 << 16);
    checkAv(sws_scale(scaler.get(), source.data, source.linesize, 0, source.height, target->data, target->linesize),
            MovieError::Kind::cannotDecode, what);
    target->color_range = AVCOL_RANGE_MPEG;
    target->colorspace = AVCOL_SPC_BT709;
    target->color_trc = source.color_trc;
    target->color_primaries = source.color_primaries;
    return target;
}

}

VideoPicture pictureFromFrame(Frame frame, double pixelAspect)
{
    const AVPixFmtDescriptor* descriptor = av_pix_fmt_desc_get(AVPixelFormat(frame->format));
    if (!descriptor || frame->width < 1 || frame->height < 1)
        throw MovieError(MovieError::Kind::cannotDecode, "a picture in an unknown format");
    if (!isPlanarYCbCr(*descriptor)) {
        frame = convertedTo444(*frame, *descriptor);
        descriptor = av_pix_fmt_desc_get(AVPixelFormat(frame->format));
    }
    VideoPicture picture;
    picture.format.width = frame->width;
    picture.format.height = frame->height;
    picture.format.bitDepth = descriptor->comp[0].depth;
    picture.format.chromaShiftX = descriptor->log2_chroma_w;
    picture.format.chromaShiftY = descriptor->log2_chroma_h;
    const bool full = isFullRangeFormat(frame->format) || frame->color_range == AVCOL_RANGE_JPEG;
    picture.format.range = full ? ColourRange::full : ColourRange::limited;
    picture.format.matrix = matrixOf(*frame);
    picture.format.transfer = transferOf(*frame);
    picture.format.primaries =
        frame->color_primaries == AVCOL_PRI_BT2020 ? ColourPrimaries::bt2020 : ColourPrimaries::bt709;
    picture.format.siting = sitingOf(*frame);
    picture.format.pixelAspect = pixelAspect;
    for (size_t i = 0; i < picture.planes.size(); ++i)
        picture.planes[i] = {frame->data[i], frame->linesize[i]};
    picture.owner = std::shared_ptr<const AVFrame>(std::move(frame));
    return picture;
}

}
