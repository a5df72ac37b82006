// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/movie/VideoPicture.h"
#include "render/MarkImage.h"

#include <array>
#include <vector>

namespace zumeta {

/// A mark turned into the composite's own planes once, so that laying it over a frame costs only the samples that it
/// touches.
class MarkOverlay {
public:
    explicit MarkOverlay(const MarkImage& image);
    /// A picture of another size stays as it is.
    void drawOver(const WritablePicture& picture) const;

private:
    /// The part of a plane that the mark touches: out = colour + under * (1 - alpha), in fractions of 2^-15.
    struct PlanePatch {
        int x = 0;
        int y = 0;
        int width = 0;
        int height = 0;
        std::vector<int32_t> colour; ///< premultiplied, code values of the plane
        std::vector<int32_t> transparency;
    };
    int m_width;
    int m_height;
    std::array<PlanePatch, 3> m_patches;
};

}
