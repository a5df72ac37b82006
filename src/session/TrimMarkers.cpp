// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/TrimMarkers.h"

#include <algorithm>
#include <cmath>

namespace zumeta {

namespace {

bool isSameMarker(double time, double other)
{
    return std::abs(time - other) < kMarkerTolerance;
}

auto sameMarkerAs(double time)
{
    return [time](double marker) { return isSameMarker(marker, time); };
}

}

std::optional<double> TrimMarkers::nearest(double time, double tolerance) const
{
    const auto distance = [time](double marker) { return std::abs(marker - time); };
    const auto found = std::ranges::min_element(times, {}, distance);
    if (found == times.end() || distance(*found) > tolerance)
        return std::nullopt;
    return *found;
}

bool TrimMarkers::isSelected(double time) const
{
    return selected && isSameMarker(*selected, time);
}

void TrimMarkers::add(double time)
{
    if (std::ranges::none_of(times, sameMarkerAs(time)))
        times.insert(std::ranges::upper_bound(times, time), time);
    selected = time;
}

void TrimMarkers::moveSelected(double time)
{
    if (!selected)
        return;
    std::erase_if(times, sameMarkerAs(*selected));
    std::erase_if(times, sameMarkerAs(time));
    add(time);
}

void TrimMarkers::deleteSelected()
{
    if (!selected)
        return;
    std::erase_if(times, sameMarkerAs(*selected));
    selected.reset();
}

std::vector<double> TrimMarkers::stops(const TrimRange& range) const
{
    std::vector<double> candidates{range.start, range.end};
    std::ranges::copy_if(times, std::back_inserter(candidates), [&](double marker) {
        return marker >= range.start - kMarkerTolerance && marker <= range.end + kMarkerTolerance;
    });
    std::ranges::sort(candidates);
    std::vector<double> kept;
    for (const double candidate : candidates) {
        if (kept.empty() || !isSameMarker(candidate, kept.back()))
            kept.push_back(candidate);
    }
    return kept;
}

double TrimMarkers::stopBeyond(double playhead, const TrimRange& range, int direction) const
{
    const std::vector<double> all = stops(range);
    const auto here = std::ranges::find_if(all, sameMarkerAs(selected.value_or(playhead)));
    if (here != all.end()) {
        const std::ptrdiff_t count = std::ssize(all);
        const std::ptrdiff_t index = (here - all.begin() + direction) % count;
        return all[std::size_t(index < 0 ? index + count : index)];
    }
    if (direction < 0) {
        const auto notEarlier = std::ranges::lower_bound(all, playhead - kMarkerTolerance);
        return notEarlier == all.begin() ? all.back() : *std::prev(notEarlier);
    }
    const auto later = std::ranges::upper_bound(all, playhead + kMarkerTolerance);
    return later == all.end() ? all.front() : *later;
}

void TrimMarkers::selectAtStop(double stop)
{
    const auto marker = std::ranges::find_if(times, sameMarkerAs(stop));
    selected = marker == times.end() ? std::nullopt : std::optional(*marker);
}

}
