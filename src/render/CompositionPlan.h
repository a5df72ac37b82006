// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/movie/VideoPicture.h"
#include "render/AxisFilter.h"
#include "render/CompositeGeometry.h"
#include "render/HorizontalTable.h"
#include "render/Span.h"

#include <array>
#include <optional>
#include <vector>

namespace zumeta {

enum class Layer { below, above };

/// How the rows of one plane of one layer come about, over the whole height of the result.
struct PlaneScaling {
    int sourceWidth = 0;
    int depth = 8;
    int shiftY = 0;     ///< log2 of luma rows per row of this plane
    int lumaHeight = 0; ///< of the source
    AxisMapping across;
    AxisFilter down;
    /// The weights of `down`, filled up to a number that the kernels take.
    int verticalTaps = 0;
    std::vector<int16_t> verticalWeights;
    int offset = 0; ///< of the range conversion, fine samples; its gain is in the weights
    bool isDithered = false;
    bool isQuick = false; ///< taken by the quick kernel
};

/// A range of columns of one plane of one layer.
struct Region {
    Layer layer = Layer::below;
    int plane = 0;
    HorizontalTable across;
    std::optional<int> shift; ///< where columns are merely moved
};

enum class PieceKind {
    copy,  ///< source bytes as they are
    scale, ///< one layer
    band   ///< above over below, by opacity
};

/// A rectangle of one plane that is made in one way. The pieces of a plan cover every sample exactly once.
struct Piece {
    PieceKind kind = PieceKind::scale;
    int plane = 0;
    Span rows;
    int region = 0;      ///< index into the plan's regions
    int aboveRegion = 0; ///< of a band
};

/// Everything about a composition that does not depend on the samples: which layer is seen where, and how it is
/// sampled. No sample is touched that will not be seen.
///
/// A sample belongs to the above picture when its site lies inside that picture's rectangle (left and bottom edge
/// included, right and top edge not); where it lies outside, the below picture shows.
class CompositionPlan {
public:
    CompositionPlan(const CompositeLayout& layout, int width, int height, const PictureFormat& below,
                    const PictureFormat* above);

    /// Cuts the pieces into at least this many, where they are high enough, for as many workers.
    void splitFor(int workers);

    const std::vector<Piece>& pieces() const { return m_pieces; }
    const Region& region(int index) const { return m_regions[size_t(index)]; }
    const PlaneScaling& scaling(Layer layer, int plane) const { return m_scalings[size_t(layer)][size_t(plane)]; }
    /// Opacity of the above layer per row of a band, in fractions of kOpacityOne.
    int opacity(int plane, int row) const { return m_opacities[size_t(plane)][size_t(row)]; }
    /// Luma rows of a layer's picture that are read, and all that chroma needs with them.
    Span rowsRead(Layer layer) const;
    int widestRegion() const;

private:
    /// Half-open ranges of the rows and columns of a plane whose sites lie in the above picture; both empty if none do.
    struct Cover {
        Span rows;
        Span columns;
    };
    Cover planAbove(const CompositeLayout& layout, int plane, const PictureFormat& above);
    void planRows(const CompositeLayout& layout, int plane, const Cover& above);
    Span allColumns(int plane) const { return {0, plane == 0 ? m_width : m_width / 2}; }
    Span allRows(int plane) const { return {0, plane == 0 ? m_height : m_height / 2}; }
    void addRows(int plane, Span rows, Span aboveColumns, int opacity);
    int addRegion(Layer layer, int plane, Span columns);
    void addScaled(Layer layer, int plane, Span rows, Span columns);

    int m_width;
    int m_height;
    std::array<std::array<PlaneScaling, 3>, 2> m_scalings;
    std::array<std::vector<int>, 3> m_opacities;
    std::vector<Region> m_regions;
    std::vector<Piece> m_pieces;
};

}
