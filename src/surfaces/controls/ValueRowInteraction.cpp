// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/controls/ValueRowInteraction.h"

#include "surfaces/controls/TextFieldFocusTracker.h"

#include <utility>

namespace zumeta {
namespace {

void append(ValueRowIntents& intents, const ValueRowIntents& more)
{
    intents.insert(intents.end(), more.begin(), more.end());
}

/// Bad text snaps back, and editing has ended even when nothing came of it.
ValueRowIntents applyValue(const QString& text, const ValueRowRules& rules, double value)
{
    ValueRowIntents intents;
    if (const std::optional<double> applied = rules.appliedText(text, value))
        intents.push_back(SetValue{*applied});
    append(intents, {ShowValue{}, EditingEnded{}});
    return intents;
}

}

ValueRowIntents ValueRowInteraction::focusArrived(Qt::FocusReason reason)
{
    // What was lent counts on and comes back to a row that is focused already. A menu may also give the focus back to a
    // row that was made to leave its field meanwhile: it is typed in again then, whatever the reason.
    if (std::exchange(m_isFocused, true))
        return {};
    ValueRowIntents intents{InteractionBegan{}, FocusCounted{true}, ShowValue{}};
    if (selectsAllOnArrival(reason))
        intents.push_back(SelectAll{});
    return intents;
}

ValueRowIntents ValueRowInteraction::focusLeft(Qt::FocusReason reason, const QString& text, const ValueRowRules& rules,
                                               double value)
{
    if (!m_isFocused || !countsAsFocusChange(reason))
        return {};
    m_isFocused = false;
    ValueRowIntents intents{FocusCounted{false}};
    append(intents, applyValue(text, rules, value));
    return intents;
}

ValueRowIntents ValueRowInteraction::submit(const QString& text, const ValueRowRules& rules, double value) const
{
    ValueRowIntents intents = applyValue(text, rules, value);
    intents.push_back(SelectAll{});
    return intents;
}

ValueRowIntents ValueRowInteraction::escape()
{
    if (!std::exchange(m_isFocused, false))
        return {};
    return {FocusCounted{false}, ShowValue{}, EditingEnded{}, LeaveField{}};
}

ValueRowIntents ValueRowInteraction::clearFocus(const QString& text, const ValueRowRules& rules, double value)
{
    // Counted out here and not when the field reports its loss: it reports none while a menu has its focus, and none
    // when it is destroyed.
    ValueRowIntents intents = focusLeft(Qt::OtherFocusReason, text, rules, value);
    if (!intents.empty())
        intents.push_back(LeaveField{});
    return intents;
}

ValueRowIntents ValueRowInteraction::adjustFocusedValue(FieldAdjustment adjustment, const ValueRowRules& rules,
                                                        double value) const
{
    if (!rules.keyboardAdjustmentEnabled || !m_isFocused)
        return {};
    const double adjusted = rules.adjusted(value, adjustment.direction, adjustment.isLargeStep);
    return {InteractionBegan{}, SetValue{adjusted}, ShowValue{}, EditingEnded{}};
}

ValueRowIntents ValueRowInteraction::minus(const ValueRowRules& rules, double value) const
{
    const std::optional<double> stepped = rules.steppedDown(value);
    if (!stepped)
        return {InteractionBegan{}};
    return {InteractionBegan{}, SetValue{*stepped}, ShowValue{}, EditingEnded{}};
}

ValueRowIntents ValueRowInteraction::plus(const ValueRowRules& rules, double value) const
{
    const std::optional<double> stepped = rules.steppedUp(value);
    if (!stepped)
        return {InteractionBegan{}};
    return {InteractionBegan{}, SetValue{*stepped}, ShowValue{}, EditingEnded{}};
}

ValueRowIntents ValueRowInteraction::dragTrack(double x, const TrackScale& scale)
{
    // A track that is not laid out yet has no place to mean a value by.
    if (scale.width <= 0)
        return {};
    ValueRowIntents intents;
    if (!std::exchange(m_isDraggingSlider, true))
        intents.push_back(InteractionBegan{});
    intents.push_back(SetValue{scale.value(x)});
    return intents;
}

ValueRowIntents ValueRowInteraction::endTrackDrag()
{
    return std::exchange(m_isDraggingSlider, false) ? ValueRowIntents{EditingEnded{}} : ValueRowIntents{};
}

}
