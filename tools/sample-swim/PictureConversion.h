// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "Canvas.h"
#include "RowPool.h"
#include "media/movie/VideoPicture.h"

namespace zumeta::swim {

/// Codes the canvas as the picture wants it: BT.709, limited range, chroma halved both ways and sited left. A fixed
/// grain of less than one code value keeps the wide smooth gradients free of steps.
void convert(const Canvas& canvas, const WritablePicture& picture, RowPool& pool);

}
