// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/preview/CompositeVideoView.h"

#include "media/playback/PlaybackClock.h"
#include "surfaces/preview/PickByKeys.h"
#include "surfaces/preview/PreviewSurface.h"

#include <QCursor>
#include <QQuickWindow>
#include <utility>

namespace zumeta {

/// The time by which players of the session are asked for pictures.
class CompositeVideoView::SessionTime final : public Clock {
public:
    explicit SessionTime(const PlaybackClock& clock)
        : m_clock(clock)
    {}
    double now() const override { return m_clock.now(); }

private:
    const PlaybackClock& m_clock;
};

namespace {

CompositePlayerNSView::ViewMode surfaceMode(PublishedFields::ViewMode mode)
{
    return CompositePlayerNSView::ViewMode(int(mode));
}

CompositePlayerNSView::AlignmentState surfaceState(PublishedFields::AlignmentState state)
{
    return CompositePlayerNSView::AlignmentState(int(state));
}

}

CompositeVideoView::CompositeVideoView(QQuickItem* parent)
    : QQuickItem(parent)
    , m_surface(std::make_unique<CompositePlayerNSView>(this))
{
    setAcceptedMouseButtons(Qt::LeftButton);
    setAcceptHoverEvents(true);
}

CompositeVideoView::~CompositeVideoView() = default;

void CompositeVideoView::setModel(PreviewModel* model)
{
    if (m_model == model)
        return;
    if (m_model)
        m_model->disconnect(this);
    takePlayersAway();
    m_model = model;
    if (model) {
        auto time = std::make_unique<SessionTime>(model->playbackClock());
        m_surface->setClock(*time);
        m_time = std::move(time);
        connect(model, &PreviewModel::updated, this, &CompositeVideoView::copyToSurface);
        connect(model, &QObject::destroyed, this, &CompositeVideoView::takePlayersAway);
        fit();
        copyToSurface();
    }
    Q_EMIT modelChanged();
}

void CompositeVideoView::setSceneOrigin(QPointF origin)
{
    if (std::exchange(m_sceneOrigin, origin) == origin)
        return;
    fit();
    Q_EMIT sceneOriginChanged();
}

void CompositeVideoView::takePlayersAway()
{
    m_surface->updatePlayers(nullptr, nullptr);
}

void CompositeVideoView::copyToSurface()
{
    const SurfaceValues values = m_model->surfaceValues();
    m_surface->updatePlayers(m_model->player(Side::above), m_model->player(Side::below));
    m_surface->setWaterlineHeight(values.waterlineHeight);
    m_surface->setAboveZoom(values.aboveZoom);
    m_surface->setAboveOffset(values.aboveOffset);
    m_surface->setAboveHorizontalOffset(values.aboveHorizontalOffset);
    m_surface->setTimingOffset(values.timingOffset);
    m_surface->setBlendAmount(values.blendAmount);
    m_surface->setViewMode(surfaceMode(values.viewMode));
    m_surface->setAlignmentState(surfaceState(values.alignmentState));
    fit(); // to the project's shape
    m_surface->setCurrentTime(values.currentTime);
    m_surface->setAboveStartTime(values.aboveStartTime);
    m_surface->setBelowStartTime(values.belowStartTime);
    m_surface->setAboveVideoBlack(values.isAboveVideoBlack);
    m_surface->setBelowVideoBlack(values.isBelowVideoBlack);
    if (std::exchange(m_alignmentState, values.alignmentState) != values.alignmentState)
        followPick();
}

void CompositeVideoView::fit()
{
    if (!m_model)
        return;
    const double ratio = window() ? window()->effectiveDevicePixelRatio() : 1;
    const std::optional<FittedSurface> fitted =
        fittedSurface({m_sceneOrigin, size()}, m_model->surfaceValues().projectAspectRatio, ratio);
    // Without an extent the old layout stands.
    if (!fitted)
        return;
    const QRectF frame = fitted->frame.translated(-m_sceneOrigin);
    const AspectRatio shape = fitted->shape();
    const bool isNew = std::exchange(m_frame, frame) != frame;
    if (std::exchange(m_shape, shape) == shape && !isNew)
        return;
    m_surface->setPosition(frame.topLeft());
    m_surface->setSize(frame.size());
    m_surface->setProjectAspectRatio({shape.width, shape.height});
    m_model->setSurface(fitted->bounds(), shape);
    if (isNew)
        Q_EMIT frameChanged();
}

void CompositeVideoView::geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry)
{
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    fit();
}

