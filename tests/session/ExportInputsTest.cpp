// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/ExportInputs.h"

#include <gmock/gmock.h>

namespace zumeta {
namespace {

using testing::ElementsAre;

VideoAsset videoOf(const std::vector<const char*>& paths)
{
    VideoAsset asset;
    for (const char* const path : paths)
        asset.fileURLs.emplace_back(path);
    return asset;
}

struct ExportInputsOfASession : testing::Test {
    ProjectState state;
    VideoCompositionConfig config;
    ExportInputs inputs{.projectState = state, .projectConfig = config};

    ExportInputsOfASession()
    {
        state.aboveVideo = videoOf({"/above-1.mp4", "/above-2.mp4"});
        state.belowVideo = videoOf({"/below.mp4"});
        config.aboveStartTime = 3;
        config.belowStartTime = 4;
    }
    ExportParameters parameters() const { return exportParameters(inputs).value(); }
};

TEST_F(ExportInputsOfASession, CarryTheFilesOfBothSidesInTheirOrder)
{
    EXPECT_THAT(parameters().aboveVideoURLs, ElementsAre(FileUrl("/above-1.mp4"), FileUrl("/above-2.mp4")));
    EXPECT_THAT(parameters().belowVideoURLs, ElementsAre(FileUrl("/below.mp4")));
}

TEST_F(ExportInputsOfASession, TakeTheSourcesWhereThereIsAProxyToo)
{
    state.belowVideo->proxyURL = FileUrl("/proxies/below.mp4");
    EXPECT_THAT(parameters().belowVideoURLs, ElementsAre(FileUrl("/below.mp4")));
}

TEST_F(ExportInputsOfASession, TakeTheLockOfASideBeforeItsStoredStart)
{
    inputs.manualSyncTime = {7.25, 0.0};
    EXPECT_EQ(parameters().manualSyncTimeAbove, 7.25);
    EXPECT_EQ(parameters().manualSyncTimeBelow, 0);
}

TEST_F(ExportInputsOfASession, TakeTheStoredStartOfASideWithoutALock)
{
    EXPECT_EQ(parameters().manualSyncTimeAbove, 3);
    EXPECT_EQ(parameters().manualSyncTimeBelow, 4);
    inputs.manualSyncTime.above = 7.25;
    EXPECT_EQ(parameters().manualSyncTimeAbove, 7.25);
    EXPECT_EQ(parameters().manualSyncTimeBelow, 4);
}

TEST_F(ExportInputsOfASession, AddTheBaseZoomOfTheCamera)
{
    config.aboveZoom = -7.5;
    EXPECT_EQ(parameters().aboveZoom, 14.5);
    inputs.selectedCamera = CameraType::insta360;
    EXPECT_EQ(parameters().aboveZoom, 57.5);
    EXPECT_EQ(config.aboveZoom, -7.5);
}

TEST_F(ExportInputsOfASession, CarryEveryAdjustedValueAsItStands)
{
    config.waterlineHeight = 251;
    config.aboveOffset = -12;
    config.aboveHorizontalOffset = 33;
    config.timingOffset = -4.5;
    config.blendAmount = 21;
    config.exportTrimStartSeconds = 1.5;
    config.exportTrimEndSeconds = 2.25;
    const ExportParameters params = parameters();
    EXPECT_EQ(params.waterlineHeight, 251);
    EXPECT_EQ(params.aboveOffset, -12);
    EXPECT_EQ(params.aboveHorizontalOffset, 33);
    EXPECT_EQ(params.timingOffset, -4.5);
    EXPECT_EQ(params.blendAmount, 21);
    EXPECT_EQ(params.exportTrimStartSeconds, 1.5);
    EXPECT_EQ(params.exportTrimEndSeconds, 2.25);
}

TEST_F(ExportInputsOfASession, TakeTheLiveValuesAndNotTheKeptOnes)
{
    state.projectConfig.waterlineHeight = 1;
    config.waterlineHeight = 2;
    EXPECT_EQ(parameters().waterlineHeight, 2);
}

TEST_F(ExportInputsOfASession, TakeTheSelectedResolutionAndNotTheStoredOne)
{
    state.exportSettings.resolution = ExportResolutionType::hd1080;
    inputs.selectedResolution = ExportResolutionType::hd1440;
    EXPECT_EQ(parameters().resolution, ExportResolutionType::hd1440);
}

TEST_F(ExportInputsOfASession, CarryTheShapeOfTheProject)
{
    EXPECT_EQ(parameters().projectAspectRatio, (AspectRatio{16, 9}));
    state.projectAspectRatio = {4, 3};
    EXPECT_EQ(parameters().projectAspectRatio, (AspectRatio{4, 3}));
}

TEST_F(ExportInputsOfASession, CarryTheWishForAMark)
{
    EXPECT_FALSE(parameters().showWatermark);
    inputs.shouldShowWatermark = true;
    EXPECT_TRUE(parameters().showWatermark);
}

TEST_F(ExportInputsOfASession, AreNothingWithoutAVideoOnEachSide)
{
    const ProjectState whole = state;
    state.aboveVideo.reset();
    EXPECT_FALSE(exportParameters(inputs));
    state = whole;
    state.belowVideo.reset();
    EXPECT_FALSE(exportParameters(inputs));
}

TEST_F(ExportInputsOfASession, AreNothingWhenTheVideoOfASideHasNoFiles)
{
    const ProjectState whole = state;
    state.aboveVideo->fileURLs.clear();
    EXPECT_FALSE(exportParameters(inputs));
    state = whole;
    state.belowVideo->fileURLs.clear();
    EXPECT_FALSE(exportParameters(inputs));
}

}
}
