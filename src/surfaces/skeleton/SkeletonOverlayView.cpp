// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/skeleton/SkeletonOverlayView.h"

#include "session/CompositorViewModel.h"
#include "surfaces/skeleton/SkeletonDrawing.h"
#include "surfaces/theme/SurfaceContext.h"

#include <QPainter>
#include <QQmlEngine>

namespace zumeta {

namespace {

void paintBadge(QPainter& painter, const PersonBadge& badge)
{
    QColor ground(Qt::white);
    ground.setAlphaF(float(kBadgeOpacity));
    painter.setPen(QPen(kBadgeColour, kBadgeOutline));
    painter.setBrush(ground);
    painter.drawEllipse(badge.centre, kBadgeDiameter / 2, kBadgeDiameter / 2);
    QFont font = painter.font();
    font.setPixelSize(int(kBadgeTextSize));
    font.setBold(true);
    painter.setFont(font);
    const QPointF corner(kBadgeDiameter / 2, kBadgeDiameter / 2);
    painter.drawText(QRectF(badge.centre - corner, badge.centre + corner), Qt::AlignCenter, QString::number(badge.id));
}

void paintPerson(QPainter& painter, const SkeletonShapes& shapes)
{
    for (const BoneStroke& bone : shapes.bones) {
        painter.setPen(QPen(bone.colour, bone.width));
        painter.drawLine(bone.line);
    }
    painter.setPen(Qt::NoPen);
    for (const JointDot& joint : shapes.joints) {
        painter.setBrush(joint.colour);
        painter.drawEllipse(joint.centre, joint.radius, joint.radius);
    }
    paintBadge(painter, shapes.badge);
}

}

SkeletonOverlayView::SkeletonOverlayView(QQuickItem* parent)
    : QQuickPaintedItem(parent)
{
    setAntialiasing(true);
}

void SkeletonOverlayView::setSkeletons(std::vector<MotionAnalysisService::Skeleton> skeletons)
{
    m_skeletons = std::move(skeletons);
    update();
}

void SkeletonOverlayView::setSelectedPersonId(std::optional<int> id)
{
    m_selectedPersonId = id;
    update();
}

void SkeletonOverlayView::componentComplete()
{
    QQuickPaintedItem::componentComplete();
    const CompositorViewModel& session = SurfaceContext::of(*qmlEngine(this)).session();
    connect(&session, &CompositorViewModel::detectedSkeletonsChanged, this, &SkeletonOverlayView::follow);
    connect(&session, &CompositorViewModel::selectedPersonIdChanged, this, &SkeletonOverlayView::follow);
    follow();
}

void SkeletonOverlayView::follow()
{
    const CompositorViewModel& session = SurfaceContext::of(*qmlEngine(this)).session();
    setSkeletons(session.detectedSkeletons());
    setSelectedPersonId(session.selectedPersonId());
}

void SkeletonOverlayView::paint(QPainter* painter)
{
    for (const SkeletonShapes& shapes : skeletonShapes(m_skeletons, m_selectedPersonId, size()))
        paintPerson(*painter, shapes);
}

}
