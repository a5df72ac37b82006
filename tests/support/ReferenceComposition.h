// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "support/BarCode.h"
#include "support/RawPicture.h"

namespace zumeta::test {

/// The values of a composite as an export gets them: the camera's base zoom is already in `aboveZoom`.
struct ReferenceSettings {
    int width = 1280; ///< of the composite, pixels
    int height = 720;
    double aspectWidth = 16;
    double aspectHeight = 9;
    double waterlineHeight = 300;
    double aboveZoom = 22;
    double aboveOffset = 0;
    double aboveHorizontalOffset = 0;
    double blendAmount = 15;
};

/// Where the whole picture of a side lies in the composite, parts outside included, in pixels from the top left.
Placement abovePlacement(const ReferenceSettings& settings, const PictureFormat& source);
Placement belowPlacement(const ReferenceSettings& settings, const PictureFormat& source);

/// Heights from the bottom of the composite between which the above picture fades in.
struct ReferenceBand {
    double bottom = 0;
    double top = 0;
};
ReferenceBand bandOf(const ReferenceSettings& settings);

/// The composite by the book: every sample of the result on its own, from R'G'B' in floating point. Sources are read
/// with a separable Catmull-Rom kernel, widened where the picture shrinks, edges repeated, each plane at its own
/// sites. Slow and obvious on purpose: it is what the fast one is measured against. No tone mapping: PQ and HLG throw.
RawPicture referenceComposite(const ReferenceSettings& settings, const RawPicture* above, const RawPicture& below);

}
