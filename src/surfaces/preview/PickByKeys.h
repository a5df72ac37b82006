// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <Qt>
#include <optional>

namespace zumeta {

/// What a key does to the line of an open pick while the preview has the focus.
enum class PickKey { up, down, upFine, downFine, pick };

/// Page Up and Page Down move the line, with Shift in fine steps; Return and Enter pick where it stands. Nothing with
/// another modifier and for other keys.
std::optional<PickKey> pickKey(int qtKey, Qt::KeyboardModifiers modifiers);

/// Steps of the line, as fractions of the picture's height: thirty steps cross the picture, a fine one is one of the
/// units in which the waterline is stored.
inline constexpr int kFineSteps = 600;
inline constexpr int kCoarseStep = 20; ///< in fine ones

/// Where the line begins: at the pointer's line, else at the point that was picked before, else in the middle. All
/// heights are fractions of the picture's.
double firstPickLine(std::optional<double> hovered, std::optional<double> picked);

/// Stays in the picture, and on whole fine steps, so that the way up leads through the same heights as the way down.
double movedPickLine(double height, PickKey key);

}
