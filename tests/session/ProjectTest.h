// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "session/SessionHarness.h"

namespace zumeta::test {

inline const FileUrl kProject("/swims/swim.zumetaproj");

/// A session and a project of two recordings of 60 s, which are locked at 14 s and 10 s: 56 s of them overlap.
struct ProjectTest : SessionTest {
    ProjectTest()
    {
        media.add("/above.mp4", {});
        media.add("/below.mp4", {});
    }

    static VideoAsset assetOf(const std::vector<const char*>& paths)
    {
        VideoAsset asset;
        asset.id = QUuid::createUuid();
        asset.bookmarkDataList.emplace();
        for (const char* path : paths) {
            asset.fileURLs.emplace_back(path);
            asset.bookmarkDataList->push_back(FakeBookmarks::of(path));
        }
        asset.bookmarkData = asset.bookmarkDataList->front();
        asset.fileName = asset.fileURL().displayName();
        return asset;
    }

    static ProjectState projectOf(std::optional<VideoAsset> above, std::optional<VideoAsset> below)
    {
        ProjectState state;
        state.name = QStringLiteral("Freestyle");
        state.aboveVideo = std::move(above);
        state.belowVideo = std::move(below);
        VideoCompositionConfig& config = state.projectConfig;
        config.waterlineHeight = 310;
        config.aboveZoom = 7;
        config.aboveOffset = 40;
        config.aboveHorizontalOffset = -15;
        config.blendAmount = 20;
        config.aboveStartTime = 14;
        config.belowStartTime = 10;
        config.isSynced = true;
        config.exportTrimStartSeconds = 3;
        config.exportTrimEndSeconds = 5;
        state.step3BaseWaterlineHeight = 300;
        state.step3BaseAboveOffset = 30;
        state.step3BaseAboveHorizontalOffset = -20;
        return state;
    }
    static ProjectState project() { return projectOf(assetOf({"/above.mp4"}), assetOf({"/below.mp4"})); }

    void open(const ProjectState& state, double seconds = 5)
    {
        projectFiles.files[kProject.path().native()] = state;
        session->loadProject(kProject);
        advance(seconds);
    }

    void expectLocks(double aboveTime, double belowTime)
    {
        EXPECT_EQ(session->manualSyncTimeAbove(), aboveTime);
        EXPECT_EQ(session->manualSyncTimeBelow(), belowTime);
    }
    std::vector<std::string> filesIn(VirtualPlayer& player)
    {
        std::vector<std::string> files;
        if (player.item()) {
            for (const MediaSegment& segment : std::get<MediaComposition>(*player.item()).video())
                files.push_back(segment.asset.url.path().native());
        }
        return files;
    }
};

}
