// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/ProjectShape.h"
#include "platform/Log.h"
#include "session/CompositorViewModel.h"
#include "session/PictureShape.h"
#include "session/VideoChecks.h"

#include <QPointer>
#include <cmath>

namespace zumeta {

// False when access is refused. A file that is held already is not asked for twice.
bool CompositorViewModel::retainAccess(const FileUrl& url)
{
    if (std::ranges::find(m_securityScopedURLs, url) != m_securityScopedURLs.end())
        return true;
    if (!m_environment.fileAccess.startAccessing(url))
        return false;
    m_securityScopedURLs.push_back(url);
    return true;
}

void CompositorViewModel::retainSecurityScopedAccess(const std::vector<FileUrl>& urls)
{
    for (const FileUrl& url : urls)
        retainAccess(url);
}

void CompositorViewModel::releaseSecurityScopedResources()
{
    for (const FileUrl& url : m_securityScopedURLs)
        m_environment.fileAccess.stopAccessing(url);
    m_securityScopedURLs.clear();
}

void CompositorViewModel::loadVideo(Side side, const std::vector<FileUrl>& urls, Admission admission)
{
    if (urls.empty())
        return;
    retainSecurityScopedAccess(urls);
    const QUuid requestID = m_loadRequestID[side] = QUuid::createUuid();
    // Asked here and not in the task: two sides that are loaded in one turn are not questioned against each other.
    std::optional<FileUrl> otherURL;
    if (admission == Admission::asksOtherSide)
        otherURL = m_fields.videoURL[otherSide(side)];
    m_environment.queue.post([self = QPointer(this), side, urls, otherURL, requestID] {
        if (self)
            self->admitAndLoad(side, urls, otherURL, requestID);
    });
}

Task<> CompositorViewModel::admitAndLoad(Side side, std::vector<FileUrl> urls, std::optional<FileUrl> otherURL,
                                         QUuid requestID)
{
    const QPointer<CompositorViewModel> self(this);
    if (otherURL)
        co_await checkAndLoad(side, std::move(urls), *otherURL, requestID);
    else
        co_await performLoad(side, std::move(urls), requestID);
    if (self)
        projectLoadHasEnded(side, requestID);
}

Task<> CompositorViewModel::checkAndLoad(Side side, std::vector<FileUrl> urls, FileUrl otherURL, QUuid requestID)
{
    const QPointer<CompositorViewModel> self(this);
    const bool ratiosMatch = co_await checkAspectRatioMatch(m_environment.assets, urls.front(), otherURL);
    if (!self || !isCurrentLoad(side, requestID))
        co_return;
    if (!ratiosMatch) {
        co_await showErrorAlert(
            QStringLiteral("Aspect Ratio Mismatch"),
            QStringLiteral("Please use videos with the same aspect ratio (e.g. both 16:9 or both 4:3)."));
        co_return;
    }
    const bool familiesMatch = co_await checkFrameRateFamilyMatch(m_environment.assets, urls.front(), otherURL);
    if (!self || !isCurrentLoad(side, requestID))
        co_return;
    if (!familiesMatch) {
        const bool goesOn = co_await showConfirmationAlert(
            QStringLiteral("Frame Rate Mismatch"),
            QStringLiteral("The dropped video has a different frame rate. Exporting may cause video or audio sync "
                           "issues. Do you want to continue?"));
        if (!self || !goesOn || !isCurrentLoad(side, requestID))
            co_return;
    }
    co_await performLoad(side, std::move(urls), requestID);
}

Task<bool> CompositorViewModel::loadIntoPlayer(Side side, std::vector<FileUrl> urls, QUuid requestID)
{
    const QPointer<CompositorViewModel> self(this);
    if (urls.empty() || !isCurrentLoad(side, requestID))
        co_return false;
    m_loadUnderWay[side] = requestID;
    assign(m_fields.videoURL[side], std::optional(urls.front()));
    const MetadataOutcome outcome = co_await m_environment.loadMetadata(urls);
    if (!self)
        co_return false;
    if (const MetadataFailure* const failure = std::get_if<MetadataFailure>(&outcome)) {
        logLine((side == Side::above ? QStringLiteral("Failed to load above video: ")
                                     : QStringLiteral("Failed to load below video: ")) +
                failure->description);
        co_return false;
    }
    if (!isCurrentLoad(side, requestID))
        co_return false;
    const VideoAsset asset = std::get<VideoAsset>(outcome);
    assign(videoAsset(side), std::optional(asset));
    co_await playerService(side).load(asset, true);
    co_return !self.isNull() && isCurrentLoad(side, requestID);
}

Task<> CompositorViewModel::performLoad(Side side, std::vector<FileUrl> urls, QUuid requestID)
{
    const QPointer<CompositorViewModel> self(this);
    const bool isLoaded = co_await loadIntoPlayer(side, urls, requestID);
    if (!self)
        co_return;
    loadHasEnded(side, requestID);
    if (!isLoaded)
        co_return;
    startProxy(side, urls.front(), requestID);
    const AssetOutcome outcome = co_await m_environment.assets.load(urls.front());
    if (!self || !isCurrentLoad(side, requestID))
        co_return;
    const Operation operation(*this);
    // A picture that cannot be looked at decides nothing; the load goes on.
    if (const MediaAsset* const asset = std::get_if<MediaAsset>(&outcome); asset && asset->video)
        lookAtShape(side, *asset->video);
    finishLoad(side);
}

void CompositorViewModel::loadHasEnded(Side side, const QUuid& requestID)
{
    const Operation operation(*this);
    if (m_loadUnderWay[side] != requestID)
        return;
    m_loadUnderWay[side] = {};
    noteChange();
}

void CompositorViewModel::startProxy(Side side, const FileUrl& url, const QUuid& requestID)
{
    ProxyService::Completed onCompleted = [self = QPointer(this), side, url, requestID](const FileUrl& proxy) {
        if (self)
            self->takeProxy(side, url, proxy, requestID);
    };
    if (side == Side::above)
        m_proxyService.generateProxyForAboveVideo(url, std::move(onCompleted));
    else
        m_proxyService.generateProxyForBelowVideo(url, std::move(onCompleted));
}

void CompositorViewModel::takeProxy(Side side, const FileUrl& source, const FileUrl& proxy, const QUuid& requestID)
{
    const Operation operation(*this);
    if (!isCurrentLoad(side, requestID))
        return;
    std::optional<VideoAsset>& asset = videoAsset(side);
    // A side of several chapters stays on its source files.
    if (!asset || asset->fileURLs.size() != 1 || asset->fileURLs.front() != source)
        return;
    asset->proxyURL = proxy;
    playerService(side).switchSource(proxy);
}

void CompositorViewModel::lookAtShape(Side side, const VideoTrack& track)
{
    const Size size = displaySize(track);
    const double ratio = size.width / size.height;
    const double distanceTo43 = std::abs(ratio - 1.3333333333333333);
    const double distanceTo169 = std::abs(ratio - 1.7777777777777777);
    noteChange();
    // The project's shape is the above video's alone.
    if (side == Side::below) {
        logLine(QStringLiteral("📊 [Step 2] Check vs Project Ratio: %1 / %2").arg(distanceTo43).arg(distanceTo169));
        return;
    }
    logLine(QStringLiteral("📊 [Step 1] Ratio diff - 4:3: %1, 16:9: %2").arg(distanceTo43).arg(distanceTo169));
    const ProjectShape shape = projectShapeForAboveVideo(size.width, size.height);
    m_fields.projectState.projectAspectRatio = shape.projectAspectRatio;
    m_fields.selectedResolution = shape.selectedResolution;
    logLine(QStringLiteral("✅ [Step 1] Project Aspect Ratio set to: %1:%2")
                .arg(shape.projectAspectRatio.width)
                .arg(shape.projectAspectRatio.height));
}

void CompositorViewModel::finishLoad(Side side)
{
    m_fields.manualSyncTime[side].reset();
    setStartTime(side, 0);
    editConfig([](VideoCompositionConfig& config) { config.isSynced = false; });
    m_fields.syncStatusMessage.reset();
    seek(0, false);
}

Task<> CompositorViewModel::showErrorAlert(QString titleKey, QString messageKey)
{
    const auto& localized = m_environment.localized;
    Alert alert{localized(titleKey), localized(messageKey), {localized(QStringLiteral("OK"))}};
    co_await m_environment.dialogs.showAlert(std::move(alert));
}

Task<bool> CompositorViewModel::showConfirmationAlert(QString titleKey, QString messageKey)
{
    const auto& localized = m_environment.localized;
    Alert alert{localized(titleKey),
                localized(messageKey),
                {localized(QStringLiteral("OK")), localized(QStringLiteral("Cancel"))}};
    const int button = co_await m_environment.dialogs.showAlert(std::move(alert));
    co_return button == 0;
}

}
