// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/playback/SoundStretcher.h"

#include <array>
#include <cmath>
#include <numbers>

namespace zumeta {

namespace {

constexpr int kChannels = AudioSource::kChannels;
/// One piece is this long while it fades in and again while it fades out: 10 ms.
constexpr int64_t kHop = AudioSource::kSampleRate / 100;
/// How far beside its planned place a piece may be taken: 7 ms, one period of a low voice.
constexpr int64_t kSearch = AudioSource::kSampleRate * 7 / 1000;

/// The weight of the new piece over one hop; that of the old one is what is missing to 1.
const std::array<float, kHop>& fadeIn()
{
    static const std::array<float, kHop> weights = [] {
        std::array<float, kHop> result{};
        for (size_t i = 0; i < result.size(); ++i)
            result[i] = float(0.5 - 0.5 * std::cos(std::numbers::pi * (double(i) + 0.5) / double(kHop)));
        return result;
    }();
    return weights;
}

}

SoundStretcher::SoundStretcher(double tempo)
    : m_tempo(tempo)
    // The first pieces may begin before the input: silence stands there.
    , m_input(size_t(2 * (kHop + kSearch) * kChannels))
    , m_mono(size_t(2 * (kHop + kSearch)))
    , m_inputStart(-2 * (kHop + kSearch))
{}

const int16_t* SoundStretcher::frame(int64_t index) const
{
    return m_input.data() + (index - m_inputStart) * kChannels;
}

std::vector<int16_t> SoundStretcher::stretch(std::span<const int16_t> input)
{
    m_input.insert(m_input.end(), input.begin(), input.end());
    for (size_t i = 0; i + 1 < input.size(); i += kChannels)
        m_mono.push_back(float(input[i]) + float(input[i + 1]));
    m_inputCount += int64_t(input.size()) / kChannels;
    return makeOutput(INT64_MAX);
}

std::vector<int16_t> SoundStretcher::finish()
{
    const auto outputEnd = int64_t(std::llround(double(m_inputCount) / m_tempo));
    const auto padding = size_t(std::ceil(4 * (double(kHop) + double(kSearch)) * std::max(m_tempo, 1.0)));
    m_input.resize(m_input.size() + padding * kChannels);
    m_mono.resize(m_mono.size() + padding);
    return makeOutput(outputEnd);
}

int64_t SoundStretcher::plannedStart(int64_t piece) const
{
    // The middle of the piece, where it is alone, lies where the tempo says.
    return std::llround(double((piece + 1) * kHop) * m_tempo) - kHop;
}

std::vector<int16_t> SoundStretcher::makeOutput(int64_t outputEnd)
{
    std::vector<int16_t> output;
    while (m_piece * kHop < outputEnd) {
        const int64_t planned = plannedStart(m_piece);
        if (std::max(planned + kSearch, m_continuation) + kHop > inputEnd())
            break;
        const int64_t start = bestStart(planned, m_continuation);
        const int64_t count = std::min(kHop, outputEnd - m_piece * kHop);
        const int16_t* const from = frame(m_continuation);
        const int16_t* const to = frame(start);
        for (int64_t i = 0; i < count * kChannels; ++i) {
            const float weight = fadeIn()[size_t(i / kChannels)];
            output.push_back(int16_t(std::lround(float(from[i]) + weight * float(to[i] - from[i]))));
        }
        m_continuation = start + kHop;
        ++m_piece;
    }
    forgetUsed();
    return output;
}

double SoundStretcher::likeness(int64_t start, int64_t continuation, int64_t stride) const
{
    double product = 0;
    double energy = 1; // silence is like nothing, and no division by it
    for (int64_t i = 0; i < kHop; i += stride) {
        const double value = mono(start + i);
        product += value * double(mono(continuation + i));
        energy += value * value;
    }
    return product / std::sqrt(energy);
}

int64_t SoundStretcher::bestStart(int64_t planned, int64_t continuation) const
{
    // Coarse first, from the planned place outward, so that of equals the nearest is taken; then exact around the best.
    constexpr int64_t kCoarse = 3;
    int64_t best = planned;
    double bestLikeness = likeness(planned, continuation, kCoarse);
    const auto consider = [&](int64_t start, int64_t stride) {
        const double found = likeness(start, continuation, stride);
        if (found > bestLikeness) {
            bestLikeness = found;
            best = start;
        }
    };
    for (int64_t beside = kCoarse; beside <= kSearch; beside += kCoarse) {
        consider(planned - beside, kCoarse);
        consider(planned + beside, kCoarse);
    }
    const int64_t around = best;
    bestLikeness = likeness(around, continuation, 1);
    for (int64_t start = std::max(around - kCoarse + 1, planned - kSearch);
         start < std::min(around + kCoarse, planned + kSearch + 1); ++start)
        consider(start, 1);
    return best;
}

void SoundStretcher::forgetUsed()
{
    const int64_t used = std::min(plannedStart(m_piece) - kSearch, m_continuation) - m_inputStart;
    // In larger portions: moving the rest costs as well.
    if (used < AudioSource::kSampleRate / 4)
        return;
    m_input.erase(m_input.begin(), m_input.begin() + used * kChannels);
    m_mono.erase(m_mono.begin(), m_mono.begin() + used);
    m_inputStart += used;
}

}
