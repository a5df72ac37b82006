// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/playback/SoundQueue.h"
#include "support/Click.h"

#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <thread>

namespace zumeta::test {

namespace {

constexpr int kRate = AudioSource::kSampleRate;
constexpr size_t kBlock = 441;
constexpr auto kFadeFrames = size_t(SoundQueue::kFade * kRate);
constexpr double kStart = 1000; ///< of the host clock

/// Each sample is its number in the run; the other channel is its negative.
std::vector<int16_t> counting(int from, int count)
{
    std::vector<int16_t> samples;
    for (int i = from; i < from + count; ++i) {
        samples.push_back(int16_t(i));
        samples.push_back(int16_t(-i));
    }
    return samples;
}

std::vector<int16_t> level(int frames, int16_t value)
{
    return std::vector<int16_t>(size_t(frames) * 2, value);
}

/// The left channel of what is heard in a block that begins at `heardAt`.
std::vector<int16_t> heard(SoundQueue& queue, double heardAt, size_t frames = kBlock)
{
    std::vector<int16_t> samples(frames * 2, 99);
    queue.pull(samples, heardAt);
    return channelOf(samples, 2, 0);
}

void begin(SoundQueue& queue, uint64_t serial, double hostTime, const std::vector<int16_t>& samples)
{
    queue.await(serial, SoundQueue::OldRun::ends);
    ASSERT_TRUE(queue.begin(serial, hostTime));
    ASSERT_TRUE(queue.put(serial, samples, {}));
}

/// The largest jump between neighbouring samples.
int steepest(const std::vector<int16_t>& left)
{
    int result = 0;
    for (size_t i = 1; i < left.size(); ++i)
        result = std::max(result, std::abs(left[i] - left[i - 1]));
    return result;
}

double later(int frames)
{
    return kStart + double(frames) / kRate;
}

}

TEST(SoundQueue, GivesTheSamplesThatBelongToTheMoment)
{
    SoundQueue queue;
    begin(queue, 1, kStart, counting(0, 20000));
    const std::vector<int16_t> left = heard(queue, later(5000));
    for (size_t i = kFadeFrames; i < kBlock; ++i)
        EXPECT_EQ(left[i], 5000 + int(i));
}

TEST(SoundQueue, IsSilentUntilARunBegins)
{
    SoundQueue queue;
    begin(queue, 1, kStart, counting(1000, 20000));
    const std::vector<int16_t> left = heard(queue, later(-300));
    EXPECT_THAT(std::vector(left.begin(), left.begin() + 300), testing::Each(0));
    EXPECT_GT(left.back(), 0);
}

TEST(SoundQueue, StartsARunOnceEnoughOfItIsThere)
{
    SoundQueue queue;
    begin(queue, 1, kStart, level(1000, 20000));
    EXPECT_THAT(heard(queue, kStart), testing::Each(0));
    ASSERT_TRUE(queue.put(1, level(3000, 20000), {}));
    EXPECT_EQ(heard(queue, later(kBlock)).back(), 20000);
}

TEST(SoundQueue, FadesIn)
{
    SoundQueue queue;
    begin(queue, 1, kStart, level(20000, 20000));
    const std::vector<int16_t> left = heard(queue, kStart);
    EXPECT_LT(left.front(), 200);
    EXPECT_LT(steepest(left), 200);
    EXPECT_EQ(left.back(), 20000);
}

TEST(SoundQueue, FadesOutWhenNothingIsAwaited)
{
    SoundQueue queue;
    begin(queue, 1, kStart, level(20000, 20000));
    heard(queue, kStart);
    queue.awaitNothing();
    const std::vector<int16_t> left = heard(queue, later(kBlock));
    EXPECT_GT(left.front(), 19000);
    EXPECT_LT(steepest(left), 200);
    EXPECT_THAT(std::vector(left.begin() + ptrdiff_t(kFadeFrames), left.end()), testing::Each(0));
}

TEST(SoundQueue, FadesOutAtTheEndOfWhatIsThere)
{
    SoundQueue queue;
    begin(queue, 1, kStart, level(700, 20000));
    queue.end(1);
    std::vector<int16_t> left = heard(queue, kStart);
    const std::vector<int16_t> more = heard(queue, later(kBlock));
    left.insert(left.end(), more.begin(), more.end());
    EXPECT_LT(steepest(left), 200);
    EXPECT_EQ(left[450], 20000);
    EXPECT_THAT(std::vector(left.begin() + 700, left.end()), testing::Each(0));
}

TEST(SoundQueue, GoesOnWhereTheMomentIsAfterWantOfSound)
{
    SoundQueue queue;
    begin(queue, 1, kStart, counting(0, 3000));
    for (int block = 0; block < 8; ++block)
        heard(queue, later(block * int(kBlock)));
    ASSERT_TRUE(queue.put(1, counting(3000, 2000), {}));
    EXPECT_EQ(heard(queue, later(8 * int(kBlock))).back(), 9 * int(kBlock) - 1);
}

TEST(SoundQueue, LeavesASmallErrorAlone)
{
    SoundQueue queue;
    begin(queue, 1, kStart, counting(0, 20000));
    heard(queue, kStart);
    const std::vector<int16_t> left = heard(queue, later(kBlock + 400));
    EXPECT_EQ(left.back(), 2 * int(kBlock) - 1);
}

TEST(SoundQueue, MovesToItsMomentUnderAFadeWhenItIsOffByMore)
{
    for (const int off : {-2000, 2000}) {
        SoundQueue queue;
        begin(queue, 1, kStart, level(40000, 20000));
        for (int block = 0; block < 8; ++block)
            heard(queue, later(block * int(kBlock)));
        EXPECT_LT(steepest(heard(queue, later(8 * int(kBlock) + off))), 200) << off;
        SoundQueue counted;
        begin(counted, 1, kStart, counting(0, 20000));
        for (int block = 0; block < 8; ++block)
            heard(counted, later(block * int(kBlock)));
        EXPECT_EQ(heard(counted, later(8 * int(kBlock) + off)).back(), 9 * int(kBlock) - 1 + off) << off;
    }
}

TEST(SoundQueue, TakesOnlyTheRunThatIsAwaited)
{
    SoundQueue queue;
    begin(queue, 1, kStart, level(1000, 5));
    queue.await(2, SoundQueue::OldRun::ends);
    EXPECT_FALSE(queue.put(1, level(1000, 5), {}));
    EXPECT_FALSE(queue.begin(1, kStart));
    EXPECT_TRUE(queue.begin(2, kStart));
}

TEST(SoundQueue, KeepsTheOldRunUntilTheNewOneBegins)
{
    SoundQueue queue;
    begin(queue, 1, kStart, level(20000, 20000));
    heard(queue, kStart);
    queue.await(2, SoundQueue::OldRun::isReplaced);
    EXPECT_THAT(heard(queue, later(kBlock)), testing::Each(20000));
    ASSERT_TRUE(queue.begin(2, kStart));
    ASSERT_TRUE(queue.put(2, level(20000, 20000), {}));
    // Out of the one and into the other.
    EXPECT_THAT(heard(queue, later(2 * int(kBlock))), testing::Each(testing::Ge(19800)));
}

TEST(SoundQueue, EndsTheOldRunWhenTheNewOneNeverBegins)
{
    SoundQueue queue;
    begin(queue, 1, kStart, level(20000, 20000));
    heard(queue, kStart);
    queue.await(2, SoundQueue::OldRun::isReplaced);
    queue.end(2);
    EXPECT_EQ(heard(queue, later(kBlock)).back(), 0);
}

TEST(SoundQueue, WantsToBeAskedWhileARunIsAwaitedAndForTheFade)
{
    SoundQueue queue;
    std::vector<int16_t> samples(200);
    EXPECT_FALSE(queue.pull(samples, kStart));
    begin(queue, 1, kStart, level(20000, 20000));
    EXPECT_TRUE(queue.pull(samples, kStart));
    queue.awaitNothing();
    EXPECT_TRUE(queue.pull(samples, later(100)));
    EXPECT_TRUE(queue.pull(samples, later(200)));
    EXPECT_FALSE(queue.pull(samples, later(300)));
}

TEST(SoundQueue, HoldsBackWhoPutsMoreThanItHolds)
{
    SoundQueue queue;
    queue.await(1, SoundQueue::OldRun::ends);
    ASSERT_TRUE(queue.begin(1, kStart));
    constexpr int kAll = 10 * kRate;
    const std::jthread feed([&](const std::stop_token& stop) {
        queue.put(1, level(kAll, 1), stop);
        queue.end(1);
    });
    // Only by asking can all of it get through.
    int asked = 0;
    while (asked < kAll) {
        const double ready = queue.readyUntil();
        if (ready < later(asked + int(kBlock))) {
            std::this_thread::yield();
            continue;
        }
        const bool isAll = std::isinf(ready);
        EXPECT_TRUE(isAll || ready <= later(asked + int(SoundRing::kCapacity))) << asked;
        heard(queue, later(asked));
        asked += int(kBlock);
    }
}

TEST(SoundQueue, LetsGoOfWhoWaitsForRoomWhenAnotherRunIsAwaited)
{
    SoundQueue queue;
    queue.await(1, SoundQueue::OldRun::ends);
    ASSERT_TRUE(queue.begin(1, kStart));
    bool isTaken = true;
    std::thread feed([&] { isTaken = queue.put(1, level(3 * kRate, 1), {}); });
    queue.await(2, SoundQueue::OldRun::ends);
    feed.join();
    EXPECT_FALSE(isTaken);
}

TEST(SoundQueue, TellsHowFarSoundIsThere)
{
    SoundQueue queue;
    EXPECT_TRUE(std::isinf(queue.readyUntil()) && queue.readyUntil() > 0);
    queue.await(1, SoundQueue::OldRun::ends);
    EXPECT_TRUE(std::isinf(queue.readyUntil()) && queue.readyUntil() < 0);
    queue.begin(1, kStart);
    queue.put(1, level(kRate / 2, 1), {});
    EXPECT_DOUBLE_EQ(queue.readyUntil(), kStart + 0.5);
    queue.end(1);
    EXPECT_TRUE(std::isinf(queue.readyUntil()) && queue.readyUntil() > 0);
}

}
