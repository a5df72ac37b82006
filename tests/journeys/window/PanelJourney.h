// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "journeys/window/WindowJourney.h"
#include "surfaces/theme/SurfaceContext.h"

#include <QQmlEngine>
#include <QTest>

namespace zumeta::test {

/// The window with nothing in motion, and the panel's parts by their names.
struct PanelJourney : WindowJourney {
    void openPanel(int step, QSize size = {1400, 900})
    {
        open(size);
        SurfaceContext::of(*qmlEngine(&window())).motion().setReduced(true);
        openStep(step, size);
        ASSERT_TRUE(waitFor([&] { return item("resetButton") != nullptr; }));
    }
    /// On Step 1 with nothing chosen.
    void openEmptyPanel(QSize size = {1400, 900})
    {
        open(size);
        SurfaceContext::of(*qmlEngine(&window())).motion().setReduced(true);
        confirmCamera();
        ASSERT_TRUE(waitFor([&] { return item("resetButton") != nullptr; }));
    }
    CompositorViewModel& session() { return app().session(); }
    QString text(const char* key) { return app().languages().localized(QString::fromLatin1(key)); }
    /// Goes there once what the load itself still does is over.
    void seekTo(double time)
    {
        ASSERT_TRUE(waitFor([&] {
            session().seek(time, true);
            QTest::qWait(50);
            return session().currentTime() == time;
        }));
    }
    bool waitForStep(int step)
    {
        return waitFor([&] { return int(session().currentStep()) == step; });
    }
    double scrolled() { return item("panelView")->property("contentY").toDouble(); }
    /// Wholly in the panel's view, and clear of what fades at its end.
    bool isInSight(QQuickItem* part)
    {
        const QQuickItem* const panel = item("adjustmentPanel");
        const QRectF place = part->mapRectToItem(panel, QRectF(0, 0, part->width(), part->height()));
        return place.top() >= 0 && place.bottom() <= panel->height();
    }
    /// Answers the question that is open.
    void answer(const char* button)
    {
        ASSERT_TRUE(waitFor([&] { return item(button) != nullptr; }));
        click(item(button));
        ASSERT_TRUE(waitFor([&] { return item(button) == nullptr; }));
    }
};

}
