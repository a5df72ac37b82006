// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/controls/ValueRowModel.h"

#include "platform/NotificationCenter.h"
#include "surfaces/controls/TextFieldFocusTracker.h"

#include <QVariantMap>
#include <utility>

namespace zumeta {
namespace {

template <typename... F> struct Overloaded : F... {
    using F::operator()...;
};

}

ValueRowModel::ValueRowModel(ValueRowSource source, const ValueRowSurroundings& surroundings, QObject* parent)
    : QObject(parent)
    , m_source(std::move(source))
    , m_surroundings(surroundings)
    , m_rules(m_source.rules())
    , m_value(m_source.value())
    , m_pressRepeat(surroundings.clock)
    , m_textInput(m_rules.displayValue(m_value))
{
    NotificationCenter& center = m_surroundings.notifications;
    center.observe(notifications::kClearTextFieldFocus, this, [this](const QVariantMap&) { clearFocus(); });
    center.observe(notifications::kAdjustFocusedNumericField, this, [this](const QVariantMap& userInfo) {
        if (const std::optional<FieldAdjustment> adjustment = FieldAdjustment::of(userInfo))
            adjust(*adjustment);
    });
}

double ValueRowModel::knobFraction() const
{
    return TrackScale::of(1, m_rules).knobCentre(m_value);
}

bool ValueRowModel::hasZeroTick() const
{
    return TrackScale::of(1, m_rules).zeroTick().has_value();
}

double ValueRowModel::zeroTickFraction() const
{
    return TrackScale::of(1, m_rules).zeroTick().value_or(0);
}

void ValueRowModel::refresh()
{
    const ValueRowRules rules = m_source.rules();
    const double value = m_source.value();
    const bool hasNewValue = value != m_value;
    const bool hasNewRange = rules.lower != m_rules.lower || rules.upper != m_rules.upper;
    m_rules = rules;
    m_value = value;
    if (hasNewValue || hasNewRange)
        Q_EMIT valueChanged();
    if (hasNewValue)
        showValue();
}

void ValueRowModel::typed(const QString& text, int caret, bool isComposing)
{
    // Writing into the field now would throw the composition away. And what the row itself has shown comes back here
    // too, and is not for filtering.
    if (isComposing || text == m_textInput)
        return;
    const TypedText kept = filterTyped({text, caret}, m_rules.inputLimits());
    if (kept.text != text)
        return show(kept.text, kept.caret);
    m_textInput = text;
    Q_EMIT textInputChanged();
}

void ValueRowModel::focusChanged(bool hasFocus, int reason)
{
    const auto focusReason = Qt::FocusReason(reason);
    carryOut(hasFocus ? m_interaction.focusArrived(focusReason)
                      : m_interaction.focusLeft(focusReason, m_textInput, m_rules, m_value));
}

void ValueRowModel::submit()
{
    carryOut(m_interaction.submit(m_textInput, m_rules, m_value));
}

void ValueRowModel::escape()
{
    carryOut(m_interaction.escape());
}

void ValueRowModel::clearFocus()
{
    carryOut(m_interaction.clearFocus(m_textInput, m_rules, m_value));
}

void ValueRowModel::adjust(FieldAdjustment adjustment)
{
    carryOut(m_interaction.adjustFocusedValue(adjustment, m_rules, m_value));
}

void ValueRowModel::pressMinus()
{
    m_pressRepeat.press([this] { stepDown(); });
}

void ValueRowModel::pressPlus()
{
    m_pressRepeat.press([this] { stepUp(); });
}

void ValueRowModel::releaseStepper()
{
    m_pressRepeat.release();
}

void ValueRowModel::stepDown()
{
    carryOut(m_interaction.minus(m_rules, m_value));
}

void ValueRowModel::stepUp()
{
    carryOut(m_interaction.plus(m_rules, m_value));
}

void ValueRowModel::dragTrack(double x, double width)
{
    carryOut(m_interaction.dragTrack(x, TrackScale::of(width, m_rules)));
}

void ValueRowModel::endTrackDrag()
{
    carryOut(m_interaction.endTrackDrag());
}

void ValueRowModel::endGestures()
{
    releaseStepper();
    endTrackDrag();
}

void ValueRowModel::goAway()
{
    endGestures();
    escape();
}

void ValueRowModel::carryOut(const ValueRowIntents& intents)
{
    for (const ValueRowIntent& intent : intents)
        carryOut(intent);
    if (std::exchange(m_isDraggingSlider, m_interaction.isDraggingSlider()) != m_isDraggingSlider)
        Q_EMIT isDraggingSliderChanged();
    if (std::exchange(m_isFocused, m_interaction.isFocused()) != m_isFocused)
        Q_EMIT isFocusedChanged();
}

void ValueRowModel::carryOut(const ValueRowIntent& intent)
{
    const auto call = [](const std::function<void()>& callback) {
        if (callback)
            callback();
    };
    const Overloaded carryingOut{
        [&](InteractionBegan) { call(m_source.onInteraction); },
        [&](SetValue set) {
            m_source.setValue(set.value);
            refresh();
        },
        [&](ShowValue) { showValue(); },
        [&](EditingEnded) { call(m_source.onEditingEnded); },
        [&](FocusCounted counted) {
            counted.hasFocus ? m_surroundings.fieldFocus.arrived() : m_surroundings.fieldFocus.left();
        },
        [&](SelectAll) { Q_EMIT allSelected(); },
        [&](LeaveField) { Q_EMIT fieldLeft(); },
    };
    std::visit(carryingOut, intent);
}

void ValueRowModel::show(const QString& text, int caret)
{
    const bool isNew = std::exchange(m_textInput, text) != text;
    Q_EMIT textShown(text, caret);
    if (isNew)
        Q_EMIT textInputChanged();
}

void ValueRowModel::showValue()
{
    const QString text = m_rules.displayValue(m_value);
    show(text, int(text.size()));
}

}
