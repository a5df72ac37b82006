// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/timeline/SimpleSliderModel.h"

#include "session/CompositorViewModel.h"
#include "surfaces/timeline/TimelineActions.h"

#include <utility>

namespace zumeta {

SimpleSliderModel::SimpleSliderModel(CompositorViewModel& session, TimelineActions& actions, ThumbDragHint hint,
                                     QObject* parent)
    : QObject(parent)
    , m_session(session)
    , m_actions(actions)
    , m_hint(hint)
{
    for (const auto signal : {&CompositorViewModel::currentTimeChanged, &CompositorViewModel::durationChanged})
        connect(&session, signal, this, &SimpleSliderModel::placesChanged);
    for (const auto signal :
         {&CompositorViewModel::currentStepChanged, &CompositorViewModel::aboveVideoURLChanged,
          &CompositorViewModel::belowVideoURLChanged, &CompositorViewModel::manualSyncTimeAboveChanged,
          &CompositorViewModel::manualSyncTimeBelowChanged, &CompositorViewModel::hasSliderBeenMovedChanged})
        connect(&session, signal, this, &SimpleSliderModel::follow);
}

void SimpleSliderModel::setWidth(double width)
{
    if (std::exchange(m_width, width) != width)
        Q_EMIT placesChanged();
}

double SimpleSliderModel::filledWidth() const
{
    return scale().filledWidth(m_session.currentTime());
}

double SimpleSliderModel::thumbCentre() const
{
    return scale().thumbCentre(m_session.currentTime());
}

QPointF SimpleSliderModel::hintCentre() const
{
    return zumeta::hintCentre(scale(), m_session.currentTime());
}

bool SimpleSliderModel::isEnabled() const
{
    return availability() == SliderAvailability::enabled;
}

bool SimpleSliderModel::showsHint() const
{
    return showsThumbDragHint(facts(), m_hint);
}

QSizeF SimpleSliderModel::thumbSize(bool isHovered, bool isDragging) const
{
    return zumeta::thumbSize(isDragging ? ThumbState::dragged : isHovered ? ThumbState::hovered : ThumbState::resting);
}

void SimpleSliderModel::press(double x)
{
    carryOut(m_gesture.press(x, scale(), availability()));
}

void SimpleSliderModel::move(double x)
{
    carryOut(m_gesture.move(x, scale(), availability()));
}

void SimpleSliderModel::release(double x)
{
    carryOut(m_gesture.release(x, scale(), availability()));
}

void SimpleSliderModel::cancel()
{
    carryOut(m_gesture.cancel());
}

void SimpleSliderModel::follow()
{
    if (!isEnabled())
        cancel();
    Q_EMIT changed();
}

TimelineFacts SimpleSliderModel::facts() const
{
    TimelineFacts facts;
    facts.step = m_session.currentStep();
    facts.sideHasVideo = m_session.currentVideoURL().has_value();
    facts.sideIsLocked = m_session.currentManualSyncTime().has_value();
    facts.hasSliderBeenMoved = m_session.hasSliderBeenMoved();
    return facts;
}

SliderScale SimpleSliderModel::scale() const
{
    return SliderScale::of(m_width, m_session.duration());
}

void SimpleSliderModel::carryOut(const TimelineIntents& intents)
{
    if (intents.empty())
        return;
    // Before anything that follows from it: whether the hint fades is asked when the hint goes.
    Q_EMIT gestureChanged();
    m_actions.carryOut(intents);
}

}
