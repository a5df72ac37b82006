// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace zumeta {

/// The camera that filmed. Not kept in a project.
enum class CameraType { gopro, insta360 };

/// Percent that every consumer of the stored zoom adds to it for this camera; never stored with it.
constexpr double baseZoom(CameraType camera)
{
    return camera == CameraType::gopro ? 22.0 : 65.0;
}

}
