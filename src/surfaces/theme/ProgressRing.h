// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QColor>
#include <QQuickPaintedItem>
#include <qqmlregistration.h>

namespace zumeta {

/// A ring that fills clockwise from the top, with round ends.
class ProgressRing : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(double progress READ progress WRITE setProgress NOTIFY looksChanged FINAL) ///< 0 to 1
    Q_PROPERTY(double strokeWidth READ strokeWidth WRITE setStrokeWidth NOTIFY looksChanged FINAL)
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY looksChanged FINAL)
    Q_PROPERTY(QColor trackColor READ trackColor WRITE setTrackColor NOTIFY looksChanged FINAL)
public:
    explicit ProgressRing(QQuickItem* parent = nullptr);

    double progress() const { return m_progress; }
    void setProgress(double progress) { assign(m_progress, progress); }
    double strokeWidth() const { return m_strokeWidth; }
    void setStrokeWidth(double width) { assign(m_strokeWidth, width); }
    QColor color() const { return m_color; }
    void setColor(const QColor& color) { assign(m_color, color); }
    QColor trackColor() const { return m_trackColor; }
    void setTrackColor(const QColor& color) { assign(m_trackColor, color); }

    void paint(QPainter* painter) override;

Q_SIGNALS:
    void looksChanged();

private:
    template <class Value> void assign(Value& field, Value value)
    {
        if (field == value)
            return;
        field = value;
        update();
        Q_EMIT looksChanged();
    }

    double m_progress = 0;
    double m_strokeWidth = 2;
    QColor m_color;
    QColor m_trackColor;
};

}
