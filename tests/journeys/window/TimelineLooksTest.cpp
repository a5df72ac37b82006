// SPDX-License-Identifier: GPL-3.0-or-later
#include "journeys/window/TimelineJourney.h"

namespace zumeta {
namespace {

using namespace test;
using WorkflowStep = CompositorViewModel::WorkflowStep;

struct TimelineLooks : TimelineJourney {
    /// What rises above the strip belongs to it.
    QImage strip()
    {
        const QQuickItem* const strip = item("timelineStrip");
        return picture().copy(strip->mapRectToScene(QRectF(0, -20, strip->width(), strip->height() + 20)).toRect());
    }
    void expectStrip(const std::string& state)
    {
        const std::string name = "timeline-" + state + "-" + std::to_string(window().width()) + m_language;
        expectPicture(name.c_str(), strip());
    }
    void speak(AppLanguage language)
    {
        app().languages().setLanguage(language);
        m_language = language == AppLanguage::japanese ? "-japanese" : "";
    }
    void restPointer() { movePointer({5, 5}); }

private:
    std::string m_language;
};

TEST_F(TimelineLooks, OfAnEmptySession)
{
    for (const QSize size : {QSize(1400, 900), QSize(1024, 680)}) {
        open(size);
        confirmCamera();
        expectStrip("empty");
        close();
    }
}

TEST_F(TimelineLooks, OfTheFirstSteps)
{
    for (const QSize size : {QSize(1400, 900), QSize(1024, 680)}) {
        openUnlocked(size);
        for (const AppLanguage language : {AppLanguage::japanese, AppLanguage::english}) {
            speak(language);
            restPointer();
            expectStrip("hint");
            hold(placeIn("simpleSlider", 200, 15));
            expectStrip("dragging");
            session().setHasSliderBeenMoved(false);
            session().seek(0, true);
            letGo(placeIn("simpleSlider", 0, 15));
            session().setHasSliderBeenMoved(false);
        }
        session().setHasSliderBeenMoved(true);
        session().seek(1, true);
        restPointer();
        waitForHeight(68);
        strip();
        // At once, before the first frame goes by.
        session().play();
        const QQuickItem* const strip = item("timelineStrip");
        const QImage playing = window().grabWindow().copy(
            strip->mapRectToScene(QRectF(0, -20, strip->width(), strip->height() + 20)).toRect());
        session().pause();
        expectPicture(("timeline-playing-" + std::to_string(size.width())).c_str(), playing);
        session().seek(1, true);
        session().toggleAboveLock();
        expectStrip("locked");
        close();
    }
}

TEST_F(TimelineLooks, OfTheSecondAndThirdStep)
{
    openStep(2);
    session().toggleBelowLock();
    session().setHasSliderBeenMoved(true);
    waitForHeight(68);
    restPointer();
    expectStrip("step2");
    session().toggleBelowLock();
    session().setCurrentStep(WorkflowStep::step3);
    session().seek(1.5, true);
    expectStrip("step3");
    ASSERT_TRUE(tabTo("simpleSlider"));
    expectStrip("step3-focused");
    ASSERT_TRUE(tabTo("playButton"));
    expectStrip("step3-play-focused");
}

TEST_F(TimelineLooks, OfTheTrimmer)
{
    for (const QSize size : {QSize(1400, 900), QSize(1024, 680)}) {
        openTrimmer(size);
        addMarkers({0.5, 1.2, 1.9});
        VideoCompositionConfig config = session().projectConfig();
        config.exportTrimStartSeconds = 0.4;
        config.exportTrimEndSeconds = 0.7;
        session().setProjectConfig(config);
        session().selectTrimMarker(1.2);
        for (const AppLanguage language : {AppLanguage::japanese, AppLanguage::english}) {
            speak(language);
            restPointer();
            expectStrip("trimmer");
        }
        hold(middleOf(item("startHandle")));
        QTest::mouseMove(&window(), onTrimmer(0.8));
        expectStrip("trimming");
        letGo(onTrimmer(0.8));
        restPointer();
        ASSERT_TRUE(tabTo("trimmer"));
        expectStrip("trimmer-focused");
        close();
    }
}

TEST_F(TimelineLooks, OfThePlayButtonDifferInEachState)
{
    openUnlocked();
    const auto face = [&] {
        const QQuickItem* const button = item("playButton");
        return picture().copy(button->mapRectToScene(QRectF(-5, -5, 54, 54)).toRect());
    };
    restPointer();
    const QImage resting = face();
    movePointer(middleOf(item("playButton")));
    const QImage hovered = face();
    hold(middleOf(item("playButton")));
    const QImage pressed = face();
    letGo({5, 5});
    restPointer();
    ASSERT_TRUE(tabTo("playButton"));
    const QImage focused = face();
    EXPECT_NE(resting, hovered);
    EXPECT_NE(hovered, pressed);
    EXPECT_NE(resting, pressed);
    EXPECT_NE(resting, focused);
}

}
}
