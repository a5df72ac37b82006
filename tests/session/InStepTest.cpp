// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/SessionHarness.h"

#include <random>

namespace zumeta {
namespace {

using namespace test;

struct Recordings {
    SideTiming above;
    MediaTime aboveFrame;
    SideTiming below;
    MediaTime belowFrame;
    double timingOffset = 0;
};

/// Plays, pauses, seeks, steps, loops, changes rates, undoes and redoes at random, and looks at both sides at every
/// report and at many moments between.
class InStep : public SessionTest, public testing::WithParamInterface<Recordings> {
protected:
    InStep()
    {
        const Recordings& material = GetParam();
        loadBoth({.duration = material.above.duration, .frameDuration = material.aboveFrame},
                 {.duration = material.below.duration, .frameDuration = material.belowFrame});
        lockBoth(material.above.syncTime, material.below.syncTime);
        session->setCurrentStep(WorkflowStep::step3);
        session->setTimingOffset(material.timingOffset);
        timeline = CompositeTimeline::of(material.above, material.below, material.timingOffset);
        halfAFrame = std::max(material.aboveFrame.seconds(), material.belowFrame.seconds()) / 2;
        QObject::connect(&session->abovePlayerService(), &VideoPlayerService::timeReported, [this] { look(); });
        QObject::connect(&session->belowPlayerService(), &VideoPlayerService::timeReported, [this] { look(); });
    }

    double number(double from, double to) { return std::uniform_real_distribution(from, to)(random); }
    bool chance(double probability) { return number(0, 1) < probability; }

    void look()
    {
        const double compositeTime = below().secondsNow() - timeline.belowStart;
        if (compositeTime <= 0 || compositeTime >= timeline.duration)
            return;
        ++looks;
        const double apart = std::abs(above().secondsNow() - timeline.aboveMediaTime(compositeTime));
        farthestApart = std::max(farthestApart, apart);
        ASSERT_LE(apart, halfAFrame) << "at composite time " << compositeTime << " after " << time.now() - 1000 << " s";
    }

    void act()
    {
        switch (std::uniform_int_distribution(0, 11)(random)) {
        case 0:
        case 1:
            session->togglePlayback();
            break;
        case 2:
            session->play();
            break;
        case 3:
            session->seek(number(-1, timeline.duration + 1), true);
            break;
        case 4:
            session->step(std::uniform_int_distribution(-5, 5)(random));
            break;
        case 5:
        case 6:
            session->adjustPlaybackRate(chance(0.5));
            break;
        case 7:
            session->pressSlowPlayback();
            break;
        case 8:
            session->setStep3LoopEnabled(chance(0.7));
            break;
        case 9:
            chance(0.6) ? session->undoLastStepEdit() : session->redoLastStepEdit();
            break;
        case 10:
            session->addTrimMarkerAtCurrentTime();
            session->navigateTrimMarker(chance(0.5) ? 1 : -1);
            break;
        default:
            changeStepOrTrims();
        }
    }

    void changeStepOrTrims()
    {
        if (chance(0.6)) {
            session->setCurrentStep(chance(0.5) ? WorkflowStep::step3 : WorkflowStep::step4);
        } else {
            edit([&](VideoCompositionConfig& config) {
                config.exportTrimStartSeconds = number(0, timeline.duration / 2);
                config.exportTrimEndSeconds = number(0, timeline.duration / 2);
            });
        }
    }

    std::mt19937 random{20260314};
    CompositeTimeline timeline;
    double halfAFrame = 0;
    double farthestApart = 0;
    int looks = 0;
};

TEST_P(InStep, ForAnHourOfEverything)
{
    const double end = time.now() + 3600;
    while (time.now() < end && !HasFatalFailure()) {
        act();
        look();
        for (int i = std::uniform_int_distribution(1, 6)(random); i > 0; --i) {
            advance(chance(0.3) ? number(0, 0.02) : number(0, 3));
            look();
        }
    }
    EXPECT_GT(looks, 100000);
    // One step of the grid in which seeks are made, for each side: nothing has added up.
    EXPECT_LT(farthestApart, 2.1 / 60000);
    RecordProperty("looks", looks);
}

TEST_P(InStep, ForAnHourOfPlayingInALoop)
{
    session->play();
    advance(3600);
    session->pause();
    EXPECT_GT(looks, 400000);
    EXPECT_LT(farthestApart, 2.1 / 60000);
}

INSTANTIATE_TEST_SUITE_P(OfRecordings, InStep,
                         testing::Values(Recordings{{60, 10}, {1, 30}, {45, 4}, {1, 30}, 0},
                                         Recordings{{47.3, 3.217}, {1001, 30000}, {52.77, 11.04}, {1001, 60000}, -37.5},
                                         Recordings{{300, 20}, {1, 120}, {290.5, 31.013}, {1, 25}, 88},
                                         Recordings{{12, 6}, {1, 24}, {12, 6}, {1, 24}, 0}));

}
}
