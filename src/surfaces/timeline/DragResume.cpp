// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/timeline/DragResume.h"

#include <utility>

namespace zumeta {

DragResume::Playback DragResume::draggingChanged(bool isDragging, bool isPlaying)
{
    if (!isDragging)
        return std::exchange(m_shouldResumePlaybackAfterDrag, false) ? Playback::plays : Playback::stays;
    // Told twice, it is the drag itself that stopped playback: that must not count as having been stopped before.
    if (m_shouldResumePlaybackAfterDrag)
        return Playback::stays;
    m_shouldResumePlaybackAfterDrag = isPlaying;
    return isPlaying ? Playback::pauses : Playback::stays;
}

}
