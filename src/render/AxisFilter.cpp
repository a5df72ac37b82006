// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/AxisFilter.h"

#include <algorithm>
#include <cmath>

namespace zumeta {

namespace {

/// The cubic with B = 0, C = 0.5: it passes through the samples and keeps straight ramps straight.
double catmullRom(double distance)
{
    const double x = std::abs(distance);
    if (x < 1)
        return (1.5 * x - 2.5) * x * x + 1;
    if (x < 2)
        return ((-0.5 * x + 2.5) * x - 4) * x + 2;
    return 0;
}

/// Which source samples one result sample is made of, before folding at the edges.
struct Reach {
    double centre;
    int low;
    int high;
};

Reach reachOf(double centre, double stretch, int sourceSize)
{
    const double reach = 2 * stretch;
    // Beyond this every tap repeats the edge anyway; the bound keeps the integers small.
    centre = std::clamp(centre, -reach - 1, sourceSize + reach);
    return {centre, int(std::floor(centre - reach)) + 1, int(std::ceil(centre + reach)) - 1};
}

/// Adds the integer weights of a reach to `folded`, which stands for source samples from `first` on.
void addWeights(const Reach& reach, double stretch, int sourceSize, int total, int first, int16_t* folded,
                std::vector<double>& sums)
{
    sums.clear();
    double running = 0;
    for (int i = reach.low; i <= reach.high; ++i) {
        running += catmullRom((i - reach.centre) / stretch);
        sums.push_back(running);
    }
    // Rounding the running sum makes the integers add up to the total exactly, each within one of its true value.
    const double factor = total / running;
    int given = 0;
    for (int i = reach.low; i < reach.high; ++i) {
        const int upToHere = int(std::floor(sums[size_t(i - reach.low)] * factor + 0.5));
        folded[std::clamp(i, 0, sourceSize - 1) - first] += int16_t(upToHere - given);
        given = upToHere;
    }
    folded[std::clamp(reach.high, 0, sourceSize - 1) - first] += int16_t(total - given);
}

/// Samples that are merely moved need one tap each. Only for all at once: single windows cut short would make the
/// first source sample jump back and forth.
void cutToOneTap(AxisFilter& filter)
{
    const auto isUsed = [](int weight) { return weight != 0; };
    for (int i = 0; i < filter.count; ++i) {
        if (std::count_if(filter.weightsOf(i), filter.weightsOf(i) + filter.taps, isUsed) != 1)
            return;
    }
    std::vector<int16_t> single(size_t(filter.count));
    for (int i = 0; i < filter.count; ++i) {
        const int16_t* const only = std::find_if(filter.weightsOf(i), filter.weightsOf(i) + filter.taps, isUsed);
        filter.first[size_t(i)] += int(only - filter.weightsOf(i));
        single[size_t(i)] = *only;
    }
    filter.taps = 1;
    filter.weights = std::move(single);
}

}

AxisFilter makeAxisFilter(AxisMapping mapping, int begin, int end, int sourceSize, double gain)
{
    // A kernel of several times the source's size is as good as its mean.
    const double stretch = std::clamp(mapping.step, 1.0, 4.0 * sourceSize);
    std::vector<Reach> reaches;
    AxisFilter filter;
    filter.begin = begin;
    filter.count = end - begin;
    for (int o = begin; o < end; ++o) {
        reaches.push_back(reachOf(mapping.origin + mapping.step * o, stretch, sourceSize));
        const Reach& reach = reaches.back();
        filter.first.push_back(std::clamp(reach.low, 0, sourceSize - 1));
        filter.taps = std::max(filter.taps, std::clamp(reach.high, 0, sourceSize - 1) - filter.first.back() + 1);
    }
    filter.weights.assign(reaches.size() * size_t(filter.taps), 0);
    std::vector<double> sums;
    for (size_t i = 0; i < reaches.size(); ++i) {
        filter.first[i] = std::min(filter.first[i], sourceSize - filter.taps); // reads nothing past the end
        addWeights(reaches[i], stretch, sourceSize, int(std::lround(gain * kWeightOne)), filter.first[i],
                   filter.weights.data() + i * size_t(filter.taps), sums);
    }
    cutToOneTap(filter);
    return filter;
}

std::optional<int> AxisFilter::pureShift() const
{
    if (taps != 1 || count == 0)
        return std::nullopt;
    const int shift = first[0] - begin;
    for (int i = 0; i < count; ++i) {
        if (first[size_t(i)] != begin + i + shift || weights[size_t(i)] != kWeightOne)
            return std::nullopt;
    }
    return shift;
}

AxisFilter AxisFilter::paddedTo(int multiple, int sourceSize) const
{
    const int padded = (taps + multiple - 1) / multiple * multiple;
    if (padded == taps || padded > sourceSize)
        return *this;
    AxisFilter result{begin, count, padded, std::vector<int32_t>(first.size()),
                      std::vector<int16_t>(first.size() * size_t(padded), 0)};
    for (size_t i = 0; i < first.size(); ++i) {
        result.first[i] = std::min(first[i], sourceSize - padded);
        const size_t lead = size_t(first[i] - result.first[i]);
        std::copy_n(weightsOf(int(i)), taps, result.weights.begin() + ptrdiff_t(i * size_t(padded) + lead));
    }
    return result;
}

}
