// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "session/SessionHarness.h"

namespace zumeta::test {

/// A composite of 30 seconds in Step 4; its above video begins 6 seconds in.
struct StepFour : SessionTest {
    StepFour() { enterComposite(WorkflowStep::step4, {60, 10}, {30, 4}); }

    void addMarkers(const std::vector<double>& times)
    {
        for (const double marker : times) {
            session->seek(marker, true);
            session->addTrimMarkerAtCurrentTime();
        }
    }
    void setTrims(double start, double end)
    {
        edit([=](VideoCompositionConfig& config) {
            config.exportTrimStartSeconds = start;
            config.exportTrimEndSeconds = end;
        });
    }
    void expectTrims(double start, double end)
    {
        EXPECT_EQ(session->projectConfig().exportTrimStartSeconds, start);
        EXPECT_EQ(session->projectConfig().exportTrimEndSeconds, end);
    }
    void expectPlayersAt(double compositeTime)
    {
        EXPECT_EQ(session->currentTime(), compositeTime);
        ASSERT_FALSE(above().seeks.empty());
        EXPECT_DOUBLE_EQ(above().seeks.back().target.seconds(), compositeTime + 6);
        EXPECT_DOUBLE_EQ(below().seeks.back().target.seconds(), compositeTime);
        EXPECT_EQ(above().seeks.back().tolerance, SeekTolerance::zero);
        EXPECT_EQ(below().seeks.back().tolerance, SeekTolerance::zero);
    }
    void forgetSeeks()
    {
        above().seeks.clear();
        below().seeks.clear();
    }
    std::size_t undoCount() const { return session->stepEditHistory().undoCount(); }
};

}
