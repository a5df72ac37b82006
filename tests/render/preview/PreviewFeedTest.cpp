// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/preview/PreviewFeed.h"

#include "PreviewSources.h"
#include "media/playback/TimekeepingPlayer.h"
#include "render/preview/PreviewCompositor.h"
#include "support/VirtualTime.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <gtest/gtest.h>

namespace zumeta::test {

namespace {

/// Keeps the test's time and shows a picture that the test gives it.
class PosedPlayer final : public TimekeepingPlayer {
public:
    PosedPlayer(PlaybackClock& clock, Side side)
        : TimekeepingPlayer(clock)
        , picture(drawnPicture(side, 1))
    {
        replaceCurrentItem(PlayerItem(FileUrl(std::filesystem::path("/posed.mp4"))), ItemChange::startsOver);
    }
    std::optional<ShownPicture> shownPicture(double hostTime) override
    {
        askedFor.push_back(hostTime);
        return ShownPicture{picture, {}, true};
    }
    void setPictureObserver(std::function<void()> observer) override { pictureChanged = std::move(observer); }

    VideoPicture picture;
    std::vector<double> askedFor;
    std::function<void()> pictureChanged;
};

struct FeedHarness {
    FeedHarness()
    {
        feed.setClock(time);
        feed.setPlayers(&above, &below);
        feed.setView(view());
    }
    ~FeedHarness() { feed.setPlayers(nullptr, nullptr); }

    static PreviewSituation view()
    {
        PreviewSituation view = bothSides();
        view.below.reset();
        view.above.reset();
        return view;
    }
    /// The event loop turns for real, virtual time stands; false when it takes longer than anything should.
    bool waitUntil(const std::function<bool()>& holds)
    {
        const QDeadlineTimer deadline(std::chrono::seconds(20));
        while (!holds() && !deadline.hasExpired()) {
            time.runDueWork();
            QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
        }
        return holds();
    }
    void letPass(std::chrono::milliseconds span)
    {
        const QDeadlineTimer end(span);
        waitUntil([&] { return end.hasExpired(); });
    }
    bool waitForNewest()
    {
        return waitUntil(
            [&] { return feed.picturesAskedFor() > 0 && feed.pictureNumber() == feed.picturesAskedFor(); });
    }

