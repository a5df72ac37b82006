// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/preview/PickByKeys.h"

#include <algorithm>
#include <cmath>

namespace zumeta {

namespace {

int fineStepsOf(PickKey key)
{
    switch (key) {
    case PickKey::up:
        return kCoarseStep;
    case PickKey::down:
        return -kCoarseStep;
    case PickKey::upFine:
        return 1;
    case PickKey::downFine:
        return -1;
    case PickKey::pick:
        return 0;
    }
    return 0;
}

}

std::optional<PickKey> pickKey(int qtKey, Qt::KeyboardModifiers modifiers)
{
    if (modifiers & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier))
        return std::nullopt;
    const bool isFine = modifiers.testFlag(Qt::ShiftModifier);
    switch (qtKey) {
    case Qt::Key_PageUp:
        return isFine ? PickKey::upFine : PickKey::up;
    case Qt::Key_PageDown:
        return isFine ? PickKey::downFine : PickKey::down;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return isFine ? std::nullopt : std::optional(PickKey::pick);
    default:
        return std::nullopt;
    }
}

double firstPickLine(std::optional<double> hovered, std::optional<double> picked)
{
    return hovered ? *hovered : picked.value_or(0.5);
}

double movedPickLine(double height, PickKey key)
{
    if (key == PickKey::pick)
        return height;
    const double steps = std::round(height * kFineSteps) + fineStepsOf(key);
    return std::clamp(steps, 0.0, double(kFineSteps)) / kFineSteps;
}

}
