// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/panels/ChecklistModel.h"

#include <utility>

namespace zumeta {

ChecklistModel::ChecklistModel(Checklist entries, QObject* parent)
    : QAbstractListModel(parent)
    , m_entries(std::move(entries))
{}

void ChecklistModel::show(const Checklist& entries)
{
    if (std::exchange(m_entries, entries) != entries)
        Q_EMIT dataChanged(index(0), index(int(m_entries.size()) - 1));
}

int ChecklistModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_entries.size());
}

QVariant ChecklistModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const ChecklistEntry& entry = m_entries[size_t(index.row())];
    switch (role) {
    case Number:
        return entry.number;
    case TextKey:
        return entry.textKey;
    case IsComplete:
        return entry.isComplete;
    case IsActive:
        return entry.isActive;
    default:
        return {};
    }
}

QHash<int, QByteArray> ChecklistModel::roleNames() const
{
    return {{Number, "number"}, {TextKey, "textKey"}, {IsComplete, "isComplete"}, {IsActive, "isActive"}};
}

}
