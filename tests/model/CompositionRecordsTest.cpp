// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/CameraType.h"
#include "model/ExportSettings.h"
#include "model/ProjectShape.h"
#include "model/VideoAsset.h"
#include "model/VideoCompositionConfig.h"

#include <functional>
#include <gtest/gtest.h>
#include <limits>

namespace zumeta {
namespace {

using enum ExportResolutionType;

VideoCompositionConfig changedEverywhere()
{
    return {1, 2, 3, 4, 5, 6, 7, 8, true, 9, 10};
}

}

TEST(VideoAsset, TheFirstFileStandsForAllAndTheEmptyPathForNone)
{
    VideoAsset asset;
    EXPECT_EQ(asset.fileURL(), FileUrl());
    EXPECT_EQ(asset.fileURL().path(), "");
    asset.fileURLs = {FileUrl("/b.mp4"), FileUrl("/a.mp4")};
    EXPECT_EQ(asset.fileURL(), FileUrl("/b.mp4"));
}

TEST(VideoAsset, EqualityIsOverEveryField)
{
    const VideoAsset plain;
    const std::vector<std::function<void(VideoAsset&)>> changes{
        [](VideoAsset& a) { a.id = QUuid::createUuid(); },
        [](VideoAsset& a) { a.fileURLs = {FileUrl("/a")}; },
        [](VideoAsset& a) { a.fileName = QStringLiteral("a"); },
        [](VideoAsset& a) { a.fileSize = 1; },
        [](VideoAsset& a) { a.duration = 1; },
        [](VideoAsset& a) { a.width = 1; },
        [](VideoAsset& a) { a.height = 1; },
        [](VideoAsset& a) { a.frameRate = 1; },
        [](VideoAsset& a) { a.bookmarkData = QByteArray(); },
        [](VideoAsset& a) { a.bookmarkDataList = std::vector<QByteArray>(); },
        [](VideoAsset& a) { a.proxyURL = FileUrl(); },
    };
    for (size_t i = 0; i < changes.size(); ++i) {
        VideoAsset changed = plain;
        changes[i](changed);
        EXPECT_FALSE(changed == plain) << "field " << i;
        EXPECT_EQ(VideoAsset(changed), changed);
    }
}

TEST(VideoCompositionConfig, TheDefaultIsWhatCreatingOneWithoutArgumentsGives)
{
    const VideoCompositionConfig config;
    EXPECT_EQ(config, VideoCompositionConfig::defaultConfig());
    EXPECT_EQ(config, (VideoCompositionConfig{0, 0, 0, 0, 0, 15, 0, 0, false, 0, 0}));
}

TEST(VideoCompositionConfig, EqualityIsOverEveryField)
{
    const VideoCompositionConfig plain;
    const std::vector<std::function<void(VideoCompositionConfig&)>> changes{
        [](auto& c) { c.waterlineHeight = 1; },      [](auto& c) { c.aboveZoom = 1; },
        [](auto& c) { c.aboveOffset = 1; },          [](auto& c) { c.aboveHorizontalOffset = 1; },
        [](auto& c) { c.timingOffset = 1; },         [](auto& c) { c.blendAmount = 1; },
        [](auto& c) { c.belowStartTime = 1; },       [](auto& c) { c.aboveStartTime = 1; },
        [](auto& c) { c.isSynced = true; },          [](auto& c) { c.exportTrimStartSeconds = 1; },
        [](auto& c) { c.exportTrimEndSeconds = 1; },
    };
    for (size_t i = 0; i < changes.size(); ++i) {
        VideoCompositionConfig changed = plain;
        changes[i](changed);
        EXPECT_FALSE(changed == plain) << "field " << i;
        EXPECT_EQ(VideoCompositionConfig(changed), changed);
    }
}

TEST(VideoCompositionConfig, DerivesTheScaleAndTheOffsetInSeconds)
{
    VideoCompositionConfig config;
    EXPECT_EQ(config.scaleFactor(), 1.0);
    config.aboveZoom = 22;
    EXPECT_DOUBLE_EQ(config.scaleFactor(), 1.22);
    config.aboveZoom = -100;
    EXPECT_EQ(config.scaleFactor(), 0.0);
    config.timingOffset = 150;
    EXPECT_EQ(config.timingOffsetSeconds(), 1.5);
    config.timingOffset = -500;
    EXPECT_EQ(config.timingOffsetSeconds(), -5.0);
}

TEST(VideoCompositionConfig, ResetPutsEveryFieldBackTheBlendToFifteenAndTheSyncToFalse)
{
    VideoCompositionConfig config = changedEverywhere();
    config.reset();
    EXPECT_EQ(config, VideoCompositionConfig::defaultConfig());
    EXPECT_EQ(config.blendAmount, 15);
    EXPECT_FALSE(config.isSynced);
    EXPECT_EQ(config.exportTrimStartSeconds, 0);
    EXPECT_EQ(config.exportTrimEndSeconds, 0);
}

TEST(VideoCompositionConfig, NothingIsClamped)
{
    VideoCompositionConfig config;
    config.aboveZoom = -300;
    config.blendAmount = 1e9;
    EXPECT_EQ(config.scaleFactor(), -2.0);
    EXPECT_EQ(config.blendAmount, 1e9);
}

TEST(VideoCompositionConfig, TheGeometryHelpersWorkInPlainContainerUnits)
{
    VideoCompositionConfig config;
    config.waterlineHeight = 100;
    config.aboveZoom = 50;
    config.aboveOffset = 7;
    config.aboveHorizontalOffset = -3;
    EXPECT_EQ(config.calculateAboveCropRect({1920, 1080}, {1, 1}), (Rect{0, 150, 1920, 930}));
    EXPECT_EQ(config.calculateAboveYOffset({1, 1}), 7);
    EXPECT_EQ(config.calculateAboveFrame({800, 600}), (Rect{-203, 7, 1200, 900}));
    EXPECT_EQ(config.calculateAboveMaskRect({11, 12, 800, 600}), (Rect{0, 143, 800, 557}));
}

TEST(ExportSettings, HoldTheSameDefaultsInEveryProject)
{
    EXPECT_EQ(ExportSettings(), (ExportSettings{hd1080, VideoCodec::h264, 0.8}));
}

TEST(ExportSettings, EqualityIsOverEveryField)
{
    EXPECT_FALSE(ExportSettings() == (ExportSettings{uhd4k, VideoCodec::h264, 0.8}));
    EXPECT_FALSE(ExportSettings() == (ExportSettings{hd1080, VideoCodec::hevc, 0.8}));
    EXPECT_FALSE(ExportSettings() == (ExportSettings{hd1080, VideoCodec::h264, 0.9}));
}

TEST(ExportResolutionType, TheTableOfSizesAndRatesStands)
{
    struct Line {
        ExportResolutionType type;
        const char* rawValue;
        int width, height;
        int64_t videoBitRate, estimateRate;
    };
    const std::vector<Line> lines{
        {hd720, "720p", 1280, 720, 8000000, 8128000},      {hd960, "960p", 960, 720, 6000000, 6128000},
        {hd1080, "1080p", 1920, 1080, 15000000, 15128000}, {hd1440, "1440p", 1440, 1080, 12000000, 12128000},
        {uhd4k, "4K", 3840, 2160, 35000000, 35128000},
    };
    for (const Line& line : lines) {
        EXPECT_EQ(rawValue(line.type), QLatin1String(line.rawValue));
        EXPECT_EQ(exportResolutionFromRawValue(QLatin1String(line.rawValue)), line.type);
        EXPECT_EQ(facts(line.type).type, line.type);
        EXPECT_EQ(facts(line.type).width, line.width);
        EXPECT_EQ(facts(line.type).height, line.height);
        EXPECT_EQ(facts(line.type).videoBitRate, line.videoBitRate);
        EXPECT_EQ(facts(line.type).estimateRate, line.estimateRate);
    }
}

TEST(ExportResolutionType, TheOrderIsNotThatOfSize)
{
    const std::vector<ExportResolutionType> inOrder{hd720, hd960, hd1080, hd1440, uhd4k};
    for (size_t i = 0; i < inOrder.size(); ++i)
        EXPECT_EQ(size_t(inOrder[i]), i);
    EXPECT_LT(int(VideoCodec::h264), int(VideoCodec::hevc));
}

TEST(ExportResolutionType, UnknownNamesAreNone)
{
    for (const char* name : {"", "720P", "4k", " 720p", "hd720", "8K"})
        EXPECT_FALSE(exportResolutionFromRawValue(QLatin1String(name)).has_value()) << name;
    for (const char* name : {"", "h264", "h.264", "hevc", "H.265"})
        EXPECT_FALSE(videoCodecFromRawValue(QLatin1String(name)).has_value()) << name;
}

TEST(VideoCodec, RawValuesAreThePersistedForm)
{
    EXPECT_EQ(rawValue(VideoCodec::h264), QStringLiteral("H.264"));
    EXPECT_EQ(rawValue(VideoCodec::hevc), QStringLiteral("HEVC"));
    EXPECT_EQ(videoCodecFromRawValue(QStringLiteral("HEVC")), VideoCodec::hevc);
    EXPECT_EQ(videoCodecFromRawValue(QStringLiteral("H.264")), VideoCodec::h264);
}

TEST(OfferedResolutions, AProjectNearFourByThreeHasTwoAndEveryOtherThree)
{
    const std::vector<ExportResolutionType> two{hd960, hd1440};
    const std::vector<ExportResolutionType> three{hd720, hd1080, uhd4k};
    EXPECT_EQ(offeredResolutions({4, 3}), two);
    EXPECT_EQ(offeredResolutions({1.4, 1}), two);
    EXPECT_EQ(offeredResolutions({1.24, 1}), two);
    EXPECT_EQ(offeredResolutions({16, 9}), three);
    EXPECT_EQ(offeredResolutions({1.44, 1}), three);
    EXPECT_EQ(offeredResolutions({1, 1}), three);
}

TEST(AspectRatio, IsSixteenByNineByDefault)
{
    EXPECT_EQ(AspectRatio(), (AspectRatio{16, 9}));
}

TEST(ProjectShape, WidePicturesGiveSixteenByNine)
{
    const ProjectShape wide{{16, 9}, hd1080};
    EXPECT_EQ(projectShapeForAboveVideo(1920, 1080), wide);
    EXPECT_EQ(projectShapeForAboveVideo(3840, 2160), wide);
    EXPECT_EQ(projectShapeForAboveVideo(640, 360), wide);
    EXPECT_EQ(projectShapeForAboveVideo(2.39, 1), wide);
}

TEST(ProjectShape, FourByThreePicturesChooseTheirSizeByTheDisplayedWidth)
{
    EXPECT_EQ(projectShapeForAboveVideo(1200, 900), (ProjectShape{{4, 3}, hd960}));
    EXPECT_EQ(projectShapeForAboveVideo(1201, 900), (ProjectShape{{4, 3}, hd1440}));
    EXPECT_EQ(projectShapeForAboveVideo(2704, 2028), (ProjectShape{{4, 3}, hd1440}));
    EXPECT_EQ(projectShapeForAboveVideo(640, 480), (ProjectShape{{4, 3}, hd960}));
}

TEST(ProjectShape, ShapesThatAreNeitherLandOnSixteenByNine)
{
    const ProjectShape wide{{16, 9}, hd1080};
    EXPECT_EQ(projectShapeForAboveVideo(1000, 1000), wide);
    EXPECT_EQ(projectShapeForAboveVideo(1080, 1920), wide);
    EXPECT_EQ(projectShapeForAboveVideo(1.5, 1), wide);
}

TEST(ProjectShape, FourByThreeIsAcceptedUpToItsLimitOnEitherSide)
{
    EXPECT_EQ(projectShapeForAboveVideo(1.48, 1).projectAspectRatio, (AspectRatio{4, 3}));
    EXPECT_EQ(projectShapeForAboveVideo(1.49, 1).projectAspectRatio, (AspectRatio{16, 9}));
    EXPECT_EQ(projectShapeForAboveVideo(1.19, 1).projectAspectRatio, (AspectRatio{4, 3}));
    EXPECT_EQ(projectShapeForAboveVideo(1.18, 1).projectAspectRatio, (AspectRatio{16, 9}));
}

TEST(ProjectShape, AHeightOfZeroFollowsTheArithmetic)
{
    EXPECT_EQ(projectShapeForAboveVideo(1920, 0), (ProjectShape{{16, 9}, hd1080}));
    EXPECT_EQ(projectShapeForAboveVideo(0, 0), (ProjectShape{{4, 3}, hd960}));
}

TEST(CameraType, EachCameraHasItsBaseZoom)
{
    EXPECT_EQ(baseZoom(CameraType::gopro), 22.0);
    EXPECT_EQ(baseZoom(CameraType::insta360), 65.0);
}

}
