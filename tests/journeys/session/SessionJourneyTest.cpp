// SPDX-License-Identifier: GPL-3.0-or-later
#include "LiveSession.h"

#include "support/FootageMaker.h"
#include "support/LongRun.h"

#include <atomic>
#include <fstream>
#include <gmock/gmock.h>
#include <thread>

namespace zumeta::test {
namespace {

using WorkflowStep = CompositorViewModel::WorkflowStep;
using AlignmentState = CompositorViewModel::AlignmentState;
using testing::Pair;

/// A recording whose frames say their number; the same kind gives the same file.
std::filesystem::path swim(Side side, Rate rate = {30, 1}, double seconds = 8)
{
    FootageSpec spec;
    spec.side = side;
    spec.rate = rate;
    spec.frames = int(std::lround(seconds * rate.value()));
    spec.sound.emplace();
    return FootageMaker::make(spec);
}

struct SessionJourney : testing::Test {
    TemporaryFolder folder;
    LiveSession live{folder.path()};
    CompositorViewModel& session = live.session();

    /// Both sides loaded and locked: the above video at 3 s, the below one at 2 s.
    void setUpBothSides(Rate aboveRate = {30, 1}, Rate belowRate = {30, 1}, double seconds = 8)
    {
        ASSERT_TRUE(live.load(Side::above, {swim(Side::above, aboveRate, seconds)}));
        session.seek(3, true);
        session.toggleAboveLock();
        session.onPickWaterline(0.4);
        ASSERT_TRUE(live.waitFor([&] { return session.alignmentPointAbove().has_value(); }));
        session.setCurrentStep(WorkflowStep::step2);
        ASSERT_TRUE(live.load(Side::below, {swim(Side::below, belowRate, seconds)}));
        session.seek(2, true);
        session.toggleBelowLock();
        session.onPickWaterline(0.6);
        ASSERT_TRUE(live.waitFor([&] { return session.alignmentPointBelow().has_value(); }));
    }
};

TEST_F(SessionJourney, TwoVideosAreLoadedLockedAlignedAndShownInStep)
{
    setUpBothSides();
    session.setCurrentStep(WorkflowStep::step3);
    EXPECT_TRUE(session.projectConfig().isSynced);
    EXPECT_DOUBLE_EQ(session.duration(), 7);
    EXPECT_NEAR(session.projectConfig().aboveOffset, 120, 1e-9);
    EXPECT_NEAR(session.projectConfig().waterlineHeight, 0.6 * 600 / 1.22, 1e-9);
    // At the start of the composite both videos have a picture, and at the landmark each shows its lock.
    EXPECT_THAT(live.shownNumbers(), Pair(30, 0));
    session.seek(2, true);
    EXPECT_THAT(live.shownNumbers(), Pair(90, 60));
}

TEST_F(SessionJourney, FramesStepThroughBothVideosTogether)
{
    setUpBothSides();
    session.setCurrentStep(WorkflowStep::step3);
    for (int i = 0; i < 5; ++i)
        session.step(1);
    EXPECT_THAT(live.shownNumbers(), Pair(35, 5));
    session.step(-3);
    EXPECT_THAT(live.shownNumbers(), Pair(32, 2));
}

TEST_F(SessionJourney, BothVideosStandOnTheSameInstantAfterPlaying)
{
    setUpBothSides();
    session.setCurrentStep(WorkflowStep::step3);
    for (int i = 0; i < 6; ++i) {
        session.play();
        live.run(0.4 + 0.037 * i);
        session.pause();
        const auto [above, below] = live.shownNumbers();
        EXPECT_EQ(above - below, 30) << "after playing " << i + 1 << " times";
    }
    EXPECT_GT(session.currentTime(), 2);
}

TEST_F(SessionJourney, ALockSitsOnTheFrameThatWasSeenAtEveryRate)
{
    for (const Rate rate : {Rate{24, 1}, Rate{30, 1}, Rate{60, 1}, Rate{120, 1}, Rate{30000, 1001}}) {
        session.resetProject();
        ASSERT_TRUE(live.load(Side::above, {swim(Side::above, rate, 4)}));
        for (int i = 0; i < 4; ++i) {
            session.play();
            live.run(0.311 + 0.0173 * i);
            session.pause();
            const std::optional<BarCode> seen = live.shownCode(Side::above);
            session.toggleAboveLock();
            EXPECT_EQ(live.shownCode(Side::above), seen) << rate.value();
            session.setCurrentStep(WorkflowStep::step2);
            session.setCurrentStep(WorkflowStep::step1);
            EXPECT_EQ(live.shownCode(Side::above), seen) << rate.value();
            session.toggleAboveLock();
        }
    }
}

TEST_F(SessionJourney, TheProxyTakesOverOnTheSameFrame)
{
    ASSERT_TRUE(live.load(Side::above, {swim(Side::above, {60, 1})}));
    session.seek(2.345, true);
    const std::optional<BarCode> before = live.shownCode(Side::above);
    ASSERT_TRUE(live.waitForProxy(Side::above));
    EXPECT_EQ(session.aboveVideoURL(), session.projectState().aboveVideo->fileURL());
    EXPECT_EQ(live.shownCode(Side::above), before);
    // Each frame from here on is the proxy's.
    for (int i = 1; i <= 10; ++i) {
        session.step(1);
        const std::optional<BarCode> next = live.shownCode(Side::above);
        ASSERT_TRUE(next);
        EXPECT_EQ(next->number, before->number + i);
    }
}

TEST_F(SessionJourney, TheProxyTakesOverInFullMotionWithoutAStepBack)
{
    ASSERT_TRUE(live.load(Side::above, {swim(Side::above, {60, 1})}));
    session.play();
    double last = -1;
    int backward = 0;
    int empty = 0;
    const auto look = [&] {
        const std::optional<ShownPicture> shown = live.player(Side::above).shownPicture(live.clock().now());
        if (!shown) {
            ++empty;
            return;
        }
        backward += shown->presentationTime.seconds() < last ? 1 : 0;
        last = shown->presentationTime.seconds();
    };
    live.run(4, look);
    EXPECT_TRUE(session.projectState().aboveVideo->proxyURL) << "the proxy was not there in time to be looked at";
    EXPECT_EQ(backward, 0);
    EXPECT_EQ(empty, 0);
    EXPECT_EQ(live.player(Side::above).rate(), 1);
    EXPECT_NEAR(last, 4, 0.3);
}

TEST_F(SessionJourney, AProxyIsFoundAgainByTheNextStart)
{
    const std::filesystem::path file = swim(Side::above);
    ASSERT_TRUE(live.load(Side::above, {file}));
    ASSERT_TRUE(live.waitForProxy(Side::above));
    const FileUrl proxy = *session.projectState().aboveVideo->proxyURL;
    LiveSession next(folder.path());
    ASSERT_TRUE(next.load(Side::above, {file}));
    ASSERT_TRUE(next.waitForProxy(Side::above));
    EXPECT_EQ(*next.session().projectState().aboveVideo->proxyURL, proxy);
}

TEST_F(SessionJourney, ChaptersPlayAsOneVideoAndStayOnTheirSources)
{
    FootageSpec spec;
    spec.frames = 60;
    spec.sound.emplace();
    const std::filesystem::path first = FootageMaker::make(spec);
    spec.firstNumber = 60;
    const std::filesystem::path second = FootageMaker::make(spec);
    ASSERT_TRUE(live.load(Side::above, {first, second}));
    ASSERT_TRUE(live.waitFor([&] { return session.aboveProxyStatus().kind == ProxyStatus::Kind::completed; }));
    EXPECT_FALSE(session.projectState().aboveVideo->proxyURL);
    EXPECT_NEAR(session.duration(), 4, 0.1);
    session.seek(1.9, true);
    // Until it is there, the nearest picture at hand is shown, which is the first one of all.
    ASSERT_TRUE(live.waitForPicture(Side::above));
    std::set<int> seen;
    session.play();
    live.run(0.4, [&] {
        const std::optional<ShownPicture> shown = live.player(Side::above).shownPicture(live.clock().now());
        if (const auto code = shown ? readBarCode(RawPicture(shown->picture)) : std::nullopt)
            seen.insert(code->number);
    });
    session.pause();
    // A busy machine may not let us look at each one, and may let us look for longer.
    const auto seenBetween = [&](int from, int to) {
        return std::distance(seen.lower_bound(from), seen.upper_bound(to));
    };
    EXPECT_GE(seenBetween(57, 59), 1);
    EXPECT_GE(seenBetween(60, 69), 3);
    EXPECT_EQ(seenBetween(57, 100), int(seen.size()));
}

TEST_F(SessionJourney, TheLastOfTwoVideosDroppedTogetherIsTheOneThatStays)
{
    const std::filesystem::path first = swim(Side::above, {25, 1});
    const std::filesystem::path second = swim(Side::above, {30, 1});
    session.loadAboveVideo({FileUrl(first)});
    ASSERT_TRUE(live.load(Side::above, {second}));
    live.run(0.5);
    EXPECT_EQ(session.projectState().aboveVideo->fileURL(), FileUrl(second));
    EXPECT_EQ(session.aboveVideoURL(), FileUrl(second));
    EXPECT_EQ(live.service(Side::above).loadedFrameDuration(), (MediaTime{1, 30}));
}

TEST_F(SessionJourney, AVideoOfAnotherShapeIsRefused)
{
    ASSERT_TRUE(live.load(Side::above, {swim(Side::above)}));
    FootageSpec spec;
    spec.width = 240;
    session.setCurrentStep(WorkflowStep::step2);
    session.loadBelowVideo({FileUrl(FootageMaker::make(spec))});
    ASSERT_TRUE(live.waitFor([&] { return !live.dialogs().shown.empty(); }));
    live.run(0.3);
    EXPECT_EQ(live.dialogs().shown[0].title, QStringLiteral("Aspect Ratio Mismatch"));
    EXPECT_FALSE(session.belowVideoURL());
}

TEST_F(SessionJourney, AVideoOfAnotherRateIsQuestionedAndTakenOnOk)
{
    ASSERT_TRUE(live.load(Side::above, {swim(Side::above, {30, 1})}));
    session.setCurrentStep(WorkflowStep::step2);
    live.dialogs().answers = {0};
    ASSERT_TRUE(live.load(Side::below, {swim(Side::below, {25, 1})}));
    ASSERT_EQ(live.dialogs().shown.size(), 1u);
    EXPECT_EQ(live.dialogs().shown[0].title, QStringLiteral("Frame Rate Mismatch"));
}

TEST_F(SessionJourney, Step3LoopsAndStep4StopsAtTheEndOfItsRange)
{
    setUpBothSides({30, 1}, {30, 1}, 4);
    session.setCurrentStep(WorkflowStep::step3);
    ASSERT_DOUBLE_EQ(session.duration(), 3);
    session.seek(2.7, true);
    session.play();
    live.run(0.8);
    EXPECT_TRUE(session.isPlaying());
    EXPECT_LT(session.currentTime(), 1);
    session.pause();
    session.setCurrentStep(WorkflowStep::step4);
    session.seek(2.7, true);
    session.play();
    live.run(0.8);
    EXPECT_FALSE(session.isPlaying());
    EXPECT_DOUBLE_EQ(session.currentTime(), 3);
}

TEST_F(SessionJourney, TwoVideosStayInStepUnderLoad)
{
    setUpBothSides({60000, 1001}, {30000, 1001}, 20);
    session.setCurrentStep(WorkflowStep::step3);
    const double halfAFrame = 1001.0 / 30000 / 2;
    const double belowStart = 0;
    const double aboveStart = 1;
    std::atomic<bool> stop = false;
    std::vector<std::jthread> burden;
    for (int i = 0; i < 2; ++i)
        burden.emplace_back([&stop] {
            while (!stop) {
            }
        });
    double worst = 0;
    int samples = 0;
    const auto look = [&] {
        const double below = live.player(Side::below).currentTime().seconds() - belowStart;
        const double above = live.player(Side::above).currentTime().seconds() - aboveStart;
        if (below < 0 || below > session.duration())
            return;
        worst = std::max(worst, std::abs(above - below));
        ++samples;
    };
    const int rounds = longRun() ? 20 : 5; // of three seconds
    for (int i = 0; i < rounds; ++i) {
        session.play();
        if (i % 4 == 1)
            session.toggleStep3SlowPlayback();
        live.run(2.4, look);
        if (i % 3 == 0)
            session.seek(double(i % 7) * 2.5, true);
        live.run(0.5, look);
        session.pause();
        const auto [aboveNumber, belowNumber] = live.shownNumbers();
        // At twice the rate and a second ahead: the above frame of the same instant.
        EXPECT_NEAR(aboveNumber / 2.0 - 1.0 / (1001.0 / 30000), belowNumber, 1.0);
        live.run(0.1, look);
    }
    stop = true;
    EXPECT_GT(samples, 25 * rounds);
    EXPECT_LE(worst, halfAFrame);
}

int entriesOf(const char* folder)
{
    return int(std::distance(std::filesystem::directory_iterator(folder), std::filesystem::directory_iterator()));
}

double residentMebibytes()
{
    std::ifstream file("/proc/self/statm");
    double total = 0;
    double resident = 0;
    file >> total >> resident;
    return resident * 4096 / 1024 / 1024;
}

TEST_F(SessionJourney, TwentyLoadsLeaveNoThreadFileOrMemoryBehind)
{
    const std::vector<std::filesystem::path> files = {swim(Side::above), swim(Side::above, {25, 1}),
                                                      swim(Side::above, {60, 1})};
    const auto loadNext = [&](int i) {
        ASSERT_TRUE(live.load(Side::above, {files[size_t(i) % files.size()]}));
        session.seek(1 + i * 0.1, true);
        ASSERT_TRUE(live.waitForPicture(Side::above));
        ASSERT_TRUE(live.waitForProxy(Side::above));
    };
    for (int i = 0; i < 4; ++i)
        loadNext(i);
    live.run(1.5); // idle threads of the pools that come and go
    const int threads = entriesOf("/proc/self/task");
    const int descriptors = entriesOf("/proc/self/fd");
    const double memory = residentMebibytes();
    for (int i = 4; i < 24; ++i)
        loadNext(i);
    live.run(1.5);
    EXPECT_LE(entriesOf("/proc/self/task"), threads + 4); // each of the pools may keep one more for a while
    // The session keeps the right to read each file that was given to it, once for each; a thread that came or went
    // takes its means of waking up along.
    EXPECT_LE(entriesOf("/proc/self/fd"), descriptors + 4);
    EXPECT_LT(residentMebibytes(), memory + 24);
}

TEST_F(SessionJourney, AFileThatVanishesWhileItPlaysLeavesTheSessionWorking)
{
    const std::filesystem::path file = folder.path() / "vanishing.mp4";
    std::filesystem::copy_file(swim(Side::above), file);
    ASSERT_TRUE(live.load(Side::above, {file}));
    session.play();
    live.run(0.5);
    std::filesystem::remove(file);
    live.run(0.5);
    session.pause();
    session.seek(7, true);
    live.run(0.3);
    ASSERT_TRUE(live.load(Side::above, {swim(Side::above, {25, 1})}));
    EXPECT_EQ(live.shownCode(Side::above), (BarCode{Side::above, 0}));
}

TEST_F(SessionJourney, AFileThatIsCutShortWhileItPlaysLeavesTheSessionWorking)
{
    const std::filesystem::path file = folder.path() / "cut.mp4";
    std::filesystem::copy_file(swim(Side::above), file);
    ASSERT_TRUE(live.load(Side::above, {file}));
    std::filesystem::resize_file(file, std::filesystem::file_size(file) / 4);
    session.play();
    live.run(1);
    session.seek(6, true);
    live.run(0.5);
    session.pause();
    ASSERT_TRUE(live.load(Side::above, {swim(Side::above, {25, 1})}));
    EXPECT_EQ(live.shownCode(Side::above), (BarCode{Side::above, 0}));
}

TEST_F(SessionJourney, AFileThatIsNoVideoEndsTheLoadWithALineAndNothingElse)
{
    const std::filesystem::path file = folder.path() / "no-video.mp4";
    std::ofstream(file) << "this is a text";
    session.loadAboveVideo({FileUrl(file)});
    live.run(0.5);
    EXPECT_EQ(session.aboveVideoURL(), FileUrl(file));
    EXPECT_FALSE(session.projectState().aboveVideo);
    EXPECT_EQ(session.aboveProxyStatus(), ProxyStatus());
    EXPECT_TRUE(live.dialogs().shown.empty());
}

TEST_F(SessionJourney, TheSessionMayEndInTheMiddleOfEverything)
{
    auto shortLived = std::make_unique<LiveSession>(folder.path() / "other");
    shortLived->session().loadAboveVideo({FileUrl(swim(Side::above, {60, 1}))});
    shortLived->run(0.03);
    shortLived.reset();
    auto playing = std::make_unique<LiveSession>(folder.path() / "other");
    ASSERT_TRUE(playing->load(Side::above, {swim(Side::above, {60, 1})}));
    playing->session().play();
    playing->run(0.1);
    playing.reset();
    live.run(0.2);
    EXPECT_FALSE(session.isPlaying());
}

}
}
