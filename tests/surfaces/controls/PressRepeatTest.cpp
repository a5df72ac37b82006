// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/controls/PressRepeat.h"

#include "support/VirtualTime.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <gmock/gmock.h>

namespace zumeta {
namespace {

struct HeldButton : testing::Test {
    /// The clock goes on by so much, and the button looks at it as often as its timer would.
    void hold(double seconds)
    {
        constexpr double kLook = 0.01;
        for (int i = 0; i < int(seconds / kLook + 0.5); ++i) {
            time.advance(kLook);
            button.repeatIfDue();
        }
    }
    void press()
    {
        button.press([this] { ++acts; });
    }

    test::VirtualTime time;
    PressRepeat button{time};
    int acts = 0;
};

TEST_F(HeldButton, ActsAtThePress)
{
    press();
    EXPECT_EQ(acts, 1);
    EXPECT_TRUE(button.isPressed());
}

TEST_F(HeldButton, RepeatsAfterAWhileAndThenSteadily)
{
    press();
    hold(0.29);
    EXPECT_EQ(acts, 1);
    hold(0.02);
    EXPECT_EQ(acts, 2);
    hold(0.80);
    EXPECT_EQ(acts, 12);
}

TEST_F(HeldButton, RestsOnceItIsReleased)
{
    press();
    hold(0.35);
    button.release();
    hold(1);
    EXPECT_EQ(acts, 2);
    EXPECT_FALSE(button.isPressed());
}

TEST_F(HeldButton, TakesNoSecondPressMeanwhile)
{
    press();
    int others = 0;
    button.press([&] { ++others; });
    hold(0.31);
    EXPECT_EQ(acts, 2);
    EXPECT_EQ(others, 0);
}

TEST_F(HeldButton, MayBeReleasedByWhatItDoes)
{
    button.press([this] {
        if (++acts == 3)
            button.release();
    });
    hold(2);
    EXPECT_EQ(acts, 3);
}

TEST_F(HeldButton, IsWokenByATimerOfItsOwn)
{
    press();
    time.advance(0.5); // due by the clock, so that the timer needs no more than to run out
    const QDeadlineTimer deadline(5000);
    while (acts < 2 && !deadline.hasExpired())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 400);
    EXPECT_EQ(acts, 2);
}

}
}
