// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/preview/CompositeVideoView.h"
#include "../../session/SessionHarness.h"

#include <QCoreApplication>
#include <QHoverEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QQuickWindow>

namespace zumeta::test {
namespace {

/// The preview's area with the picture of Step 1 in its middle, 800 x 450 in 800 x 650, and a pick that is open.
struct PreviewArea : SessionTest {
    std::unique_ptr<QQuickWindow> window = std::make_unique<QQuickWindow>();
    std::unique_ptr<PreviewModel> model = std::make_unique<PreviewModel>(*session);
    std::unique_ptr<CompositeVideoView> view = std::make_unique<CompositeVideoView>(window->contentItem());

    PreviewArea()
    {
        window->resize(800, 650);
        view->setSize({800, 650});
        view->setModel(model.get());
        loadAbove("/above.mp4");
    }
    ~PreviewArea()
    {
        view.reset();
        model.reset();
    }

    CompositePlayerNSView& surface() { return view->surface(); }
    void openPick()
    {
        session->seek(2, true);
        session->toggleAboveLock();
        advance(0.1);
    }
    bool press(QPointF place)
    {
        QMouseEvent event(QEvent::MouseButtonPress, place, place, Qt::LeftButton, Qt::LeftButton, {});
        QCoreApplication::sendEvent(view.get(), &event);
        advance(0.1);
        return event.isAccepted();
    }
    void hover(QEvent::Type type, QPointF place)
    {
        QHoverEvent event(type, place, place, place);
        QCoreApplication::sendEvent(view.get(), &event);
        advance(0.1);
    }
    bool key(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QKeyEvent event(QEvent::KeyPress, key, modifiers);
        QCoreApplication::sendEvent(view.get(), &event);
        advance(0.1);
        return event.isAccepted();
    }
    void focus(QEvent::Type type)
    {
        QFocusEvent event(type, Qt::TabFocusReason);
        QCoreApplication::sendEvent(view.get(), &event);
        advance(0.1);
    }
    double lineHeight() { return session->hoverY().value_or(-1) / 450; }
};

TEST_F(PreviewArea, FitsThePictureToTheProjectsShape)
{
    EXPECT_EQ(view->frame(), QRectF(0, 100, 800, 450));
    EXPECT_EQ(surface().position(), QPointF(0, 100));
    EXPECT_EQ(surface().size(), QSizeF(800, 450));
    view->setSize({1000, 450});
    EXPECT_EQ(view->frame(), QRectF(100, 0, 800, 450));
    EXPECT_EQ(surface().projectAspectRatio(), QSizeF(800, 450));
}

TEST_F(PreviewArea, FollowsTheShapeOfAnotherProject)
{
    session->clearAboveVideo();
    FakeVideo classic;
    classic.size = {1440, 1080};
    loadAbove("/classic.mp4", classic);
    EXPECT_EQ(view->frame(), QRectF(0, 25, 800, 600));
}

TEST_F(PreviewArea, WithoutExtentKeepsTheOldLayout)
{
    view->setSize({800, 0});
    EXPECT_EQ(view->frame(), QRectF(0, 100, 800, 450));
    EXPECT_EQ(surface().size(), QSizeF(800, 450));
}

TEST_F(PreviewArea, TellsTheSurfaceEveryNewValueInTheSameTurn)
{
    edit([](VideoCompositionConfig& config) {
        config.waterlineHeight = 222;
        config.aboveZoom = 8;
        config.aboveOffset = 40;
        config.aboveHorizontalOffset = 20;
        config.timingOffset = 3;
        config.blendAmount = 44;
        config.aboveStartTime = 1;
        config.belowStartTime = 2;
    });
    EXPECT_EQ(surface().waterlineHeight(), 222);
    EXPECT_EQ(surface().aboveZoom(), 30);
    EXPECT_EQ(surface().aboveOffset(), 0) << "centred in Step 1";
    EXPECT_EQ(surface().aboveHorizontalOffset(), 0);
    EXPECT_EQ(surface().timingOffset(), 3);
    EXPECT_EQ(surface().blendAmount(), 44);
    EXPECT_EQ(surface().aboveStartTime(), 1);
    EXPECT_EQ(surface().belowStartTime(), 2);
    session->setCurrentStep(WorkflowStep::step2);
    EXPECT_EQ(surface().aboveOffset(), 40);
    EXPECT_EQ(surface().aboveHorizontalOffset(), 20);
    EXPECT_EQ(surface().viewMode(), CompositePlayerNSView::ViewMode::belowOnly);
}

TEST_F(PreviewArea, TellsTheSurfaceOfAPick)
{
    openPick();
    EXPECT_EQ(surface().alignmentState(), CompositePlayerNSView::AlignmentState::pickingAbove);
    EXPECT_EQ(surface().currentTime(), session->currentTime());
}

TEST_F(PreviewArea, TakesThePlayersAwayWithTheModel)
{
    const int watched = above().observers;
    model.reset();
    EXPECT_EQ(above().observers, watched - 1);
}

TEST_F(PreviewArea, LetsGoOfAPlayerThatLosesItsItem)
{
    const int withItem = above().observers;
    above().replaceCurrentItem(std::nullopt);
    session->setBlendAmount(3); // any change
    EXPECT_EQ(above().observers, withItem - 1);
}

TEST_F(PreviewArea, APressPicksTheHeightInThePicture)
{
    openPick();
    EXPECT_TRUE(press({300, 100 + 90}));
    EXPECT_EQ(session->alignmentPointAbove(), 0.8);
}

TEST_F(PreviewArea, APressBesideThePictureIsSwallowed)
{
    openPick();
    EXPECT_TRUE(press({300, 50}));
    EXPECT_FALSE(session->alignmentPointAbove());
}

TEST_F(PreviewArea, WithoutAPickAPressGoesToWhateverLiesUnder)
{
    EXPECT_FALSE(press({300, 200}));
    EXPECT_FALSE(session->alignmentPointAbove());
}

TEST_F(PreviewArea, ReportsThePointersHeightWhileAPickIsOpen)
{
    hover(QEvent::HoverMove, {300, 200});
    EXPECT_FALSE(session->hoverY());
    openPick();
    hover(QEvent::HoverMove, {300, 100 + 45});
    EXPECT_DOUBLE_EQ(session->hoverY().value(), 405);
    hover(QEvent::HoverMove, {300, 60});
    EXPECT_FALSE(session->hoverY()) << "beside the picture";
    hover(QEvent::HoverMove, {300, 100 + 45});
    hover(QEvent::HoverLeave, {300, 700});
    EXPECT_FALSE(session->hoverY());
}

TEST_F(PreviewArea, IsUnderACrosshairWhileAPickIsOpen)
{
    EXPECT_EQ(surface().cursor().shape(), Qt::ArrowCursor);
    openPick();
    EXPECT_EQ(surface().cursor().shape(), Qt::CrossCursor);
    session->toggleAboveLock();
    EXPECT_EQ(surface().cursor().shape(), Qt::ArrowCursor);
}

TEST_F(PreviewArea, ThatHasTheKeyboardShowsTheLineWhereItBegins)
{
    openPick();
    focus(QEvent::FocusIn);
    EXPECT_DOUBLE_EQ(lineHeight(), 0.5);
    focus(QEvent::FocusOut);
    EXPECT_FALSE(session->hoverY());
}

TEST_F(PreviewArea, PicksByKeys)
{
    openPick();
    focus(QEvent::FocusIn);
    EXPECT_TRUE(key(Qt::Key_PageUp));
    EXPECT_DOUBLE_EQ(lineHeight(), 0.5 + 20.0 / 600);
    EXPECT_TRUE(key(Qt::Key_PageDown, Qt::ShiftModifier));
    EXPECT_DOUBLE_EQ(lineHeight(), 0.5 + 19.0 / 600);
    EXPECT_FALSE(session->alignmentPointAbove());
    EXPECT_TRUE(key(Qt::Key_Return));
    EXPECT_DOUBLE_EQ(session->alignmentPointAbove().value(), 0.5 + 19.0 / 600);
}

TEST_F(PreviewArea, KeysMoveOnFromThePointersLine)
{
    openPick();
    hover(QEvent::HoverMove, {300, 100 + 90});
    key(Qt::Key_PageDown);
    EXPECT_DOUBLE_EQ(lineHeight(), 0.8 - 20.0 / 600);
    hover(QEvent::HoverMove, {300, 100 + 90}); // as the window repeats it for a pointer that stands still
    EXPECT_DOUBLE_EQ(lineHeight(), 0.8 - 20.0 / 600);
    hover(QEvent::HoverMove, {300, 100 + 225});
    EXPECT_DOUBLE_EQ(lineHeight(), 0.5);
}

TEST_F(PreviewArea, ReturnShowsALineBeforeItPicks)
{
    openPick();
    EXPECT_TRUE(key(Qt::Key_Return));
    EXPECT_FALSE(session->alignmentPointAbove());
    EXPECT_DOUBLE_EQ(lineHeight(), 0.5);
    EXPECT_TRUE(key(Qt::Key_Return));
    EXPECT_EQ(session->alignmentPointAbove(), 0.5);
}

TEST_F(PreviewArea, WithoutAPickKeysGoOn)
{
    for (const Qt::Key pressed : {Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Return})
        EXPECT_FALSE(key(pressed)) << pressed;
}

}
}
