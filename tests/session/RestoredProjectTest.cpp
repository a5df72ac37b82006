// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/RestoredProject.h"
#include "session/Step3Bases.h"

#include <gmock/gmock.h>

namespace zumeta {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

VideoAsset recordOf(const std::vector<const char*>& paths)
{
    VideoAsset asset;
    asset.id = QUuid::createUuid();
    asset.bookmarkDataList.emplace();
    for (const char* path : paths) {
        asset.fileURLs.emplace_back(path);
        asset.bookmarkDataList->push_back(QByteArray("old ") + path);
    }
    asset.bookmarkData = asset.bookmarkDataList->front();
    return asset;
}

RestoredProject::SideLoad loadOf(const char* path, const char* bookmark)
{
    RestoredProject::SideLoad load;
    load.found = {FileUrl(path)};
    load.bookmarks = {bookmark};
    return load;
}

TEST(BookmarksOfARecord, AreItsList)
{
    VideoAsset asset = recordOf({"/1", "/2"});
    asset.bookmarkData = "other";
    EXPECT_THAT(bookmarksOf(asset), ElementsAre("old /1", "old /2"));
}

TEST(BookmarksOfARecord, AreTheSingleOneWhereTheListIsAbsentOrEmpty)
{
    VideoAsset asset = recordOf({"/1"});
    asset.bookmarkDataList->clear();
    EXPECT_THAT(bookmarksOf(asset), ElementsAre("old /1"));
    asset.bookmarkDataList.reset();
    EXPECT_THAT(bookmarksOf(asset), ElementsAre("old /1"));
    asset.bookmarkData.reset();
    EXPECT_THAT(bookmarksOf(asset), IsEmpty());
}

TEST(RestoredAsset, KeepsTheIdAndPlaysFromWhereTheFilesWereFound)
{
    const VideoAsset kept = recordOf({"/old/a.mp4"});
    const VideoAsset restored = restoredAsset(kept, loadOf("/new/a.mp4", "b"), kept);
    EXPECT_EQ(restored.id, kept.id);
    EXPECT_THAT(restored.fileURLs, ElementsAre(FileUrl("/new/a.mp4")));
}

TEST(RestoredAsset, HasTheBookmarksOfTheFilesThatWereFoundAlone)
{
    const VideoAsset kept = recordOf({"/1", "/2", "/3"});
    RestoredProject::SideLoad load;
    load.found = {FileUrl("/1"), FileUrl("/3")};
    load.bookmarks = {"old /1", "old /3"};
    const VideoAsset restored = restoredAsset(kept, load, std::nullopt);
    EXPECT_THAT(*restored.bookmarkDataList, ElementsAre("old /1", "old /3"));
    EXPECT_EQ(restored.bookmarkData, "old /1");
}

TEST(RestoredAsset, KnowsWhatTheLoadFoundOut)
{
    VideoAsset kept = recordOf({"/old/a.mp4"});
    kept.duration = 10;
    kept.fileName = QStringLiteral("a.mp4");
    kept.proxyURL = FileUrl("/gone/proxy.mp4");
    VideoAsset live;
    live.id = QUuid::createUuid();
    live.fileURLs = {FileUrl("/new/renamed.mp4")};
    live.duration = 10.5;
    live.fileName = QStringLiteral("renamed.mp4");
    live.proxyURL = FileUrl("/proxies/1.mp4");
    const VideoAsset restored = restoredAsset(kept, loadOf("/new/renamed.mp4", "b"), live);
    EXPECT_EQ(restored.id, kept.id);
    EXPECT_EQ(restored.duration, 10.5);
    EXPECT_EQ(restored.fileName, QStringLiteral("renamed.mp4"));
    EXPECT_EQ(restored.proxyURL, FileUrl("/proxies/1.mp4"));
}

TEST(RestoredAsset, KeepsTheProjectsProxyUntilThereIsAnother)
{
    VideoAsset kept = recordOf({"/a.mp4"});
    kept.proxyURL = FileUrl("/proxies/1.mp4");
    VideoAsset live = recordOf({"/a.mp4"});
    EXPECT_EQ(restoredAsset(kept, loadOf("/a.mp4", "b"), live).proxyURL, FileUrl("/proxies/1.mp4"));
}

TEST(TakeBookmarks, ReplacesTheOldOnes)
{
    VideoAsset asset = recordOf({"/1", "/2"});
    takeBookmarks(asset, {QByteArray("new 1"), QByteArray("new 2")});
    EXPECT_THAT(*asset.bookmarkDataList, ElementsAre("new 1", "new 2"));
    EXPECT_EQ(asset.bookmarkData, "new 1");
}

TEST(TakeBookmarks, AFileThatIsAwayKeepsItsOldOne)
{
    VideoAsset asset = recordOf({"/1", "/2"});
    takeBookmarks(asset, {std::nullopt, QByteArray("new 2")});
    EXPECT_THAT(*asset.bookmarkDataList, ElementsAre("old /1", "new 2"));
}

TEST(TakeBookmarks, AFileThatNeverHadOneIsLeftOut)
{
    VideoAsset asset = recordOf({"/1", "/2"});
    asset.bookmarkData.reset();
    asset.bookmarkDataList.reset();
    takeBookmarks(asset, {std::nullopt, QByteArray("new 2")});
    EXPECT_THAT(*asset.bookmarkDataList, ElementsAre("new 2"));
    EXPECT_EQ(asset.bookmarkData, "new 2");
}

TEST(TakeBookmarks, WithoutAnyTheListIsEmptyAndTheSingleOneAbsent)
{
    VideoAsset asset = recordOf({"/1"});
    asset.bookmarkData.reset();
    asset.bookmarkDataList.reset();
    takeBookmarks(asset, {std::nullopt});
    EXPECT_THAT(*asset.bookmarkDataList, IsEmpty());
    EXPECT_EQ(asset.bookmarkData, std::nullopt);
}

TEST(TakeBookmarks, ASideWhoseFilesAreAllAwayKeepsWhatItHasWhateverItIs)
{
    VideoAsset asset = recordOf({"/1", "/2", "/3"});
    asset.bookmarkDataList->erase(asset.bookmarkDataList->begin()); // one could not be made at an earlier save
    takeBookmarks(asset, {std::nullopt, std::nullopt, std::nullopt});
    EXPECT_THAT(*asset.bookmarkDataList, ElementsAre("old /2", "old /3"));
}

ProjectState stateWithValues()
{
    ProjectState state;
    state.projectConfig.waterlineHeight = 310;
    state.projectConfig.aboveOffset = 40;
    state.projectConfig.aboveHorizontalOffset = -15;
    return state;
}

TEST(Step3Bases, FixedAtAConfigAreItsValues)
{
    EXPECT_EQ(Step3Bases::equalTo(stateWithValues().projectConfig), (Step3Bases{310, 40, -15, 40}));
}

TEST(Step3Bases, AreThoseOfTheFile)
{
    ProjectState state = stateWithValues();
    state.step3BaseWaterlineHeight = 300;
    state.step3BaseAboveOffset = 30;
    state.step3BaseAboveHorizontalOffset = -20;
    state.step3RelativeWaterlineHeight = 99; // the base counts
    EXPECT_EQ(Step3Bases::keptIn(state), (Step3Bases{300, 30, -20, 30}));
}

TEST(Step3Bases, AreRebuiltFromTheRelativeValues)
{
    ProjectState state = stateWithValues();
    state.step3RelativeWaterlineHeight = 10;
    state.step3RelativeAboveOffset = -5;
    state.step3RelativeAboveHorizontalOffset = 5;
    EXPECT_EQ(Step3Bases::keptIn(state), (Step3Bases{300, 45, -20, 45}));
}

TEST(Step3Bases, AreZeroInAFileThatKnowsNeither)
{
    EXPECT_EQ(Step3Bases::keptIn(stateWithValues()), Step3Bases{});
}

TEST(Step3Bases, ComeBackAsTheyWereKept)
{
    const Step3Bases bases{300, 30, -20, 30};
    ProjectState state = stateWithValues();
    bases.keepIn(state);
    EXPECT_EQ(state.step3RelativeWaterlineHeight, 10);
    EXPECT_EQ(state.step3RelativeAboveOffset, 10);
    EXPECT_EQ(state.step3RelativeAboveHorizontalOffset, 5);
    EXPECT_EQ(Step3Bases::keptIn(state), bases);
}

}
}
