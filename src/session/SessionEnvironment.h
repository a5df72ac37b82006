// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/AssetLoader.h"
#include "media/ProxyMaker.h"
#include "media/VideoMetadataLoader.h"
#include "media/playback/PlaybackClock.h"
#include "media/playback/Player.h"
#include "platform/Bookmarks.h"
#include "platform/Dialogs.h"
#include "platform/FileAccess.h"
#include "platform/MainQueue.h"
#include "platform/NotificationCenter.h"
#include "platform/SleepInhibitor.h"
#include "platform/Task.h"
#include "platform/WallClock.h"
#include "render/export/Exporter.h"
#include "session/ProjectFiles.h"

#include <functional>
#include <memory>

namespace zumeta {

/// All that the session is given from outside, so that it runs without a window, real media or real time as well.
/// What is referred to must outlive the session.
struct SessionEnvironment {
    PlaybackClock& playbackClock; ///< that of all players that makePlayer makes
    MainQueue& queue;
    NotificationCenter& notifications;
    FileAccess& fileAccess;
    Bookmarks& bookmarks;
    ProjectFiles& projectFiles;
    Dialogs& dialogs;
    std::function<QString(const QString& key)> localized;
    const WallClock& wallClock;
    AssetLoader& assets;
    std::function<Task<MetadataOutcome>(std::vector<FileUrl> urls)> loadMetadata;
    ProxyMaker& proxyGenerator;
    std::function<std::unique_ptr<Player>()> makePlayer;
    std::function<std::shared_ptr<Exporter>()> makeExporter; ///< a new one for each export
    SleepInhibitor& sleepInhibitor;
};

}
