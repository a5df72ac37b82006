// SPDX-License-Identifier: GPL-3.0-or-later
#include "journeys/window/RowsPage.h"

#include <QTest>

namespace zumeta {
namespace {

using namespace test;

struct PressedRow : RowsPage {
    void press(const char* name) { QTest::mousePress(&window(), Qt::LeftButton, {}, middleOf(part(name))); }
    void release(const char* name) { QTest::mouseRelease(&window(), Qt::LeftButton, {}, middleOf(part(name))); }
    /// With what its knob reaches over.
    void expectRow(const char* picture, const char* key) { expectPicture(picture, part(key + std::string(" frame"))); }
    /// The value must have come to rest: longer than the first repetition takes.
    void expectAtRest()
    {
        const double before = session().aboveZoom();
        QTest::qWait(450);
        EXPECT_EQ(session().aboveZoom(), before);
    }
};

TEST_F(PressedRow, StepsAtThePress)
{
    openPage();
    press("Zoom plus");
    EXPECT_EQ(session().aboveZoom(), 1);
    release("Zoom plus");
    EXPECT_EQ(session().aboveZoom(), 1);
    click(part("Zoom minus"));
    click(part("Zoom minus"));
    EXPECT_EQ(session().aboveZoom(), -1);
    EXPECT_EQ(text("Zoom"), "-1");
}

TEST_F(PressedRow, StepsOnWhileItIsHeld)
{
    openPage();
    press("Zoom plus");
    ASSERT_TRUE(waitFor([&] { return session().aboveZoom() >= 5; }));
    release("Zoom plus");
    expectAtRest();
}

TEST_F(PressedRow, StopsWhenTheRowIsHidden)
{
    openPage();
    press("Zoom plus");
    part("Zoom")->setVisible(false);
    expectAtRest();
}

TEST_F(PressedRow, StopsWhenTheRowIsDestroyed)
{
    openPage();
    press("Zoom plus");
    closePage();
    expectAtRest();
}

TEST_F(PressedRow, StopsWhenTheWindowIsLeft)
{
    openPage();
    press("Zoom plus");
    QWindow other;
    other.show();
    other.requestActivate();
    ASSERT_TRUE(waitFor([&] { return !window().isActive(); }));
    expectAtRest();
}

TEST_F(PressedRow, StopsWhenThePressIsTakenAway)
{
    openPage();
    press("Zoom plus");
    part("Zoom plus")->setEnabled(false);
    expectAtRest();
}

TEST_F(PressedRow, ShowsItsStepInAFieldThatHasTheFocus)
{
    openPage();
    focus("Timing");
    QTest::mouseClick(&window(), Qt::LeftButton, {}, middleOf(part("Timing plus")));
    EXPECT_EQ(text("Timing"), "0.01");
    EXPECT_EQ(session().timingOffset(), 1);
}

TEST_F(PressedRow, IsDraggedOverItsWholeWidth)
{
    openPage();
    QQuickItem* const track = part("Zoom track");
    const auto at = [&](double x) { return track->mapToScene(QPointF(x, 8)).toPoint(); };
    QTest::mousePress(&window(), Qt::LeftButton, {}, at(track->width() / 2));
    EXPECT_EQ(session().aboveZoom(), 0);
    QTest::mouseMove(&window(), at(track->width() * 0.75));
    EXPECT_EQ(session().aboveZoom(), 50);
    EXPECT_EQ(text("Zoom"), "50");
    QTest::mouseMove(&window(), at(track->width() + 60));
    EXPECT_EQ(session().aboveZoom(), 100);
    QTest::mouseMove(&window(), at(-60));
    EXPECT_EQ(session().aboveZoom(), -100);
    QTest::mouseRelease(&window(), Qt::LeftButton, {}, at(-60));
    EXPECT_EQ(session().aboveZoom(), -100);
}

TEST_F(PressedRow, ADragIsOneEditToUndo)
{
    openPage();
    session().setAboveZoom(20);
    QQuickItem* const track = part("Zoom track");
    drag(middleOf(track), middleOf(track) + QPoint(100, 0));
    ASSERT_GT(session().aboveZoom(), 20);
    session().undoLastStepEdit();
    EXPECT_EQ(session().aboveZoom(), 20);
}

TEST_F(PressedRow, IsNotScrolledAwayByItsDrag)
{
    openPage();
    QQuickItem* const track = part("Zoom track");
    drag(middleOf(track), middleOf(track) + QPoint(60, -90), 20);
    EXPECT_EQ(page()->property("contentY").toDouble(), 0);
    EXPECT_GT(session().aboveZoom(), 20);
    drag(middleOf(part("Zoom plus")), middleOf(part("Zoom plus")) - QPoint(0, 90), 20);
    EXPECT_EQ(page()->property("contentY").toDouble(), 0);
}

TEST_F(PressedRow, TheWheelScrollsThePageAndChangesNoValue)
{
    openPage();
    focus("Zoom");
    for (const char* const name : {"Zoom track", "Zoom field", "Zoom plus"}) {
        const auto scrolled = [&] { return page()->property("contentY").toDouble(); };
        const double before = scrolled();
        const QPoint place = middleOf(part(name));
        QWheelEvent wheel(place, window().mapToGlobal(place), QPoint(0, -30), QPoint(0, -30), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&window(), &wheel);
        EXPECT_TRUE(waitFor([&] { return scrolled() > before; })) << name;
    }
    EXPECT_EQ(session().aboveZoom(), 0);
}

TEST_F(PressedRow, ADragEndsWhenTheWindowIsLeft)
{
    openPage();
    press("Zoom track");
    QObject* const row = part("Zoom")->property("row").value<QObject*>();
    ASSERT_TRUE(row->property("isDraggingSlider").toBool());
    QWindow other;
    other.show();
    other.requestActivate();
    EXPECT_TRUE(waitFor([&] { return !row->property("isDraggingSlider").toBool(); }));
}

TEST_F(PressedRow, LooksAsItWasDrawnForATimecode)
{
    openPage(4);
    session().setTrimEndPosition(2.15);
    expectRow("value-row-timecode", "Trim End");
}

TEST_F(PressedRow, LooksAsItWasDrawnInAllItsStates)
{
    openPage();
    session().setRelativeWaterlineHeight(6);
    session().setBlendAmount(0);
    session().setTimingOffset(-3);
    part("Horizontal Position")->setEnabled(false);
    movePointer({5, 5}); // from where the test before has left it: a pointer that does not move hovers over nothing
    expectPicture("value-rows", page());
    expectRow("value-row", "Waterline Height");
    expectRow("value-row-disabled", "Horizontal Position");
    expectRow("value-row-at-bound", "Boundary Blur");
    expectRow("value-row-long-label", kLongLabel);
    for (const char* const part : {"field", "minus", "track"}) {
        movePointer(middleOf(this->part((std::string("Waterline Height ") + part).c_str())));
        expectRow((std::string("value-row-hovered-") + part).c_str(), "Waterline Height");
    }
    press("Waterline Height minus");
    expectRow("value-row-pressed-minus", "Waterline Height");
    release("Waterline Height minus");
    press("Waterline Height track");
    expectRow("value-row-dragged", "Waterline Height");
    release("Waterline Height track");
    movePointer({5, 5});
    focus("Waterline Height");
    expectRow("value-row-focused-all", "Waterline Height");
    WindowJourney::press(Qt::Key_End);
    expectRow("value-row-focused", "Waterline Height");
    app().languages().setLanguage(AppLanguage::japanese);
    expectPicture("value-rows-japanese", page());
    app().languages().setLanguage(AppLanguage::german);
    expectPicture("value-rows-german", page());
}

}
}
