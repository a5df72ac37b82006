// SPDX-License-Identifier: GPL-3.0-or-later
#include "LiveSession.h"

#include "../../render/export/Exporting.h"

#include <gtest/gtest.h>

namespace zumeta::test {
namespace {

using WorkflowStep = CompositorViewModel::WorkflowStep;

/// Exports two recordings with a lock on each, and asks the session for the pictures of every exported frame's time.
void expectThatPreviewAndMovieAgree(Rate rate, double aboveLock, double belowLock)
{
    FootageSpec above;
    above.width = 640;
    above.height = 360;
    above.rate = rate;
    above.frames = int(3 * rate.value());
    FootageSpec below = above;
    below.side = Side::below;
    const std::filesystem::path aboveFile = FootageMaker::make(above);
    const std::filesystem::path belowFile = FootageMaker::make(below);

    ExportParameters params = compositeOf({aboveFile}, {belowFile});
    params.manualSyncTimeAbove = aboveLock;
    params.manualSyncTimeBelow = belowLock;
    const TemporaryFolder folder;
    const std::filesystem::path movie = folder.file("movie.mp4");
    const ExportReport report = runExport(params, movie);
    ASSERT_EQ(report.error(), "");
    const ShownFrames exported = framesShownIn(movie, params, pictureFormat(above), pictureFormat(below));
    ASSERT_GT(exported.below.size(), 30u);

    LiveSession live(folder.path());
    CompositorViewModel& session = live.session();
    ASSERT_TRUE(live.load(Side::above, {aboveFile}));
    ASSERT_TRUE(live.load(Side::below, {belowFile}));
    session.seek(aboveLock, true);
    session.toggleAboveLock();
    session.setCurrentStep(WorkflowStep::step2);
    session.seek(belowLock, true);
    session.toggleBelowLock();
    session.setCurrentStep(WorkflowStep::step3);
    for (size_t i = 0; i < exported.below.size(); ++i) {
        session.seek(double(i) * double(rate.denominator) / double(rate.numerator), true);
        const auto [aboveNumber, belowNumber] = live.shownNumbers();
        EXPECT_EQ(aboveNumber, exported.above[i]) << "frame " << i;
        EXPECT_EQ(belowNumber, exported.below[i]) << "frame " << i;
    }
}

TEST(PreviewAndMovie, ShowTheSameFramesAtThirtyFramesASecond)
{
    expectThatPreviewAndMovieAgree({30, 1}, 1.0, 0.5);
}

TEST(PreviewAndMovie, ShowTheSameFramesAtAnNtscRate)
{
    expectThatPreviewAndMovieAgree({30000, 1001}, 20 * 1001.0 / 30000, 7 * 1001.0 / 30000);
}

TEST(PreviewAndMovie, ShowTheSameFramesAtTwentyFourNtscFramesASecond)
{
    expectThatPreviewAndMovieAgree({24000, 1001}, 3 * 1001.0 / 24000, 19 * 1001.0 / 24000);
}

}
}
