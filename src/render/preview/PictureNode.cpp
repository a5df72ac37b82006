// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/preview/PictureNode.h"

#include "render/preview/PreviewCompositor.h"

#include <QColor>
#include <QImage>
#include <memory>

namespace zumeta {

namespace {

/// The same memory, which lives as long as the image.
QImage imageOf(const ScreenPicture& picture)
{
    auto handle = std::make_unique<ScreenPicture>(picture);
    const auto* const bytes = reinterpret_cast<const uchar*>(picture.row(0));
    const QImageCleanupFunction letGo = [](void* held) {
        const std::unique_ptr<ScreenPicture> gone(static_cast<ScreenPicture*>(held));
    };
    QImage image(bytes, picture.width, picture.height, qsizetype(picture.width) * 4, QImage::Format_RGB32, letGo,
                 handle.get());
    if (!image.isNull())
        static_cast<void>(handle.release()); // the image calls letGo
    return image;
}

}

PictureNode::PictureNode(QQuickWindow& window)
    : m_backdrop(window.createRectangleNode())
{
    m_backdrop->setColor(QColor::fromRgb(kPreviewBackdrop));
    appendChildNode(m_backdrop);
}

void PictureNode::setBackdrop(const QRectF& rect)
{
    m_backdrop->setRect(rect);
}

void PictureNode::setPicture(const ScreenPicture& picture, QQuickWindow& window)
{
    if (picture.isEmpty()) {
        if (m_pictureNode) {
            removeChildNode(m_pictureNode);
            const std::unique_ptr<QSGNode> gone(std::exchange(m_pictureNode, nullptr));
        }
        return;
    }
    QSGTexture* const texture = window.createTextureFromImage(imageOf(picture), QQuickWindow::TextureIsOpaque);
    if (m_pictureNode) {
        m_pictureNode->setTexture(texture);
        m_pictureNode->setSourceRect(QRectF(QPointF(0, 0), texture->textureSize()));
        return;
    }
    m_pictureNode = window.createImageNode();
    m_pictureNode->setOwnsTexture(true);
    m_pictureNode->setFiltering(QSGTexture::Linear);
    m_pictureNode->setTexture(texture);
    appendChildNode(m_pictureNode);
}

void PictureNode::setPictureRect(const QRectF& rect)
{
    if (m_pictureNode)
        m_pictureNode->setRect(rect);
}

}
