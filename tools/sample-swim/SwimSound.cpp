// SPDX-License-Identifier: GPL-3.0-or-later
#include "SwimSound.h"

#include "Noise.h"

#include <cmath>
#include <numbers>

namespace zumeta::swim {

namespace {

constexpr float kTurn = 2 * std::numbers::pi_v<float>;
constexpr double kBeepSeconds = .45;
constexpr float kBeepPitch = 880; // hertz
constexpr float kStepsPerSecond = kSampleRate;

float noiseAt(int64_t sample, uint32_t seed)
{
    return float(int32_t(hashed(uint32_t(sample), uint32_t(sample >> 32), seed))) * (1.f / 2147483648.f);
}

/// A single-pole low-pass filter's share of the new value.
float share(float hertz)
{
    return 1 - std::exp(-kTurn * hertz / kStepsPerSecond);
}

/// How loud the hands strike the water: sharp at each entry, then fading.
float strokeLoudness(double swimTime)
{
    const double halfStrokes = strokePhase(swimTime) * 2;
    const double since = (halfStrokes - std::floor(halfStrokes)) * kStrokeSeconds / 2;
    return float(std::exp(-since / .13) * (1 - std::exp(-since / .008)));
}

/// Six kicks a stroke, softer.
float kickLoudness(double swimTime)
{
    const double kicks = strokePhase(swimTime) * 6;
    const double since = (kicks - std::floor(kicks)) * kStrokeSeconds / 6;
    return float(std::exp(-since / .05) * (1 - std::exp(-since / .006)));
}

/// The swimmer is heard before it is seen, and loudest when it is close.
float nearness(double swimTime)
{
    const double away = (headPosition(swimTime) - cameraPosition(swimTime)) / 1500;
    return float(1 / (1 + away * away));
}

int16_t coded(float value)
{
    return int16_t(std::lround(std::clamp(value, -1.f, 1.f) * 32000));
}

}

SwimSound::SwimSound(const SwimPlan& plan, Place place)
    : m_place(place)
    , m_start(place == Place::above ? plan.aboveSwimTime(0) : plan.belowSwimTime(0))
    , m_length(samplesBefore(place == Place::above ? plan.aboveFrames : plan.belowFrames, plan.rate))
    , m_beep(std::llround((place == Place::above ? plan.beepAboveTime() : plan.beepBelowTime()) * kSampleRate))
{}

std::vector<int16_t> SwimSound::next(int count)
{
    std::vector<int16_t> samples(size_t(count) * 2);
    const float beepShare = share(700);
    for (int i = 0; i < count; ++i) {
        const int64_t sample = m_next + i;
        const double swimTime = m_start + double(sample) / kSampleRate;
        const float near = nearness(swimTime);
        const float splash = strokeLoudness(swimTime) * near;
        const float kick = kickLoudness(swimTime) * near;

        const double sinceBeep = double(sample - m_beep) / kSampleRate;
        float beep = 0;
        if (sinceBeep >= 0 && sinceBeep < kBeepSeconds) {
            const auto turns = float(sinceBeep) * kBeepPitch * kTurn;
            const float end = smooth(float(kBeepSeconds), float(kBeepSeconds) - .03f, float(sinceBeep));
            // It begins at a crest, so that its first sample is already loud.
            beep = end * (std::cos(turns) + .35f * std::cos(3 * turns) + .12f * std::cos(5 * turns)) / 1.47f;
        }
        for (size_t c = 0; c < 2; ++c) {
            Channel& channel = c == 0 ? m_left : m_right;
            float value = 0;
            if (m_place == Place::above) {
                value = hallAt(sample, channel, splash, kick) + .62f * beep;
            } else {
                // Water takes the high tones from the beep.
                channel.rumble += beepShare * (beep - channel.rumble);
                value = waterAt(sample, channel, splash, kick) + .16f * channel.rumble;
            }
            samples[size_t(i) * 2 + c] = coded(value);
        }
    }
    m_next += count;
    return samples;
}

float SwimSound::hallAt(int64_t sample, Channel& channel, float splash, float kick) const
{
    const float noise = noiseAt(sample, channel.seed);
    channel.low += share(900) * (noise - channel.low);
    channel.lower += share(260) * (noise - channel.lower);
    const auto seconds = float(double(sample) / kSampleRate);
    // Many voices far away swell and sink; the pool's overflow hisses softly under them.
    const float voices =
        (channel.low - channel.lower) * (.26f + .07f * std::sin(seconds * 1.3f) + .05f * std::sin(seconds * 2.9f + 1));
    const float water = noise * .006f;
    return voices + water + (noise * .16f + channel.low * .5f) * splash + (channel.low * .35f + noise * .04f) * kick;
}

float SwimSound::waterAt(int64_t sample, Channel& channel, float splash, float kick) const
{
    const float noise = noiseAt(sample, channel.seed);
    channel.low += share(220) * (noise - channel.low);
    channel.lower += share(60) * (noise - channel.lower);
    const auto seconds = float(double(sample) / kSampleRate);
    // Bubbles: short tones that rise as they close.
    const auto bubble = uint32_t(sample / 2600);
    Dice dice(bubble, 31);
    const float pitch = dice.between(240, 620);
    const float age = float(sample % 2600) / kStepsPerSecond;
    const float gurgle = dice.roll() * std::sin(kTurn * pitch * age * (1 + 4 * age)) * std::exp(-age * 55);
    return channel.lower * (.9f + .2f * std::sin(seconds * .9f)) + channel.low * (1.3f * splash + .8f * kick) +
           gurgle * .10f * (splash + .25f * kick);
}

}
