// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/SessionHarness.h"

namespace zumeta {
namespace {

using namespace test;

constexpr QSizeF kView(1000, 500);
constexpr QPointF kOnTheFirst(150, 450);
constexpr QPointF kOnTheSecond(650, 450);
constexpr QPointF kBesideAll(500, 20);

struct PersonSelection : SessionTest {
    PersonSelection()
    {
        std::vector<MotionAnalysisService::Skeleton> people(2);
        people[0].id = 1;
        people[0].boundingBox = {0.1, 0, 0.1, 0.3};
        people[1].id = 2;
        people[1].boundingBox = {0.6, 0, 0.1, 0.3};
        session->setDetectedSkeletons(people);
    }
};

TEST_F(PersonSelection, FollowsAClick)
{
    session->selectPerson(kOnTheFirst, kView);
    EXPECT_EQ(session->selectedPersonId(), 1);
    session->selectPerson(kOnTheSecond, kView);
    EXPECT_EQ(session->selectedPersonId(), 2);
}

TEST_F(PersonSelection, IsClearedByASecondClickOnTheSamePerson)
{
    session->selectPerson(kOnTheFirst, kView);
    session->selectPerson(kOnTheFirst, kView);
    EXPECT_EQ(session->selectedPersonId(), std::nullopt);
}

TEST_F(PersonSelection, StaysAsItIsForAClickBesideAll)
{
    session->selectPerson(kOnTheFirst, kView);
    session->selectPerson(kBesideAll, kView);
    EXPECT_EQ(session->selectedPersonId(), 1);
}

TEST_F(PersonSelection, IgnoresClicksWhileNobodyIsFound)
{
    session->setDetectedSkeletons({});
    session->selectPerson(kOnTheFirst, kView);
    EXPECT_EQ(session->selectedPersonId(), std::nullopt);
}

TEST_F(PersonSelection, OverlayIsOffUnlessItIsSwitchedOn)
{
    EXPECT_FALSE(session->showSkeletonOverlay());
    session->setShowSkeletonOverlay(true);
    EXPECT_TRUE(session->showSkeletonOverlay());
}

}
}
