// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "surfaces/timeline/TrimMarkerList.h"
#include "surfaces/timeline/TrimmerGesture.h"

#include <QObject>
#include <qqmlregistration.h>

namespace zumeta {
class CompositorViewModel;
class TimelineActions;

/// What the trimmer shows of the session, and its gestures. Places are in the trimmer's own box, above which the
/// markers rise. It belongs to TimelineModel. Main thread.
class TrimmerModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("TimelineModel has it.")
    Q_PROPERTY(double width READ width WRITE setWidth NOTIFY placesChanged FINAL) ///< of the trimmer, as it is laid out
    Q_PROPERTY(double trackX READ trackX NOTIFY placesChanged FINAL)
    Q_PROPERTY(double trackWidth READ trackWidth NOTIFY placesChanged FINAL)
    Q_PROPERTY(double startX READ startX NOTIFY placesChanged FINAL)
    Q_PROPERTY(double endX READ endX NOTIFY placesChanged FINAL)
    Q_PROPERTY(double playheadX READ playheadX NOTIFY playheadChanged FINAL)
    Q_PROPERTY(QAbstractItemModel* markers READ markers CONSTANT FINAL) ///< markerX, label, isSelected
    Q_PROPERTY(bool showsPlayhead READ showsPlayhead NOTIFY gestureChanged FINAL)
    Q_PROPERTY(bool isDraggingStart READ isDraggingStart NOTIFY gestureChanged FINAL)
    Q_PROPERTY(bool isDraggingEnd READ isDraggingEnd NOTIFY gestureChanged FINAL)
    Q_PROPERTY(Qt::CursorShape cursorShape READ cursorShape NOTIFY gestureChanged FINAL)
public:
    TrimmerModel(CompositorViewModel& session, TimelineActions& actions, QObject* parent);

    double width() const { return m_width; }
    void setWidth(double width);
    double trackX() const { return scale().inset(); }
    double trackWidth() const { return scale().usable(); }
    double startX() const { return trimmer().startX(); }
    double endX() const { return trimmer().endX(); }
    double playheadX() const;
    QAbstractItemModel* markers() { return &m_markers; }
    bool showsPlayhead() const { return m_gesture.showsPlayhead(); }
    bool isDraggingStart() const { return m_gesture.isDraggingStart(); }
    bool isDraggingEnd() const { return m_gesture.isDraggingEnd(); }
    Qt::CursorShape cursorShape() const;

    /// Whether a press there is the trimmer's: on all of its box, and on the markers that rise above it.
    Q_INVOKABLE bool contains(const QPointF& place) const;
    // The one pointer.
    Q_INVOKABLE void press(double x, double y);
    Q_INVOKABLE void move(double x, double y); ///< also without a press
    Q_INVOKABLE void release(double x, double y);
    /// The pointer was taken away.
    Q_INVOKABLE void cancel();
    /// As a press and release of the marker does; for who uses no pointer.
    Q_INVOKABLE void tapMarker(int row);

Q_SIGNALS:
    void placesChanged();
    void playheadChanged();
    void gestureChanged();

private:
    TrimmerScale scale() const;
    Trimmer trimmer() const;
    void showMarkers() { m_markers.show(trimmer().markerLooks()); }
    void carryOut(const TimelineIntents& intents);

    CompositorViewModel& m_session;
    TimelineActions& m_actions;
    TrimmerGesture m_gesture;
    TrimMarkerList m_markers{this};
    TrimmerPart m_partUnderPointer = TrimmerPart::nothing; ///< in a gesture: that of its press
    bool m_isPressed = false;
    double m_width = 0;
};

}
