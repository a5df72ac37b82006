// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/timeline/Trimmer.h"

#include <gmock/gmock.h>

namespace zumeta {
namespace {

using testing::ElementsAre;

/// Ten of width are a second, and time 0 stands at 10.
Trimmer trimmer(double trimStart, double trimEnd, TrimMarkers markers = {})
{
    return {.scale = {420, 40}, .trimStart = trimStart, .trimEnd = trimEnd, .markers = std::move(markers)};
}

TEST(Trimmer, TheKeptRangeLiesBetweenTheTrims)
{
    EXPECT_EQ(trimmer(5, 10).startX(), 60);
    EXPECT_EQ(trimmer(5, 10).endX(), 310);
}

TEST(Trimmer, TrimsThatHaveCrossedAreAnEmptyRange)
{
    EXPECT_EQ(trimmer(30, 20).startX(), 310);
    EXPECT_EQ(trimmer(30, 20).endX(), 310);
}

TEST(Trimmer, TheStartHandleStopsAHandlesWidthBeforeTheEndHandle)
{
    EXPECT_EQ(trimmer(5, 10).startHandleX(200), 200);
    EXPECT_EQ(trimmer(5, 10).startHandleX(305), 290);
    EXPECT_EQ(trimmer(5, 10).startHandleX(-20), 10);
}

TEST(Trimmer, WithoutRoomTheStartHandleGoesToTheStart)
{
    EXPECT_EQ(trimmer(0, 39).startHandleX(200), 10);
}

TEST(Trimmer, TheEndHandleStopsAHandlesWidthAfterTheStartHandle)
{
    EXPECT_EQ(trimmer(5, 10).endHandleX(200), 200);
    EXPECT_EQ(trimmer(5, 10).endHandleX(65), 80);
    EXPECT_EQ(trimmer(5, 10).endHandleX(500), 410);
}

TEST(Trimmer, WithoutRoomTheEndHandlesDistanceWinsOverItsEnd)
{
    EXPECT_EQ(trimmer(39, 0).endHandleX(200), 420);
}

TEST(TrimmerHit, FindsTheHandlesAndTheTrackBetweenThem)
{
    const Trimmer t = trimmer(5, 10);
    EXPECT_EQ(t.hit({60, 22}).part, TrimmerPart::startHandle);
    EXPECT_EQ(t.hit({310, 22}).part, TrimmerPart::endHandle);
    EXPECT_EQ(t.hit({200, 22}).part, TrimmerPart::track);
    EXPECT_EQ(t.hit({20, 22}).part, TrimmerPart::track);
}

TEST(TrimmerHit, AHandleTakesTwentyOfWidthAndTheWholeHeight)
{
    const Trimmer t = trimmer(5, 10);
    for (const double y : {0.0, 43.9}) {
        EXPECT_EQ(t.hit({49.9, y}).part, TrimmerPart::track);
        EXPECT_EQ(t.hit({50, y}).part, TrimmerPart::startHandle);
        EXPECT_EQ(t.hit({69.9, y}).part, TrimmerPart::startHandle);
        EXPECT_EQ(t.hit({70, y}).part, TrimmerPart::track);
    }
}

TEST(TrimmerHit, TheBoxEndsAtItsEdges)
{
    const Trimmer t = trimmer(5, 10);
    EXPECT_EQ(t.hit({0, 0}).part, TrimmerPart::track);
    EXPECT_EQ(t.hit({-0.1, 22}).part, TrimmerPart::nothing);
    EXPECT_EQ(t.hit({419.9, 43.9}).part, TrimmerPart::track);
    EXPECT_EQ(t.hit({420, 22}).part, TrimmerPart::nothing);
    EXPECT_EQ(t.hit({200, 44}).part, TrimmerPart::nothing);
    EXPECT_EQ(t.hit({200, -0.1}).part, TrimmerPart::nothing);
}

TEST(TrimmerHit, OfOverlappingHandlesTheNearerOneIsMeant)
{
    const Trimmer t = trimmer(5, 34.5);
    ASSERT_EQ(t.startX(), 60);
    ASSERT_EQ(t.endX(), 65);
    EXPECT_EQ(t.hit({61, 22}).part, TrimmerPart::startHandle);
    EXPECT_EQ(t.hit({64, 22}).part, TrimmerPart::endHandle);
}

TEST(TrimmerHit, HandlesThatCoincideAreBothMeant)
{
    EXPECT_EQ(trimmer(5, 35).hit({57, 22}).part, TrimmerPart::eitherHandle);
}

TEST(TrimmerHit, AMarkersBoxIsCentredTwelveAboveTheTop)
{
    const Trimmer t = trimmer(0, 0, {{20}, {}});
    const TrimmerHit marker{TrimmerPart::marker, 20};
    EXPECT_EQ(t.hit({210, -12}), marker);
    EXPECT_EQ(t.hit({192, -31}), marker);
    EXPECT_EQ(t.hit({227.9, 6.9}), marker);
    EXPECT_EQ(t.hit({191.9, -12}).part, TrimmerPart::nothing);
    EXPECT_EQ(t.hit({228, -12}).part, TrimmerPart::nothing);
    EXPECT_EQ(t.hit({210, -31.1}).part, TrimmerPart::nothing);
    EXPECT_EQ(t.hit({210, 7}).part, TrimmerPart::track);
}

TEST(TrimmerHit, AMarkerLiesOverAHandle)
{
    const Trimmer t = trimmer(20, 0, {{20}, {}});
    EXPECT_EQ(t.hit({210, 3}).part, TrimmerPart::marker);
    EXPECT_EQ(t.hit({210, 10}).part, TrimmerPart::startHandle);
}

TEST(TrimmerHit, TheLastOfOverlappingMarkersLiesOnTop)
{
    const Trimmer t = trimmer(0, 0, {{20, 21, 35}, {}});
    EXPECT_EQ(t.hit({212, -12}).marker, 21);
    EXPECT_EQ(t.hit({195, -12}).marker, 20);
}

TEST(TrimmerHit, WithoutWidthNothingIsHit)
{
    for (const double width : {0.0, -5.0}) {
        const Trimmer t{.scale = {width, 40}, .trimStart = 0, .trimEnd = 0, .markers = {{0}, {}}};
        EXPECT_EQ(t.hit({0, 0}).part, TrimmerPart::nothing);
    }
}

TEST(MarkerLook, NumbersTheMarkersByTheirPlaceInTheList)
{
    EXPECT_THAT(trimmer(0, 0, {{4, 8, 20}, 8}).markerLooks(),
                ElementsAre(MarkerLook{50, QStringLiteral("M1"), false}, MarkerLook{90, QStringLiteral("M2"), true},
                            MarkerLook{210, QStringLiteral("M3"), false}));
}

TEST(MarkerLook, TwoMarkersCloserThanATwentiethOfASecondBothLookSelected)
{
    for (const double selected : {8.0, 8.04}) {
        const std::vector<MarkerLook> looks = trimmer(0, 0, {{8, 8.04, 8.2}, selected}).markerLooks();
        EXPECT_TRUE(looks[0].isSelected);
        EXPECT_TRUE(looks[1].isSelected);
        EXPECT_FALSE(looks[2].isSelected);
    }
}

TEST(MarkerLook, AMarkerATwentiethOfASecondFromTheSelectionIsAnother)
{
    EXPECT_FALSE(trimmer(0, 0, {{0.05}, 0}).markerLooks()[0].isSelected);
    EXPECT_TRUE(trimmer(0, 0, {{0.0499}, 0}).markerLooks()[0].isSelected);
}

TEST(MarkerLook, WithoutASelectionNoneIsSelected)
{
    EXPECT_FALSE(trimmer(0, 0, {{0}, {}}).markerLooks()[0].isSelected);
}

}
}
