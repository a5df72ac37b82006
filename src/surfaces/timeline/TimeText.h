// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QString>

namespace zumeta {

// How the window writes a time. Each read-out has its own form; all of them cut and none rounds, so that a read-out
// never shows an instant that the playhead has not reached. The time must be finite.

/// The playhead: "01:30.15" at 90.5. The last field counts 30 frames a second, whatever the recording's rate is. Before
/// zero every field carries its sign.
QString formatTimeWithFrames(double seconds);
/// The length of the export, in the strip: "1:30".
QString formatDuration(double seconds);
/// The length of the export, in the panel: "01:30".
QString formatPaddedDuration(double seconds);

}
