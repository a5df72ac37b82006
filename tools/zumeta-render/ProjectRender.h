// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "zumeta-render/ProgressDisplay.h"
#include "zumeta-render/RenderArguments.h"

namespace zumeta {

/// Restores a project and exports it from the step in which it opens, as the application does. The change to the last
/// step is left out, since it would set both trims to 0. Throws RenderFailure.
void renderProject(const RenderRequest& request, ProgressDisplay::Style progressStyle);

}
