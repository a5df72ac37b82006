// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "surfaces/timeline/TimelineStrip.h"

#include <QObject>
#include <QSizeF>
#include <qqmlregistration.h>

namespace zumeta {
class CompositorViewModel;
class TimelineActions;

/// What the plain slider shows of the session, and its gesture. Places are in the slider's own box. It belongs to
/// TimelineModel. Main thread.
class SimpleSliderModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("TimelineModel has it.")
    Q_PROPERTY(double width READ width WRITE setWidth NOTIFY placesChanged FINAL) ///< of the slider, as it is laid out
    Q_PROPERTY(double filledWidth READ filledWidth NOTIFY placesChanged FINAL)
    Q_PROPERTY(double thumbCentre READ thumbCentre NOTIFY placesChanged FINAL)
    Q_PROPERTY(QPointF hintCentre READ hintCentre NOTIFY placesChanged FINAL)
    Q_PROPERTY(bool isEnabled READ isEnabled NOTIFY changed FINAL)
    Q_PROPERTY(bool showsHint READ showsHint NOTIFY changed FINAL)
    Q_PROPERTY(bool isDragging READ isDragging NOTIFY gestureChanged FINAL)
    Q_PROPERTY(bool isHintAnimated READ isHintAnimated NOTIFY gestureChanged FINAL)
public:
    SimpleSliderModel(CompositorViewModel& session, TimelineActions& actions, ThumbDragHint hint, QObject* parent);

    double width() const { return m_width; }
    void setWidth(double width);
    double filledWidth() const;
    double thumbCentre() const;
    QPointF hintCentre() const;
    bool isEnabled() const;
    bool showsHint() const;
    bool isDragging() const { return m_gesture.isDragging(); }
    bool isHintAnimated() const { return hintIsAnimated(m_gesture); }
    Q_INVOKABLE QSizeF thumbSize(bool isHovered, bool isDragging) const;

    // The one pointer; x in the slider's box.
    Q_INVOKABLE void press(double x);
    Q_INVOKABLE void move(double x);
    Q_INVOKABLE void release(double x);
    /// The pointer was taken away.
    Q_INVOKABLE void cancel();

Q_SIGNALS:
    void placesChanged();
    void changed();
    void gestureChanged();

private:
    void follow();
    TimelineFacts facts() const;
    SliderScale scale() const;
    SliderAvailability availability() const { return sliderAvailability(facts()); }
    void carryOut(const TimelineIntents& intents);

    CompositorViewModel& m_session;
    TimelineActions& m_actions;
    const ThumbDragHint m_hint;
    SliderGesture m_gesture;
    double m_width = 0;
};

}
