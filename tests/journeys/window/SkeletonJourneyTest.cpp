// SPDX-License-Identifier: GPL-3.0-or-later
#include "journeys/window/PanelJourney.h"

namespace zumeta {
namespace {

using namespace test;

using Skeleton = MotionAnalysisService::Skeleton;
using Joint = MotionAnalysisService::Joint;

/// Nothing finds swimmers yet: these are made up, and switched on by what no control of the window calls.
struct Skeletons : PanelJourney {
    /// All joints that bones join, stretched out from the hands at the left; its box is around it.
    static Skeleton swimmer(int id, double left, double height)
    {
        constexpr double kLength = 0.36;
        const auto at = [&](double along, double up) { return QPointF(left + along * kLength, height + up); };
        Skeleton skeleton;
        skeleton.id = id;
        skeleton.confidence = 0.9;
        skeleton.joints = {{Joint::nose, at(0.3, -0.02)},        {Joint::neck, at(0.38, 0)},
                           {Joint::leftShoulder, at(0.4, 0.05)}, {Joint::rightShoulder, at(0.4, -0.05)},
                           {Joint::leftElbow, at(0.2, 0.1)},     {Joint::rightElbow, at(0.5, -0.14)},
                           {Joint::leftWrist, at(0, 0.04)},      {Joint::rightWrist, at(0.64, -0.16)},
                           {Joint::leftHip, at(0.66, 0.03)},     {Joint::rightHip, at(0.66, -0.03)},
                           {Joint::leftKnee, at(0.82, 0.05)},    {Joint::rightKnee, at(0.82, -0.06)},
                           {Joint::leftAnkle, at(1, 0.02)},      {Joint::rightAnkle, at(1, -0.04)}};
        skeleton.boundingBox = {left, height - 0.16, kLength, 0.26};
        return skeleton;
    }
    static std::vector<Skeleton> twoSwimmers()
    {
        std::vector<Skeleton> swimmers{swimmer(1, 0.1, 0.7), swimmer(2, 0.54, 0.34)};
        swimmers[1].joints.erase(Joint::rightElbow);
        return swimmers;
    }
    /// Step 3 at a second, without the pointer.
    void openComposite(QSize size = {1400, 900})
    {
        openPanel(3, size);
        seekTo(1);
        movePointer({5, 600});
    }
    void find(const std::vector<Skeleton>& swimmers)
    {
        session().setDetectedSkeletons(swimmers);
        session().setShowSkeletonOverlay(true);
    }
    QImage preview()
    {
        const QQuickItem* const area = item("previewArea");
        return picture().copy(area->mapRectToScene(QRectF(0, 0, area->width(), area->height())).toRect());
    }
    QSizeF pictureSize() { return item("previewSurface")->property("frame").toRectF().size(); }
};

TEST_F(Skeletons, AreDrawnOverThePicture)
{
    openComposite();
    find(twoSwimmers());
    ASSERT_TRUE(waitFor([&] { return item("skeletonOverlay") != nullptr; }));
    expectPicture("skeletons", item("previewArea"));
}

TEST_F(Skeletons, OfOthersFadeOnceAPersonIsSelected)
{
    openComposite({1024, 680});
    find(twoSwimmers());
    const QSizeF size = pictureSize();
    session().selectPerson({0.2 * size.width(), 0.3 * size.height()}, size);
    ASSERT_EQ(session().selectedPersonId(), 1);
    expectPicture("skeletons-selected-1024", item("previewArea"));
}

TEST_F(Skeletons, AreDormantUntilTheyAreSwitchedOn)
{
    openComposite();
    const QImage before = preview();
    session().setDetectedSkeletons(twoSwimmers());
    EXPECT_EQ(preview(), before);
    session().setShowSkeletonOverlay(true);
    EXPECT_NE(preview(), before);
    session().setShowSkeletonOverlay(false);
    EXPECT_EQ(preview(), before);
}

TEST_F(Skeletons, OfNobodyAreNothing)
{
    openComposite();
    const QImage before = preview();
    find({});
    ASSERT_TRUE(waitFor([&] { return item("skeletonOverlay") != nullptr; }));
    EXPECT_EQ(preview(), before);
    session().selectPerson({100, 100}, pictureSize());
    EXPECT_EQ(session().selectedPersonId(), std::nullopt);
}

TEST_F(Skeletons, LetPressesThroughToThePicture)
{
    openEmptyPanel();
    loadVideo(Side::above);
    seekTo(1);
    session().toggleAboveLock();
    find({swimmer(1, 0.3, 0.5)});
    ASSERT_TRUE(waitFor([&] { return item("skeletonOverlay") != nullptr; }));
    QTest::mouseClick(&window(), Qt::LeftButton, {}, middleOf(item("skeletonOverlay")));
    EXPECT_TRUE(waitFor([&] { return session().alignmentPointAbove().has_value(); }));
    EXPECT_EQ(session().selectedPersonId(), std::nullopt);
}

TEST_F(Skeletons, FollowTheWindowsSize)
{
    openComposite();
    find(twoSwimmers());
    window().resize(1024, 680);
    ASSERT_TRUE(waitFor([&] { return pictureSize().width() < 640; }));
    EXPECT_EQ(item("skeletonOverlay")->size(), pictureSize());
}

}
}
