// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/movie/MediaAsset.h"
#include "media/movie/MovieError.h"
#include "platform/Task.h"

#include <QThreadPool>
#include <functional>
#include <variant>

namespace zumeta {

using AssetOutcome = std::variant<MediaAsset, MovieError>;

/// Looks at media files without keeping the main thread waiting. Main thread; several loads may be under way at once.
class AssetLoader {
public:
    AssetLoader() = default;
    virtual ~AssetLoader() = default;
    AssetLoader(const AssetLoader&) = delete; // an interface: copying would slice
    AssetLoader& operator=(const AssetLoader&) = delete;
    virtual Task<AssetOutcome> load(FileUrl url) = 0;
};

/// On threads of its own. Waits at its end for what is under way.
class ThreadedAssetLoader final : public AssetLoader {
public:
    using Load = std::function<MediaAsset(const FileUrl&)>;
    explicit ThreadedAssetLoader(Load load = [](const FileUrl& url) { return MediaAsset::load(url); });
    Task<AssetOutcome> load(FileUrl url) override;

private:
    Load m_load;
    QThreadPool m_threads;
};

}
