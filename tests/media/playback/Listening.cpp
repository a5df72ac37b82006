// SPDX-License-Identifier: GPL-3.0-or-later
#include "Listening.h"

#include "support/Click.h"

#include <algorithm>
#include <chrono>
#include <gtest/gtest.h>
#include <thread>

namespace zumeta::test {

namespace {

constexpr int kRate = AudioSource::kSampleRate;

}

void waitUntilReady(const SoundPlayer& sound, double hostTime)
{
    using namespace std::chrono_literals;
    const auto deadline = std::chrono::steady_clock::now() + 20s;
    while (sound.readyUntil() < hostTime) {
        ASSERT_LT(std::chrono::steady_clock::now(), deadline) << "the sound does not come";
        std::this_thread::sleep_for(1ms);
    }
}

Heard listen(ManualClock& clock, const ManualOutput& output, const SoundPlayer& sound, double deviceDelay,
             double seconds)
{
    constexpr size_t kFrames = kRate / 100;
    constexpr double kBlock = double(kFrames) / kRate;
    const double begin = clock.now();
    Heard result{begin + deviceDelay, {}};
    for (int block = 0; block < int(seconds / kBlock + 0.5); ++block) {
        clock.advance(begin + block * kBlock - clock.now());
        const double heardAt = clock.now() + deviceDelay;
        waitUntilReady(sound, heardAt + kBlock + SoundQueue::kAhead);
        std::vector<int16_t> samples(kFrames * 2);
        if (output.source())
            output.source()->pull(samples, heardAt);
        const std::vector<int16_t> left = channelOf(samples, 2, 0);
        result.samples.insert(result.samples.end(), left.begin(), left.end());
    }
    clock.advance(begin + seconds - clock.now());
    return result;
}

std::vector<double> Heard::clicks() const
{
    std::vector<double> result = findClicks(samples, kRate);
    for (double& click : result)
        click += from;
    return result;
}

double Heard::pitch() const
{
    size_t first = 0;
    size_t last = 0;
    int periods = -1;
    for (size_t i = 1; i < samples.size(); ++i) {
        if (samples[i - 1] < 0 && samples[i] >= 0) {
            first = periods < 0 ? i : first;
            last = i;
            ++periods;
        }
    }
    return periods < 1 ? 0 : periods * double(kRate) / double(last - first);
}

int Heard::loudest() const
{
    int result = 0;
    for (const int16_t sample : samples)
        result = std::max(result, std::abs(int(sample)));
    return result;
}

int Heard::steepest() const
{
    int result = 0;
    for (size_t i = 1; i < samples.size(); ++i)
        result = std::max(result, std::abs(samples[i] - samples[i - 1]));
    return result;
}

Heard Heard::between(double begin, double end) const
{
    const auto place = [&](double host) {
        return std::clamp<ptrdiff_t>(std::lround((host - from) * kRate), 0, ptrdiff_t(samples.size()));
    };
    return {from + double(place(begin)) / kRate, {samples.begin() + place(begin), samples.begin() + place(end)}};
}

}
