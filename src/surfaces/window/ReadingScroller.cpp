// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/window/ReadingScroller.h"

#include "surfaces/panels/ScrollRange.h"

namespace zumeta {

ReadingScroller::ReadingScroller(QQuickItem* parent)
    : QQuickItem(parent)
{}

void ReadingScroller::setContent(QQuickItem* content)
{
    if (content == m_content)
        return;
    m_content = content;
    Q_EMIT contentChanged();
}

bool ReadingScroller::pressKey(int key)
{
    if (!m_content)
        return false;
    const ScrollRange range{-m_content->y(), height(), m_content->height()};
    const std::optional<double> top = range.topByKey(key);
    if (top)
        Q_EMIT scrollWanted(*top);
    return top.has_value();
}

}
