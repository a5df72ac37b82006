// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QString>

namespace zumeta {

/// Frame rates that can be mixed without a question.
enum class FrameRateFamily { ntsc, integer, pal, unknown };

/// Frames per second. Rates above 35 are halved until they are not. Exact 24 and 30 are `ntsc`, because a 30 and a
/// 29.97 recording do go together; `integer` is left for rates just above those.
FrameRateFamily getFrameRateFamily(double rate);

/// The name of the case.
QString rawValue(FrameRateFamily family);

}
