// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "render/CompositeGeometry.h"
#include "render/export/ExportParameters.h"

namespace zumeta {

/// How an export lays out its frames, at the size of its resolution.
std::optional<CompositeLayout> exportLayout(const ExportParameters& params);

}
