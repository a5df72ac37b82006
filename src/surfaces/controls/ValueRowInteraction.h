// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "surfaces/controls/FieldAdjustment.h"
#include "surfaces/controls/TrackScale.h"
#include "surfaces/controls/ValueRowIntent.h"

#include <Qt>

namespace zumeta {

/// What follows from all that can be done to a value row. The rules and the value are handed in as they stand at each
/// event, because what the row asks for changes the value, and the range may change with the session. A drag that is
/// cancelled ends as by a release.
class ValueRowInteraction {
public:
    // The field. `text` is what stands in it.
    ValueRowIntents focusArrived(Qt::FocusReason reason);
    ValueRowIntents focusLeft(Qt::FocusReason reason, const QString& text, const ValueRowRules& rules, double value);
    /// Return: the text is applied and the field kept.
    ValueRowIntents submit(const QString& text, const ValueRowRules& rules, double value) const;
    /// Escape: nothing is applied, and the field is left.
    ValueRowIntents escape();
    /// Something else of the window asks for the keys, or the row goes away. It works too while the focus is only lent.
    ValueRowIntents clearFocus(const QString& text, const ValueRowRules& rules, double value);
    ValueRowIntents adjustFocusedValue(FieldAdjustment adjustment, const ValueRowRules& rules, double value) const;

    // The buttons: each press and each repetition.
    ValueRowIntents minus(const ValueRowRules& rules, double value) const;
    ValueRowIntents plus(const ValueRowRules& rules, double value) const;

    // The track: the press and each movement.
    ValueRowIntents dragTrack(double x, const TrackScale& scale);
    ValueRowIntents endTrackDrag();

    bool isFocused() const { return m_isFocused; }
    bool isDraggingSlider() const { return m_isDraggingSlider; }

private:
    bool m_isFocused = false;
    bool m_isDraggingSlider = false;
};

}
