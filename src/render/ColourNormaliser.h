// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/movie/VideoPicture.h"
#include "render/ColourKernels.h"
#include "render/Span.h"

#include <array>
#include <memory>
#include <vector>

namespace zumeta {

/// Turns pictures of other colour systems into 16-bit limited-range BT.709 SDR before they are scaled.
///
/// Where only the matrix differs, chroma comes from chroma alone and luma takes a little of the chroma at its site,
/// so the planes keep their sizes. Where the primaries or the transfer function differ, every luma site goes through
/// light, and the result is 4:4:4.
class ColourNormaliser {
public:
    static bool isNeededFor(const PictureFormat& format);

    explicit ColourNormaliser(const PictureFormat& source);

    /// What comes out.
    const PictureFormat& format() const { return m_result.format; }
    /// Rows for one worker; several may work on rows of their own at once.
    struct Scratch {
        std::array<std::vector<float>, 5> rows;
    };
    /// Converts luma rows and the chroma rows that belong to them; `rows` begins at a multiple of kRowGranularity.
    void convertRows(const VideoPicture& source, Span rows, const ColourKernels& kernels, Scratch& scratch) const;
    static constexpr int kRowGranularity = 4;
    /// The result; only converted rows hold a picture.
    const VideoPicture& result() const { return m_result; }

private:
    struct ChromaPhases {
        int step = 1;
        std::array<int, 4> offsets{};
        std::array<float, 4> fractions{};
    };
    void loadRow(const VideoPicture& source, int plane, int row, const ColourKernels& kernels, float* out) const;
    void loadChroma(const VideoPicture& source, int plane, int row, const ColourKernels& kernels, float* out) const;
    void chromaAtLuma(const VideoPicture& source, int plane, int lumaRow, const ColourKernels& kernels,
                      Scratch& scratch, float* out) const;
    void mixChromaRows(const VideoPicture& source, Span rows, const ColourKernels& kernels, Scratch& scratch) const;
    uint16_t* resultRow(int plane, int row) const;
    void describeMatrix();
    void describeLight();

    PictureFormat m_source;
    VideoPicture m_result;
    std::array<std::vector<uint16_t>, 3> m_planes;
    bool m_goesThroughLight;
    ChromaPhases m_phases;
    // Where only the matrix differs: Y' += lumaFrom . (Cb, Cr), Cb' = cbFrom . (Cb, Cr), Cr' likewise.
    std::array<float, 2> m_lumaFrom{};
    std::array<float, 2> m_cbFrom{};
    std::array<float, 2> m_crFrom{};
    LightConversion m_light;
    std::vector<float> m_lightTable;
    std::vector<float> m_toneTable;
};

}
