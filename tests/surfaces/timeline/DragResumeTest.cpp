// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/timeline/DragResume.h"

#include "surfaces/timeline/DragCount.h"
#include "surfaces/timeline/PrintIntents.h"

#include <gtest/gtest.h>

namespace zumeta {
namespace {

using Change = DragCount::Change;
using Playback = DragResume::Playback;

TEST(DragResume, PlaybackThatRanRestsDuringTheDragAndGoesOnAfterIt)
{
    DragResume resume;
    EXPECT_EQ(resume.draggingChanged(true, true), Playback::pauses);
    EXPECT_TRUE(resume.shouldResumePlaybackAfterDrag());
    EXPECT_EQ(resume.draggingChanged(false, false), Playback::plays);
    EXPECT_FALSE(resume.shouldResumePlaybackAfterDrag());
}

TEST(DragResume, PlaybackThatStoodStaysStopped)
{
    DragResume resume;
    EXPECT_EQ(resume.draggingChanged(true, false), Playback::stays);
    EXPECT_EQ(resume.draggingChanged(false, false), Playback::stays);
}

TEST(DragResume, ASecondReportOfTheSameDragForgetsNothing)
{
    DragResume resume;
    resume.draggingChanged(true, true);
    EXPECT_EQ(resume.draggingChanged(true, false), Playback::stays);
    EXPECT_EQ(resume.draggingChanged(false, false), Playback::plays);
}

TEST(DragResume, PlaysOnlyOnceForOneDrag)
{
    DragResume resume;
    resume.draggingChanged(true, true);
    resume.draggingChanged(false, false);
    EXPECT_EQ(resume.draggingChanged(false, false), Playback::stays);
}

TEST(DragResume, EachDragLooksAnew)
{
    DragResume resume;
    resume.draggingChanged(true, true);
    resume.draggingChanged(false, false);
    EXPECT_EQ(resume.draggingChanged(true, false), Playback::stays);
    EXPECT_EQ(resume.draggingChanged(false, false), Playback::stays);
}

TEST(DragCount, TwoDragsTogetherReportOneBeginningAndOneEnd)
{
    DragCount count;
    EXPECT_EQ(count.beginDragIfNeeded(Change::begins), DraggingChanged{true});
    EXPECT_EQ(count.beginDragIfNeeded(Change::begins), std::nullopt);
    EXPECT_EQ(count.activeDragCount(), 2);
    EXPECT_EQ(count.endDragIfNeeded(), std::nullopt);
    EXPECT_EQ(count.endDragIfNeeded(), DraggingChanged{false});
    EXPECT_EQ(count.activeDragCount(), 0);
}

TEST(DragCount, AFurtherChangeOfTheSameDragCountsNothing)
{
    DragCount count;
    count.beginDragIfNeeded(Change::begins);
    EXPECT_EQ(count.beginDragIfNeeded(Change::goesOn), std::nullopt);
    EXPECT_EQ(count.activeDragCount(), 1);
}

TEST(DragCount, OneEndTooManyReportsFalseAndLeavesNoDebt)
{
    DragCount count;
    EXPECT_EQ(count.endDragIfNeeded(), DraggingChanged{false});
    EXPECT_EQ(count.activeDragCount(), 0);
    EXPECT_EQ(count.beginDragIfNeeded(Change::begins), DraggingChanged{true});
}

TEST(DragCount, PlaybackResumesOnceTheLastDragEnds)
{
    DragCount count;
    DragResume resume;
    resume.draggingChanged(count.beginDragIfNeeded(Change::begins)->isDragging, true);
    count.beginDragIfNeeded(Change::begins);
    EXPECT_EQ(count.endDragIfNeeded(), std::nullopt);
    EXPECT_EQ(resume.draggingChanged(count.endDragIfNeeded()->isDragging, false), Playback::plays);
}

}
}
