// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/preview/PickByKeys.h"

#include <gtest/gtest.h>

namespace zumeta {
namespace {

TEST(PickByKeys, PageUpAndPageDownMoveTheLineAndShiftMakesThemFine)
{
    EXPECT_EQ(pickKey(Qt::Key_PageUp, Qt::NoModifier), PickKey::up);
    EXPECT_EQ(pickKey(Qt::Key_PageDown, Qt::NoModifier), PickKey::down);
    EXPECT_EQ(pickKey(Qt::Key_PageUp, Qt::ShiftModifier), PickKey::upFine);
    EXPECT_EQ(pickKey(Qt::Key_PageDown, Qt::ShiftModifier), PickKey::downFine);
}

TEST(PickByKeys, ReturnAndEnterPick)
{
    EXPECT_EQ(pickKey(Qt::Key_Return, Qt::NoModifier), PickKey::pick);
    EXPECT_EQ(pickKey(Qt::Key_Enter, Qt::KeypadModifier), PickKey::pick);
    EXPECT_EQ(pickKey(Qt::Key_Return, Qt::ShiftModifier), std::nullopt);
}

TEST(PickByKeys, OtherModifiersAndKeysAreNone)
{
    for (const Qt::KeyboardModifier modifier : {Qt::ControlModifier, Qt::AltModifier, Qt::MetaModifier}) {
        for (const Qt::Key key : {Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Return, Qt::Key_Enter})
            EXPECT_EQ(pickKey(key, modifier), std::nullopt) << key;
    }
    for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Down, Qt::Key_Home, Qt::Key_End, Qt::Key_Space, Qt::Key_Escape})
        EXPECT_EQ(pickKey(key, Qt::NoModifier), std::nullopt) << key;
}

TEST(PickByKeys, TheLineBeginsAtThePointerElseAtTheEarlierPointElseInTheMiddle)
{
    EXPECT_EQ(firstPickLine(0.2, 0.7), 0.2);
    EXPECT_EQ(firstPickLine(std::nullopt, 0.7), 0.7);
    EXPECT_EQ(firstPickLine(0.0, 0.7), 0.0);
    EXPECT_EQ(firstPickLine(std::nullopt, std::nullopt), 0.5);
}

TEST(PickByKeys, ThirtyStepsCrossThePictureAndAFineStepIsAStoredUnit)
{
    EXPECT_DOUBLE_EQ(movedPickLine(0.5, PickKey::up), 0.5 + 1.0 / 30);
    EXPECT_DOUBLE_EQ(movedPickLine(0.5, PickKey::down), 0.5 - 1.0 / 30);
    EXPECT_DOUBLE_EQ(movedPickLine(0.5, PickKey::upFine), 301.0 / 600);
    EXPECT_DOUBLE_EQ(movedPickLine(0.5, PickKey::downFine), 299.0 / 600);
}

TEST(PickByKeys, TheLineStaysInThePicture)
{
    EXPECT_EQ(movedPickLine(0.99, PickKey::up), 1);
    EXPECT_EQ(movedPickLine(1, PickKey::upFine), 1);
    EXPECT_EQ(movedPickLine(0.01, PickKey::down), 0);
    EXPECT_EQ(movedPickLine(0, PickKey::downFine), 0);
}

TEST(PickByKeys, TheHundredthStepLandsWhereOneOfAHundredWould)
{
    double height = 0.25;
    for (int step = 0; step < 100; ++step)
        height = movedPickLine(height, PickKey::upFine);
    EXPECT_EQ(height, 250.0 / 600);
    for (int step = 0; step < 100; ++step)
        height = movedPickLine(height, PickKey::downFine);
    EXPECT_EQ(height, 0.25);
}

TEST(PickByKeys, EveryStepMovesALineThatThePointerLeftBetweenTwoSteps)
{
    for (double height = 0.4; height < 0.41; height += 0.0001) {
        EXPECT_GT(movedPickLine(height, PickKey::upFine), height);
        EXPECT_LT(movedPickLine(height, PickKey::downFine), height);
    }
}

TEST(PickByKeys, PickingDoesNotMoveTheLine)
{
    EXPECT_EQ(movedPickLine(0.4321, PickKey::pick), 0.4321);
}

}
}
