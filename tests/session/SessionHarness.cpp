// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/SessionHarness.h"

namespace zumeta::test {

MediaAsset FakeVideo::asset(const FileUrl& url) const
{
    MediaAsset asset;
    asset.url = url;
    asset.duration = MediaTime::nearest(duration, kSeekTimescale);
    if (hasVideo) {
        VideoTrack& track = asset.video.emplace();
        track.naturalWidth = size.width;
        track.naturalHeight = size.height;
        track.nominalFrameRate = float(1 / frameDuration.seconds());
        track.minFrameDuration = frameDuration;
        track.preferredTransform = transform;
        track.length = asset.duration;
    }
    asset.audio.emplace().end = asset.duration;
    return asset;
}

FileUrl FakeMedia::add(const char* path, const FakeVideo& video)
{
    m_videos[path] = video;
    return FileUrl(path);
}

Task<AssetOutcome> FakeMedia::load(FileUrl url)
{
    assetLoads.push_back(url);
    const FakeVideo found = video(url);
    co_await m_time.pass(found.assetDelay);
    if (!found.isReadable)
        co_return MovieError(MovieError::Kind::cannotOpen, "cannot be read");
    co_return found.asset(url);
}

Task<MetadataOutcome> FakeMedia::loadMetadata(std::vector<FileUrl> urls)
{
    VideoAsset asset;
    asset.id = QUuid::createUuid();
    asset.fileURLs = urls;
    for (const FileUrl& url : urls) {
        const FakeVideo found = video(url);
        co_await m_time.pass(found.metadataDelay);
        if (!found.isReadable)
            co_return MetadataFailure{std::nullopt, QStringLiteral("cannot be read")};
        asset.duration += found.duration;
    }
    const FakeVideo first = video(urls.front());
    asset.fileName = urls.front().displayName();
    asset.width = int64_t(first.size.width);
    asset.height = int64_t(first.size.height);
    asset.frameRate = 1 / first.frameDuration.seconds();
    co_return asset;
}

Task<int> ScriptedDialogs::showAlert(Alert alert)
{
    alerts.push_back(alert);
    co_await m_time.pass(delay);
    co_return answer;
}

Task<std::optional<FileUrl>> ScriptedDialogs::showSavePanel(SavePanel panel)
{
    savePanels.push_back(panel);
    const std::optional<FileUrl> place = savePlace; // the panel may outlast the test
    co_await m_time.pass(delay);
    co_return place;
}

bool FakeFileAccess::startAccessing(const FileUrl& url)
{
    started.push_back(url);
    return !refused.contains(url.path().native());
}

Task<std::vector<std::optional<QByteArray>>> FakeBookmarks::make(std::vector<FileUrl> urls)
{
    co_await m_time.pass(delay);
    std::vector<std::optional<QByteArray>> made;
    for (const FileUrl& url : urls) {
        const bool isGone = gone.contains(url.path().native());
        made.push_back(isGone ? std::nullopt : std::optional(of(url.path().c_str())));
    }
    co_return made;
}

Task<std::vector<BookmarkOutcome>> FakeBookmarks::resolve(std::vector<QByteArray> bookmarks,
                                                          std::vector<std::filesystem::path> searchFolders)
{
    searches.push_back(searchFolders);
    co_await m_time.pass(delay);
    std::vector<BookmarkOutcome> outcomes;
    for (const QByteArray& bookmark : bookmarks) {
        const std::string path = bookmark.mid(of("").size()).toStdString();
        const auto place = moved.find(path);
        if (gone.contains(path))
            outcomes.emplace_back(BookmarkError(BookmarkError::Kind::notFound, "Not found: " + path));
        else if (place != moved.end())
            outcomes.emplace_back(ResolvedBookmark{FileUrl(place->second), true});
        else
            outcomes.emplace_back(ResolvedBookmark{FileUrl(path), false});
    }
    co_return outcomes;
}

Task<ProjectReadOutcome> FakeProjectFiles::read(FileUrl url)
{
    const auto slow = readDelays.find(url.path().native());
    co_await m_time.pass(slow == readDelays.end() ? delay : slow->second);
    const auto file = files.find(url.path().native());
    if (file == files.end())
        co_return ProjectFileError(ProjectFileError::Kind::fileNotReadable, {}, "no such file");
    co_return ProjectReadOutcome(file->second); // a copy: what is returned by name is moved from
}

Task<ProjectWriteOutcome> FakeProjectFiles::write(FileUrl url, ProjectState state)
{
    co_await m_time.pass(delay);
    if (isFull)
        co_return ProjectFileError(ProjectFileError::Kind::fileNotWritten, {}, "disk full");
    files[url.path().native()] = state;
    co_return std::nullopt;
}

Task<ProxyOutcome> FakeProxyMaker::generateProxy(FileUrl url, ProxyConfig, Progress progress)
{
    requests.push_back(url);
    if (progress)
        progress(0.5);
    co_await m_time.pass(delay);
    if (error)
        co_return *error;
    co_return FileUrl("/proxies/" + url.lastPathComponent());
}

SessionHarness::SessionHarness()
{
    session = std::make_unique<CompositorViewModel>(SessionEnvironment{
        .playbackClock = clock,
        .queue = time,
        .notifications = notifications,
        .fileAccess = fileAccess,
        .bookmarks = bookmarks,
        .projectFiles = projectFiles,
        .dialogs = dialogs,
        .localized = [this](const QString& key) { return localized(key); },
        .wallClock = wallClock,
        .assets = media,
        .loadMetadata = [this](std::vector<FileUrl> urls) { return media.loadMetadata(std::move(urls)); },
        .proxyGenerator = proxies,
        .makePlayer = [this] { return std::make_unique<VirtualPlayer>(clock); },
        .makeExporter = [this] { return exporters.emplace_back(std::make_shared<FakeExporter>(time, exportScript)); },
        .sleepInhibitor = sleepInhibitor,
    });
    time.runDueWork();
}

SessionHarness::~SessionHarness()
{
    // While the doubles are still there, which what is under way comes back to.
    session.reset();
    time.runWhatIsLeft();
}

FileUrl SessionHarness::loadAbove(const char* path, const FakeVideo& video)
{
    const FileUrl url = media.add(path, video);
    session->loadAboveVideo({url});
    advance(5);
    return url;
}

FileUrl SessionHarness::loadBelow(const char* path, const FakeVideo& video)
{
    const FileUrl url = media.add(path, video);
    session->loadBelowVideo({url});
    advance(5);
    return url;
}

void SessionHarness::loadBoth(const FakeVideo& above, const FakeVideo& below)
{
    session->loadAboveVideo({media.add("/above.mp4", above)});
    session->loadBelowVideo({media.add("/below.mp4", below)});
    advance(5);
}

void SessionHarness::lockBoth(double aboveTime, double belowTime)
{
    session->setCurrentStep(WorkflowStep::step1);
    session->seek(aboveTime, true);
    session->toggleAboveLock();
    session->setCurrentStep(WorkflowStep::step2);
    session->seek(belowTime, true);
    session->toggleBelowLock();
    advance(0.1);
}

void SessionHarness::enterComposite(WorkflowStep step, SideTiming above, SideTiming below)
{
    loadBoth({.duration = above.duration}, {.duration = below.duration});
    lockBoth(above.syncTime, below.syncTime);
    session->setCurrentStep(WorkflowStep::step3);
    if (step == WorkflowStep::step4)
        session->setCurrentStep(WorkflowStep::step4);
    advance(0.1);
    for (VirtualPlayer* const player : {&this->above(), &this->below()}) {
        player->seeks.clear();
        player->rateChanges.clear();
    }
}

void SessionHarness::edit(const std::function<void(VideoCompositionConfig&)>& edit)
{
    VideoCompositionConfig config = session->projectConfig();
    edit(config);
    session->setProjectConfig(config);
}

void SessionHarness::post(const QString& notification, const QVariantMap& userInfo)
{
    notifications.post(notification, userInfo);
    time.runDueWork();
}

bool SessionHarness::hasLogged(const QString& beginning) const
{
    return std::ranges::any_of(log, [&](const QString& line) { return line.startsWith(beginning); });
}

}
