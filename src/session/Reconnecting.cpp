// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/CompositorViewModel.h"

#include <QPointer>

namespace zumeta {

namespace {

constexpr double kTimeAfterLoad = 0.5; ///< seconds

}

void CompositorViewModel::reconnectVideo(Side side, const std::vector<FileUrl>& urls)
{
    if (urls.empty())
        return;
    retainSecurityScopedAccess(urls);
    // One that is under way has reset values already; what was there before it is kept on.
    if (!isReconnecting(Side::above) && !isReconnecting(Side::below))
        m_reconnection = {.config = configToReconnect(), .bases = m_bases, .requestID = {}};
    const QUuid requestID = m_loadRequestID[side] = m_reconnection.requestID[side] = QUuid::createUuid();
    m_environment.queue.post([self = QPointer(this), side, urls, requestID] {
        if (self)
            self->reconnect(side, urls, requestID);
    });
}

bool CompositorViewModel::isReconnecting(Side side) const
{
    return isCurrentLoad(side, m_reconnection.requestID[side]);
}

VideoCompositionConfig CompositorViewModel::configToReconnect() const
{
    VideoCompositionConfig config = m_fields.projectConfig;
    // Without a video there is no timeline, and its update cut the trims away; no hand has set any since.
    const bool isAnyMissing = m_fields.isMissing.above || m_fields.isMissing.below;
    if (m_restoredProject && isAnyMissing && compositeTimeline().duration <= 0) {
        const VideoCompositionConfig& kept = m_restoredProject->state.projectConfig;
        config.exportTrimStartSeconds = kept.exportTrimStartSeconds;
        config.exportTrimEndSeconds = kept.exportTrimEndSeconds;
    }
    return config;
}

Task<> CompositorViewModel::reconnect(Side side, std::vector<FileUrl> urls, QUuid requestID)
{
    const QPointer<CompositorViewModel> self(this);
    co_await performLoad(side, std::move(urls), requestID);
    if (!self)
        co_return;
    m_environment.queue.postAfter(kTimeAfterLoad, [self, side, requestID] {
        if (self && self->isCurrentLoad(side, requestID))
            self->finishReconnect(side);
    });
}

void CompositorViewModel::finishReconnect(Side side)
{
    const Operation operation(*this);
    const VideoCompositionConfig config = m_reconnection.config;
    m_reconnection.requestID[side] = {};
    setProjectConfig(config);
    m_bases = m_reconnection.bases;
    restoreManualSyncTimes(config);
    m_fields.isMissing[side] = false;
    m_fields.showMissingFileAlert = m_fields.isMissing.above || m_fields.isMissing.below;
    if (!m_fields.videoURL[otherSide(side)])
        setRestoredStep(WorkflowStep::step1);
    else
        setRestoredStep(config.isSynced ? WorkflowStep::step3 : WorkflowStep::step2);
}

}
