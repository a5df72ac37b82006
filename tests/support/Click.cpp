// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Click.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <numbers>

namespace zumeta::test {

namespace {

constexpr double kHalfLength = 0.001;
constexpr double kTone = 3000;
constexpr double kApart = 0.05; ///< two clicks are never closer than this

/// How well each place fits the click, where the sound is loud enough to be one at all.
std::vector<double> fits(std::span<const int16_t> samples, int sampleRate)
{
    constexpr int kLoud = 1500;
    const int reach = int(std::ceil(kHalfLength * sampleRate));
    std::vector<double> pattern;
    for (int i = -reach; i <= reach; ++i)
        pattern.push_back(clickAt(double(i) / sampleRate));
    std::vector<double> result(samples.size());
    for (size_t centre = 0; centre < samples.size(); ++centre) {
        if (std::abs(int(samples[centre])) < kLoud)
            continue;
        // Fits are also wanted around the loud sample: the best place may lie on a zero of the tone.
        for (int shift = -8; shift <= 8; ++shift) {
            const auto place = int64_t(centre) + shift;
            if (place < 0 || place >= int64_t(samples.size()) || result[size_t(place)] != 0)
                continue;
            double sum = 0;
            for (int i = -reach; i <= reach; ++i) {
                const int64_t at = place + i;
                if (at >= 0 && at < int64_t(samples.size()))
                    sum += pattern[size_t(i + reach)] * samples[size_t(at)];
            }
            result[size_t(place)] = sum;
        }
    }
    return result;
}

double peakBetweenSamples(const std::vector<double>& fit, size_t peak)
{
    if (peak == 0 || peak + 1 >= fit.size())
        return double(peak);
    const double before = fit[peak - 1];
    const double after = fit[peak + 1];
    const double bend = before - 2 * fit[peak] + after;
    return double(peak) + (bend == 0 ? 0 : 0.5 * (before - after) / bend);
}

}

double clickAt(double seconds)
{
    if (std::abs(seconds) > kHalfLength)
        return 0;
    const double envelope = 0.5 + 0.5 * std::cos(std::numbers::pi * seconds / kHalfLength);
    return envelope * std::cos(2 * std::numbers::pi * kTone * seconds);
}

std::vector<double> findClicks(std::span<const int16_t> samples, int sampleRate)
{
    const std::vector<double> fit = fits(samples, sampleRate);
    const double best = fit.empty() ? 0 : *std::max_element(fit.begin(), fit.end());
    std::vector<double> result;
    if (best <= 0)
        return result;
    const auto apart = size_t(kApart * sampleRate);
    for (size_t i = 0; i < fit.size(); ++i) {
        if (fit[i] < 0.5 * best)
            continue;
        const size_t end = std::min(fit.size(), i + apart);
        const auto peak =
            size_t(std::max_element(fit.begin() + ptrdiff_t(i), fit.begin() + ptrdiff_t(end)) - fit.begin());
        result.push_back(peakBetweenSamples(fit, peak) / sampleRate);
        i = peak + apart;
    }
    return result;
}

std::vector<int16_t> channelOf(std::span<const int16_t> interleaved, int channels, int channel)
{
    std::vector<int16_t> result;
    result.reserve(interleaved.size() / size_t(channels));
    for (size_t i = size_t(channel); i < interleaved.size(); i += size_t(channels))
        result.push_back(interleaved[i]);
    return result;
}

}
