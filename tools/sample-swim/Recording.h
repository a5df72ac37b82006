// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "SwimPlan.h"
#include "SwimSound.h"
#include "media/movie/VideoPicture.h"
#include "platform/FileUrl.h"

#include <atomic>
#include <functional>

namespace zumeta::swim {

/// One file of a camera: the frames [firstFrame, endFrame) of its recording, with the sound that belongs to them.
struct Chapter {
    FileUrl file;
    int width = 0;
    int height = 0;
    FrameRate rate;
    int firstFrame = 0;
    int endFrame = 0;
};

/// Draws a frame of the camera's recording.
using DrawFrame = std::function<void(int frame, const WritablePicture& picture)>;

/// Writes the chapter's file, which must not be there yet. `sound` stands at the chapter's first sample and is left at
/// its end. Throws MovieError; then, and when `interrupted` becomes true, there is no file. Tells whether there is one.
bool writeChapter(const Chapter& chapter, const DrawFrame& draw, SwimSound& sound,
                  const std::atomic<bool>& interrupted);

}
