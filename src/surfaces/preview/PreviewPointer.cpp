// SPDX-License-Identifier: GPL-3.0-or-later
#include "surfaces/preview/PreviewPointer.h"

namespace zumeta {

namespace {

/// All four edges belong to the picture, so that 0 and 1 can be picked. An empty one has no inside.
bool isInside(Rect rect, SurfacePoint point)
{
    return rect.width > 0 && rect.height > 0 && point.x >= rect.x && point.x <= rect.x + rect.width &&
           point.y >= rect.y && point.y <= rect.y + rect.height;
}

}

PressAnswer mouseDown(const PickSurface& surface, SurfacePoint point)
{
    if (!surface.isPickOpen())
        return {.isPassedOn = true};
    const Rect rect = surface.contentRect();
    if (!isInside(rect, point))
        return {};
    return {.onPickWaterline = normalizedHeight(point.y, rect)};
}

std::optional<double> mouseMoved(const PickSurface& surface, SurfacePoint point)
{
    const Rect rect = surface.contentRect();
    if (!surface.isPickOpen() || !isInside(rect, point))
        return std::nullopt;
    return hoverHeight(normalizedHeight(point.y, rect), rect);
}

bool showsCrosshair(PublishedFields::AlignmentState alignmentState, bool isPointerOverSurface)
{
    return alignmentState != PublishedFields::AlignmentState::none && isPointerOverSurface;
}

double normalizedHeight(double hoverY, Rect contentRect)
{
    return (hoverY - contentRect.y) / contentRect.height;
}

double hoverHeight(double normalized, Rect contentRect)
{
    return contentRect.y + normalized * contentRect.height;
}

}
