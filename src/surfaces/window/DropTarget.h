// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "surfaces/window/FilesModel.h"

#include <QQuickItem>
#include <qqmlregistration.h>

namespace zumeta {

/// Takes files that are dropped from other programs, with their names as the bytes that they have on disk.
class DropTarget : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(FilesModel* files READ files WRITE setFiles NOTIFY filesChanged FINAL)
    Q_PROPERTY(bool isDragOver READ isDragOver NOTIFY isDragOverChanged FINAL)
public:
    explicit DropTarget(QQuickItem* parent = nullptr);

    FilesModel* files() const { return m_files; }
    void setFiles(FilesModel* files);
    bool isDragOver() const { return m_isDragOver; }

Q_SIGNALS:
    void filesChanged();
    void isDragOverChanged();

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void itemChange(ItemChange change, const ItemChangeData& data) override;

private:
    void setDragOver(bool isDragOver);

    FilesModel* m_files = nullptr;
    bool m_isDragOver = false;
};

/// What was dragged, one item for each line of the list of addresses; without such a list one of another kind.
std::vector<DroppedItem> droppedItems(const QMimeData& data);

}
