// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/playback/PlayerTransport.h"
#include "support/VirtualTime.h"

#include <gmock/gmock.h>

namespace zumeta {
namespace {

using test::VirtualTime;

/// A transport and the time that its observer was told last, as the session knows it.
struct ToldTime : testing::Test {
    VirtualTime time;
    PlaybackClock clock{time, time};
    PlayerTransport transport{clock};
    double told = -1;

    ToldTime()
    {
        transport.addPeriodicTimeObserver([this](double seconds) { told = seconds; });
        transport.setItem(MediaTime{60, 1}, ItemChange::startsOver);
        time.runDueWork();
    }
};

// Two keys may come in one turn: the change of rate was not yet told, and a stop must not take it for told.
TEST_F(ToldTime, IsWhereAStopSettlesThoughTheRateChangedSince)
{
    for (const double rate : {2.0, 32.0, -1.0}) {
        transport.seek({30, 1});
        transport.setRate(rate);
        time.advance(0.105);
        transport.setRate(-rate);
        transport.setRate(0);
        EXPECT_EQ(transport.currentTime().seconds(), told) << rate;
        time.advance(1);
        EXPECT_EQ(transport.currentTime().seconds(), told) << rate;
    }
}

TEST_F(ToldTime, IsWhereAStopSettlesThoughTheItemWasExchangedSince)
{
    transport.setRate(8);
    time.advance(0.105);
    transport.setItem(MediaTime{60, 1}, ItemChange::keepsTime);
    transport.setRate(0);
    EXPECT_EQ(transport.currentTime().seconds(), told);
}

TEST_F(ToldTime, IsWhereAStopSettlesBetweenTwoReports)
{
    transport.setRate(32);
    for (int i = 1; i < 40; ++i) {
        time.advance(0.001);
        transport.setRate(i % 2 == 0 ? 32 : 16);
        transport.setRate(0);
        ASSERT_EQ(transport.currentTime().seconds(), told) << i;
        transport.setRate(32);
        time.runDueWork();
    }
}

TEST_F(ToldTime, OfTheItemBeforeIsForgottenWithIt)
{
    transport.setRate(1);
    time.advance(5);
    transport.setItem(MediaTime{60, 1}, ItemChange::startsOver);
    transport.setRate(0);
    EXPECT_EQ(transport.currentTime(), MediaTime{});
    transport.setRate(1);
    time.advance(5);
    transport.removeItem();
    transport.setItem(MediaTime{60, 1}, ItemChange::startsOver);
    transport.setRate(0);
    EXPECT_EQ(transport.currentTime(), MediaTime{});
}

TEST_F(ToldTime, IsTheTargetOfASeekSince)
{
    transport.setRate(4);
    time.advance(1.003);
    transport.seek({20, 1});
    transport.setRate(0);
    EXPECT_EQ(transport.currentTime(), (MediaTime{20, 1}));
}

TEST_F(ToldTime, IsHeldInsideALengthThatBecomesKnownLater)
{
    transport.setItem(std::nullopt, ItemChange::startsOver);
    transport.setRate(1);
    time.advance(5);
    transport.setLength({3, 1});
    transport.setRate(0);
    EXPECT_EQ(transport.currentTime(), (MediaTime{3, 1}));
}

}
}
