// SPDX-License-Identifier: GPL-3.0-or-later
#include "session/CompositorViewModel.h"

#include <QPointer>

namespace zumeta {

namespace {

std::optional<int> integerAt(const QVariantMap& userInfo, const QString& key)
{
    const QVariant value = userInfo.value(key);
    return value.typeId() == QMetaType::Int ? std::optional(value.toInt()) : std::nullopt;
}

}

void CompositorViewModel::post(void (CompositorViewModel::*work)())
{
    m_environment.queue.post([self = QPointer(this), work] {
        if (self)
            (self->*work)();
    });
}

void CompositorViewModel::setupBindings()
{
    // Each value as it was published; by the time of its turn the next one may be there.
    const auto follow = [this](Side side, const ProxyStatus& status) {
        m_environment.queue.post([self = QPointer(this), side, status] {
            if (self)
                self->assign(self->m_fields.proxyStatus[side], status);
        });
    };
    connect(&m_proxyService, &ProxyService::aboveVideoStatusChanged, this,
            [this, follow] { follow(Side::above, m_proxyService.aboveVideoStatus()); });
    connect(&m_proxyService, &ProxyService::belowVideoStatusChanged, this,
            [this, follow] { follow(Side::below, m_proxyService.belowVideoStatus()); });
    bindPlayer(Side::above);
    bindPlayer(Side::below);
    bindNotifications();
}

void CompositorViewModel::bindPlayer(Side side)
{
    VideoPlayerService* const service = m_playerServices[side].get();
    // A report comes on a turn of its own already.
    connect(service, &VideoPlayerService::timeReported, this,
            [this, side](double seconds) { timeReported(side, seconds); });
    connect(service, &VideoPlayerService::durationChanged, this,
            [this] { post(&CompositorViewModel::updateDuration); });
}

void CompositorViewModel::observe(const QString& name, void (CompositorViewModel::*handler)(const QVariantMap&))
{
    m_environment.notifications.observe(name, this, [this, handler](const QVariantMap& userInfo) {
        m_environment.queue.post([self = QPointer(this), handler, userInfo] {
            if (self)
                (self->*handler)(userInfo);
        });
    });
}

void CompositorViewModel::bindNotifications()
{
    observe(notifications::kStepFrames, &CompositorViewModel::stepFramesRequested);
    observe(notifications::kMarkSyncPoint, &CompositorViewModel::markSyncPointRequested);
    observe(notifications::kTogglePlaybackShortcut, &CompositorViewModel::togglePlaybackRequested);
    observe(notifications::kPausePlaybackShortcut, &CompositorViewModel::pauseRequested);
    observe(notifications::kAdjustPlaybackRateShortcut, &CompositorViewModel::adjustPlaybackRateRequested);
    observe(notifications::kSetTrimPointToPlayhead, &CompositorViewModel::setTrimPointRequested);
    observe(notifications::kDeleteSelectedTrimMarker, &CompositorViewModel::deleteTrimMarkerRequested);
    observe(notifications::kNavigateTrimMarker, &CompositorViewModel::navigateTrimMarkerRequested);
    observe(notifications::kUndoStepEdit, &CompositorViewModel::undoRequested);
    observe(notifications::kRedoStepEdit, &CompositorViewModel::redoRequested);
}

void CompositorViewModel::stepFramesRequested(const QVariantMap& userInfo)
{
    if (const std::optional<int> frames = integerAt(userInfo, QStringLiteral("frames")))
        step(*frames);
}

void CompositorViewModel::markSyncPointRequested(const QVariantMap&)
{
    if (const std::optional<Side> side = stepSide())
        toggleLock(*side);
    else if (m_fields.currentStep == WorkflowStep::step4)
        addTrimMarkerAtCurrentTime();
}

void CompositorViewModel::togglePlaybackRequested(const QVariantMap&)
{
    togglePlayPause();
}

void CompositorViewModel::pauseRequested(const QVariantMap&)
{
    pause();
}

void CompositorViewModel::adjustPlaybackRateRequested(const QVariantMap& userInfo)
{
    const QVariant faster = userInfo.value(QStringLiteral("faster"));
    adjustPlaybackRate(faster.typeId() == QMetaType::Bool ? faster.toBool() : true);
}

void CompositorViewModel::setTrimPointRequested(const QVariantMap& userInfo)
{
    if (m_fields.currentStep != WorkflowStep::step4)
        return;
    const QString point = userInfo.value(QStringLiteral("point")).toString();
    if (point == QLatin1String("start"))
        pressTrimStartToPlayhead();
    else if (point == QLatin1String("end"))
        pressTrimEndToPlayhead();
    else
        beginStep4Adjustment();
}

void CompositorViewModel::deleteTrimMarkerRequested(const QVariantMap&)
{
    if (m_fields.currentStep == WorkflowStep::step4)
        deleteSelectedTrimMarker();
}

void CompositorViewModel::navigateTrimMarkerRequested(const QVariantMap& userInfo)
{
    if (const std::optional<int> direction = integerAt(userInfo, QStringLiteral("direction")))
        navigateTrimMarker(*direction);
}

void CompositorViewModel::undoRequested(const QVariantMap&)
{
    undoLastStepEdit();
}

void CompositorViewModel::redoRequested(const QVariantMap&)
{
    redoLastStepEdit();
}

}
