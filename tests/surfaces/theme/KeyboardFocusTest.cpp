// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/theme/KeyboardFocus.h"

#include <gtest/gtest.h>

namespace zumeta {
namespace {

struct KeyboardFocusTest : testing::Test {
    KeyboardFocusTest()
    {
        QObject::connect(&focus, &KeyboardFocus::changed, [this] { ++changes; });
    }
    KeyboardFocus focus{nullptr};
    int changes = 0;
};

TEST_F(KeyboardFocusTest, HasNoRingBeforeTheFirstKey)
{
    EXPECT_FALSE(focus.isShown());
}

TEST_F(KeyboardFocusTest, HasARingFromAKeyToTheNextPressOfTheMouse)
{
    focus.noteKey(Qt::Key_Tab);
    EXPECT_TRUE(focus.isShown());
    focus.notePress();
    EXPECT_FALSE(focus.isShown());
    EXPECT_EQ(changes, 2);
}

TEST_F(KeyboardFocusTest, TellsOfAChangeOnce)
{
    focus.noteKey(Qt::Key_Tab);
    focus.noteKey(Qt::Key_Return);
    EXPECT_EQ(changes, 1);
}

TEST_F(KeyboardFocusTest, ModifiersHeldForTheMouseBringNoRing)
{
    for (const Qt::Key key : {Qt::Key_Shift, Qt::Key_Control, Qt::Key_Alt, Qt::Key_AltGr, Qt::Key_Meta})
        focus.noteKey(key);
    EXPECT_FALSE(focus.isShown());
}

}
}
