// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/RestoredProject.h"

#include <algorithm>

namespace zumeta {

std::vector<QByteArray> bookmarksOf(const VideoAsset& asset)
{
    if (asset.bookmarkDataList && !asset.bookmarkDataList->empty())
        return *asset.bookmarkDataList;
    return asset.bookmarkData ? std::vector{*asset.bookmarkData} : std::vector<QByteArray>();
}

VideoAsset restoredAsset(const VideoAsset& kept, const RestoredProject::SideLoad& load,
                         const std::optional<VideoAsset>& live)
{
    const bool isLoaded = live && live->fileURLs == load.found;
    VideoAsset asset = isLoaded ? *live : kept;
    asset.id = kept.id;
    asset.fileURLs = load.found;
    asset.bookmarkData = load.bookmarks.front();
    asset.bookmarkDataList = load.bookmarks;
    if (!asset.proxyURL)
        asset.proxyURL = kept.proxyURL;
    return asset;
}

void takeBookmarks(VideoAsset& asset, const std::vector<std::optional<QByteArray>>& made)
{
    const std::vector<QByteArray> earlier = bookmarksOf(asset);
    const bool eachHasOne = earlier.size() == asset.fileURLs.size();
    const bool isAway = std::ranges::none_of(made, [](const auto& bookmark) { return bookmark.has_value(); });
    std::vector<QByteArray> bookmarks;
    for (size_t i = 0; i < made.size(); ++i) {
        if (made[i])
            bookmarks.push_back(*made[i]);
        else if (eachHasOne)
            bookmarks.push_back(earlier[i]);
    }
    // Which file each of them belongs to is not known, but without them the side would be lost.
    if (isAway && !eachHasOne)
        bookmarks = earlier;
    asset.bookmarkData = bookmarks.empty() ? std::nullopt : std::optional(bookmarks.front());
    asset.bookmarkDataList = std::move(bookmarks);
}

}
