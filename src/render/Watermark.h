// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "model/VideoCompositionConfig.h"
#include "render/MarkImage.h"

#include <optional>

namespace zumeta {

/// The small text in the lower right corner of a picture, transparent elsewhere. Needs a GUI application object for
/// its font. None where the size has no whole pixel.
std::optional<MarkImage> createWatermarkImage(Size renderSize);

}
