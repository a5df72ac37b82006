// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "surfaces/guides/OnboardingModel.h"

#include <QColor>
#include <QPointer>
#include <QQuickPaintedItem>

namespace zumeta {

/// Dims the window but for the holes in which the guide's controls are lit. What lies under a hole takes the pointer;
/// everywhere else the layer does. It sees at every frame where the controls stand. It has to fill the window.
class SpotlightDimLayer : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(OnboardingModel* model READ model WRITE setModel NOTIFY modelChanged FINAL)
    Q_PROPERTY(QColor dimColor MEMBER m_dimColor NOTIFY looksChanged FINAL)
    Q_PROPERTY(QColor ringColor MEMBER m_ringColor NOTIFY looksChanged FINAL)
    Q_PROPERTY(double ringWidth MEMBER m_ringWidth NOTIFY looksChanged FINAL)
    /// Of the holes on their way from the card before to this one, 0 to 1.
    Q_PROPERTY(double progress READ progress WRITE setProgress NOTIFY progressChanged FINAL)
public:
    explicit SpotlightDimLayer(QQuickItem* parent = nullptr);

    OnboardingModel* model() const { return m_model; }
    void setModel(OnboardingModel* model);
    double progress() const { return m_progress; }
    void setProgress(double progress);
    /// The holes as they are drawn.
    SpotlightShape drawnSpotlight() const;

    /// Whether the place is the layer's. Holes on their way are there at once.
    bool contains(const QPointF& place) const override;
    void paint(QPainter* painter) override;

Q_SIGNALS:
    void modelChanged();
    void looksChanged();
    void progressChanged();
    /// Beside the holes.
    void pressed();

protected:
    void itemChange(ItemChange change, const ItemChangeData& data) override;
    void mousePressEvent(QMouseEvent* event) override;
    void hoverEnterEvent(QHoverEvent* event) override;
    void hoverMoveEvent(QHoverEvent* event) override;

private:
    void lookAtControls();
    void startFromWhatIsDrawn();

    QPointer<OnboardingModel> m_model;
    QColor m_dimColor;
    QColor m_ringColor;
    double m_ringWidth = 0;
    double m_progress = 1;
    SpotlightShape m_from;                         ///< where the holes come from
    SpotlightShape m_drawn;                        ///< as they were when they were last asked for
    std::vector<QMetaObject::Connection> m_frames; ///< of the window
};

}
