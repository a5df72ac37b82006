// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace zumeta {

/// A plain rectangle or size in container units; the origin is at the bottom left, y grows upward.
struct Size {
    double width = 0;
    double height = 0;
    friend bool operator==(const Size&, const Size&) = default;
};
struct Rect {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;
    friend bool operator==(const Rect&, const Rect&) = default;
};

/// Every value that a user adjusts and that changes the picture, the timing or the trim. Spatial values are reference
/// units: one unit is a 600th of the picture's height, so they hold for every preview and export size. Nothing clamps.
struct VideoCompositionConfig {
    double waterlineHeight = 0;        ///< reference units from the bottom, before zoom
    double aboveZoom = 0;              ///< percent added to 100, without the camera's base zoom
    double aboveOffset = 0;            ///< reference units, positive moves the above picture up
    double aboveHorizontalOffset = 0;  ///< reference units, positive moves it right
    double timingOffset = 0;           ///< hundredths of a second between the two videos
    double blendAmount = 15;           ///< reference units, height of the soft edge before zoom
    double belowStartTime = 0;         ///< seconds into the below video of its sync point
    double aboveStartTime = 0;         ///< seconds into the above video of its sync point
    bool isSynced = false;             ///< both videos are locked at their sync points
    double exportTrimStartSeconds = 0; ///< length cut from the start of the composite timeline
    double exportTrimEndSeconds = 0;   ///< length cut from its end

    static const VideoCompositionConfig& defaultConfig();

    double timingOffsetSeconds() const { return timingOffset * 0.01; }
    double scaleFactor() const { return (aboveZoom + 100) / 100; }
    /// Puts every field back to its default, trims and sync included.
    void reset();

    /// Helpers in plain container units: no reference units, no camera base, no centring of y.
    Rect calculateAboveCropRect(Size originalSize, Size containerSize) const;
    double calculateAboveYOffset(Size containerSize) const;
    Rect calculateAboveFrame(Size containerSize) const;
    Rect calculateAboveMaskRect(Rect layerBounds) const;

    friend bool operator==(const VideoCompositionConfig&, const VideoCompositionConfig&) = default;
};

}
