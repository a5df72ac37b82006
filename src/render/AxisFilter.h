// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace zumeta {

/// Weights are integers: this many make 1.
inline constexpr int kWeightBits = 14;
inline constexpr int kWeightOne = 1 << kWeightBits;

/// Sample `o` of the result lies at `origin + step * o` of the source, both counted in samples, sample 0 at 0.
struct AxisMapping {
    double origin = 0;
    double step = 1; ///< above 0
};

/// How the samples of one axis are made: `taps` neighbouring source samples each, with Catmull-Rom weights, widened
/// when the source is shrunk so that nothing aliases. Samples beyond the source repeat its edge; their weights are
/// already added to the edge's, so every tap lies inside and nobody has to clamp.
struct AxisFilter {
    int begin = 0; ///< number of the first result sample
    int count = 0;
    int taps = 0;
    std::vector<int32_t> first;   ///< per result sample: its first source sample; never falls
    std::vector<int16_t> weights; ///< `taps` per result sample

    const int16_t* weightsOf(int index) const { return weights.data() + size_t(index) * size_t(taps); }
    /// The distance by which samples are merely moved, where that is all that happens.
    std::optional<int> pureShift() const;
    /// The same filter with at least this many taps, a multiple of `multiple`, the added ones of weight 0. Nothing
    /// changes where the source has too few samples for them.
    AxisFilter paddedTo(int multiple, int sourceSize) const;
};

/// For result samples begin..end-1. `gain` scales all weights: their sum is exactly the nearest integer to
/// gain * kWeightOne for each sample.
AxisFilter makeAxisFilter(AxisMapping mapping, int begin, int end, int sourceSize, double gain = 1);

}
