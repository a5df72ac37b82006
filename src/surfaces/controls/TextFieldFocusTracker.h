// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <Qt>

namespace zumeta {

/// How many rows hold the keyboard's focus, which is more than none while a number is being typed. It outlives the
/// rows: one that goes away with the focus counts until it says that the focus is gone.
class TextFieldFocusTracker {
public:
    void arrived() { ++m_focusCount; }
    /// One loss too many is harmless.
    void left();
    int focusCount() const { return m_focusCount; }

private:
    int m_focusCount = 0;
};

/// A menu that opens or a window that rests borrows the focus and gives it back: the field is still being edited.
bool countsAsFocusChange(Qt::FocusReason reason);

/// Whether the focus was brought by the keys that lead from field to field: then the text is there to be replaced.
bool selectsAllOnArrival(Qt::FocusReason reason);

}
