// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "model/ExportSettings.h"

namespace zumeta {

/// What the above video's picture decides for the whole project.
struct ProjectShape {
    AspectRatio projectAspectRatio;
    ExportResolutionType selectedResolution = ExportResolutionType::hd720;
    friend bool operator==(const ProjectShape&, const ProjectShape&) = default;
};

/// 4 x 3 for a picture near 4:3, else 16 x 9, with the output size that goes with it. Width and height are those of the
/// picture as displayed, after its rotation; a height of 0 is not guarded against.
ProjectShape projectShapeForAboveVideo(double displayWidth, double displayHeight);

}
