// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/controls/ValueRowRules.h"

#include "surfaces/controls/ControlMetrics.h"
#include "surfaces/controls/NumberText.h"
#include "surfaces/controls/Timecode.h"

#include <algorithm>

namespace zumeta {

QString ValueRowRules::displayValue(double value) const
{
    constexpr int kDecimalsOfScaled = 2;
    const double shown = value * displayScale;
    if (displaysAsTimecode)
        return formatTimecode(shown);
    return fixedNumber(shown, decimalPlaces.value_or(displayScale == 1 ? 0 : kDecimalsOfScaled));
}

InputLimits ValueRowRules::inputLimits() const
{
    const int usual = displaysAsTimecode ? kLongestTimecode : decimalPlaces ? kLongestDecimal : kLongestNumber;
    const auto ofRange = std::max(displayValue(lower).size(), displayValue(upper).size());
    return {.acceptsColon = displaysAsTimecode, .greatestLength = std::max(usual, int(ofRange))};
}

double ValueRowRules::fieldWidth() const
{
    return displaysAsTimecode ? kTimecodeFieldWidth : kFieldWidth;
}

std::optional<double> ValueRowRules::appliedText(const QString& text, double value) const
{
    if (text == displayValue(value))
        return std::nullopt;
    const QString clean = filterInput(withPlainSigns(text), inputLimits());
    const std::optional<double> parsed = displaysAsTimecode ? parseTimecode(clean) : parsedNumber(clean);
    if (!parsed)
        return std::nullopt;
    return clamped(*parsed / displayScale);
}

double ValueRowRules::clamped(double value) const
{
    return std::max(lower, std::min(value, upper));
}

std::optional<double> ValueRowRules::steppedDown(double value) const
{
    return canStepDown(value) ? std::optional(value - step) : std::nullopt;
}

std::optional<double> ValueRowRules::steppedUp(double value) const
{
    return canStepUp(value) ? std::optional(value + step) : std::nullopt;
}

double ValueRowRules::adjusted(double value, int direction, bool isLargeStep) const
{
    return clamped(value + (isLargeStep ? kStepsOfALargeStep : 1) * step * direction);
}

}
