// SPDX-License-Identifier: GPL-3.0-or-later
#include "journeys/desktop/WholeWay.h"

#include "support/LongRun.h"
#include "surfaces/guides/OnboardingGuide.h"

#include <QElapsedTimer>
#include <QFileDialog>
#include <QTest>
#include <iostream>

namespace zumeta {
namespace {

using namespace test;
using testing::SizeIs;

/// Somebody who has never seen the application does what the cards say, and nothing else.
struct GuidedWay : WholeWay {
    int actions = 0; ///< each a click, a drag or a key
    QByteArray homeBefore = qgetenv("HOME");

    GuidedWay()
    {
        beNewcomer();
        // Movies are proposed for the folder of the user's videos.
        std::filesystem::create_directory(folder.file("Videos"));
        qputenv("HOME", QByteArray::fromStdString(folder.file("").native()));
    }
    ~GuidedWay() override { qputenv("HOME", homeBefore); }

    /// Before each action. Somebody who reads the card and looks for what it means takes some seconds.
    void think()
    {
        ++actions;
        QTest::qWait(longRun() ? 4000 : 0);
    }
    bool isGuideShown() { return item("onboardingOverlay") != nullptr; }
    /// Waits until the guide asks for this.
    void expectCard(const char* title)
    {
        EXPECT_TRUE(waitFor([&] { return isGuideShown() && itemWithText(QString::fromLatin1(title)); }, 15000))
            << title;
    }
    void click(const char* name)
    {
        think();
        clickNamed(name);
    }
    void drop(const std::vector<std::filesystem::path>& files)
    {
        think();
        startDragSource({1460, 20}, files);
        waitForStill("dropInstructionCard");
        dragFilesTo(onScreen(item("dropInstructionCard")));
        ASSERT_EQ(endOfDrag(), "copied");
        waitForVideo();
    }
    void drag(QPoint from, QPoint to)
    {
        think();
        dragPointer(from, to);
    }
    void key(const char* name)
    {
        think();
        pressKeys({QString::fromLatin1(name)});
    }
    /// From the video of a side to the button that leads on.
    void alignAsTheCardsSay(double fraction)
    {
        expectCard("Move to around 5m");
        ASSERT_NO_FATAL_FAILURE(waitForStill("simpleSlider"));
        const double width = item("simpleSlider")->width();
        drag(placeIn("simpleSlider", 0, 15), placeIn("simpleSlider", fraction * width, 15));
        expectCard("Lock the 5m line");
        click("lockButton");
        expectCard("Tap the lane rope");
        think();
        movePointerTo(onPicture(0.3, 0.5));
        pressButton();
        releaseButton();
    }
};

TEST_F(GuidedWay, LeadsToTheMovieInSeventeenActions)
{
    openOnDesktop();
    QElapsedTimer clock;
    clock.start();
    EXPECT_FALSE(isGuideShown());
    click("startButton");
    expectCard("Choose the above-water video");
    ASSERT_NO_FATAL_FAILURE(drop(aboveChapters()));
    ASSERT_NO_FATAL_FAILURE(alignAsTheCardsSay(0.4));
    expectCard("Go to Step 2");
    click("nextStepButton");
    expectCard("Choose the underwater video");
    ASSERT_NO_FATAL_FAILURE(drop({belowFile()}));
    ASSERT_NO_FATAL_FAILURE(alignAsTheCardsSay(0.3));
    expectCard("Go to Step 3");
    click("nextStepButton");
    expectCard("Basic and advanced adjustments");
    EXPECT_TRUE(item("onboardingSecondCard"));
    ASSERT_NO_FATAL_FAILURE(waitForStill("Person Height track"));
    const double width = item("Person Height track")->width();
    drag(placeIn("Person Height track", width / 2, 8), placeIn("Person Height track", width * 0.53, 8));
    EXPECT_NE(session().relativeAboveOffset(), 0);
    EXPECT_TRUE(waitFor([&] { return !item("onboardingSecondCard"); }));
    expectCard("Go to Step 4");
    click("nextStepButton");
    ASSERT_TRUE(waitForStep(4));
    expectCard("Markers and trimming");
    click("Trim Start plus");
    EXPECT_GT(session().trimStart(), 0);
    EXPECT_TRUE(waitFor([&] { return !item("onboardingSecondCard"); }));
    expectCard("Export");
    click("exportButton");
    click("exportSheetExport");
    ASSERT_TRUE(waitFor([] { return fileDialog() && fileDialog()->isActiveWindow(); }));
    key("Return");
    ASSERT_TRUE(waitForToast());
    EXPECT_FALSE(session().exportNotification()->isError);
    EXPECT_LE(actions, 17);
    constexpr int kThreeMinutes = 3 * 60 * 1000;
    EXPECT_LT(clock.elapsed(), kThreeMinutes);
    std::cout << "the whole way took " << clock.elapsed() / 1000 << " s\n";

    std::vector<std::filesystem::path> movies;
    for (const auto& entry : std::filesystem::directory_iterator(folder.file("Videos")))
        movies.push_back(entry.path());
    ASSERT_THAT(movies, SizeIs(1));
    expectMovie(movies.front(), 1, {1920, 1080}); // the size that is proposed
    EXPECT_TRUE(waitFor([&] { return !isGuideShown(); }));
    EXPECT_EQ(SettingsFile(SettingsFile::defaultPath()).boolean(kHasSeenFirstRunOnboardingKey), true);
}

}
}
