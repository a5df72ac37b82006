// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/CompositionPlan.h"

#include <algorithm>
#include <cmath>

namespace zumeta {

namespace {

/// Sites of the result's samples, from its left and top edge, in luma samples.
struct OutputGrid {
    double first;
    double step;
    double site(int index) const { return first + step * index; }
    static OutputGrid columns(int plane) { return plane == 0 ? OutputGrid{0.5, 1} : OutputGrid{0.5, 2}; } // sited left
    static OutputGrid rows(int plane) { return plane == 0 ? OutputGrid{0.5, 1} : OutputGrid{1, 2}; }
};

/// A picture's edges in the result, from its left and top edge, and the size of one of its luma samples there.
struct Footprint {
    double left, top, right, bottom;
    double sampleWidth, sampleHeight;
    /// Numbers that the arithmetic below stands, and a size that could be seen.
    bool isUsable() const
    {
        constexpr double kSmallest = 1e-6;
        return std::isfinite(left) && std::isfinite(top) && std::isfinite(right) && std::isfinite(bottom) &&
               sampleWidth > kSmallest && sampleHeight > kSmallest;
    }
};

Size squaredSize(const PictureFormat& format)
{
    return {format.squaredWidth(), double(format.height)};
}

Footprint footprintOf(const Placement& placement, const PictureFormat& format, double pictureHeight)
{
    const Size size = squaredSize(format);
    Footprint print{};
    print.sampleWidth = placement.scale * format.pixelAspect;
    print.sampleHeight = placement.scale;
    print.left = placement.x;
    print.right = placement.x + placement.scale * size.width;
    print.top = turnedOver(placement.y + placement.scale * size.height, pictureHeight);
    print.bottom = turnedOver(placement.y, pictureHeight);
    return print;
}

/// `edge` is where the picture begins, `sample` the size of a luma sample, `shift` the plane's subsampling, `siteZero`
/// where its sample 0 sits, in luma samples from the edge.
AxisMapping mappingOf(OutputGrid grid, double edge, double sample, int shift, double siteZero)
{
    const double spacing = double(1 << shift);
    return {((grid.first - edge) / sample - siteZero) / spacing, grid.step / (sample * spacing)};
}

double siteZeroX(const PictureFormat& format, int plane)
{
    const bool isCentred = format.siting == ChromaSiting::centre;
    return plane == 0 || !isCentred ? 0.5 : double(1 << format.chromaShiftX) / 2;
}

double siteZeroY(const PictureFormat& format, int plane)
{
    const bool isAtTop = format.siting == ChromaSiting::topLeft;
    return plane == 0 || isAtTop ? 0.5 : double(1 << format.chromaShiftY) / 2;
}

/// What turns samples centred on 128, on the 8-bit scale, into limited range.
struct RangeConversion {
    double gain = 1;
    double offset = 0;
};

RangeConversion rangeConversionOf(const PictureFormat& format, int plane)
{
    if (format.range == ColourRange::limited)
        return {};
    const double peak = double((1 << format.bitDepth) - 1) / double(1 << (format.bitDepth - 8));
    if (plane != 0)
        return {224.0 / peak, 0};
    const double gain = 219.0 / peak;
    return {gain, 16 + 128 * gain - 128};
}

/// The first sample whose site is not left of `edge`.
int firstAtOrAfter(OutputGrid grid, double edge, int count)
{
    return int(std::clamp(std::ceil((edge - grid.first) / grid.step), 0.0, double(count)));
}

int firstAfter(OutputGrid grid, double edge, int count)
{
    return int(std::clamp(std::floor((edge - grid.first) / grid.step) + 1, 0.0, double(count)));
}

PlaneScaling scalingOf(const PictureFormat& format, const Footprint& print, int plane, int rows)
{
    const RangeConversion range = rangeConversionOf(format, plane);
    PlaneScaling scaling;
    scaling.sourceWidth = plane == 0 ? format.width : format.chromaWidth();
    scaling.depth = format.bitDepth;
    scaling.shiftY = plane == 0 ? 0 : format.chromaShiftY;
    scaling.lumaHeight = format.height;
    scaling.across = mappingOf(OutputGrid::columns(plane), print.left, print.sampleWidth,
                               plane == 0 ? 0 : format.chromaShiftX, siteZeroX(format, plane));
    const AxisMapping down =
        mappingOf(OutputGrid::rows(plane), print.top, print.sampleHeight, scaling.shiftY, siteZeroY(format, plane));
    scaling.down = makeAxisFilter(down, 0, rows, plane == 0 ? format.height : format.chromaHeight(), range.gain);
    scaling.offset = int(std::lround(range.offset * (1 << kFineFractionBits)));
    scaling.isDithered = format.bitDepth > 8;
    const int taps = scaling.down.taps;
    scaling.isQuick = !scaling.isDithered && taps <= 4;
    scaling.verticalTaps = scaling.isQuick ? 4 : taps + taps % 2;
    scaling.verticalWeights.assign(size_t(rows) * size_t(scaling.verticalTaps), 0);
    for (int row = 0; row < rows; ++row) {
        std::copy_n(scaling.down.weightsOf(row), taps,
                    scaling.verticalWeights.begin() + ptrdiff_t(row) * scaling.verticalTaps);
    }
    return scaling;
}

}

CompositionPlan::CompositionPlan(const CompositeLayout& layout, int width, int height, const PictureFormat& below,
                                 const PictureFormat* above)
    : m_width(width)
    , m_height(height)
{
    const Footprint belowPrint = footprintOf(layout.placeBelow(squaredSize(below)), below, m_height);
    for (int plane = 0; plane < 3; ++plane) {
        m_scalings[size_t(Layer::below)][size_t(plane)] = scalingOf(below, belowPrint, plane, allRows(plane).length());
        planRows(layout, plane, above ? planAbove(layout, plane, *above) : Cover{});
    }
}

CompositionPlan::Cover CompositionPlan::planAbove(const CompositeLayout& layout, int plane, const PictureFormat& above)
{
    const Footprint print = footprintOf(layout.placeAbove(squaredSize(above)), above, m_height);
    if (!print.isUsable())
        return {};
    const OutputGrid columnGrid = OutputGrid::columns(plane);
    const OutputGrid rowGrid = OutputGrid::rows(plane);
    const int columns = allColumns(plane).end;
    const int rows = allRows(plane).end;
    const Cover cover{
        {firstAfter(rowGrid, print.top, rows), firstAfter(rowGrid, print.bottom, rows)},
        {firstAtOrAfter(columnGrid, print.left, columns), firstAtOrAfter(columnGrid, print.right, columns)}};
    if (cover.rows.isEmpty() || cover.columns.isEmpty())
        return {};
    m_scalings[size_t(Layer::above)][size_t(plane)] = scalingOf(above, print, plane, rows);
    return cover;
}

void CompositionPlan::planRows(const CompositeLayout& layout, int plane, const Cover& above)
{
    const OutputGrid grid = OutputGrid::rows(plane);
    const int rows = allRows(plane).end;
    std::vector<int>& opacities = m_opacities[size_t(plane)];
    opacities.assign(size_t(rows), 0);
    for (int row = above.rows.begin; row < above.rows.end; ++row) {
        const double opacity = layout.opacityAt(turnedOver(grid.site(row), m_height));
        opacities[size_t(row)] = int(std::lround(opacity * kOpacityOne));
    }
    // Runs of rows of one kind: nothing of the above layer, the band, all of it.
    const auto kindOf = [&](int row) {
        const int opacity = opacities[size_t(row)];
        return opacity <= 0 ? 0 : opacity >= kOpacityOne ? 2 : 1;
    };
    for (int row = 0; row < rows;) {
        int end = row + 1;
        while (end < rows && kindOf(end) == kindOf(row))
            ++end;
        addRows(plane, {row, end}, above.columns, opacities[size_t(row)]);
        row = end;
    }
}

void CompositionPlan::addRows(int plane, Span rows, Span aboveColumns, int opacity)
{
    const Span all = allColumns(plane);
    if (opacity <= 0) {
        addScaled(Layer::below, plane, rows, all);
    } else if (opacity >= kOpacityOne) {
        addScaled(Layer::below, plane, rows, {0, aboveColumns.begin});
        addScaled(Layer::above, plane, rows, aboveColumns);
        addScaled(Layer::below, plane, rows, {aboveColumns.end, all.end});
    } else {
        const int below = addRegion(Layer::below, plane, all);
        m_pieces.push_back({PieceKind::band, plane, rows, below, addRegion(Layer::above, plane, aboveColumns)});
    }
}

void CompositionPlan::addScaled(Layer layer, int plane, Span rows, Span columns)
{
    if (columns.isEmpty())
        return;
    const int index = addRegion(layer, plane, columns);
    const PlaneScaling& source = scaling(layer, plane);
    const bool isCopy = region(index).shift && source.down.pureShift() && source.depth == 8 && source.offset == 0;
    m_pieces.push_back({isCopy ? PieceKind::copy : PieceKind::scale, plane, rows, index, 0});
}

int CompositionPlan::addRegion(Layer layer, int plane, Span columns)
{
    const auto same = [&](const Region& region) {
        return region.layer == layer && region.plane == plane && region.across.begin() == columns.begin &&
               region.across.count() == columns.length();
    };
    const auto found = std::find_if(m_regions.begin(), m_regions.end(), same);
    if (found != m_regions.end())
        return int(found - m_regions.begin());
    const PlaneScaling& source = scaling(layer, plane);
    const AxisFilter filter = makeAxisFilter(source.across, columns.begin, columns.end, source.sourceWidth);
    m_regions.push_back(
        {layer, plane, HorizontalTable(filter, source.sourceWidth, source.depth > 8 ? 2 : 1), filter.pureShift()});
    return int(m_regions.size()) - 1;
}

void CompositionPlan::splitFor(int workers)
{
    if (workers <= 1)
        return;
    // Several pieces a worker, so that the last ones end together; not too low, since each starts with rows of its own.
    constexpr int kPiecesPerWorker = 4;
    constexpr int kLowest = 16; // rows
    std::vector<Piece> split;
    for (const Piece& piece : m_pieces) {
        const int planeRows = allRows(piece.plane).length();
        const int height = std::max(kLowest, planeRows / (workers * kPiecesPerWorker));
        for (int row = piece.rows.begin; row < piece.rows.end; row += height) {
            split.push_back(piece);
            split.back().rows = {row, std::min(row + height, piece.rows.end)};
        }
    }
    m_pieces = std::move(split);
}

Span CompositionPlan::rowsRead(Layer layer) const
{
    Span read{};
    for (const Piece& piece : m_pieces) {
        const bool isRead = region(piece.region).layer == layer ||
                            (piece.kind == PieceKind::band && region(piece.aboveRegion).layer == layer);
        if (!isRead)
            continue;
        const PlaneScaling& source = scaling(layer, piece.plane);
        const int begin = source.down.first[size_t(piece.rows.begin)] << source.shiftY;
        const int behind = source.down.first[size_t(piece.rows.end) - 1] + source.down.taps;
        const int end = std::min(source.lumaHeight, behind << source.shiftY);
        read = read.isEmpty() ? Span{begin, end} : Span{std::min(read.begin, begin), std::max(read.end, end)};
    }
    return read;
}

int CompositionPlan::widestRegion() const
{
    int widest = 0;
    for (const Region& region : m_regions)
        widest = std::max(widest, region.across.paddedCount());
    return widest;
}

}
