// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/timeline/SliderGesture.h"

#include "surfaces/timeline/PrintIntents.h"

#include <gmock/gmock.h>

namespace zumeta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr auto kEnabled = SliderAvailability::enabled;
constexpr auto kDisabled = SliderAvailability::disabled;
const SliderScale kScale = SliderScale::of(400, 20);

TEST(SliderGesture, APressSeeksAtOnce)
{
    SliderGesture gesture;
    EXPECT_THAT(gesture.press(100, kScale, kEnabled), ElementsAre(DraggingChanged{true}, Seek{5}));
    EXPECT_TRUE(gesture.isDragging());
}

TEST(SliderGesture, EveryMovementSeeksAndReportsNoSecondDrag)
{
    SliderGesture gesture;
    gesture.press(100, kScale, kEnabled);
    EXPECT_THAT(gesture.move(101, kScale, kEnabled), ElementsAre(Seek{5.05}));
    EXPECT_THAT(gesture.move(500, kScale, kEnabled), ElementsAre(Seek{20}));
}

TEST(SliderGesture, APressWithoutMovementStillMarksTheSliderAsMoved)
{
    SliderGesture gesture;
    gesture.press(100, kScale, kEnabled);
    EXPECT_THAT(gesture.release(100, kScale, kEnabled), ElementsAre(DraggingChanged{false}, SliderMoved{}));
    EXPECT_FALSE(gesture.isDragging());
}

TEST(SliderGesture, AReleaseElsewhereGoesThereFirst)
{
    SliderGesture gesture;
    gesture.press(100, kScale, kEnabled);
    EXPECT_THAT(gesture.release(200, kScale, kEnabled), ElementsAre(Seek{10}, DraggingChanged{false}, SliderMoved{}));
}

TEST(SliderGesture, CancelEndsItAsARelease)
{
    SliderGesture gesture;
    gesture.press(100, kScale, kEnabled);
    gesture.move(150, kScale, kEnabled);
    EXPECT_THAT(gesture.cancel(), ElementsAre(DraggingChanged{false}, SliderMoved{}));
    EXPECT_THAT(gesture.cancel(), IsEmpty());
}

TEST(SliderGesture, OfADisabledSliderIsNone)
{
    SliderGesture gesture;
    EXPECT_THAT(gesture.press(100, kScale, kDisabled), IsEmpty());
    EXPECT_FALSE(gesture.isDragging());
    EXPECT_THAT(gesture.release(100, kScale, kDisabled), IsEmpty());
}

TEST(SliderGesture, ASliderThatIsLockedInADragSeeksNoMoreAndEndsItAllTheSame)
{
    SliderGesture gesture;
    gesture.press(100, kScale, kEnabled);
    EXPECT_THAT(gesture.move(200, kScale, kDisabled), IsEmpty());
    EXPECT_THAT(gesture.release(250, kScale, kDisabled), ElementsAre(DraggingChanged{false}, SliderMoved{}));
}

TEST(SliderGesture, MovementWithoutAPressIsNone)
{
    SliderGesture gesture;
    EXPECT_THAT(gesture.move(100, kScale, kEnabled), IsEmpty());
    EXPECT_THAT(gesture.release(100, kScale, kEnabled), IsEmpty());
}

TEST(SliderGesture, APressAfterALostReleaseEndsTheOldDrag)
{
    SliderGesture gesture;
    gesture.press(100, kScale, kEnabled);
    EXPECT_THAT(gesture.press(200, kScale, kEnabled),
                ElementsAre(DraggingChanged{false}, SliderMoved{}, DraggingChanged{true}, Seek{10}));
}

}
}
