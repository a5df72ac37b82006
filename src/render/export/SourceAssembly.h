// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/movie/MediaComposition.h"

#include <functional>
#include <vector>

namespace zumeta {

/// How the clips of a source come into its composition. Every step may throw.
struct ClipSteps {
    std::function<MediaAsset(const FileUrl&)> load;
    std::function<void(MediaComposition&, const MediaAsset&, MediaTime)> insertAudio;

    static ClipSteps with(std::function<MediaAsset(const FileUrl&)> load);
};

/// Joins the files of one side in the order given. One file is taken as it is, and what it cannot do is thrown;
/// of several, those that fail are logged and left out. A clip whose sound fails after its picture went in stays,
/// and the next clip is laid over it. Throws ExportError::missingVideoTrack for an empty list.
MediaComposition createAssetFromURLs(const std::vector<FileUrl>& urls, const ClipSteps& steps);

}
