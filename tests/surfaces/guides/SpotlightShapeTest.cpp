// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/guides/SpotlightShape.h"

#include <gmock/gmock.h>

namespace zumeta {
namespace {

using Step = PublishedFields::WorkflowStep;
using enum InteractiveOnboardingTarget;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr QSizeF kWindow(1400, 900);
const QRectF kLock(1030, 400, 350, 48);
const QRectF kSlider(150, 850, 700, 30);

TEST(Spotlight, LeavesRoomForTheRingAroundAButton)
{
    for (const InteractiveOnboardingTarget target : {lockButton, nextStepButton, exportButton})
        EXPECT_THAT(spotlightShape(target, {{target, kLock}}).targets,
                    ElementsAre(SpotlightTargetRect{{1026, 396, 358, 56}, 16}));
}

TEST(Spotlight, LightsThePictureToItsEdges)
{
    const QRectF picture(0, 169, 1010, 568);
    EXPECT_THAT(spotlightShape(preview, {{preview, picture}}).targets, ElementsAre(SpotlightTargetRect{picture, 14}));
}

TEST(Spotlight, IsAsRoundAsTheCardThatTakesVideos)
{
    EXPECT_THAT(spotlightShape(aboveDropArea, {{aboveDropArea, {300, 300, 460, 300}}}).targets,
                ElementsAre(SpotlightTargetRect{{296, 296, 468, 308}, 24}));
}

TEST(Spotlight, OfTheSliderLeavesTheHintOnItsKnobLit)
{
    EXPECT_THAT(spotlightShape(timeline, {{timeline, kSlider}}).targets,
                ElementsAre(SpotlightTargetRect{{144, 844, 712, 42}, 14}));
    const SpotlightShape shape =
        spotlightShape(timeline, {{timeline, kSlider}, {timelineInstruction, {110, 892, 80, 26}}});
    EXPECT_THAT(shape.targets, ElementsAre(SpotlightTargetRect{{144, 844, 712, 42}, 14}));
    EXPECT_THAT(shape.silent, ElementsAre(SpotlightTargetRect{{108, 886, 84, 38}, 14}));
}

TEST(Spotlight, OfTwoCardsHasTwoHoles)
{
    const SpotlightShape shape = spotlightShape(SimultaneousGuide{Step::step3},
                                                {{step3Adjustments, {1030, 100, 350, 200}}, {nextStepButton, kLock}});
    EXPECT_THAT(shape.targets, ElementsAre(SpotlightTargetRect{{1022, 96, 366, 208}, 14},
                                           SpotlightTargetRect{{1026, 396, 358, 56}, 16}));
}

TEST(Spotlight, OfAControlThatCannotBeSeenIsNone)
{
    EXPECT_FALSE(spotlightShape(lockButton, {}).isUsable());
    EXPECT_FALSE(spotlightShape(lockButton, {{lockButton, {1030, 400, 350, 8}}}).isUsable());
    const SpotlightShape shape = spotlightShape(SimultaneousGuide{Step::step4}, {{exportButton, kLock}});
    EXPECT_THAT(shape.targets, ElementsAre(SpotlightTargetRect{{1026, 396, 358, 56}, 16}));
    EXPECT_TRUE(shape.isUsable());
}

TEST(Spotlight, ASilentHoleAloneDimsNothing)
{
    EXPECT_FALSE(spotlightShape(lockButton, {{timeline, kSlider}}).isUsable());
}

TEST(Spotlight, LeavesTheSliderInReachWhileTheLockIsAskedFor)
{
    const SpotlightShape shape = spotlightShape(lockButton, {{lockButton, kLock}, {timeline, kSlider}});
    EXPECT_THAT(shape.targets, testing::SizeIs(1));
    EXPECT_FALSE(shape.takes({500, 865}));
    EXPECT_TRUE(shape.takes({500, 700}));
}

TEST(Spotlight, TakesWhatIsBesideItsHoles)
{
    const SpotlightShape shape = spotlightShape(lockButton, {{lockButton, kLock}});
    EXPECT_FALSE(shape.takes(kLock.center()));
    EXPECT_FALSE(shape.takes({1028, 420}));
    EXPECT_TRUE(shape.takes({1025, 420}));
    EXPECT_TRUE(shape.takes({500, 420}));
    EXPECT_TRUE(shape.takes({1027, 397})); // outside the round corner
    EXPECT_FALSE(shape.takes({1032, 402}));
}

TEST(Spotlight, FillsAllButItsHoles)
{
    const SpotlightShape shape = spotlightShape(lockButton, {{lockButton, kLock}});
    const QPainterPath path = shape.path(kWindow);
    EXPECT_EQ(path.fillRule(), Qt::OddEvenFill);
    EXPECT_EQ(path.boundingRect(), QRectF(QPointF(), kWindow));
    EXPECT_TRUE(path.contains({500, 420}));
    EXPECT_FALSE(path.contains(kLock.center()));
}

TEST(Spotlight, HolesThatOverlapAreStillOpen)
{
    const SpotlightShape shape{{{{100, 100, 200, 100}, 14}, {{200, 150, 200, 100}, 14}}, {{{250, 120, 50, 200}, 14}}};
    for (const QPointF place : {QPointF(120, 150), QPointF(250, 170), QPointF(270, 180), QPointF(380, 230)}) {
        EXPECT_FALSE(shape.path(kWindow).contains(place));
        EXPECT_FALSE(shape.takes(place));
    }
}

TEST(SpotlightOnItsWay, GoesFromOneHoleToTheNext)
{
    const SpotlightShape from{{{{0, 0, 100, 50}, 10}}, {}};
    const SpotlightShape to{{{{200, 400, 300, 70}, 20}}, {{{10, 10, 50, 50}, 14}}};
    EXPECT_EQ(betweenSpotlights(from, to, 0).targets, from.targets);
    EXPECT_THAT(betweenSpotlights(from, to, 0.5).targets, ElementsAre(SpotlightTargetRect{{100, 200, 200, 60}, 15}));
    EXPECT_EQ(betweenSpotlights(from, to, 1), to);
    EXPECT_EQ(betweenSpotlights(from, to, 0).silent, to.silent); // open at once
}

TEST(SpotlightOnItsWay, PartsWhereTheNextCardHasTwo)
{
    const SpotlightShape from{{{{0, 0, 100, 50}, 10}}, {}};
    const SpotlightShape to{{{{200, 0, 100, 50}, 10}, {{0, 200, 100, 50}, 10}}, {}};
    EXPECT_THAT(betweenSpotlights(from, to, 0.5).targets,
                ElementsAre(SpotlightTargetRect{{100, 0, 100, 50}, 10}, SpotlightTargetRect{{0, 100, 100, 50}, 10}));
    EXPECT_THAT(betweenSpotlights(to, from, 0.5).targets, ElementsAre(SpotlightTargetRect{{100, 0, 100, 50}, 10}));
}

TEST(SpotlightOnItsWay, FromNowhereIsThereAtOnce)
{
    const SpotlightShape to{{{{200, 0, 100, 50}, 10}}, {}};
    EXPECT_EQ(betweenSpotlights({}, to, 0), to);
    EXPECT_THAT(betweenSpotlights(to, {}, 0.5).targets, IsEmpty());
}

}
}
