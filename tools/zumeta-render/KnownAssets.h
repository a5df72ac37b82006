// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/movie/MediaAsset.h"

#include <filesystem>
#include <map>
#include <mutex>
#include <stop_token>

namespace zumeta {

/// What was found out about files: none is looked at twice. Any thread.
class KnownAssets {
public:
    /// Throws what MediaAsset::load throws; a failure is not remembered.
    MediaAsset load(const FileUrl& url, const std::stop_token& stop = {});

private:
    std::mutex m_mutex;
    std::map<std::filesystem::path, MediaAsset> m_assets;
};

}
