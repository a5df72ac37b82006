// SPDX-License-Identifier: GPL-3.0-or-later
#include "ProjectStates.h"
#include "model/ProjectFileError.h"
#include "support/ManualWallClock.h"

#include <gtest/gtest.h>
#include <limits>

namespace zumeta {
namespace {

using namespace std::chrono;
using test::fullProjectState;

constexpr char kNewProject[] = R"({
  "createdAt" : "2026-07-14T09:30:00Z",
  "exportSettings" : {
    "codec" : "H.264",
    "quality" : 0.8,
    "resolution" : "1080p"
  },
  "modifiedAt" : "2026-07-14T09:30:00Z",
  "name" : "Untitled Project",
  "projectAspectRatio" : [
    16,
    9
  ],
  "projectConfig" : {
    "aboveHorizontalOffset" : 0,
    "aboveOffset" : 0,
    "aboveStartTime" : 0,
    "aboveZoom" : 0,
    "belowStartTime" : 0,
    "blendAmount" : 15,
    "exportTrimEndSeconds" : 0,
    "exportTrimStartSeconds" : 0,
    "isSynced" : false,
    "timingOffset" : 0,
    "waterlineHeight" : 0
  },
  "version" : 1
})";

constexpr char kFullProject[] = R"({
  "aboveVideo" : {
    "bookmarkData" : "Zmlyc3Q=",
    "bookmarkDataList" : [
      "Zmlyc3Q=",
      "\/\/4="
    ],
    "duration" : 61.394666666666666,
    "fileName" : "GX010123.MP4 (+1 chapters) ü\u000a",
    "fileSize" : 9007199254740993,
    "fileURLs" : [
      "file:\/\/\/media\/card\/GX010123.MP4",
      "file:\/\/\/media\/card\/caf%E9%202.mp4"
    ],
    "frameRate" : 59.94005966186523,
    "height" : 1080,
    "id" : "1B4E28BA-2FA1-11D2-883F-0016D3CCA427",
    "proxyURL" : "file:\/\/\/home\/swim\/proxy.mp4",
    "width" : 1920
  },
  "belowVideo" : {
    "bookmarkDataList" : [

    ],
    "duration" : 0,
    "fileName" : "below",
    "fileSize" : 0,
    "fileURLs" : [

    ],
    "frameRate" : 0,
    "height" : 0,
    "id" : "00000000-0000-0000-0000-000000000000",
    "width" : 0
  },
  "createdAt" : "2026-07-14T09:30:00Z",
  "exportSettings" : {
    "codec" : "HEVC",
    "quality" : 0.5,
    "resolution" : "4K"
  },
  "modifiedAt" : "2026-07-14T09:30:01Z",
  "name" : "Untitled Project",
  "projectAspectRatio" : [
    4,
    3
  ],
  "projectConfig" : {
    "aboveHorizontalOffset" : 4.25,
    "aboveOffset" : -3,
    "aboveStartTime" : 8.5,
    "aboveZoom" : 12,
    "belowStartTime" : 7.5,
    "blendAmount" : 20,
    "exportTrimEndSeconds" : 2,
    "exportTrimStartSeconds" : 1,
    "isSynced" : true,
    "timingOffset" : 150,
    "waterlineHeight" : 281.5
  },
  "step3BaseAboveHorizontalOffset" : 0.1,
  "step3BaseAboveOffset" : -2.5,
  "step3BaseWaterlineHeight" : 280,
  "step3RelativeAboveHorizontalOffset" : 4.15,
  "step3RelativeAboveOffset" : -0.5,
  "step3RelativeWaterlineHeight" : 1.5,
  "version" : 1
})";

ProjectState newProject()
{
    return ProjectState::createdNow(test::ManualWallClock(sys_days(2026y / July / 14) + 9h + 30min));
}

/// The path that an encoder's refusal names; "written" when it does not refuse.
std::string refusedPath(const ProjectState& state)
{
    try {
        state.encode();
    } catch (const ProjectFileError& error) {
        EXPECT_EQ(error.kind(), ProjectFileError::Kind::notWritable);
        EXPECT_TRUE(std::string(error.what()).starts_with(error.keyPath() + ": "));
        return error.keyPath();
    }
    return "written";
}

}

