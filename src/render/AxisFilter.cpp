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

/// The weights of one result sample, folded at the edges.
struct Window {
    int first = 0;
    std::vector<int> weights;
};

Window windowAt(double centre, double stretch, int sourceSize, int total)
{
    const double reach = 2 * stretch;
    // Beyond this every tap repeats the edge anyway; the bound keeps the integers small.
    centre = std::clamp(centre, -reach - 1, sourceSize + reach);
    const int low = int(std::floor(centre - reach)) + 1;
    const int high = int(std::ceil(centre + reach)) - 1;
    double sum = 0;
    for (int i = low; i <= high; ++i)
        sum += catmullRom((i - centre) / stretch);

    const int foldedLow = std::clamp(low, 0, sourceSize - 1);
    const int foldedHigh = std::clamp(high, 0, sourceSize - 1);
    Window window{foldedLow, std::vector<int>(size_t(foldedHigh - foldedLow + 1), 0)};
    // Rounding the running sum makes the integers add up to the total exactly, each within one of its true value.
    double running = 0;
    int given = 0;
    for (int i = low; i <= high; ++i) {
        running += catmullRom((i - centre) / stretch);
        const int upToHere = int(std::lround(running / sum * total));
        window.weights[size_t(std::clamp(i, 0, sourceSize - 1) - foldedLow)] += upToHere - given;
        given = upToHere;
    }
    return window;
}

bool isOneSample(const Window& window)
{
    return std::count_if(window.weights.begin(), window.weights.end(), [](int weight) { return weight != 0; }) == 1;
}

/// Samples that are merely moved need one tap each. Only for all at once: single windows cut short would make the
/// first source sample jump back and forth.
void cutToOneSample(Window& window)
{
    const auto only =
        std::find_if(window.weights.begin(), window.weights.end(), [](int weight) { return weight != 0; });
    window.first += int(only - window.weights.begin());
    window.weights = {*only};
}

}

AxisFilter makeAxisFilter(AxisMapping mapping, int begin, int end, int sourceSize, double gain)
{
    const double stretch = std::max(1.0, mapping.step);
    const int total = int(std::lround(gain * kWeightOne));
    std::vector<Window> windows;
    windows.reserve(size_t(end - begin));
    for (int o = begin; o < end; ++o)
        windows.push_back(windowAt(mapping.origin + mapping.step * o, stretch, sourceSize, total));
    if (std::all_of(windows.begin(), windows.end(), isOneSample))
        std::for_each(windows.begin(), windows.end(), cutToOneSample);
    size_t taps = 1;
    for (const Window& window : windows)
        taps = std::max(taps, window.weights.size());

    AxisFilter filter;
    filter.begin = begin;
    filter.count = end - begin;
    filter.taps = int(taps);
    filter.first.resize(windows.size());
    filter.weights.assign(windows.size() * taps, 0);
    for (size_t i = 0; i < windows.size(); ++i) {
        filter.first[i] = std::min(windows[i].first, sourceSize - int(taps)); // reads nothing past the end
        const size_t lead = size_t(windows[i].first - filter.first[i]);
        for (size_t t = 0; t < windows[i].weights.size(); ++t)
            filter.weights[i * taps + lead + t] = int16_t(windows[i].weights[t]);
    }
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
