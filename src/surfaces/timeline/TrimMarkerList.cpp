// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/timeline/TrimMarkerList.h"

#include <algorithm>

namespace zumeta {

void TrimMarkerList::show(const std::vector<MarkerLook>& looks)
{
    const int before = int(m_looks.size());
    const int after = int(looks.size());
    if (after > before) {
        beginInsertRows({}, before, after - 1);
        m_looks.insert(m_looks.end(), looks.begin() + before, looks.end());
        endInsertRows();
    } else if (after < before) {
        beginRemoveRows({}, after, before - 1);
        m_looks.resize(looks.size());
        endRemoveRows();
    }
    for (int row = 0; row < std::min(before, after); ++row) {
        MarkerLook& shown = m_looks[std::size_t(row)];
        const MarkerLook& look = looks[std::size_t(row)];
        if (shown == look)
            continue;
        shown = look;
        Q_EMIT dataChanged(index(row), index(row));
    }
}

int TrimMarkerList::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_looks.size());
}

QVariant TrimMarkerList::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const MarkerLook& look = m_looks[std::size_t(index.row())];
    switch (role) {
    case MarkerX:
        return look.x;
    case Label:
        return look.label;
    case IsSelected:
        return look.isSelected;
    default:
        return {};
    }
}

QHash<int, QByteArray> TrimMarkerList::roleNames() const
{
    return {{MarkerX, "markerX"}, {Label, "label"}, {IsSelected, "isSelected"}};
}

}
