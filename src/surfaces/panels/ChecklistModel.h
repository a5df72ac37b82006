// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "surfaces/panels/Checklist.h"

#include <QAbstractListModel>

namespace zumeta {

/// A checklist as QML shows it: its items stay, and only what they say changes.
class ChecklistModel final : public QAbstractListModel {
    Q_OBJECT
public:
    enum Role { Number = Qt::UserRole, TextKey, IsComplete, IsActive };

    explicit ChecklistModel(Checklist entries, QObject* parent = nullptr);
    void show(const Checklist& entries);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

private:
    Checklist m_entries;
};

}
