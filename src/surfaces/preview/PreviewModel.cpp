// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/preview/PreviewModel.h"

#include "session/CompositorViewModel.h"
#include "surfaces/theme/SurfaceContext.h"

#include <QQmlEngine>
#include <memory>
#include <utility>

namespace zumeta {

PreviewModel::PreviewModel(CompositorViewModel& session, QObject* parent)
    : QObject(parent)
    , m_session(session)
    , m_shape(session.projectState().projectAspectRatio)
{
    connect(&session, &CompositorViewModel::changed, this, &PreviewModel::update);
    // A player gets its item, and loses it, without a field of the session saying so.
    for (VideoPlayerService* const service : {&session.abovePlayerService(), &session.belowPlayerService()}) {
        connect(service, &VideoPlayerService::durationChanged, this, &PreviewModel::update);
        connect(service, &VideoPlayerService::timeReported, this, &PreviewModel::update);
    }
    m_shown = look();
    m_lines = lines();
}

PreviewModel* PreviewModel::create(QQmlEngine* engine, QJSEngine*)
{
    return std::make_unique<PreviewModel>(SurfaceContext::of(*engine).session()).release(); // the engine takes it over
}

SurfaceValues PreviewModel::surfaceValues() const
{
    return zumeta::surfaceValues({
        .projectConfig = m_session.projectConfig(),
        .projectAspectRatio = m_session.projectState().projectAspectRatio,
        .currentStep = m_session.currentStep(),
        .selectedCamera = m_session.selectedCamera(),
        .viewMode = m_session.viewMode(),
        .alignmentState = m_session.alignmentState(),
        .currentTime = m_session.currentTime(),
        .isVideoBlack = {m_session.isAboveVideoBlack(), m_session.isBelowVideoBlack()},
    });
}

Player* PreviewModel::player(Side side) const
{
    Player& player = (side == Side::above ? m_session.abovePlayerService() : m_session.belowPlayerService()).player();
    return player.hasCurrentItem() ? &player : nullptr;
}

const PlaybackClock& PreviewModel::playbackClock() const
{
    return m_session.playbackClock();
}

std::optional<double> PreviewModel::pickedPoint() const
{
    return getFixedNormalizedPoint(m_session.currentStep(),
                                   {m_session.alignmentPointAbove(), m_session.alignmentPointBelow()});
}

void PreviewModel::setSurface(Size bounds, AspectRatio shape)
{
    m_bounds = bounds;
    m_shape = shape;
    updateLines();
}

void PreviewModel::pick(double normalizedHeight)
{
    m_session.onPickWaterline(normalizedHeight);
}

void PreviewModel::hover(std::optional<double> height)
{
    m_session.onHover(height);
}

void PreviewModel::update()
{
    const Shown shown = look();
    Q_EMIT updated();
    if (std::exchange(m_shown, shown) != shown)
        Q_EMIT changed();
    updateLines();
}

void PreviewModel::updateLines()
{
    const Lines moved = lines();
    if (std::exchange(m_lines, moved) != moved)
        Q_EMIT linesMoved();
}

PreviewModel::Shown PreviewModel::look() const
{
    Shown shown;
    shown.step = m_session.currentStep();
    shown.stack = previewStack({
        .currentStep = shown.step,
        .viewMode = m_session.viewMode(),
        .hasItem = {player(Side::above) != nullptr, player(Side::below) != nullptr},
        .isMissing = {m_session.isAboveMissing(), m_session.isBelowMissing()},
        .showSkeletonOverlay = m_session.showSkeletonOverlay(),
        .isAdjustingWaterline = m_session.isAdjustingWaterline(),
    });
    const bool isLocked =
        verticalGuideLineLocked(shown.step, {m_session.manualSyncTimeAbove(), m_session.manualSyncTimeBelow()});
    shown.guide = verticalGuideLook(m_session.isTimelineSliderDragging(), isLocked);
    shown.isPickOpen = m_session.alignmentState() != PublishedFields::AlignmentState::none;
    shown.hasTapGuide = m_session.showTapAreaHighlight();
    return shown;
}

PreviewModel::Lines PreviewModel::lines() const
{
    Lines lines;
    lines.waterlineY = zumeta::waterlineIndicatorY(m_bounds, surfaceValues());
    lines.guideX = verticalGuideX(m_bounds);
    const std::vector<AlignmentLine> alignment = alignmentLines({
        .currentStep = m_session.currentStep(),
        .alignmentPoints = {m_session.alignmentPointAbove(), m_session.alignmentPointBelow()},
        .hoverY = m_session.hoverY(),
        .overlay = m_bounds,
        .projectAspectRatio = m_shape,
    });
    for (const AlignmentLine& line : alignment)
        (line.isFixed ? lines.fixedY : lines.pointerY) = line.y;
    return lines;
}

}
