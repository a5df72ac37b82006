// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/controls/DashedStroke.h"

#include <QPainter>
#include <QPen>

namespace zumeta {

DashedStroke::DashedStroke(QQuickItem* parent)
    : QQuickPaintedItem(parent)
{
    setAntialiasing(true);
}

void DashedStroke::paint(QPainter* painter)
{
    QPen pen(m_color, m_strokeWidth, Qt::SolidLine, Qt::FlatCap);
    if (m_gap > 0)
        pen.setDashPattern({m_dash / m_strokeWidth, m_gap / m_strokeWidth}); // in units of the stroke's width
    painter->setRenderHint(QPainter::Antialiasing, m_path == Outline);
    painter->setPen(pen);
    const QRectF bounds = boundingRect();
    if (m_path == Line) {
        const double middle = bounds.center().y();
        painter->drawLine(QPointF(bounds.left(), middle), QPointF(bounds.right(), middle));
        return;
    }
    const double inset = m_strokeWidth / 2;
    painter->drawRoundedRect(bounds.adjusted(inset, inset, -inset, -inset), m_radius - inset, m_radius - inset);
}

}
