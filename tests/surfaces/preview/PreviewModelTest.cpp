// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/preview/PreviewModel.h"
#include "../../session/SessionHarness.h"

namespace zumeta::test {
namespace {

struct PreviewShown : SessionTest {
    std::unique_ptr<PreviewModel> model;
    int changes = 0;

    PreviewShown()
        : model(std::make_unique<PreviewModel>(*session))
    {
        model->setSurface({800, 450}, {800, 450});
        QObject::connect(model.get(), &PreviewModel::changed, [this] { ++changes; });
    }
    ~PreviewShown() { model.reset(); } // before the session

    void openPick()
    {
        loadAbove("/above.mp4");
        session->seek(2, true);
        session->toggleAboveLock();
    }
};

TEST_F(PreviewShown, IsNothingUntilAPlayerHasAnItem)
{
    EXPECT_FALSE(model->hasSurface());
    EXPECT_EQ(model->player(zumeta::Side::above), nullptr);
    loadAbove("/above.mp4");
    EXPECT_TRUE(model->hasSurface());
    EXPECT_EQ(model->player(zumeta::Side::above), &above());
    EXPECT_EQ(model->player(zumeta::Side::below), nullptr);
    session->clearAboveVideo();
    EXPECT_FALSE(model->hasSurface());
    EXPECT_EQ(model->player(zumeta::Side::above), nullptr);
}

TEST_F(PreviewShown, HasTheSessionsValuesWithTheCamerasZoom)
{
    enterComposite(WorkflowStep::step3, {.duration = 60}, {.duration = 60});
    edit([](VideoCompositionConfig& config) {
        config.waterlineHeight = 210;
        config.aboveZoom = 7;
        config.aboveOffset = 12;
        config.aboveHorizontalOffset = -9;
        config.blendAmount = 33;
    });
    SurfaceValues values = model->surfaceValues();
    EXPECT_EQ(values.waterlineHeight, 210);
    EXPECT_EQ(values.aboveZoom, 7 + 22);
    EXPECT_EQ(values.aboveOffset, 12);
    EXPECT_EQ(values.aboveHorizontalOffset, -9);
    EXPECT_EQ(values.blendAmount, 33);
    EXPECT_EQ(values.viewMode, ViewMode::split);
    session->setSelectedCamera(CameraType::insta360);
    EXPECT_EQ(model->surfaceValues().aboveZoom, 7 + 65);
}

TEST_F(PreviewShown, TellsOfEveryChangeButOnlyOnceOfWhatLooksTheSame)
{
    enterComposite(WorkflowStep::step3, {.duration = 60}, {.duration = 60});
    int updates = 0;
    QObject::connect(model.get(), &PreviewModel::updated, [&] { ++updates; });
    changes = 0;
    session->setBlendAmount(50);
    EXPECT_EQ(updates, 1) << "in the same turn";
    EXPECT_EQ(changes, 0) << "the picture alone shows it";
    session->setCurrentStep(WorkflowStep::step4);
    EXPECT_GE(changes, 1);
}

TEST_F(PreviewShown, AsksForAPickWhileNonePointIsFixed)
{
    openPick();
    EXPECT_TRUE(model->isPickOpen());
    EXPECT_TRUE(model->hasTapGuide());
    EXPECT_FALSE(model->hasFixedLine());
    model->pick(0.25);
    advance(0.1);
    EXPECT_FALSE(model->hasTapGuide());
    EXPECT_TRUE(model->hasFixedLine());
    EXPECT_DOUBLE_EQ(model->fixedLineY(), 450 * 0.75);
    EXPECT_EQ(model->fixedLineLabelKey(), QStringLiteral("Above"));
    EXPECT_EQ(model->pickedPoint(), 0.25);
}

TEST_F(PreviewShown, HasALineUnderThePointer)
{
    openPick();
    model->hover(100);
    advance(0.1);
    EXPECT_TRUE(model->hasPointerLine());
    EXPECT_DOUBLE_EQ(model->pointerLineY(), 350);
    model->hover(std::nullopt);
    advance(0.1);
    EXPECT_FALSE(model->hasPointerLine());
}

TEST_F(PreviewShown, HasNoLinesInTheLaterSteps)
{
    openPick();
    model->pick(0.25);
    advance(0.1);
    session->setCurrentStep(WorkflowStep::step3);
    EXPECT_FALSE(model->hasFixedLine());
    EXPECT_FALSE(model->hasPointerLine());
    EXPECT_FALSE(model->hasVerticalGuideLine());
}

TEST_F(PreviewShown, TheGuideLineIsActiveWhileTheTimelineIsDraggedAndLockedOnceItsSideIs)
{
    loadAbove("/above.mp4");
    EXPECT_TRUE(model->hasVerticalGuideLine());
    EXPECT_EQ(model->guideLineX(), 400);
    EXPECT_EQ(model->guideLineWidth(), 1);
    EXPECT_EQ(model->guideBandOpacity(), 0);
    session->setTimelineSliderDragging(true);
    EXPECT_EQ(model->guideLineWidth(), 2);
    EXPECT_EQ(model->guideBandOpacity(), 0.28);
    EXPECT_FALSE(model->hasLockBadge());
    session->setTimelineSliderDragging(false);
    EXPECT_EQ(model->guideLineWidth(), 1);
    session->toggleAboveLock();
    EXPECT_TRUE(model->hasLockBadge());
    EXPECT_EQ(model->guideLineOpacity(), 1);
}

TEST_F(PreviewShown, TheWaterlineStandsInSplitAloneAndIsSeenByItsFlagAlone)
{
    enterComposite(WorkflowStep::step3, {.duration = 60}, {.duration = 60});
    edit([](VideoCompositionConfig& config) { config.waterlineHeight = 240; });
    EXPECT_TRUE(model->hasWaterlineIndicator());
    EXPECT_NEAR(model->waterlineIndicatorY(), 450 - 1.22 * 0.75 * 240, 1e-9);
    EXPECT_EQ(model->waterlineIndicatorOpacity(), 0);
    session->setCurrentStep(WorkflowStep::step2);
    EXPECT_FALSE(model->hasWaterlineIndicator());
}

TEST_F(PreviewShown, LeavesRoomForTheMarkersInStepFour)
{
    enterComposite(WorkflowStep::step3, {.duration = 60}, {.duration = 60});
    EXPECT_EQ(model->roomBelow(), 0);
    session->setCurrentStep(WorkflowStep::step4);
    EXPECT_EQ(model->roomBelow(), 24);
}

}
}
