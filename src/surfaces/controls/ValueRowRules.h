// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "surfaces/controls/TypedText.h"

#include <optional>

namespace zumeta {

/// How one adjustable number is shown, typed and stepped. What is stored and what is shown differ by a scale. The row
/// knows nothing of what the number means.
struct ValueRowRules {
    double lower = 0; ///< of the legal stored values
    double upper = 0;
    double step = 1; ///< of one plus or minus, in stored units; above 0
    double displayScale = 1;
    /// Fixed decimals of the display. Without them it is a whole number, or has two decimals where a scale stands
    /// between.
    std::optional<int> decimalPlaces = std::nullopt;
    bool displaysAsTimecode = false;
    bool keyboardAdjustmentEnabled = false;

    QString displayValue(double value) const;
    /// Room for every text that the range can show, and never less than the usual lengths.
    InputLimits inputLimits() const;
    double fieldWidth() const;

    /// What is stored when a text is applied, if anything. A text that is what the row shows of the value anyway is not
    /// applied: it is rounded, and merely visiting the field would change the value.
    std::optional<double> appliedText(const QString& text, double value) const;

    /// The upper bound goes first.
    double clamped(double value) const;
    bool canStepDown(double value) const { return value > lower; }
    bool canStepUp(double value) const { return value < upper; }
    /// One step of the buttons. It may pass the bound by less than a step, and then goes no further.
    std::optional<double> steppedDown(double value) const;
    std::optional<double> steppedUp(double value) const;
    /// By the arrow keys: direction +1 or -1.
    double adjusted(double value, int direction, bool isLargeStep) const;
};

}
