// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/TrimMarkers.h"

#include <gmock/gmock.h>

namespace zumeta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(NearestTrimMarker, IsTheNearestOne)
{
    EXPECT_EQ((TrimMarkers{{1, 2, 3}, {}}.nearest(2.4, 1)), 2);
    EXPECT_EQ((TrimMarkers{{1, 2, 3}, {}}.nearest(2.6, 1)), 3);
}

TEST(NearestTrimMarker, OfTwoThatAreEquallyFarIsTheEarlier)
{
    EXPECT_EQ((TrimMarkers{{1, 2}, {}}.nearest(1.5, 1)), 1);
}

TEST(NearestTrimMarker, MayBeAsFarAsTheToleranceAndNoFarther)
{
    EXPECT_EQ((TrimMarkers{{0}, {}}.nearest(0.05)), 0);
    EXPECT_EQ((TrimMarkers{{0}, {}}.nearest(0.051)), std::nullopt);
}

TEST(NearestTrimMarker, IsNoneWithoutMarkers)
{
    EXPECT_EQ(TrimMarkers().nearest(1), std::nullopt);
}

TEST(AddedTrimMarker, IsSortedInAndSelected)
{
    TrimMarkers markers{{1, 3}, 1};
    markers.add(2);
    EXPECT_THAT(markers.times, ElementsAre(1, 2, 3));
    EXPECT_EQ(markers.selected, 2);
}

TEST(AddedTrimMarker, CloseToAnotherIsOnlySelected)
{
    TrimMarkers markers{{4}, {}};
    markers.add(4.04);
    EXPECT_THAT(markers.times, ElementsAre(4));
    EXPECT_EQ(markers.selected, 4.04) << "the time that was asked for, not the marker's";
}

TEST(AddedTrimMarker, AsFarAsTheToleranceIsAnother)
{
    TrimMarkers markers{{0}, {}};
    markers.add(0.05);
    EXPECT_THAT(markers.times, ElementsAre(0, 0.05));
}

TEST(SelectedTrimMarker, IsFoundAtLessThanTheToleranceFromIt)
{
    EXPECT_TRUE((TrimMarkers{{0}, 0}.isSelected(0.049)));
    EXPECT_FALSE((TrimMarkers{{0}, 0}.isSelected(0.05)));
    EXPECT_FALSE((TrimMarkers{{0}, {}}.isSelected(0)));
}

TEST(SelectedTrimMarker, MovesAlone)
{
    TrimMarkers markers{{1, 2, 3}, 1};
    markers.moveSelected(2.5);
    EXPECT_THAT(markers.times, ElementsAre(2, 2.5, 3));
    EXPECT_EQ(markers.selected, 2.5);
}

TEST(SelectedTrimMarker, SwallowsTheOneThatItIsMovedOver)
{
    TrimMarkers markers{{1, 2, 3}, 1};
    markers.moveSelected(1.97);
    EXPECT_THAT(markers.times, ElementsAre(1.97, 3));
    markers.moveSelected(1.5);
    EXPECT_THAT(markers.times, ElementsAre(1.5, 3));
}

TEST(SelectedTrimMarker, TakesAlongTheMarkerBesideWhichItWasSelected)
{
    TrimMarkers markers{{4}, {}};
    markers.add(4.04);
    markers.moveSelected(6);
    EXPECT_THAT(markers.times, ElementsAre(6));
}

TEST(SelectedTrimMarker, MovedOntoItsPlaceStays)
{
    TrimMarkers markers{{1, 2}, 2};
    markers.moveSelected(2);
    EXPECT_EQ(markers, (TrimMarkers{{1, 2}, 2}));
}

TEST(SelectedTrimMarker, WithoutOneNothingMovesOrIsDeleted)
{
    TrimMarkers markers{{1, 2}, {}};
    markers.moveSelected(1);
    markers.deleteSelected();
    EXPECT_EQ(markers, (TrimMarkers{{1, 2}, {}}));
}

TEST(SelectedTrimMarker, IsDeletedWithAllThatAreCloserThanTheTolerance)
{
    TrimMarkers markers{{0.5, 1, 1.03, 2}, 1.01};
    markers.deleteSelected();
    EXPECT_THAT(markers.times, ElementsAre(0.5, 2));
    EXPECT_EQ(markers.selected, std::nullopt);
}

constexpr TrimRange kRange{2, 10};

TEST(TrimStops, AreTheMarkersInTheRangeAndItsEnds)
{
    EXPECT_THAT((TrimMarkers{{1, 3, 5, 11}, {}}.stops(kRange)), ElementsAre(2, 3, 5, 10));
}

TEST(TrimStops, WithoutMarkersAreTheEnds)
{
    EXPECT_THAT(TrimMarkers().stops(kRange), ElementsAre(2, 10));
}

