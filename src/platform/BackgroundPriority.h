// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace zumeta {

/// Lets the calling thread, and every thread that it starts from here on, stand back behind all others for the
/// processor. There is no way back: for threads that do nothing else.
void standBackInBackground();

}
