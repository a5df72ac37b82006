// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/FrameCompositor.h"

#include "render/ColourNormaliser.h"
#include "render/CompositionPlan.h"
#include "render/MarkOverlay.h"
#include "render/RowScaler.h"
#include "render/ScalingKernels.h"
#include "render/WorkerPool.h"

#include <algorithm>
#include <cassert>
#include <cstring>
#include <optional>

namespace zumeta {

namespace {

/// A plan, and the formats that it was made for, before their colours are normalised.
struct PlannedFormats {
    PictureFormat below;
    std::optional<PictureFormat> above;
    CompositionPlan plan;
};

/// A normaliser, and the format that it was made for.
struct NormalisedFormat {
    explicit NormalisedFormat(const PictureFormat& source)
        : format(source)
        , normaliser(source)
    {}
    PictureFormat format;
    ColourNormaliser normaliser;
};

/// What one worker needs.
struct Scratch {
    ScalerScratch below;
    ScalerScratch above;
    RowBuffer fine; ///< two rows
    ColourNormaliser::Scratch colour;
};

/// Ordered dither of 8 by 8, in fine fractions: every value below a code once.
constexpr int kBayer[8][8] = {
    {0, 32, 8, 40, 2, 34, 10, 42},    {48, 16, 56, 24, 50, 18, 58, 26}, {12, 44, 4, 36, 14, 46, 6, 38},
    {60, 28, 52, 20, 62, 30, 54, 22}, {3, 35, 11, 43, 1, 33, 9, 41},    {51, 19, 59, 27, 49, 17, 57, 25},
    {15, 47, 7, 39, 13, 45, 5, 37},   {63, 31, 55, 23, 61, 29, 53, 21},
};

using Bias = std::array<int16_t, kBiasPeriod>;

/// What is added to fine samples of a row before they are cut: the centre, an offset, and rounding or dither.
Bias biasOf(bool isDithered, int row, int firstColumn, int offset)
{
    Bias bias;
    for (int i = 0; i < kBiasPeriod; ++i) {
        const int fraction = isDithered ? kBayer[row % 8][(firstColumn + i) % 8] : 1 << (kFineFractionBits - 1);
        bias[size_t(i)] = int16_t(kFineCentre + offset + fraction);
    }
    return bias;
}

}

class FrameCompositor::Implementation {
public:
    Implementation(const CompositeLayout& layout, const CompositorOptions& options)
        : m_layout(layout)
        , m_kernels(options.kernels == CompositorKernels::portable ? portableKernels() : bestKernels())
        , m_colourKernels(options.kernels == CompositorKernels::portable ? portableColourKernels()
                                                                         : bestColourKernels())
        , m_pool(std::max(1, options.threads))
        , m_scratch(size_t(m_pool.workers()))
    {
        if (options.mark)
            m_mark.emplace(*options.mark);
    }

    void setLayout(const CompositeLayout& layout)
    {
        if (m_layout == layout)
            return;
        m_layout = layout;
        m_both.reset();
        m_belowOnly.reset();
    }

    void compose(const VideoPicture& below, const VideoPicture* above, const WritablePicture& out)
    {
        assert(out.width == int(m_layout.picture.width) && out.height == int(m_layout.picture.height));
        const CompositionPlan& plan = planFor(below.format, above ? &above->format : nullptr);
        const VideoPicture& normalBelow = normalised(Layer::below, below, plan);
        const VideoPicture* const normalAbove = above ? &normalised(Layer::above, *above, plan) : nullptr;
        for (Scratch& scratch : m_scratch)
            scratch.fine.reserve(2, plan.widestRegion() + 32); // vector code reads whole registers
        m_pool.run(int(plan.pieces().size()), [&](int index, int worker) {
            make(plan, plan.pieces()[size_t(index)], normalBelow, normalAbove, out, m_scratch[size_t(worker)]);
        });
        if (m_mark)
            m_mark->drawOver(out);
    }

private:
    /// Frames without an above picture come between others, so each kind keeps its plan.
    const CompositionPlan& planFor(const PictureFormat& below, const PictureFormat* above)
    {
        std::optional<PlannedFormats>& planned = above ? m_both : m_belowOnly;
        const std::optional<PictureFormat> aboveFormat = above ? std::optional(*above) : std::nullopt;
        if (planned && planned->below == below && planned->above == aboveFormat)
            return planned->plan;
        const PictureFormat& normalBelow = normalisedFormat(Layer::below, below);
        const PictureFormat* const normalAbove = above ? &normalisedFormat(Layer::above, *above) : nullptr;
        planned.emplace(PlannedFormats{below, aboveFormat,
                                       CompositionPlan(m_layout, int(m_layout.picture.width),
                                                       int(m_layout.picture.height), normalBelow, normalAbove)});
        planned->plan.splitFor(m_pool.workers());
        return planned->plan;
    }

    /// The normaliser for a layer's format, or none where the planes can be used as they are.
    ColourNormaliser* normaliserFor(Layer layer, const PictureFormat& format)
    {
        if (!ColourNormaliser::isNeededFor(format))
            return nullptr;
        std::optional<NormalisedFormat>& held = m_normalisers[size_t(layer)];
        if (!held || held->format != format)
            held.emplace(format);
        return &held->normaliser;
    }

