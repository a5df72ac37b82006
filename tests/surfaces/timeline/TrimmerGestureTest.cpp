// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/timeline/TrimmerGesture.h"

#include "surfaces/timeline/PrintIntents.h"

#include <gmock/gmock.h>

namespace zumeta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Ten of width are a second, and time 0 stands at 10. The handles stand at 60 and 310, a marker at 210.
const Trimmer kTrimmer{.scale = {420, 40}, .trimStart = 5, .trimEnd = 10, .markers = {{20}, {}}};
constexpr QPointF kOnTrack(110, 22);
constexpr QPointF kOnMarker(210, -12);

Trimmer withDuration(double duration)
{
    Trimmer trimmer = kTrimmer;
    trimmer.scale.duration = duration;
    return trimmer;
}

Trimmer withWidth(double width)
{
    Trimmer trimmer = kTrimmer;
    trimmer.scale.width = width;
    return trimmer;
}

TEST(TrimmerGesture, APressOnTheTrackSeeksAtOnce)
{
    TrimmerGesture gesture;
    EXPECT_THAT(gesture.press(kOnTrack, kTrimmer), ElementsAre(DraggingChanged{true}, Seek{10}));
    EXPECT_TRUE(gesture.isDraggingTime());
    EXPECT_EQ(gesture.activeDragCount(), 1);
}

TEST(TrimmerGesture, EveryMovementOfASeekSeeks)
{
    TrimmerGesture gesture;
    gesture.press(kOnTrack, kTrimmer);
    EXPECT_THAT(gesture.move({111, 22}, kTrimmer), ElementsAre(Seek{10.1}));
    EXPECT_THAT(gesture.move({310, 22}, kTrimmer), ElementsAre(Seek{30}));
    EXPECT_THAT(gesture.move({900, 300}, kTrimmer), ElementsAre(Seek{40}));
}

TEST(TrimmerGesture, TheReleaseOfASeekEndsTheDrag)
{
    TrimmerGesture gesture;
    gesture.press(kOnTrack, kTrimmer);
    EXPECT_THAT(gesture.release(kOnTrack, kTrimmer), ElementsAre(DraggingChanged{false}));
    EXPECT_FALSE(gesture.isDraggingTime());
    EXPECT_EQ(gesture.activeDragCount(), 0);
}

TEST(TrimmerGesture, AReleaseElsewhereGoesThereFirst)
{
    TrimmerGesture gesture;
    gesture.press(kOnTrack, kTrimmer);
    EXPECT_THAT(gesture.release({210, 22}, kTrimmer), ElementsAre(Seek{20}, DraggingChanged{false}));
}

TEST(TrimmerGesture, CancelEndsASeekAsARelease)
{
    TrimmerGesture gesture;
    gesture.press(kOnTrack, kTrimmer);
    EXPECT_THAT(gesture.cancel(), ElementsAre(DraggingChanged{false}));
    EXPECT_THAT(gesture.cancel(), IsEmpty());
    EXPECT_THAT(gesture.move({300, 22}, kTrimmer), IsEmpty());
}

TEST(TrimmerGesture, TheSeekOfACompositeWithoutLengthIsHeldAtZero)
{
    TrimmerGesture gesture;
    const Trimmer empty = withDuration(0);
    EXPECT_THAT(gesture.press({200, 40}, empty), ElementsAre(DraggingChanged{true}, Seek{0}));
    EXPECT_THAT(gesture.move({410, 40}, empty), ElementsAre(Seek{0}));
}

TEST(TrimmerGesture, APressBesideTheBoxIsNone)
{
    TrimmerGesture gesture;
    EXPECT_THAT(gesture.press({110, -20}, kTrimmer), IsEmpty());
    EXPECT_THAT(gesture.move(kOnTrack, kTrimmer), IsEmpty());
    EXPECT_THAT(gesture.release(kOnTrack, kTrimmer), IsEmpty());
}

TEST(TrimmerGesture, ATrimmerWithoutWidthIsNotSoughtOn)
{
    TrimmerGesture gesture;
    EXPECT_THAT(gesture.press({0, 0}, withWidth(0)), IsEmpty());
    gesture.press(kOnTrack, kTrimmer);
    EXPECT_THAT(gesture.move({200, 22}, withWidth(0)), IsEmpty());
    EXPECT_THAT(gesture.release({200, 22}, withWidth(0)), ElementsAre(DraggingChanged{false}));
}

TEST(TrimmerGesture, APressAfterALostReleaseEndsTheOldDrag)
{
    TrimmerGesture gesture;
    gesture.press(kOnTrack, kTrimmer);
    EXPECT_THAT(gesture.press({130, 22}, kTrimmer),
                ElementsAre(DraggingChanged{false}, DraggingChanged{true}, Seek{12}));
}

TEST(TrimmerGesture, ThePlayheadIsShownDuringASeek)
{
    TrimmerGesture gesture;
    EXPECT_TRUE(gesture.showsPlayhead());
    gesture.press(kOnTrack, kTrimmer);
    EXPECT_TRUE(gesture.showsPlayhead());
}

TEST(MarkerGesture, APressAloneDoesNothing)
{
    TrimmerGesture gesture;
    EXPECT_THAT(gesture.press(kOnMarker, kTrimmer), IsEmpty());
    EXPECT_FALSE(gesture.isDraggingTime());
}