    VirtualTime time;
    PlaybackClock clock{time, time};
    PosedPlayer above{clock, Side::above};
    PosedPlayer below{clock, Side::below};
    int changes = 0;
    PreviewFeed feed{[this] { ++changes; }};
};

}

TEST(PreviewFeed, ComposesWhatBothSidesShow)
{
    FeedHarness harness;
    ASSERT_TRUE(harness.waitForNewest());
    PreviewSituation situation = FeedHarness::view();
    situation.below = harness.below.picture;
    situation.above = harness.above.picture;
    PreviewCompositor compositor(1);
    EXPECT_EQ(*harness.feed.picture().pixels, *compositor.composeForScreen(*previewRequest(situation)).pixels);
    EXPECT_EQ(harness.changes, 1);
}

TEST(PreviewFeed, AsksStandingSidesForThisMoment)
{
    FeedHarness harness;
    ASSERT_TRUE(harness.waitForNewest());
    EXPECT_EQ(harness.below.askedFor.back(), harness.time.now());
    EXPECT_EQ(harness.above.askedFor, harness.below.askedFor);
}

TEST(PreviewFeed, AsksPlayingSidesForOneMomentAheadOfThisOne)
{
    FeedHarness harness;
    ASSERT_TRUE(harness.waitForNewest());
    harness.above.setRate(1);
    harness.below.setRate(1);
    const size_t asked = harness.below.askedFor.size();
    ASSERT_TRUE(harness.waitUntil([&] { return harness.below.askedFor.size() >= asked + 3; }));
    EXPECT_EQ(harness.above.askedFor, harness.below.askedFor);
    const double lead = harness.below.askedFor.back() - harness.time.now();
    EXPECT_GT(lead, 0.004);
    EXPECT_LT(lead, 0.06);
}

TEST(PreviewFeed, AsksForThisMomentOnceMoreWhenTheSidesHaveStopped)
{
    FeedHarness harness;
    harness.above.setRate(1);
    harness.below.setRate(1);
    ASSERT_TRUE(harness.waitUntil([&] { return harness.below.askedFor.size() > 5; }));
    harness.above.setRate(0);
    harness.below.setRate(0);
    ASSERT_TRUE(harness.waitUntil([&] { return harness.below.askedFor.back() == harness.time.now(); }));
    harness.letPass(std::chrono::milliseconds(50));
    const size_t asked = harness.below.askedFor.size();
    harness.letPass(std::chrono::milliseconds(100));
    EXPECT_EQ(harness.below.askedFor.size(), asked) << "it still looks";
}

TEST(PreviewFeed, ComposesOnlyWhatIsNew)
{
    FeedHarness harness;
    ASSERT_TRUE(harness.waitForNewest());
    const uint64_t asked = harness.feed.picturesAskedFor();
    harness.above.setRate(1);
    const size_t looks = harness.below.askedFor.size();
    ASSERT_TRUE(harness.waitUntil([&] { return harness.below.askedFor.size() > looks + 5; }));
    EXPECT_EQ(harness.feed.picturesAskedFor(), asked) << "the sides showed the same pictures all the while";
    harness.below.picture = drawnPicture(Side::below, 2);
    EXPECT_TRUE(harness.waitUntil([&] { return harness.feed.picturesAskedFor() == asked + 1; }));
}

TEST(PreviewFeed, ANewPictureOfAStandingSideIsComposed)
{
    FeedHarness harness;
    ASSERT_TRUE(harness.waitForNewest());
    const int changes = harness.changes;
    harness.above.picture = drawnPicture(Side::above, 2);
    harness.above.pictureChanged();
    EXPECT_TRUE(harness.waitUntil([&] { return harness.changes == changes + 1; }));
}

TEST(PreviewFeed, DoesNotLookWhilePlayingUnseen)
{
    FeedHarness harness;
    ASSERT_TRUE(harness.waitForNewest());
    harness.feed.setSeen(false);
    harness.above.setRate(1);
    harness.letPass(std::chrono::milliseconds(30)); // it has noticed
    const size_t looks = harness.below.askedFor.size();
    harness.letPass(std::chrono::milliseconds(100));
    EXPECT_EQ(harness.below.askedFor.size(), looks);
    harness.feed.setSeen(true);
    EXPECT_TRUE(harness.waitUntil([&] { return harness.below.askedFor.size() > looks + 3; }));
}

TEST(PreviewFeed, ShowsNothingOnceNoSideIsSeenAlsoNotWhatWasInTheMaking)
{
    FeedHarness harness;
    ASSERT_TRUE(harness.waitForNewest());
    PreviewSituation moved = FeedHarness::view();
    moved.values.aboveOffset = 10;
    harness.feed.setView(moved);
    const uint64_t asked = harness.feed.picturesAskedFor();
    ASSERT_TRUE(harness.waitUntil([&] { return harness.feed.picturesAskedFor() > asked; }));
    PreviewSituation hidden = moved;
    hidden.isAboveHidden = true;
    hidden.isBelowHidden = true;
    harness.feed.setView(hidden);
    EXPECT_TRUE(harness.waitUntil([&] { return harness.feed.picture().isEmpty(); }));
    harness.letPass(std::chrono::milliseconds(100));
    EXPECT_TRUE(harness.feed.picture().isEmpty());
    harness.feed.setView(moved);
    EXPECT_TRUE(harness.waitUntil([&] { return !harness.feed.picture().isEmpty(); }));
}

TEST(PreviewFeed, LetsGoOfAPlayerThatIsTaken)
{
    FeedHarness harness;
    ASSERT_TRUE(harness.above.pictureChanged);
    harness.feed.setPlayers(nullptr, &harness.below);
    EXPECT_FALSE(harness.above.pictureChanged);
    EXPECT_TRUE(harness.below.pictureChanged);
}

}
