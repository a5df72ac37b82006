// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/window/DropTarget.h"

#include <QMimeData>
#include <utility>

namespace zumeta {

namespace {

const QString& addressList()
{
    static const QString format = QStringLiteral("text/uri-list");
    return format;
}

}

std::vector<DroppedItem> droppedItems(const QMimeData& data)
{
    if (!data.hasFormat(addressList()))
        return {DropOfAnotherKind{}};
    std::vector<DroppedItem> items;
    for (const QByteArray& line : data.data(addressList()).split('\n')) {
        const QByteArray address = line.trimmed();
        if (!address.isEmpty() && !address.startsWith('#')) // which begins a comment in such a list
            items.emplace_back(address);
    }
    return items;
}

DropTarget::DropTarget(QQuickItem* parent)
    : QQuickItem(parent)
{
    setFlag(ItemAcceptsDrops);
}

void DropTarget::setFiles(FilesModel* files)
{
    if (std::exchange(m_files, files) != files)
        Q_EMIT filesChanged();
}

void DropTarget::dragEnterEvent(QDragEnterEvent* event)
{
    const bool isTaken = event->mimeData()->hasFormat(addressList());
    event->setAccepted(isTaken);
    setDragOver(isTaken);
}

void DropTarget::dragMoveEvent(QDragMoveEvent* event)
{
    event->setAccepted(m_isDragOver);
}

void DropTarget::dragLeaveEvent(QDragLeaveEvent*)
{
    setDragOver(false);
}

void DropTarget::dropEvent(QDropEvent* event)
{
    setDragOver(false);
    if (!m_files)
        return;
    event->setDropAction(Qt::CopyAction); // the files stay where they are
    event->accept();
    m_files->handleCentralDrop(droppedItems(*event->mimeData()));
}

void DropTarget::itemChange(ItemChange change, const ItemChangeData& data)
{
    // Whoever is taken away from under a drag hears no more of it.
    if (change == ItemVisibleHasChanged || change == ItemEnabledHasChanged)
        setDragOver(false);
    QQuickItem::itemChange(change, data);
}

void DropTarget::setDragOver(bool isDragOver)
{
    if (std::exchange(m_isDragOver, isDragOver) != isDragOver)
        Q_EMIT isDragOverChanged();
}

}
