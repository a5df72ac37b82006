// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/panels/FocusScroller.h"

#include "surfaces/panels/ScrollRange.h"

#include <QGuiApplication>
#include <QQuickWindow>

namespace zumeta {

FocusScroller::FocusScroller(QQuickItem* parent)
    : QQuickItem(parent)
{}

void FocusScroller::setContent(QQuickItem* content)
{
    if (m_content == content)
        return;
    m_content = content;
    Q_EMIT contentChanged();
}

void FocusScroller::show(QQuickItem* part)
{
    if (!part || !m_content || !m_content->isAncestorOf(part))
        return;
    const QQuickItem* const item = wholeOf(part);
    const QRectF place = item->mapRectToItem(m_content, QRectF(0, 0, item->width(), item->height()));
    bringIntoSight(place.top(), place.bottom());
}

void FocusScroller::showPart(const QRectF& part)
{
    if (!m_content)
        return;
    const QRectF place = m_content->mapRectFromScene(part);
    bringIntoSight(place.top(), place.bottom());
}

void FocusScroller::bringIntoSight(double first, double last)
{
    const ScrollRange range{.top = -m_content->y(), .viewHeight = height(), .contentHeight = m_content->height()};
    const double top = range.topShowing(first, last);
    if (top != range.top)
        Q_EMIT scrollWanted(top);
}

QQuickItem* FocusScroller::wholeOf(QQuickItem* part) const
{
    for (QQuickItem* around = part; around != m_content; around = around->parentItem()) {
        if (around->property("isSeenWhole").toBool())
            return around;
    }
    return part;
}

void FocusScroller::itemChange(ItemChange change, const ItemChangeData& data)
{
    if (change == ItemSceneChange) {
        disconnect(m_following);
        if (data.window)
            m_following =
                connect(data.window, &QQuickWindow::activeFocusItemChanged, this, &FocusScroller::followFocus);
    }
    QQuickItem::itemChange(change, data);
}

void FocusScroller::followFocus()
{
    if (QGuiApplication::mouseButtons() == Qt::NoButton)
        show(window()->activeFocusItem());
}

}
