// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/playback/PlayerTransport.h"

#include "support/VirtualTime.h"

#include <gmock/gmock.h>
#include <numeric>

namespace zumeta {
namespace {

using test::VirtualTime;
using testing::DoubleEq;
using testing::DoubleNear;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr MediaTime kTenSeconds{10, 1};

struct TransportTest : testing::Test {
    VirtualTime time;
    PlaybackClock clock{time, time};
    PlayerTransport transport{clock};
    std::vector<double> reports;

    void load(std::optional<MediaTime> length = kTenSeconds)
    {
        transport.addPeriodicTimeObserver([this](double seconds) { reports.push_back(seconds); });
        transport.setItem(length, ItemChange::startsOver);
        settle();
    }
    /// Lets everything that was posted run.
    void settle()
    {
        time.runDueWork();
        reports.clear();
    }
};

TEST_F(TransportTest, AnswersWithTheTargetOfASeekAtOnce)
{
    load();
    transport.seek({12345, 60000});
    EXPECT_EQ(transport.currentTime(), (MediaTime{12345, 60000}));
}

TEST_F(TransportTest, ForgetsASeekWithoutAnItem)
{
    EXPECT_FALSE(transport.seek({5, 1}));
    EXPECT_EQ(transport.currentTime(), MediaTime{});
    transport.setItem(kTenSeconds, ItemChange::startsOver);
    EXPECT_EQ(transport.currentTime(), MediaTime{});
}

TEST_F(TransportTest, HoldsSeeksInsideTheItem)
{
    load();
    transport.seek({11, 1});
    EXPECT_EQ(transport.currentTime(), kTenSeconds);
    transport.seek({-1, 1});
    EXPECT_EQ(transport.currentTime(), MediaTime{});
}

TEST_F(TransportTest, HoldsAnEarlySeekInsideTheItemOnceItsLengthIsKnown)
{
    load(std::nullopt);
    transport.seek({11, 1});
    transport.setLength(kTenSeconds);
    EXPECT_EQ(transport.currentTime(), kTenSeconds);
}

TEST_F(TransportTest, GoesForwardAtItsRate)
{
    load();
    transport.setRate(0.5);
    time.advance(3);
    EXPECT_THAT(transport.currentTime().seconds(), DoubleNear(1.5, 1.0 / 60000));
}

TEST_F(TransportTest, GoesBackwardAtANegativeRate)
{
    load();
    transport.seek({9, 1});
    transport.setRate(-2);
    time.advance(3);
    EXPECT_THAT(transport.currentTime().seconds(), DoubleNear(3, 1.0 / 60000));
}

TEST_F(TransportTest, KeepsTheRateWithinThirtyTwo)
{
    load();
    transport.seek({5, 1});
    transport.setRate(64);
    EXPECT_EQ(transport.rate(), 32);
    transport.setRate(-64);
    EXPECT_EQ(transport.rate(), -32);
}

TEST_F(TransportTest, ReportsSixtyTimesASecondWhileItPlays)
{
    load();
    transport.setRate(1);
    time.advance(1);
    EXPECT_THAT(double(reports.size()), DoubleNear(61, 1));
    EXPECT_THAT(reports.back(), DoubleNear(1, 1.0 / 50));
}

TEST_F(TransportTest, ReportsNothingWhileItStands)
{
    load();
    time.advance(1);
    EXPECT_THAT(reports, IsEmpty());
}

TEST_F(TransportTest, NeverReportsInsideACall)
{
    load();
    transport.seek({1, 1});
    transport.setRate(1);
    transport.setRate(0);
    transport.setItem(kTenSeconds, ItemChange::startsOver);
    transport.removeItem();
    EXPECT_THAT(reports, IsEmpty());
    time.runDueWork();
    EXPECT_THAT(reports, ElementsAre(0.0));
}

TEST_F(TransportTest, ReportsAgainAfterASeekToTheSameTime)
{
    load();
    transport.seek({2, 1});
    time.runDueWork();
    transport.seek({2, 1});
    time.runDueWork();
    EXPECT_THAT(reports, ElementsAre(2.0, 2.0));
}

TEST_F(TransportTest, AReportTellsTheTimeOfItsDeliveryNotOfItsRequest)
{
    load();
    transport.seek({2, 1});
    transport.seek({7, 1});
    time.runDueWork();
    EXPECT_THAT(reports, ElementsAre(7.0));
}

TEST_F(TransportTest, AnObserverThatSeeksLeavesTheNextOneTheNewTime)
{
    load();
    transport.addPeriodicTimeObserver([this](double seconds) {
        if (seconds == 5)
            transport.seek({1, 1});
    });
    std::vector<double> later;
    transport.addPeriodicTimeObserver([&later](double seconds) { later.push_back(seconds); });
    transport.seek({5, 1});
    time.runDueWork();
    EXPECT_THAT(later, ElementsAre(1.0, 1.0));
}

TEST_F(TransportTest, StopsAtTheTimeThatWasLastReported)
{
    load();
    transport.setRate(1);
    time.advance(1.01); // between two reports
    const double told = reports.back();
    transport.setRate(0);
    EXPECT_THAT(transport.currentTime().seconds(), DoubleEq(told));
    time.runDueWork();
    EXPECT_THAT(reports.back(), DoubleEq(told));
}

TEST_F(TransportTest, StandsWhereItWasSoughtWhenItIsStoppedBeforeAReport)
{
    load();
    transport.setRate(1);
    time.advance(1);
    transport.seek({5, 1});
    transport.setRate(0);
    EXPECT_EQ(transport.currentTime(), (MediaTime{5, 1}));
}

TEST_F(TransportTest, WhatItReportsCanBeSoughtAgainExactly)
{
    load();
    transport.setRate(1);
    time.advance(0.777777);
    transport.setRate(0);
    time.runDueWork();
    const MediaTime stood = transport.currentTime();
    transport.seek(MediaTime::nearest(reports.back(), kSeekTimescale));
    EXPECT_EQ(transport.currentTime(), stood);
}

TEST_F(TransportTest, StopsAtTheEndAndStaysThere)
{
    load();
    transport.seek({19, 2});
    transport.setRate(1);
    time.advance(2);
    EXPECT_EQ(transport.rate(), 0);
    EXPECT_EQ(transport.currentTime(), kTenSeconds);
    EXPECT_EQ(reports.back(), 10);
}

TEST_F(TransportTest, StopsAtTheBeginningWhenItPlaysBackward)
{
    load();
    transport.seek({1, 2});
    transport.setRate(-4);
    time.advance(2);
    EXPECT_EQ(transport.rate(), 0);
    EXPECT_EQ(transport.currentTime(), MediaTime{});
}

TEST_F(TransportTest, HasNoRateFromTheMomentOfItsEndOn)
{
    load();
    transport.seek({9'999, 1000});
    transport.setRate(1);
    time.runDueWork();
    time.advance(0.002); // before the next report
    EXPECT_EQ(transport.rate(), 0);
}

TEST_F(TransportTest, StaysStoppedWhenItIsSoughtAwayFromItsEnd)
{
    load();
    transport.seek({19, 2});
    transport.setRate(1);
    time.advance(1);
    transport.seek({1, 1});
    time.advance(1);
    EXPECT_EQ(transport.currentTime(), (MediaTime{1, 1}));
}

TEST_F(TransportTest, AnotherFileOfTheSameRecordingKeepsTimeAndRate)
{
    load();
    transport.setRate(0.5);
    time.advance(4);
    transport.setItem(std::nullopt, ItemChange::keepsTime);
    time.advance(2);
    EXPECT_EQ(transport.rate(), 0.5);
    EXPECT_THAT(transport.currentTime().seconds(), DoubleNear(3, 1.0 / 60000));
}

TEST_F(TransportTest, AnotherRecordingStartsOverAndKeepsTheRate)
{
    load();
    transport.setRate(1);
    time.advance(4);
    transport.setItem(kTenSeconds, ItemChange::startsOver);
    time.advance(1);
    EXPECT_THAT(transport.currentTime().seconds(), DoubleNear(1, 1.0 / 60000));
}

TEST_F(TransportTest, TimeStandsAtZeroWithoutAnItem)
{
    load();
    transport.setRate(1);
    time.advance(1);
    transport.removeItem();
    time.advance(1);
    EXPECT_EQ(transport.currentTime(), MediaTime{});
    EXPECT_EQ(reports.back(), 0);
}

TEST_F(TransportTest, ARateThatWasSetWithoutAnItemTakesEffectWithTheItem)
{
    transport.setRate(1);
    load();
    time.advance(2);
    EXPECT_THAT(transport.currentTime().seconds(), DoubleNear(2, 1.0 / 60000));
}

TEST_F(TransportTest, ARemovedObserverHearsNothingMore)
{
    load();
    std::vector<double> heard;
    const auto token = transport.addPeriodicTimeObserver([&heard](double seconds) { heard.push_back(seconds); });
    transport.removeTimeObserver(token);
    transport.seek({1, 1});
    time.runDueWork();
    EXPECT_THAT(heard, IsEmpty());
}

TEST_F(TransportTest, StepsOfAFrameNeverAddUpToAnError)
{
    load(MediaTime{1'000'000, 1});
    const MediaTime frame{1001, 30000};
    for (int i = 0; i < 100; ++i)
        transport.seek(transport.currentTime() + frame);
    EXPECT_EQ(transport.currentTime(), (MediaTime{100'100, 30000}));
}

TEST_F(TransportTest, ManyChangesOfRateDoNotMoveIt)
{
    load(MediaTime{100'000, 1});
    double expected = 0;
    for (int i = 0; i < 2000; ++i) {
        const double rate = i % 2 == 0 ? 0.5 : 1.0;
        transport.setRate(rate);
        time.advance(0.0137);
        expected += rate * 0.0137;
    }
    EXPECT_THAT(transport.secondsAt(clock.now()), DoubleNear(expected, 0.00001));
}

struct TwoTransportsTest : TransportTest {
    PlayerTransport other{clock};

    void loadBoth()
    {
        load();
        other.setItem(kTenSeconds, ItemChange::startsOver);
        settle();
    }
};

TEST_F(TwoTransportsTest, StartInOneTurnGivesBothOneInstant)
{
    loadBoth();
    transport.setRate(1);
    other.setRate(1);
    time.advance(1.2345);
    EXPECT_EQ(transport.currentTime(), other.currentTime());
}

TEST_F(TwoTransportsTest, StopInOneTurnLeavesBothAtOneInstant)
{
    loadBoth();
    transport.setRate(1);
    other.setRate(1);
    time.advance(1.2345);
    transport.setRate(0);
    other.setRate(0);
    EXPECT_EQ(transport.currentTime(), other.currentTime());
}

TEST_F(TwoTransportsTest, AreReportedInOneTurn)
{
    loadBoth();
    std::vector<double> instants;
    transport.addPeriodicTimeObserver([&](double) { instants.push_back(clock.turnTime()); });
    other.addPeriodicTimeObserver([&](double) { instants.push_back(clock.turnTime()); });
    transport.setRate(1);
    other.setRate(1);
    time.runDueWork();
    instants.clear();
    time.advance(0.5);
    ASSERT_GE(instants.size(), 40u);
    for (size_t i = 0; i + 1 < instants.size(); i += 2)
        EXPECT_EQ(instants[i], instants[i + 1]);
}

TEST_F(TwoTransportsTest, OneThatEndsInsideAReportDoesNotDisturbTheOther)
{
    loadBoth();
    auto leaving = std::make_unique<PlayerTransport>(clock);
    leaving->setItem(kTenSeconds, ItemChange::startsOver);
    transport.addPeriodicTimeObserver([&](double) { leaving.reset(); });
    transport.setRate(1);
    leaving->setRate(1);
    time.advance(0.5);
    EXPECT_FALSE(leaving);
    EXPECT_THAT(transport.currentTime().seconds(), DoubleNear(0.5, 1.0 / 60000));
}

/// A clock that never stands still, as a real one.
struct RunningClock final : Clock {
    mutable double time = 5;
    double now() const override { return time += 0.001; }
};

TEST(PlaybackClock, GivesOneTurnOneTime)
{
    VirtualTime queue;
    const RunningClock running;
    PlaybackClock clock(running, queue);
    const double first = clock.turnTime();
    EXPECT_EQ(clock.turnTime(), first);
    queue.runDueWork();
    EXPECT_GT(clock.turnTime(), first);
}

TEST(PlaybackClock, DoesNotHoldTheDisplaysTime)
{
    VirtualTime queue;
    const RunningClock running;
    const PlaybackClock clock(running, queue);
    const double first = clock.now();
    EXPECT_GT(clock.now(), first);
}

TEST(PlaybackClock, MayGoWhileWorkIsPosted)
{
    VirtualTime time;
    {
        PlaybackClock clock(time, time);
        PlayerTransport transport(clock);
        transport.setItem(kTenSeconds, ItemChange::startsOver);
        transport.setRate(1);
    }
    time.advance(1);
    EXPECT_GT(time.now(), 0);
}

struct SetClock final : Clock {
    double time = 5;
    double now() const override { return time; }
};

TEST(PlaybackClock, LeavesOutTheReportsThatABusyStretchMissed)
{
    VirtualTime queue;
    SetClock set;
    PlaybackClock clock(set, queue);
    PlayerTransport transport(clock);
    transport.setItem(kTenSeconds, ItemChange::startsOver);
    std::vector<double> reports;
    transport.addPeriodicTimeObserver([&](double seconds) { reports.push_back(seconds); });
    transport.setRate(1);
    queue.runDueWork();
    reports.clear();
    set.time += 2;
    queue.advance(PlaybackClock::kReportInterval); // the tick that was late
    EXPECT_THAT(reports, ElementsAre(2.0));
}

}
}
