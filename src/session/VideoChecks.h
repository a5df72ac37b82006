// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/AssetLoader.h"

#include <optional>

namespace zumeta {

// Whether two recordings go together. The loader must outlive the tasks.

/// Width over height as displayed; absent when the file cannot be read or has no picture.
Task<std::optional<double>> getAspectRatio(AssetLoader& assets, FileUrl url);
/// Average frames per second; absent for the same reasons.
Task<std::optional<double>> getFrameRate(AssetLoader& assets, FileUrl url);

/// What cannot be told is no mismatch: the load itself will show what is wrong with the file.
Task<bool> checkAspectRatioMatch(AssetLoader& assets, FileUrl url1, FileUrl url2);
Task<bool> checkFrameRateFamilyMatch(AssetLoader& assets, FileUrl url1, FileUrl url2);

}
