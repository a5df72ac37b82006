// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/guides/SpotlightDimLayer.h"

#include "surfaces/theme/SurfaceContext.h"

#include <QHoverEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QQmlEngine>
#include <QQuickWindow>
#include <utility>

namespace zumeta {

SpotlightDimLayer::SpotlightDimLayer(QQuickItem* parent)
    : QQuickPaintedItem(parent)
{
    setAntialiasing(true);
    setAcceptedMouseButtons(Qt::AllButtons);
    setAcceptHoverEvents(true);
    setCursor(Qt::ArrowCursor); // and not that of what lies beneath
    connect(this, &SpotlightDimLayer::looksChanged, this, [this] { update(); });
}

void SpotlightDimLayer::setModel(OnboardingModel* model)
{
    if (m_model == model)
        return;
    if (m_model)
        m_model->disconnect(this);
    m_model = model;
    if (model) {
        connect(model, &OnboardingModel::cardChanged, this, &SpotlightDimLayer::startFromWhatIsDrawn);
        connect(model, &OnboardingModel::spotlightMoved, this, [this] { update(); });
        // A change of the session alone need not change the picture; the next frame tells where all stands by then.
        connect(model, &OnboardingModel::framesWanted, this, [this] {
            if (window())
                window()->update();
        });
    }
    Q_EMIT modelChanged();
}

void SpotlightDimLayer::setProgress(double progress)
{
    if (std::exchange(m_progress, progress) == progress)
        return;
    update();
    Q_EMIT progressChanged();
}

SpotlightShape SpotlightDimLayer::drawnSpotlight() const
{
    return m_model ? betweenSpotlights(m_from, m_model->spotlight(), m_progress) : SpotlightShape{};
}

// Holes appear in their places; from then on they go from card to card.
void SpotlightDimLayer::startFromWhatIsDrawn()
{
    m_from = m_model->isPresented() ? m_drawn : SpotlightShape{};
}

void SpotlightDimLayer::itemChange(ItemChange change, const ItemChangeData& data)
{
    QQuickPaintedItem::itemChange(change, data);
    if (change != ItemSceneChange)
        return;
    for (const QMetaObject::Connection& connection : m_frames)
        disconnect(connection);
    m_frames.clear();
    if (!data.window)
        return;
    // Before a frame, when all that moves by itself has moved; and after it, when all is laid out.
    m_frames.push_back(connect(data.window, &QQuickWindow::afterAnimating, this, &SpotlightDimLayer::lookAtControls));
    m_frames.push_back(connect(data.window, &QQuickWindow::frameSwapped, this, &SpotlightDimLayer::lookAtControls));
}

void SpotlightDimLayer::lookAtControls()
{
    if (m_model && m_model->showFirstRunOnboarding())
        m_model->setFrames(SurfaceContext::of(*qmlEngine(this)).onboardingTargets().frames(), size());
}

bool SpotlightDimLayer::contains(const QPointF& place) const
{
    return QQuickPaintedItem::contains(place) && m_model && m_model->spotlight().takes(place);
}

void SpotlightDimLayer::mousePressEvent(QMouseEvent* event)
{
    event->accept();
    Q_EMIT pressed();
}

void SpotlightDimLayer::hoverEnterEvent(QHoverEvent* event)
{
    event->accept();
}

void SpotlightDimLayer::hoverMoveEvent(QHoverEvent* event)
{
    event->accept();
}

void SpotlightDimLayer::paint(QPainter* painter)
{
    m_drawn = drawnSpotlight();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->fillPath(m_drawn.path(size()), m_dimColor);
    painter->setPen(QPen(m_ringColor, m_ringWidth));
    const double inset = m_ringWidth / 2;
    for (const SpotlightTargetRect& hole : m_drawn.targets)
        painter->drawRoundedRect(hole.rect.adjusted(inset, inset, -inset, -inset), hole.cornerRadius - inset,
                                 hole.cornerRadius - inset);
}

}
