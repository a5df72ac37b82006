// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "journeys/window/WindowJourney.h"
#include "surfaces/timeline/SliderScale.h"
#include "surfaces/timeline/TimelineMetrics.h"
#include "surfaces/timeline/TrimmerScale.h"

#include <QTest>

namespace zumeta::test {

/// The window with made videos, as seen from the strip under the picture.
struct TimelineJourney : WindowJourney {
    CompositorViewModel& session() { return app().session(); }
    /// Step 1 with its video, whose landmark is yet to be found.
    void openUnlocked(QSize size = {1400, 900})
    {
        open(size);
        confirmCamera();
        loadVideo(zumeta::Side::above);
        ASSERT_TRUE(waitFor([&] { return item("simpleSlider") && item("simpleSlider")->isEnabled(); }));
        waitForHeight(104);
    }
    void waitForHeight(double height)
    {
        ASSERT_TRUE(waitFor([&] { return item("timelineStrip")->height() == height; }));
    }
    /// Where it stands in the strip.
    QRectF placeOf(const char* objectName)
    {
        return item(objectName)->mapRectToItem(item("timelineStrip"), {QPointF(), item(objectName)->size()});
    }
    /// Step 4 with its trimmer, laid out.
    void openTrimmer(QSize size = {1400, 900})
    {
        openStep(4, size);
        waitForHeight(68);
        ASSERT_TRUE(waitFor([&] {
            return item("trimmer") && item("trimmer")->height() == kTrimmerFrameHeight && item("fullScreenButton") &&
                   placeOf("fullScreenButton").right() == item("timelineStrip")->width() - kStripSidePadding;
        }));
        ASSERT_EQ(session().duration(), 3);
    }
    /// A place of an item, in the window.
    QPoint placeIn(const char* objectName, double x, double y)
    {
        return item(objectName)->mapToScene({x, y}).toPoint();
    }
    void hold(QPoint place) { QTest::mousePress(&window(), Qt::LeftButton, {}, place); }
    void letGo(QPoint place) { QTest::mouseRelease(&window(), Qt::LeftButton, {}, place); }
    double sliderTime(double x) { return SliderScale::of(item("simpleSlider")->width(), session().duration()).time(x); }
    TrimmerScale trimmerScale() { return {item("trimmer")->width(), session().duration()}; }
    /// In the middle of the trimmer's height, over this time.
    QPoint onTrimmer(double time) { return placeIn("trimmer", trimmerScale().xPosition(time), 22); }
    /// On the label of the marker at this time.
    QPoint onMarker(double time) { return placeIn("trimmer", trimmerScale().xPosition(time), -12); }
    void addMarkers(std::initializer_list<double> times)
    {
        for (const double time : times) {
            session().seek(time, true);
            session().addTrimMarkerAtCurrentTime();
        }
    }
    std::size_t undoCount() { return session().stepEditHistory().undoCount(); }
    /// By the keyboard, as far as it takes.
    bool tabTo(const char* objectName)
    {
        for (int i = 0; i < 60 && item(objectName) && !item(objectName)->hasActiveFocus(); ++i)
            press(Qt::Key_Tab);
        return item(objectName) && item(objectName)->hasActiveFocus();
    }
};

}
