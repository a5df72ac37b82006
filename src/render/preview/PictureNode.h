// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "render/preview/ScreenPicture.h"

#include <QQuickWindow>
#include <QSGImageNode>
#include <QSGRectangleNode>

namespace zumeta {

/// A backdrop with at most one picture on it. Lives in the scene graph. Moves nothing: the software renderer finds the
/// place of a child that is added later by the nearest transform, and knows that of its own parent alone.
class PictureNode final : public QSGTransformNode {
public:
    explicit PictureNode(QQuickWindow& window);

    void setBackdrop(const QRectF& rect);
    /// An empty picture takes away the one that is there.
    void setPicture(const ScreenPicture& picture, QQuickWindow& window);
    /// Where the picture stands, if there is one.
    void setPictureRect(const QRectF& rect);

private:
    QSGRectangleNode* m_backdrop;          ///< owned by this node, its parent
    QSGImageNode* m_pictureNode = nullptr; ///< owned by this node, its parent
};

}
