// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "surfaces/preview/PreviewSurface.h"
#include "surfaces/preview/SurfaceValues.h"

namespace zumeta {

/// The surface as the pointer meets it.
struct PickSurface {
    Size bounds;
    AspectRatio projectAspectRatio;
    PublishedFields::AlignmentState alignmentState = PublishedFields::AlignmentState::none;

    bool isPickOpen() const { return alignmentState != PublishedFields::AlignmentState::none; }
    Rect contentRect() const { return calculateVideoContentRect(bounds, projectAspectRatio); }
};

/// What a press on the surface does. While a pick is open no press reaches anything else, also beside the picture.
struct PressAnswer {
    bool isPassedOn = false;
    /// The height to pick, as a fraction of the picture's, 0 at its bottom.
    std::optional<double> onPickWaterline{};
    friend bool operator==(const PressAnswer&, const PressAnswer&) = default;
};

PressAnswer mouseDown(const PickSurface& surface, SurfacePoint point);

/// The height to report for a pointer at this place, on the surface; nothing while no pick is open and beside the
/// picture. A pointer that leaves is reported as nothing, each time.
std::optional<double> mouseMoved(const PickSurface& surface, SurfacePoint point);

/// Whether the pointer is a crosshair: also when the pick opens under a pointer that does not move.
bool showsCrosshair(PublishedFields::AlignmentState alignmentState, bool isPointerOverSurface);

/// A reported height as a fraction of the picture's, and back.
double normalizedHeight(double hoverY, Rect contentRect);
double hoverHeight(double normalized, Rect contentRect);

}