void CompositeVideoView::itemChange(ItemChange change, const ItemChangeData& data)
{
    QQuickItem::itemChange(change, data);
    if (change == ItemSceneChange || change == ItemDevicePixelRatioHasChanged)
        fit();
}

// A pick opens under a pointer that does not move, and under the keyboard's focus.
void CompositeVideoView::followPick()
{
    m_keyLine.reset();
    m_pointerHeight.reset();
    // The cursor counts where the pointer is over the picture, also without a movement of it.
    if (showsCrosshair(m_alignmentState, true))
        m_surface->setCursor(Qt::CrossCursor);
    else
        m_surface->unsetCursor();
    if (pickSurface().isPickOpen() && hasActiveFocus())
        showKeyLine(firstKeyLine());
}

PickSurface CompositeVideoView::pickSurface() const
{
    return {{m_frame.width(), m_frame.height()}, m_shape, m_alignmentState};
}

SurfacePoint CompositeVideoView::onSurface(QPointF place) const
{
    return surfacePoint(place - m_frame.topLeft(), pickSurface().bounds);
}

void CompositeVideoView::reportPointer(QPointF place)
{
    // The window repeats the place of a pointer that stands still; that takes no line from the keys.
    if (!m_model || (std::exchange(m_pointerPlace, place) == place && m_keyLine))
        return;
    m_keyLine.reset();
    m_pointerHeight = mouseMoved(pickSurface(), onSurface(place));
    m_model->hover(m_pointerHeight);
}

void CompositeVideoView::mousePressEvent(QMouseEvent* event)
{
    const PressAnswer answer = mouseDown(pickSurface(), onSurface(event->position()));
    if (!m_model || answer.isPassedOn) {
        QQuickItem::mousePressEvent(event);
        return;
    }
    event->accept();
    if (answer.onPickWaterline)
        m_model->pick(*answer.onPickWaterline);
}

void CompositeVideoView::mouseMoveEvent(QMouseEvent* event)
{
    reportPointer(event->position());
}

void CompositeVideoView::hoverEnterEvent(QHoverEvent* event)
{
    reportPointer(event->position());
}

void CompositeVideoView::hoverMoveEvent(QHoverEvent* event)
{
    reportPointer(event->position());
}

void CompositeVideoView::hoverLeaveEvent(QHoverEvent*)
{
    m_pointerHeight.reset();
    if (m_model)
        m_model->hover(std::nullopt);
}

double CompositeVideoView::firstKeyLine() const
{
    const Rect rect = pickSurface().contentRect();
    const std::optional<double> hovered =
        m_pointerHeight ? std::optional(normalizedHeight(*m_pointerHeight, rect)) : std::nullopt;
    return firstPickLine(hovered, m_model->pickedPoint());
}

void CompositeVideoView::showKeyLine(double height)
{
    m_keyLine = height;
    m_model->hover(hoverHeight(height, pickSurface().contentRect()));
}

void CompositeVideoView::endKeyLine()
{
    if (std::exchange(m_keyLine, std::nullopt) && m_model)
        m_model->hover(std::nullopt);
}

void CompositeVideoView::keyPressEvent(QKeyEvent* event)
{
    const std::optional<PickKey> key = pickKey(event->key(), event->modifiers());
    if (!key || !m_model || !pickSurface().isPickOpen()) {
        QQuickItem::keyPressEvent(event);
        return;
    }
    event->accept();
    const double line = m_keyLine.value_or(firstKeyLine());
    // A line that has not been seen is shown before it is picked.
    if (key == PickKey::pick && (m_keyLine || m_pointerHeight))
        m_model->pick(line);
    else
        showKeyLine(movedPickLine(line, *key));
}

void CompositeVideoView::focusInEvent(QFocusEvent* event)
{
    QQuickItem::focusInEvent(event);
    if (m_model && pickSurface().isPickOpen() && !m_pointerHeight)
        showKeyLine(firstKeyLine());
}

void CompositeVideoView::focusOutEvent(QFocusEvent* event)
{
    QQuickItem::focusOutEvent(event);
    endKeyLine();
}

}