TEST(MarkerGesture, UnderTwoOfMovementItIsATapAtTheRelease)
{
    TrimmerGesture gesture;
    gesture.press(kOnMarker, kTrimmer);
    EXPECT_THAT(gesture.move(kOnMarker + QPointF(1.9, 0), kTrimmer), IsEmpty());
    EXPECT_EQ(gesture.markerDragStartTime(), std::nullopt);
    EXPECT_THAT(gesture.release(kOnMarker + QPointF(1.9, 0), kTrimmer), ElementsAre(MarkerTapped{20}));
}

TEST(MarkerGesture, FromTwoOfMovementOnItIsADrag)
{
    TrimmerGesture gesture;
    gesture.press(kOnMarker, kTrimmer);
    EXPECT_THAT(gesture.move(kOnMarker + QPointF(2, 0), kTrimmer),
                ElementsAre(DraggingChanged{true}, MarkerDragStarted{20}, MarkerMoved{20.2}));
    EXPECT_EQ(gesture.markerDragStartTime(), 20);
}

TEST(MarkerGesture, TheWayCountsInAnyDirection)
{
    TrimmerGesture gesture;
    gesture.press(kOnMarker, kTrimmer);
    EXPECT_THAT(gesture.move(kOnMarker + QPointF(0, 2), kTrimmer),
                ElementsAre(DraggingChanged{true}, MarkerDragStarted{20}, MarkerMoved{20}));
}

TEST(MarkerGesture, ADragIsNeverATapEvenWhenItComesBack)
{
    TrimmerGesture gesture;
    gesture.press(kOnMarker, kTrimmer);
    gesture.move(kOnMarker + QPointF(30, 0), kTrimmer);
    EXPECT_THAT(gesture.move(kOnMarker, kTrimmer), ElementsAre(MarkerMoved{20}));
    EXPECT_THAT(gesture.release(kOnMarker, kTrimmer), ElementsAre(DraggingChanged{false}));
    EXPECT_EQ(gesture.markerDragStartTime(), std::nullopt);
}

TEST(MarkerGesture, ADragIsCountedFromThePressAndNotFromThePointersPlace)
{
    TrimmerGesture gesture;
    const QPointF edge(195, -12);
    gesture.press(edge, kTrimmer);
    gesture.move(edge + QPointF(10, 0), kTrimmer);
    EXPECT_THAT(gesture.move(edge + QPointF(50, 0), kTrimmer), ElementsAre(MarkerMoved{25}));
}

TEST(MarkerGesture, ADragIsCountedFromTheTimeThatTheMarkerHadBefore)
{
    TrimmerGesture gesture;
    Trimmer trimmer = kTrimmer;
    gesture.press(kOnMarker, trimmer);
    gesture.move(kOnMarker + QPointF(50, 0), trimmer);
    trimmer.markers = {{25}, 25};
    EXPECT_THAT(gesture.move(kOnMarker + QPointF(60, 0), trimmer), ElementsAre(MarkerMoved{26}));
}

TEST(MarkerGesture, AMarkerStaysOnTheTimeline)
{
    TrimmerGesture gesture;
    gesture.press(kOnMarker, kTrimmer);
    gesture.move(kOnMarker + QPointF(5, 0), kTrimmer);
    EXPECT_THAT(gesture.move(kOnMarker + QPointF(700, 0), kTrimmer), ElementsAre(MarkerMoved{40}));
    EXPECT_THAT(gesture.move(kOnMarker - QPointF(700, 0), kTrimmer), ElementsAre(MarkerMoved{0}));
}

TEST(MarkerGesture, WithoutWidthAMarkerIsNotDragged)
{
    TrimmerGesture gesture;
    gesture.press(kOnMarker, kTrimmer);
    EXPECT_THAT(gesture.move(kOnMarker + QPointF(30, 0), withWidth(0)), IsEmpty());
}

TEST(MarkerGesture, CancelOfAPressIsNoTap)
{
    TrimmerGesture gesture;
    gesture.press(kOnMarker, kTrimmer);
    EXPECT_THAT(gesture.cancel(), IsEmpty());
    EXPECT_THAT(gesture.release(kOnMarker, kTrimmer), IsEmpty());
}

TEST(MarkerGesture, CancelEndsADragAsARelease)
{
    TrimmerGesture gesture;
    gesture.press(kOnMarker, kTrimmer);
    gesture.move(kOnMarker + QPointF(30, 0), kTrimmer);
    EXPECT_THAT(gesture.cancel(), ElementsAre(DraggingChanged{false}));
    EXPECT_EQ(gesture.activeDragCount(), 0);
}

TEST(MarkerGesture, OfOverlappingMarkersTheLastIsTaken)
{
    TrimmerGesture gesture;
    Trimmer trimmer = kTrimmer;
    trimmer.markers = {{20, 20.5}, {}};
    gesture.press(kOnMarker, trimmer);
    EXPECT_THAT(gesture.release(kOnMarker, trimmer), ElementsAre(MarkerTapped{20.5}));
}

TEST(MarkerGesture, AReleaseFarAwayWithoutAMovementBeforeIsADrag)
{
    TrimmerGesture gesture;
    gesture.press(kOnMarker, kTrimmer);
    EXPECT_THAT(gesture.release(kOnMarker + QPointF(30, 0), kTrimmer),
                ElementsAre(DraggingChanged{true}, MarkerDragStarted{20}, MarkerMoved{23}, DraggingChanged{false}));
}

}
}
