// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Log.h"
#include "session/CompositorViewModel.h"

#include <QPointer>

namespace zumeta {

namespace {

/// What the loads of a project are given before it is put in force. Those that take longer are waited for apart.
constexpr double kTimeForLoads = 0.5; ///< seconds

const std::optional<VideoAsset>& assetIn(const ProjectState& state, Side side)
{
    return side == Side::above ? state.aboveVideo : state.belowVideo;
}

}

void CompositorViewModel::importProject(const std::vector<FileUrl>& urls)
{
    if (urls.empty())
        return;
    releaseSecurityScopedResources();
    loadProject(urls.front());
}

void CompositorViewModel::projectImportFailed(const QString& error)
{
    logLine(QStringLiteral("Failed to import project: ") + error);
}

void CompositorViewModel::loadProject(const FileUrl& url)
{
    m_environment.queue.post([self = QPointer(this), url, request = ++m_projectRequest] {
        if (self)
            self->openProject(url, request);
    });
}

Task<> CompositorViewModel::openProject(FileUrl url, uint64_t request)
{
    const QPointer<CompositorViewModel> self(this);
    const auto access = std::make_shared<ScopedFileAccess>(m_environment.fileAccess, url);
    ProjectReadOutcome outcome = co_await m_environment.projectFiles.read(url);
    if (!self)
        co_return;
    if (const ProjectFileError* const error = std::get_if<ProjectFileError>(&outcome)) {
        const QString reason = QString::fromUtf8(error->what());
        logLine(QStringLiteral("Failed to load project: ") + reason);
        Q_EMIT projectLoadFailed(reason);
        co_return;
    }
    // A file that cannot be read overtakes nothing; one that was opened later and read sooner does.
    if (request < m_newestProject)
        co_return;
    takeProject(std::get<ProjectState>(std::move(outcome)), request);
    const std::vector<BookmarkOutcome> resolved = co_await resolveBookmarks(m_restoredProject->state, url);
    if (!self || !isCurrentProject(request))
        co_return;
    loadFoundFiles(resolved);
    m_environment.queue.postAfter(kTimeForLoads, [self, access, url, request] {
        if (self && self->isCurrentProject(request))
            self->putProjectInForce(url);
    });
}

void CompositorViewModel::takeProject(ProjectState state, uint64_t request)
{
    const Operation operation(*this);
    m_newestProject = request;
    m_restoredProject = RestoredProject{.request = request, .state = std::move(state), .sides = {}};
    const ProjectState& kept = m_restoredProject->state;
    m_fields.projectState = kept;
    setProjectConfig(kept.projectConfig);
    m_bases = Step3Bases::keptIn(kept);
    restoreManualSyncTimes(kept.projectConfig);
    m_fields.isMissing = {};
    m_fields.showMissingFileAlert = false;
}

// One search for both sides: a search has bounds, and the user waits for it.
Task<std::vector<BookmarkOutcome>> CompositorViewModel::resolveBookmarks(ProjectState state, FileUrl projectURL)
{
    std::vector<QByteArray> all;
    for (const Side side : {Side::above, Side::below}) {
        if (const std::optional<VideoAsset>& asset = assetIn(state, side))
            std::ranges::copy(bookmarksOf(*asset), std::back_inserter(all));
    }
    // Named first: GCC 12 does not compile an initialiser list that an await is waiting for.
    std::vector<std::filesystem::path> folders(1, projectURL.path().parent_path());
    co_return co_await m_environment.bookmarks.resolve(std::move(all), std::move(folders));
}

void CompositorViewModel::loadFoundFiles(const std::vector<BookmarkOutcome>& outcomes)
{
    const Operation operation(*this);
    auto next = outcomes.begin();
    for (const Side side : {Side::above, Side::below}) {
        const std::optional<VideoAsset>& asset = assetIn(m_restoredProject->state, side);
        if (!asset)
            continue;
        // What it held belongs to another project, and must not be taken for a part of this one.
        unloadVideo(side);
        RestoredProject::SideLoad& load = m_restoredProject->sides[side];
        for (const QByteArray& bookmark : bookmarksOf(*asset)) {
            if (const std::optional<FileUrl> url = accessResolved(*next++)) {
                load.found.push_back(*url);
                load.bookmarks.push_back(bookmark);
            }
        }
        if (load.found.empty()) {
            logLine(side == Side::above ? QStringLiteral("❌ Failed to resolve bookmark for Above Video")
                                        : QStringLiteral("❌ Failed to resolve bookmark for Below Video"));
            m_fields.isMissing[side] = true;
            m_fields.showMissingFileAlert = true;
        }
    }
    loadRestoredVideos();
}

std::optional<FileUrl> CompositorViewModel::accessResolved(const BookmarkOutcome& outcome)
{
    if (const BookmarkError* const error = std::get_if<BookmarkError>(&outcome)) {
        logLine(QStringLiteral("❌ Failed to resolve bookmark: ") + QString::fromUtf8(error->what()));
        return std::nullopt;
    }
    const auto& [url, isStale] = std::get<ResolvedBookmark>(outcome);
    if (!retainAccess(url))
        return std::nullopt;
    if (isStale)
        logLine(QStringLiteral("⚠️ Stale bookmark for: %1 — will refresh on next save").arg(url.displayName()));
    return url;
}

void CompositorViewModel::loadRestoredVideos()
{
    const ProjectState& state = m_restoredProject->state;
    // Two sides of one project belong together already, whatever lay on the other side before.
    const Admission admission = state.aboveVideo && state.belowVideo ? Admission::isGranted : Admission::asksOtherSide;
    for (const Side side : {Side::above, Side::below}) {
        RestoredProject::SideLoad& load = m_restoredProject->sides[side];
        load.isUnderWay = !load.found.empty();
        loadVideo(side, load.found, admission);
        load.requestID = m_loadRequestID[side];
    }
}

void CompositorViewModel::putProjectInForce(const FileUrl& url)
{
    {
        const Operation operation(*this);
        applyRestoredProject();
        m_restoredProject->isInForce = true;
        if (m_fields.videoURL.below)
            setRestoredStep(m_fields.projectConfig.isSynced ? WorkflowStep::step3 : WorkflowStep::step2);
        else if (m_fields.videoURL.above)
            setRestoredStep(WorkflowStep::step1);
    }
    logLine(QStringLiteral("Project loaded from ") + QString::fromStdString(url.path().native()));
    if (m_restoredProject->isSettled())
        Q_EMIT projectRestored();
}

// Loads reset values while they run; here these come back.
void CompositorViewModel::applyRestoredProject()
{
    const Operation operation(*this);
    ProjectState state = m_restoredProject->state;
    for (const Side side : {Side::above, Side::below}) {
        const RestoredProject::SideLoad& load = m_restoredProject->sides[side];
        std::optional<VideoAsset>& asset = side == Side::above ? state.aboveVideo : state.belowVideo;
        // A video that was chosen since stays the one that is shown and exported.
        if (!isCurrentLoad(side, load.requestID))
            asset = videoAsset(side);
        else if (asset && !load.found.empty())
            asset = restoredAsset(*asset, load, videoAsset(side));
    }
    const VideoCompositionConfig config = state.projectConfig;
    m_fields.projectState = std::move(state);
    setProjectConfig(config);
    restoreManualSyncTimes(config);
}

void CompositorViewModel::setRestoredStep(WorkflowStep step)
{
    m_isRestoringProjectStep = true;
    setCurrentStep(step);
    m_isRestoringProjectStep = false;
}

void CompositorViewModel::projectLoadHasEnded(Side side, const QUuid& requestID)
{
    if (!m_restoredProject || m_restoredProject->sides[side].requestID != requestID)
        return;
    m_restoredProject->sides[side].isUnderWay = false;
    if (!m_restoredProject->isInForce)
        return;
    if (isCurrentLoad(side, requestID)) {
        const Operation operation(*this);
        applyRestoredProject();
        updateDuration();
        // Back to where the change of step had put the playhead, as far as it could.
        if (isCompositeStep())
            seek(m_fields.currentTime, true);
        else if (const std::optional<double> syncTime = currentManualSyncTime())
            seek(*syncTime, true);
    }
    if (m_restoredProject->isSettled())
        Q_EMIT projectRestored();
}

}
