// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "render/preview/CompositePlayerNSView.h"
#include "surfaces/preview/PreviewModel.h"
#include "surfaces/preview/PreviewPointer.h"

#include <QPointer>
#include <QQuickItem>
#include <qqmlregistration.h>

namespace zumeta {

/// The preview's area in the window: holds the surface with the picture, fitted to the project's shape and to device
/// pixels, tells it of every change of the session, and takes the mouse and the keys while a pick is open.
class CompositeVideoView : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(PreviewModel* model READ model WRITE setModel NOTIFY modelChanged FINAL)
    /// Of this item's corner in the window, where device pixels are counted from.
    Q_PROPERTY(QPointF sceneOrigin READ sceneOrigin WRITE setSceneOrigin NOTIFY sceneOriginChanged FINAL)
    /// Where the picture stands in this item.
    Q_PROPERTY(QRectF frame READ frame NOTIFY frameChanged FINAL)
public:
    explicit CompositeVideoView(QQuickItem* parent = nullptr);
    ~CompositeVideoView() override;

    PreviewModel* model() const { return m_model; }
    /// The session's players are taken from the surface when the model goes, so it must go before them.
    void setModel(PreviewModel* model);
    QPointF sceneOrigin() const { return m_sceneOrigin; }
    void setSceneOrigin(QPointF origin);
    QRectF frame() const { return m_frame; }
    CompositePlayerNSView& surface() { return *m_surface; }

Q_SIGNALS:
    void modelChanged();
    void sceneOriginChanged();
    void frameChanged();

protected:
    void geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) override;
    void itemChange(ItemChange change, const ItemChangeData& data) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void hoverEnterEvent(QHoverEvent* event) override;
    void hoverMoveEvent(QHoverEvent* event) override;
    void hoverLeaveEvent(QHoverEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    class SessionTime;

    void copyToSurface();
    void takePlayersAway();
    void fit();
    void followPick();
    PickSurface pickSurface() const;
    SurfacePoint onSurface(QPointF place) const;
    void reportPointer(QPointF place);
    void showKeyLine(double height);
    void endKeyLine();
    double firstKeyLine() const;

    QPointer<PreviewModel> m_model;
    QPointF m_sceneOrigin;
    QRectF m_frame;
    AspectRatio m_shape; ///< of the picture, to the pixel
    PublishedFields::AlignmentState m_alignmentState = PublishedFields::AlignmentState::none;
    QPointF m_pointerPlace;
    std::optional<double> m_pointerHeight; ///< as it was last reported
    std::optional<double> m_keyLine;       ///< a fraction of the picture's height; while keys move the line
    std::unique_ptr<SessionTime> m_time;   ///< before the surface, which reads it
    std::unique_ptr<CompositePlayerNSView> m_surface;
};

}
