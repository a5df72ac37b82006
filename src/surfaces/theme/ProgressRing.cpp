// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/theme/ProgressRing.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

namespace zumeta {

ProgressRing::ProgressRing(QQuickItem* parent)
    : QQuickPaintedItem(parent)
{
    setAntialiasing(true);
}

void ProgressRing::setProgress(double progress)
{
    const double held = std::clamp(progress, 0.0, 1.0);
    if (held == m_progress)
        return;
    m_progress = held;
    update();
    Q_EMIT progressChanged();
}

void ProgressRing::setStroke(double stroke)
{
    if (stroke == m_stroke)
        return;
    m_stroke = stroke;
    update();
    Q_EMIT lookChanged();
}

void ProgressRing::setColor(const QColor& color)
{
    if (color == m_color)
        return;
    m_color = color;
    update();
    Q_EMIT lookChanged();
}

void ProgressRing::setTrackColor(const QColor& color)
{
    if (color == m_trackColor)
        return;
    m_trackColor = color;
    update();
    Q_EMIT lookChanged();
}

void ProgressRing::paint(QPainter* painter)
{
    constexpr int kTop = 90 * 16; // QPainter counts sixteenths of a degree, anticlockwise from the right
    constexpr int kTurn = 360 * 16;
    const double inset = m_stroke / 2;
    const QRectF circle = boundingRect().adjusted(inset, inset, -inset, -inset);
    painter->setPen(QPen(m_trackColor, m_stroke));
    painter->drawEllipse(circle);
    if (m_progress <= 0)
        return;
    painter->setPen(QPen(m_color, m_stroke, Qt::SolidLine, Qt::RoundCap));
    painter->drawArc(circle, kTop, -int(std::lround(kTurn * m_progress)));
}

}