TEST(ProjectState, ANewOneHoldsTheStatedValuesAndOneReadingOfTheClock)
{
    const test::ManualWallClock clock(sys_days(2026y / July / 14) + 9h + 30min);
    const ProjectState state = ProjectState::createdNow(clock);
    EXPECT_EQ(clock.readings, 1);
    EXPECT_EQ(state.version, 1);
    EXPECT_EQ(state.name, QStringLiteral("Untitled Project"));
    EXPECT_EQ(state.createdAt, clock.time);
    EXPECT_EQ(state.modifiedAt, clock.time);
    EXPECT_FALSE(state.aboveVideo || state.belowVideo);
    EXPECT_EQ(state.projectConfig, VideoCompositionConfig::defaultConfig());
    EXPECT_EQ(state.exportSettings, ExportSettings());
    EXPECT_FALSE(state.step3BaseWaterlineHeight || state.step3BaseAboveOffset || state.step3BaseAboveHorizontalOffset);
    EXPECT_FALSE(state.step3RelativeWaterlineHeight || state.step3RelativeAboveOffset ||
                 state.step3RelativeAboveHorizontalOffset);
    EXPECT_EQ(state.projectAspectRatio, (AspectRatio{16, 9}));
}

TEST(ProjectEncoding, ANewProjectHasExactlyTheseBytes)
{
    EXPECT_EQ(newProject().encode().toStdString(), kNewProject);
}

TEST(ProjectEncoding, AProjectWithEverythingHasExactlyTheseBytes)
{
    EXPECT_EQ(fullProjectState().encode().toStdString(), kFullProject);
}

TEST(ProjectEncoding, TheBytesReadBackAsTheStateThatWasWritten)
{
    EXPECT_EQ(ProjectState::decode(kNewProject), newProject());
    EXPECT_EQ(ProjectState::decode(kFullProject), fullProjectState());
}

TEST(ProjectEncoding, RandomStatesReadBackEqualAndWriteTheSameBytesAgain)
{
    std::mt19937_64 random(20'260'714);
    for (int i = 0; i < 3'000; ++i) {
        const ProjectState state = test::randomProjectState(random);
        const QByteArray bytes = state.encode();
        const ProjectState back = ProjectState::decode(bytes);
        ASSERT_EQ(back, state) << bytes.toStdString();
        ASSERT_EQ(back.encode(), bytes);
    }
}

TEST(ProjectEncoding, TwoSavesDifferOnlyInWhatTheUserChanged)
{
    ProjectState state = fullProjectState();
    const QByteArray first = state.encode();
    EXPECT_EQ(state.encode(), first);
    state.projectConfig.blendAmount = 21;
    QByteArray expected = first;
    expected.replace("\"blendAmount\" : 20", "\"blendAmount\" : 21");
    EXPECT_EQ(state.encode(), expected);
}

TEST(ProjectEncoding, ANumberThatIsNotFiniteIsRefusedByName)
{
    using Change = std::function<void(ProjectState&, double)>;
    const std::vector<std::pair<const char*, Change>> places{
        {"aboveVideo.duration", [](ProjectState& s, double v) { s.aboveVideo->duration = v; }},
        {"belowVideo.frameRate", [](ProjectState& s, double v) { s.belowVideo->frameRate = v; }},
        {"projectConfig.aboveZoom", [](ProjectState& s, double v) { s.projectConfig.aboveZoom = v; }},
        {"projectConfig.exportTrimEndSeconds",
         [](ProjectState& s, double v) { s.projectConfig.exportTrimEndSeconds = v; }},
        {"exportSettings.quality", [](ProjectState& s, double v) { s.exportSettings.quality = v; }},
        {"step3BaseAboveOffset", [](ProjectState& s, double v) { s.step3BaseAboveOffset = v; }},
        {"projectAspectRatio[0]", [](ProjectState& s, double v) { s.projectAspectRatio.width = v; }},
        {"projectAspectRatio[1]", [](ProjectState& s, double v) { s.projectAspectRatio.height = v; }},
    };
    for (const auto& [path, change] : places) {
        for (const double value : {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(),
                                   -std::numeric_limits<double>::infinity()}) {
            ProjectState state = fullProjectState();
            change(state, value);
            EXPECT_EQ(refusedPath(state), path);
        }
    }
}

TEST(ProjectEncoding, ADateThatTheFormCannotHoldIsRefusedByName)
{
    ProjectState state = newProject();
    state.modifiedAt = sys_days(10000y / January / 1);
    EXPECT_EQ(refusedPath(state), "modifiedAt");
}

}
