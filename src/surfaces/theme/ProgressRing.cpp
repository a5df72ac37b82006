// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/theme/ProgressRing.h"

#include <QPainter>
#include <QPen>
#include <algorithm>

namespace zumeta {

ProgressRing::ProgressRing(QQuickItem* parent)
    : QQuickPaintedItem(parent)
{
    setAntialiasing(true);
}

void ProgressRing::paint(QPainter* painter)
{
    constexpr int kTop = 90 * 16; // angles count in sixteenths of a degree, counter-clockwise from the right
    const double inset = m_strokeWidth / 2;
    const QRectF ring = boundingRect().adjusted(inset, inset, -inset, -inset);
    QPen pen(m_trackColor, m_strokeWidth, Qt::SolidLine, Qt::RoundCap);
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(pen);
    painter->drawEllipse(ring);
    const int span = int(std::clamp(m_progress, 0.0, 1.0) * 360 * 16);
    if (span == 0)
        return;
    pen.setColor(m_color);
    painter->setPen(pen);
    painter->drawArc(ring, kTop, -span);
}

}
