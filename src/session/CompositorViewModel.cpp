// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/CompositorViewModel.h"

#include <QDateTime>
#include <QLocale>

namespace zumeta {

// Fields take their values in the order in which they are declared; the logic of a change of step does not run.
CompositorViewModel::CompositorViewModel(SessionEnvironment environment)
    : PublishedFields(ProjectState::createdNow(environment.wallClock))
    , m_environment(std::move(environment))
    , m_loadRequestID{QUuid::createUuid(), QUuid::createUuid()}
    , m_proxyService(m_environment.proxyGenerator, m_environment.queue)
{
    for (const Side side : {Side::above, Side::below})
        m_playerServices[side] = std::make_unique<VideoPlayerService>(m_environment.makePlayer(), m_environment.assets);
    setupBindings();
}

CompositorViewModel::~CompositorViewModel()
{
    // A movie that nobody waits for any more must not be left half written when the program ends.
    if (m_activeExportService)
        m_activeExportService->cancel();
}

double CompositorViewModel::effectiveExportDuration() const
{
    const VideoCompositionConfig& config = m_fields.projectConfig;
    return std::max(m_fields.duration - config.exportTrimStartSeconds - config.exportTrimEndSeconds, 0.0);
}

double CompositorViewModel::activePlaybackRate() const
{
    constexpr double kNormalRate = 1.0;
    constexpr double kSlowRate = 0.5;
    const bool isSlow = m_fields.currentStep == WorkflowStep::step3 && m_fields.isStep3SlowPlaybackEnabled;
    return isSlow ? kSlowRate : kNormalRate;
}

std::optional<Side> CompositorViewModel::stepSide() const
{
    if (m_fields.currentStep == WorkflowStep::step1)
        return Side::above;
    if (m_fields.currentStep == WorkflowStep::step2)
        return Side::below;
    return std::nullopt;
}

std::optional<FileUrl> CompositorViewModel::currentVideoURL() const
{
    const std::optional<Side> side = stepSide();
    return side ? m_fields.videoURL[*side] : std::nullopt;
}

std::optional<double> CompositorViewModel::currentManualSyncTime() const
{
    const std::optional<Side> side = stepSide();
    return side ? m_fields.manualSyncTime[*side] : std::nullopt;
}

bool CompositorViewModel::canExport() const
{
    return m_fields.videoURL.above || m_fields.videoURL.below;
}

QString CompositorViewModel::filenameTimestamp() const
{
    const std::chrono::sys_seconds now = m_environment.wallClock.now();
    const QDateTime local = QDateTime::fromSecsSinceEpoch(now.time_since_epoch().count()).toLocalTime();
    return QLocale::c().toString(local, QStringLiteral("yyyy_MMdd_HHmm"));
}

QString CompositorViewModel::defaultOutputFilenameBase() const
{
    return QStringLiteral("Zumeta_") + rawValue(m_fields.selectedResolution) + QLatin1Char('_') + filenameTimestamp();
}

bool CompositorViewModel::showDropZoneAboveHighlight() const
{
    return m_fields.currentStep == WorkflowStep::step1 && !m_fields.videoURL.above;
}

bool CompositorViewModel::showDropZoneBelowHighlight() const
{
    return m_fields.currentStep == WorkflowStep::step2 && !m_fields.videoURL.below;
}

bool CompositorViewModel::showTimelineHighlight() const
{
    return currentVideoURL() && !currentManualSyncTime();
}

bool CompositorViewModel::showMarkButtonHighlight() const
{
    constexpr double kBeginning = 0.1; ///< seconds
    return showTimelineHighlight() && !m_fields.isPlaying && m_fields.currentTime > kBeginning;
}

bool CompositorViewModel::showTapAreaHighlight() const
{
    const std::optional<Side> side = stepSide();
    if (!side || m_fields.alignmentPoints[*side])
        return false;
    return m_fields.alignmentState ==
           (*side == Side::above ? AlignmentState::pickingAbove : AlignmentState::pickingBelow);
}

}
