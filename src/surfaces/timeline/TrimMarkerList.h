// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "surfaces/timeline/Trimmer.h"

#include <QAbstractListModel>

namespace zumeta {

/// The markers as QML's rows, one for each by its place in the list. A marker that moves changes its row and takes no
/// row away: what stands for it on the screen lives on while it is dragged.
class TrimMarkerList final : public QAbstractListModel {
    Q_OBJECT
public:
    enum Role { MarkerX = Qt::UserRole, Label, IsSelected };

    explicit TrimMarkerList(QObject* parent)
        : QAbstractListModel(parent)
    {}

    void show(const std::vector<MarkerLook>& looks);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

private:
    std::vector<MarkerLook> m_looks;
};

}
