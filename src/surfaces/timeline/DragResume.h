// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace zumeta {

/// Playback rests during a drag of the timeline, and goes on after it if it ran before. It outlives the slider that is
/// dragged: the step may change in the middle of a drag.
class DragResume {
public:
    enum class Playback { stays, pauses, plays };

    /// What playback is to do now. `isPlaying` is the session's.
    Playback draggingChanged(bool isDragging, bool isPlaying);

    bool shouldResumePlaybackAfterDrag() const { return m_shouldResumePlaybackAfterDrag; }

private:
    bool m_shouldResumePlaybackAfterDrag = false;
};

}
