// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/movie/MediaAsset.h"
#include "model/VideoCompositionConfig.h"

#include <optional>

namespace zumeta {

/// Whether the transform lays a picture on its side. The display's rotation counts only where shapes are compared;
/// pictures are composed as they are stored.
bool isRotated(const PreferredTransform& transform);

/// The picture as it would be displayed, after its rotation.
Size displaySize(const VideoTrack& track);

/// Width over height as displayed; absent when the height is not above 0.
std::optional<double> aspectRatio(const VideoTrack& track);

}
