// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QQuickPaintedItem>
#include <qqmlregistration.h>

namespace zumeta {

/// A ring that fills clockwise from the top, as far as something has come. Painted, so that its edge is smooth on every
/// kind of screen.
class ProgressRing : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(double progress READ progress WRITE setProgress NOTIFY progressChanged FINAL) ///< 0 to 1
    Q_PROPERTY(double stroke READ stroke WRITE setStroke NOTIFY lookChanged FINAL)           ///< its width
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY lookChanged FINAL)
    Q_PROPERTY(QColor trackColor READ trackColor WRITE setTrackColor NOTIFY lookChanged FINAL) ///< of the whole ring
public:
    explicit ProgressRing(QQuickItem* parent = nullptr);

    double progress() const { return m_progress; }
    void setProgress(double progress);
    double stroke() const { return m_stroke; }
    void setStroke(double stroke);
    QColor color() const { return m_color; }
    void setColor(const QColor& color);
    QColor trackColor() const { return m_trackColor; }
    void setTrackColor(const QColor& color);

    void paint(QPainter* painter) override;

Q_SIGNALS:
    void progressChanged();
    void lookChanged();

private:
    double m_progress = 0;
    double m_stroke = 2;
    QColor m_color = Qt::white;
    QColor m_trackColor = Qt::transparent;
};

}
