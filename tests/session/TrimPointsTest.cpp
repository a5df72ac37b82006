// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/StepFour.h"

namespace zumeta {
namespace {

using namespace test;
using testing::ElementsAre;

struct Trims : StepFour {};

TEST_F(Trims, AreSetToThePlayhead)
{
    session->seek(7.5, true);
    session->applySelectedMarkerToTrimStart();
    expectTrims(7.5, 0);
    expectPlayersAt(7.5);
    session->seek(22, true);
    session->applySelectedMarkerToTrimEnd();
    expectTrims(7.5, 8);
    expectPlayersAt(22);
    EXPECT_EQ(session->effectiveExportDuration(), 14.5);
    EXPECT_EQ(undoCount(), 2u);
}

TEST_F(Trims, AtThePlayheadNeedNoMarkerAndReadNone)
{
    addMarkers({5});
    session->seek(7, true);
    session->applySelectedMarkerToTrimStart();
    expectTrims(7, 0);
}

TEST_F(Trims, TheStartPastTheEndPointStopsOnIt)
{
    setTrims(2, 10);
    session->seek(25, true);
    session->applySelectedMarkerToTrimStart();
    expectTrims(20, 10);
    expectPlayersAt(20);
    EXPECT_EQ(session->effectiveExportDuration(), 0);
}

TEST_F(Trims, TheEndBeforeTheStartPointStopsOnIt)
{
    setTrims(12, 2);
    session->seek(3, true);
    session->applySelectedMarkerToTrimEnd();
    expectTrims(12, 18);
    expectPlayersAt(12);
    EXPECT_EQ(session->effectiveExportDuration(), 0);
}

TEST_F(Trims, TheStartIsNotSetOntoTheEnd)
{
    setTrims(2, 10);
    session->seek(20, true);
    session->applyCurrentTimeToTrimStartIfAllowed();
    expectTrims(2, 10);
    EXPECT_EQ(undoCount(), 0u);
    session->seek(20.01, true);
    session->applyCurrentTimeToTrimStartIfAllowed();
    expectTrims(20, 10);
}

TEST_F(Trims, TheEndIsNotSetOntoTheStart)
{
    setTrims(2, 10);
    session->seek(2, true);
    session->applyCurrentTimeToTrimEndIfAllowed();
    expectTrims(2, 10);
    EXPECT_EQ(undoCount(), 0u);
    session->seek(1.99, true);
    session->applyCurrentTimeToTrimEndIfAllowed();
    expectTrims(2, 28);
}

TEST_F(Trims, AreComparedWithThePlayheadInHundredths)
{
    setTrims(3.991, 26);
    session->seek(3.999, true);
    session->applyCurrentTimeToTrimEndIfAllowed();
    expectTrims(3.991, 26);
    setTrims(0, 30 - 3.999);
    session->seek(3.991, true);
    session->applyCurrentTimeToTrimStartIfAllowed();
    expectTrims(0, 30 - 3.999);
}

// The end point is computed from what is cut off, which is not quite where it was set.
TEST_F(Trims, TheEndSetToThePlayheadIsWhereThePlayheadStands)
{
    for (int i = 0; i < 3000; ++i) {
        session->seek(i / 100.0, true);
        session->applySelectedMarkerToTrimEnd();
        EXPECT_TRUE(session->isCurrentTimeAssignedToTrimEnd()) << session->currentTime();
    }
}

TEST_F(Trims, OfTheRowsKeepHalfASecondAndMoveThePlayhead)
{
    setTrims(0, 10);
    session->setTrimStart(25);
    expectTrims(19.5, 10);
    expectPlayersAt(19.5);
    EXPECT_EQ(session->trimStart(), 19.5);
    session->setTrimStart(5);
    session->setTrimEndPosition(0);
    expectTrims(5, 24.5);
    expectPlayersAt(5.5);
    EXPECT_EQ(session->trimEndPosition(), 5.5);
    EXPECT_EQ(undoCount(), 0u) << "a row records where its change begins";
}

TEST_F(Trims, OfTheRowsOfATimelineUnderHalfASecondAreItsEnds)
{
    edit([](VideoCompositionConfig& config) { config.timingOffset = -3570; });
    session->rebuildPreviewForTimingChange();
    ASSERT_LT(session->duration(), 0.5);
    ASSERT_GT(session->duration(), 0);
    session->setTrimStart(0.2);
    EXPECT_EQ(session->trimStart(), 0);
    session->setTrimEndPosition(0.1);
    EXPECT_EQ(session->trimEndPosition(), session->duration());
    EXPECT_EQ(session->currentTime(), session->duration());
}

TEST_F(Trims, AreResetWithoutTheMarkers)
{
    addMarkers({5});
    setTrims(2, 3);
    session->resetTrimRange();
    expectTrims(0, 0);
    expectPlayersAt(0);
    EXPECT_THAT(session->trimMarkers(), ElementsAre(5));
    EXPECT_EQ(session->selectedTrimMarker(), 5);
    session->undoLastStepEdit();
    expectTrims(2, 3);
    expectPlayersAt(5);
}

}
}
