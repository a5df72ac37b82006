// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/ColourNormaliser.h"

#include "render/TransferCurves.h"

#include <algorithm>
#include <cmath>

namespace zumeta {

namespace {

/// Shares of red and blue in luma.
struct LumaShares {
    double red;
    double blue;
    double green() const { return 1 - red - blue; }
    double redFromCr() const { return 2 * (1 - red); }
    double blueFromCb() const { return 2 * (1 - blue); }
    double greenFromCb() const { return -blue * blueFromCb() / green(); }
    double greenFromCr() const { return -red * redFromCr() / green(); }
};

LumaShares sharesOf(ColourMatrix matrix)
{
    switch (matrix) {
    case ColourMatrix::bt601:
        return {0.299, 0.114};
    case ColourMatrix::bt2020:
        return {0.2627, 0.0593};
    case ColourMatrix::bt709:
        break;
    }
    return {0.2126, 0.0722};
}

/// Light of BT.2020 primaries in those of BT.709; both have the same white.
constexpr std::array<double, 9> kFromBt2020{1.660491,  -0.587641, -0.072850, -0.124550, 1.132900,
                                            -0.008349, -0.018151, -0.100579, 1.118730};

constexpr int kChromaMargin = 4; // samples before and after a row that repeat its ends

}

bool ColourNormaliser::isNeededFor(const PictureFormat& format)
{
    return format.matrix != ColourMatrix::bt709 || format.transfer != TransferFunction::sdr ||
           format.primaries != ColourPrimaries::bt709;
}

ColourNormaliser::ColourNormaliser(const PictureFormat& source)
    : m_source(source)
    , m_goesThroughLight(source.transfer != TransferFunction::sdr || source.primaries != ColourPrimaries::bt709)
{
    PictureFormat& format = m_result.format;
    format = source;
    format.bitDepth = 16;
    format.range = ColourRange::limited;
    format.matrix = ColourMatrix::bt709;
    format.transfer = TransferFunction::sdr;
    format.primaries = ColourPrimaries::bt709;
    if (m_goesThroughLight)
        format.chromaShiftX = format.chromaShiftY = 0;
    for (size_t plane = 0; plane < 3; ++plane) {
        const int width = plane == 0 ? format.width : format.chromaWidth();
        const int height = plane == 0 ? format.height : format.chromaHeight();
        m_planes[plane].resize(size_t(width) * size_t(height));
        m_result.planes[plane] = {reinterpret_cast<const uint8_t*>(m_planes[plane].data()), ptrdiff_t(width) * 2};
    }
    m_phases.step = 1 << source.chromaShiftX;
    const double siteZero = source.siting == ChromaSiting::centre ? m_phases.step / 2.0 : 0.5;
    for (int p = 0; p < m_phases.step; ++p) {
        const double position = (p + 0.5 - siteZero) / m_phases.step;
        m_phases.offsets[size_t(p)] = int(std::floor(position));
        m_phases.fractions[size_t(p)] = float(position - std::floor(position));
    }
    if (m_goesThroughLight)
        describeLight();
    else
        describeMatrix();
}

void ColourNormaliser::describeMatrix()
{
    const LumaShares from = sharesOf(m_source.matrix);
    const LumaShares to = sharesOf(ColourMatrix::bt709);
    // With Y' taken as 0: greys have no chroma in either system, so Y' enters nothing but Y'.
    const auto convert = [&](double cb, double cr) {
        const double r = from.redFromCr() * cr;
        const double g = from.greenFromCb() * cb + from.greenFromCr() * cr;
        const double b = from.blueFromCb() * cb;
        const double y = to.red * r + to.green() * g + to.blue * b;
        return std::array<double, 3>{y, (b - y) / to.blueFromCb(), (r - y) / to.redFromCr()};
    };
    const auto fromCb = convert(1, 0);
    const auto fromCr = convert(0, 1);
    m_lumaFrom = {float(fromCb[0]), float(fromCr[0])};
    m_cbFrom = {float(fromCb[1]), float(fromCr[1])};
    m_crFrom = {float(fromCb[2]), float(fromCr[2])};
}

void ColourNormaliser::describeLight()
{
    const LumaShares shares = sharesOf(m_source.matrix);
    m_light.redFromCr = float(shares.redFromCr());
    m_light.greenFromCb = float(shares.greenFromCb());
    m_light.greenFromCr = float(shares.greenFromCr());
    m_light.blueFromCb = float(shares.blueFromCb());
    m_lightTable = lightTable(m_source.transfer);
    m_toneTable = toneTable(m_source.transfer);
    m_light.light = m_lightTable.data();
    m_light.tone = m_toneTable.data();
    if (m_source.transfer == TransferFunction::hlg) {
        m_light.hasSystemGamma = true;
        m_light.systemGammaLess1 = 0.2F; // for a screen of 1000 nits
        m_light.systemGain = float(kHdrPeakNits / kSdrPeakNits);
    }
    if (m_source.primaries == ColourPrimaries::bt2020)
        std::copy(kFromBt2020.begin(), kFromBt2020.end(), m_light.primaries);
}

uint16_t* ColourNormaliser::resultRow(int plane, int row) const
{
    const PlaneView& view = m_result.planes[size_t(plane)];
    // The planes are ours; the view is read-only for those who get the result.
    return const_cast<uint16_t*>(reinterpret_cast<const uint16_t*>(view.data + view.stride * row));
}

/// As fractions: Y' from 0 to 1, chroma from -0.5 to 0.5.
void ColourNormaliser::loadRow(const VideoPicture& source, int plane, int row, const ColourKernels& kernels,
                               float* out) const
{
    const double unit = 1 << (m_source.bitDepth - 8);
    const double peak = (1 << m_source.bitDepth) - 1;
    const bool isFull = m_source.range == ColourRange::full;
    const double scale = 1 / (isFull ? peak : (plane == 0 ? 219 : 224) * unit);
    const double zero = plane == 0 ? (isFull ? 0 : 16 * unit) : 128 * unit;
    const PlaneView& view = source.planes[size_t(plane)];
    const uint8_t* const samples = view.data + view.stride * row;
    const int count = plane == 0 ? m_source.width : m_source.chromaWidth();
    if (m_source.bitDepth > 8)
        kernels.load16(reinterpret_cast<const uint16_t*>(samples), count, float(scale), float(-zero * scale), out);
    else
        kernels.load8(samples, count, float(scale), float(-zero * scale), out);
}

void ColourNormaliser::loadChroma(const VideoPicture& source, int plane, int row, const ColourKernels& kernels,
                                  float* out) const
{
    const int count = m_source.chromaWidth();
    loadRow(source, plane, std::clamp(row, 0, m_source.chromaHeight() - 1), kernels, out + kChromaMargin);
    std::fill_n(out, kChromaMargin, out[kChromaMargin]);
    std::fill_n(out + kChromaMargin + count, kChromaMargin, out[kChromaMargin + count - 1]);
}

void ColourNormaliser::chromaAtLuma(const VideoPicture& source, int plane, int lumaRow, const ColourKernels& kernels,
                                    Scratch& scratch, float* out) const
{
    const double spacing = 1 << m_source.chromaShiftY;
    const double siteZero = m_source.siting == ChromaSiting::topLeft ? 0.5 : spacing / 2;
    const double position = (lumaRow + 0.5 - siteZero) / spacing;
    const int row = int(std::floor(position));
    const float fraction = float(position - row);
    float* const mixed = scratch.rows[3].data();
    loadChroma(source, plane, row, kernels, mixed);
    if (fraction > 0) {
        loadChroma(source, plane, row + 1, kernels, scratch.rows[4].data());
        kernels.lerp(mixed, scratch.rows[4].data(), fraction, m_source.chromaWidth() + 2 * kChromaMargin);
    }
    kernels.upsample(mixed + kChromaMargin, m_source.chromaWidth(), m_phases.step, m_phases.offsets.data(),
                     m_phases.fractions.data(), out);
}

void ColourNormaliser::mixChromaRows(const VideoPicture& source, Span rows, const ColourKernels& kernels,
                                     Scratch& scratch) const
{
    float* const cb = scratch.rows[0].data();
    float* const cr = scratch.rows[1].data();
    const int count = m_source.chromaWidth();
    for (int row = rows.begin; row < rows.end; ++row) {
        loadRow(source, 1, row, kernels, cb);
        loadRow(source, 2, row, kernels, cr);
        kernels.storeMix(cb, m_cbFrom[0], cr, m_cbFrom[1], 224 * 256, 32768, count, resultRow(1, row));
        kernels.storeMix(cb, m_crFrom[0], cr, m_crFrom[1], 224 * 256, 32768, count, resultRow(2, row));
    }
}

void ColourNormaliser::convertRows(const VideoPicture& source, Span rows, const ColourKernels& kernels,
                                   Scratch& scratch) const
{
    for (std::vector<float>& row : scratch.rows)
        row.resize(size_t(m_source.width) + 8 * kChromaMargin); // chroma of four luma samples may stick out by three
    float* const y = scratch.rows[0].data();
    float* const cb = scratch.rows[1].data();
    float* const cr = scratch.rows[2].data();
    if (!m_goesThroughLight) {
        const int shift = m_source.chromaShiftY;
        mixChromaRows(source,
                      {rows.begin >> shift, std::min(m_source.chromaHeight(), (rows.end + (1 << shift) - 1) >> shift)},
                      kernels, scratch);
    }
    for (int row = rows.begin; row < rows.end; ++row) {
        chromaAtLuma(source, 1, row, kernels, scratch, cb);
        chromaAtLuma(source, 2, row, kernels, scratch, cr);
        loadRow(source, 0, row, kernels, y);
        if (m_goesThroughLight) {
            kernels.convertLight(m_light, y, cb, cr, m_source.width, resultRow(0, row), resultRow(1, row),
                                 resultRow(2, row));
        } else {
            kernels.storeLuma(y, cb, cr, m_lumaFrom[0], m_lumaFrom[1], 219 * 256, 16 * 256, m_source.width,
                              resultRow(0, row));
        }
    }
}

}