    const PictureFormat& normalisedFormat(Layer layer, const PictureFormat& format)
    {
        ColourNormaliser* const normaliser = normaliserFor(layer, format);
        return normaliser ? normaliser->format() : format;
    }

    /// Only the rows that the plan reads.
    const VideoPicture& normalised(Layer layer, const VideoPicture& picture, const CompositionPlan& plan)
    {
        ColourNormaliser* const normaliser = normaliserFor(layer, picture.format);
        if (!normaliser)
            return picture;
        constexpr int kChunk = 4 * ColourNormaliser::kRowGranularity;
        const Span rows = plan.rowsRead(layer);
        const int first = rows.begin / kChunk;
        m_pool.run((rows.end + kChunk - 1) / kChunk - first, [&](int chunk, int worker) {
            const int begin = (first + chunk) * kChunk;
            normaliser->convertRows(picture, {begin, std::min(begin + kChunk, picture.format.height)}, m_colourKernels,
                                    m_scratch[size_t(worker)].colour);
        });
        return normaliser->result();
    }

    void make(const CompositionPlan& plan, const Piece& piece, const VideoPicture& below, const VideoPicture* above,
              const WritablePicture& out, Scratch& scratch) const
    {
        const Region& region = plan.region(piece.region);
        const WritablePlane& plane = out.planes[size_t(piece.plane)];
        uint8_t* const target = plane.data + region.across.begin();
        if (piece.kind == PieceKind::band) {
            makeBand(plan, piece, below, *above, out, scratch);
            return;
        }
        const VideoPicture& picture = region.layer == Layer::below ? below : *above;
        const PlaneView& source = picture.planes[size_t(piece.plane)];
        const PlaneScaling& scaling = plan.scaling(region.layer, piece.plane);
        if (piece.kind == PieceKind::copy) {
            const ptrdiff_t column = region.across.begin() + *region.shift;
            for (int row = piece.rows.begin; row < piece.rows.end; ++row) {
                std::memcpy(target + plane.stride * row,
                            source.data + source.stride * scaling.down.first[size_t(row)] + column,
                            size_t(region.across.count()));
            }
            return;
        }
        RowScaler scaler(m_kernels, scaling, region, piece.rows, source, scratch.below);
        for (int row = piece.rows.begin; row < piece.rows.end; ++row) {
            const Bias bias = biasOf(scaling.isDithered, row, region.across.begin(), scaling.offset);
            scaler.bytes(row, bias.data(), target + plane.stride * row);
        }
    }

    void makeBand(const CompositionPlan& plan, const Piece& piece, const VideoPicture& below, const VideoPicture& above,
                  const WritablePicture& out, Scratch& scratch) const
    {
        const Region& belowRegion = plan.region(piece.region);
        const Region& aboveRegion = plan.region(piece.aboveRegion);
        const PlaneScaling& belowScaling = plan.scaling(Layer::below, piece.plane);
        const PlaneScaling& aboveScaling = plan.scaling(Layer::above, piece.plane);
        const size_t p = size_t(piece.plane);
        RowScaler belowScaler(m_kernels, belowScaling, belowRegion, piece.rows, below.planes[p], scratch.below);
        RowScaler aboveScaler(m_kernels, aboveScaling, aboveRegion, piece.rows, above.planes[p], scratch.above);
        int16_t* const belowRow = scratch.fine.row(0);
        int16_t* const aboveRow = scratch.fine.row(1);
        for (int row = piece.rows.begin; row < piece.rows.end; ++row) {
            belowScaler.fine(row, belowRow);
            aboveScaler.fine(row, aboveRow);
            m_kernels.blend(belowRow + aboveRegion.across.begin(), aboveRow, plan.opacity(piece.plane, row),
                            aboveRegion.across.count());
            const Bias bias = biasOf(belowScaling.isDithered || aboveScaling.isDithered, row, 0, 0);
            m_kernels.finish(belowRow, bias.data(), belowRegion.across.count(),
                             out.planes[p].data + out.planes[p].stride * row);
        }
    }

    CompositeLayout m_layout;
    const ScalingKernels& m_kernels;
    const ColourKernels& m_colourKernels;
    std::optional<MarkOverlay> m_mark;
    std::array<std::optional<NormalisedFormat>, 2> m_normalisers;
    std::optional<PlannedFormats> m_both;
    std::optional<PlannedFormats> m_belowOnly;
    WorkerPool m_pool;
    std::vector<Scratch> m_scratch;
};

FrameCompositor::FrameCompositor(const CompositeLayout& layout, CompositorOptions options)
    : m_implementation(std::make_unique<Implementation>(layout, options))
{}

FrameCompositor::~FrameCompositor() = default;
FrameCompositor::FrameCompositor(FrameCompositor&&) noexcept = default;
FrameCompositor& FrameCompositor::operator=(FrameCompositor&&) noexcept = default;

void FrameCompositor::setLayout(const CompositeLayout& layout)
{
    m_implementation->setLayout(layout);
}

void FrameCompositor::compose(const VideoPicture& below, const VideoPicture* above, const WritablePicture& out)
{
    m_implementation->compose(below, above, out);
}

}
