// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <variant>
#include <vector>

namespace zumeta {

// What a row asks for when something is done to it. Who owns the row carries it out, in its order.

/// The user starts to change the value: `onInteraction`.
struct InteractionBegan {
    friend bool operator==(const InteractionBegan&, const InteractionBegan&) = default;
};

/// The setter may make another value of it.
struct SetValue {
    double value; ///< stored units
    friend bool operator==(const SetValue&, const SetValue&) = default;
};

/// The field shows the value as it is by now: `textInput` becomes `displayValue`.
struct ShowValue {
    friend bool operator==(const ShowValue&, const ShowValue&) = default;
};

/// A change is complete: `onEditingEnded`.
struct EditingEnded {
    friend bool operator==(const EditingEnded&, const EditingEnded&) = default;
};

/// The row counts as one that holds the focus, or no longer.
struct FocusCounted {
    bool hasFocus;
    friend bool operator==(const FocusCounted&, const FocusCounted&) = default;
};

struct SelectAll {
    friend bool operator==(const SelectAll&, const SelectAll&) = default;
};

/// The field gives the keyboard's focus up, if it has it.
struct LeaveField {
    friend bool operator==(const LeaveField&, const LeaveField&) = default;
};

using ValueRowIntent =
    std::variant<InteractionBegan, SetValue, ShowValue, EditingEnded, FocusCounted, SelectAll, LeaveField>;
using ValueRowIntents = std::vector<ValueRowIntent>;

}
