// SPDX-License-Identifier: GPL-3.0-or-later
#include "zumeta-render/RenderArguments.h"

#include <gtest/gtest.h>

namespace zumeta {

namespace {

RenderRequest parsed(const std::vector<std::string>& arguments)
{
    const auto result = parseRenderArguments(arguments);
    if (const auto* const wrong = std::get_if<WrongUsage>(&result))
        ADD_FAILURE() << wrong->reason;
    return std::holds_alternative<RenderRequest>(result) ? std::get<RenderRequest>(result) : RenderRequest{};
}

std::string refused(const std::vector<std::string>& arguments)
{
    const auto result = parseRenderArguments(arguments);
    const auto* const wrong = std::get_if<WrongUsage>(&result);
    return wrong ? wrong->reason : "accepted";
}

const std::vector<std::string> kFiles{"--above", "a.mp4", "--below", "b.mp4", "out.mp4"};

std::vector<std::string> filesAnd(std::vector<std::string> more)
{
    more.insert(more.end(), kFiles.begin(), kFiles.end());
    return more;
}

}

TEST(RenderArguments, TakesAProjectAndAnOutput)
{
    const RenderRequest request = parsed({"swim.zumetaproj", "out.mp4", "--resolution", "4K", "--camera=insta360"});
    EXPECT_EQ(request.project->lastPathComponent(), "swim.zumetaproj");
    EXPECT_EQ(request.output.lastPathComponent(), "out.mp4");
    EXPECT_EQ(request.resolution, ExportResolutionType::uhd4k);
    EXPECT_EQ(request.camera, CameraType::insta360);
}

TEST(RenderArguments, CollectsChaptersInTheOrderGiven)
{
    const RenderRequest request = parsed({"--above", "2.mp4", "--above", "1.mp4", "--below", "b.mp4", "out.mp4"});
    ASSERT_EQ(request.aboveFiles.size(), 2U);
    EXPECT_EQ(request.aboveFiles[0].lastPathComponent(), "2.mp4");
    EXPECT_EQ(request.belowFiles.size(), 1U);
}

TEST(RenderArguments, StoresValuesAsAProjectHoldsThem)
{
    const VideoCompositionConfig config =
        parsed(
            filesAnd({"--sync-above",        "1.5", "--sync-below", "2.25", "--waterline", "300", "--offset", "-12.5",
                      "--horizontal-offset", "+4",  "--zoom",       "-10",  "--blend",     "0",   "--timing", "-50",
                      "--trim-start",        "1",   "--trim-end",   "0.5"}))
            .config;
    EXPECT_EQ(config.aboveStartTime, 1.5);
    EXPECT_EQ(config.belowStartTime, 2.25);
    EXPECT_EQ(config.waterlineHeight, 300);
    EXPECT_EQ(config.aboveOffset, -12.5);
    EXPECT_EQ(config.aboveHorizontalOffset, 4);
    EXPECT_EQ(config.aboveZoom, -10);
    EXPECT_EQ(config.blendAmount, 0);
    EXPECT_EQ(config.timingOffset, -50);
    EXPECT_EQ(config.exportTrimStartSeconds, 1);
    EXPECT_EQ(config.exportTrimEndSeconds, 0.5);
    EXPECT_TRUE(config.isSynced);
}

TEST(RenderArguments, LeavesTheSoftEdgeAtItsDefaultWhenNotGiven)
{
    EXPECT_EQ(parsed(kFiles).config.blendAmount, 15);
}

TEST(RenderArguments, PointsSetTheOffsetAndTheWaterlineBeforeZoom)
{
    const VideoCompositionConfig config = parsed(filesAnd({"--point-above", "0.4", "--point-below", "0.6"})).config;
    EXPECT_NEAR(config.aboveOffset, 120, 1e-9);
    EXPECT_NEAR(config.waterlineHeight, 360 / 1.22, 1e-9);
}

TEST(RenderArguments, PointsCountTheZoomAndTheCameraWhereverTheyStand)
{
    const VideoCompositionConfig config =
        parsed(filesAnd({"--point-above", "0.5", "--point-below", "0.5", "--zoom", "10", "--camera", "insta360"}))
            .config;
    EXPECT_NEAR(config.waterlineHeight, 300 / 1.75, 1e-9);
}

TEST(RenderArguments, TakesAFileWhoseNameBeginsWithADash)
{
    const RenderRequest request = parsed({"--above", "-a.mp4", "--below", "--quiet", "--", "-out.mp4"});
    EXPECT_EQ(request.aboveFiles.front().lastPathComponent(), "-a.mp4");
    EXPECT_EQ(request.belowFiles.front().lastPathComponent(), "--quiet");
    EXPECT_EQ(request.output.lastPathComponent(), "-out.mp4");
    EXPECT_FALSE(request.quiet);
}

TEST(RenderArguments, KeepsTheBytesOfANameThatIsNotUtf8)
{
    EXPECT_EQ(parsed({"--above", "a\xff.mp4", "--below", "b", "o"}).aboveFiles.front().lastPathComponent(),
              "a\xff.mp4");
}

TEST(RenderArguments, ShowsHelpOnRequest)
{
    EXPECT_TRUE(std::holds_alternative<HelpWanted>(parseRenderArguments({"--help"})));
}

TEST(RenderArguments, RefusesWhatItCannotUse)
{
    EXPECT_EQ(refused({}), "a project and an output are needed, or --above, --below and an output");
    EXPECT_EQ(refused({"p.zumetaproj"}), "a project and an output are needed, or --above, --below and an output");
    EXPECT_EQ(refused({"a", "b", "c"}), "too many files");
    EXPECT_EQ(refused({"--above", "a", "out"}), "--below is missing");
    EXPECT_EQ(refused({"--below", "b", "out"}), "--above is missing");
    EXPECT_EQ(refused({"--above", "a", "--below", "b"}), "the output is missing");
    EXPECT_EQ(refused({"p", "out", "--zoom", "3"}), "--zoom does not go with a project");
    EXPECT_EQ(refused({"p", "out", "--keep", "k"}), "--keep does not go with a project");
    EXPECT_EQ(refused(filesAnd({"--frobnicate"})), "unknown option --frobnicate");
    EXPECT_EQ(refused({"--above", "a", "--below"}), "--below needs a value");
    EXPECT_EQ(refused(filesAnd({"--zoom", "1", "--zoom", "2"})), "--zoom is given twice");
    EXPECT_EQ(refused(filesAnd({"--camera", "phone"})), "--camera is gopro or insta360, not 'phone'");
    EXPECT_EQ(refused(filesAnd({"--resolution", "1080"})),
              "--resolution is one of 720p, 960p, 1080p, 1440p, 4K, not '1080'");
}

TEST(RenderArguments, RefusesNumbersThatAreNone)
{
    EXPECT_EQ(refused(filesAnd({"--zoom", "ten"})), "--zoom needs a number, not 'ten'");
    EXPECT_EQ(refused(filesAnd({"--zoom", "1,5"})), "--zoom needs a number, not '1,5'");
    EXPECT_EQ(refused(filesAnd({"--zoom", ""})), "--zoom needs a number, not ''");
    EXPECT_EQ(refused(filesAnd({"--zoom", "inf"})), "--zoom needs a number, not 'inf'");
    EXPECT_EQ(refused(filesAnd({"--sync-above", "-1"})), "--sync-above cannot be below 0");
    EXPECT_EQ(refused(filesAnd({"--point-above", "1.5", "--point-below", "0"})),
              "--point-above lies between 0 (bottom) and 1 (top)");
}

TEST(RenderArguments, RefusesPointsThatContradictOtherValues)
{
    EXPECT_EQ(refused(filesAnd({"--point-above", "0.5"})), "--point-above and --point-below go together");
    EXPECT_EQ(refused(filesAnd({"--point-above", "0.5", "--point-below", "0.5", "--offset", "1"})),
              "--waterline and --offset do not go with --point-above and --point-below");
}

TEST(RenderArguments, RefusesAFileWithoutAName)
{
    EXPECT_EQ(refused({"--above", "", "--below", "b.mp4", "out.mp4"}), "--above needs the name of a file");
    EXPECT_EQ(refused({"--above", "a.mp4", "--below=", "out.mp4"}), "--below needs the name of a file");
    EXPECT_EQ(refused({"--above", "a.mp4", "--below", "b.mp4", ""}), "the output needs the name of a file");
    EXPECT_EQ(refused(filesAnd({"--keep", ""})), "--keep needs the name of a file");
    EXPECT_EQ(refused({"", "out.mp4"}), "the project needs the name of a file");
}

}
