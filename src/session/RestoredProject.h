// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "model/ProjectState.h"
#include "platform/Bookmarks.h"
#include "session/Side.h"

#include <QUuid>
#include <cstdint>

namespace zumeta {

/// A project that was opened, until the next one: its loads may end long after it is in force.
struct RestoredProject {
    uint64_t request = 0; ///< counts the openings
    ProjectState state;   ///< as the file told it
    struct SideLoad {
        std::vector<FileUrl> found;        ///< in playback order; empty when the side is not in the file or missing
        std::vector<QByteArray> bookmarks; ///< by which they were found
        QUuid requestID;                   ///< of the load of what was found
        bool isUnderWay = false;
    };
    Sides<SideLoad> sides;
    bool isInForce = false; ///< the step is set; what is left are loads that took long

    bool isSettled() const { return isInForce && !sides.above.isUnderWay && !sides.below.isUnderWay; }
};

/// The bookmarks of a side in playback order; a file of before there were chapters has a single one.
std::vector<QByteArray> bookmarksOf(const VideoAsset& asset);

/// The record of a side whose files were found: that of the project, but with the files where they were found, so that
/// the movie is made of what is shown. `live` is the session's record of that side; once the files are loaded, it knows
/// them better than the project does.
VideoAsset restoredAsset(const VideoAsset& kept, const RestoredProject::SideLoad& load,
                         const std::optional<VideoAsset>& live);

/// Puts new bookmarks into a record, one for each of its files. A file of which none can be made now, since its disk is
/// away, keeps the one that it has; without one it is left out.
void takeBookmarks(VideoAsset& asset, const std::vector<std::optional<QByteArray>>& made);

}
