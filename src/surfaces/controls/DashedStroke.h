// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QColor>
#include <QQuickPaintedItem>
#include <qqmlregistration.h>

namespace zumeta {

/// A stroke of dashes: around the item, or along its middle from left to right. Without a gap it is a plain one.
class DashedStroke : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(Path path READ path WRITE setPath NOTIFY looksChanged FINAL)
    Q_PROPERTY(double strokeWidth READ strokeWidth WRITE setStrokeWidth NOTIFY looksChanged FINAL)
    Q_PROPERTY(double dash READ dash WRITE setDash NOTIFY looksChanged FINAL)
    Q_PROPERTY(double gap READ gap WRITE setGap NOTIFY looksChanged FINAL)
    Q_PROPERTY(double radius READ radius WRITE setRadius NOTIFY looksChanged FINAL) ///< of the outline's corners
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY looksChanged FINAL)
public:
    enum Path { Outline, Line };
    Q_ENUM(Path)

    explicit DashedStroke(QQuickItem* parent = nullptr);

    Path path() const { return m_path; }
    void setPath(Path path) { assign(m_path, path); }
    double strokeWidth() const { return m_strokeWidth; }
    void setStrokeWidth(double width) { assign(m_strokeWidth, width); }
    double dash() const { return m_dash; }
    void setDash(double length) { assign(m_dash, length); }
    double gap() const { return m_gap; }
    void setGap(double length) { assign(m_gap, length); }
    double radius() const { return m_radius; }
    void setRadius(double radius) { assign(m_radius, radius); }
    QColor color() const { return m_color; }
    void setColor(const QColor& color) { assign(m_color, color); }

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

    Path m_path = Outline;
    double m_strokeWidth = 1.5;
    double m_dash = 7;
    double m_gap = 6;
    double m_radius = 0;
    QColor m_color;
};

}