TEST(TrimStops, OfAnEmptyRangeAreOne)
{
    EXPECT_THAT(TrimMarkers().stops({4, 4}), ElementsAre(4));
}

TEST(TrimStops, IncludeAMarkerALittleOutsideInPlaceOfTheEnd)
{
    EXPECT_THAT((TrimMarkers{{1.96, 10.04}, {}}.stops(kRange)), ElementsAre(1.96, 10));
}

TEST(TrimStops, LeaveOutAMarkerFartherOutside)
{
    EXPECT_THAT((TrimMarkers{{1.94, 10.06}, {}}.stops(kRange)), ElementsAre(2, 10));
}

// Of 3, 3.04 and 3.08 the last is far enough from the first.
TEST(TrimStops, KeepTheirDistanceFromTheLastThatWasKept)
{
    EXPECT_THAT((TrimMarkers{{3, 3.04, 3.08}, {}}.stops(kRange)), ElementsAre(2, 3, 3.08, 10));
}

TEST(StopBeyond, IsTheNextOrThePreviousOneOfTheSelection)
{
    const TrimMarkers markers{{3, 5}, 3};
    EXPECT_EQ(markers.stopBeyond(9, kRange, 1), 5);
    EXPECT_EQ(markers.stopBeyond(9, kRange, -1), 2);
}

TEST(StopBeyond, WrapsAround)
{
    EXPECT_EQ((TrimMarkers{{3}, {}}.stopBeyond(10, kRange, 1)), 2);
    EXPECT_EQ((TrimMarkers{{3}, {}}.stopBeyond(2, kRange, -1)), 10);
}

TEST(StopBeyond, WithoutASelectionIsSeenFromThePlayhead)
{
    const TrimMarkers markers{{3, 5}, {}};
    EXPECT_EQ(markers.stopBeyond(3.02, kRange, 1), 5);
    EXPECT_EQ(markers.stopBeyond(3.02, kRange, -1), 2);
    EXPECT_EQ(markers.stopBeyond(4, kRange, 1), 5);
    EXPECT_EQ(markers.stopBeyond(4, kRange, -1), 3);
}

TEST(StopBeyond, OfASelectionThatIsNoStopIsSeenFromThePlayhead)
{
    const TrimMarkers markers{{1, 3, 5}, 1};
    EXPECT_EQ(markers.stopBeyond(4, kRange, 1), 5);
    EXPECT_EQ(markers.stopBeyond(4, kRange, -1), 3);
}

// The search from the playhead passes by a stop that it stands on.
TEST(StopBeyond, OfASelectionThatIsNoStopPassesTheStopAtThePlayhead)
{
    const TrimMarkers markers{{1, 3, 5}, 1};
    for (const double playhead : {2.97, 3.0, 3.03}) {
        EXPECT_EQ(markers.stopBeyond(playhead, kRange, 1), 5) << playhead;
        EXPECT_EQ(markers.stopBeyond(playhead, kRange, -1), 2) << playhead;
    }
}

TEST(StopBeyond, FromOutsideTheRangeWrapsAroundToo)
{
    EXPECT_EQ(TrimMarkers().stopBeyond(12, kRange, 1), 2);
    EXPECT_EQ(TrimMarkers().stopBeyond(1, kRange, -1), 10);
    EXPECT_EQ(TrimMarkers().stopBeyond(12, kRange, -1), 10);
    EXPECT_EQ(TrimMarkers().stopBeyond(1, kRange, 1), 2);
}

TEST(StopBeyond, WithoutADirectionIsTheStopItselfOrTheNext)
{
    EXPECT_EQ((TrimMarkers{{3}, 3}.stopBeyond(9, kRange, 0)), 3);
    EXPECT_EQ((TrimMarkers{{3}, {}}.stopBeyond(5, kRange, 0)), 10);
}

TEST(StopBeyond, GoesRoundMoreThanOnceForAGreatDirection)
{
    EXPECT_EQ(TrimMarkers().stopBeyond(2, kRange, -7), 10);
    EXPECT_EQ(TrimMarkers().stopBeyond(2, kRange, 8), 2);
}

TEST(StopBeyond, OfTheOnlyStopIsThatStop)
{
    EXPECT_EQ(TrimMarkers().stopBeyond(4, {4, 4}, 1), 4);
    EXPECT_EQ(TrimMarkers().stopBeyond(4, {4, 4}, -1), 4);
}

TEST(SelectionAtAStop, IsTheFirstMarkerThere)
{
    TrimMarkers markers{{1.96, 2.03, 5}, 5};
    markers.selectAtStop(2);
    EXPECT_EQ(markers.selected, 1.96);
}

TEST(SelectionAtAStop, IsNoneAtAnEndOfTheRangeAlone)
{
    TrimMarkers markers{{5}, 5};
    markers.selectAtStop(10);
    EXPECT_EQ(markers.selected, std::nullopt);
}

}
}
