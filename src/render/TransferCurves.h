// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/movie/VideoPicture.h"

#include <vector>

namespace zumeta {

/// Light that SDR shows as its brightest, nits of the HDR scale: the reference white of HDR pictures, so that what is
/// lit as usual keeps its brightness and only highlights are compressed.
inline constexpr double kSdrPeakNits = 203;
/// Brightest light that still differs from white; what lies above is white.
inline constexpr double kHdrPeakNits = 1000;

/// PQ signal 0..1 to nits, and back.
double nitsOfPq(double signal);
double pqOfNits(double nits);
/// HLG signal 0..1 to light of the scene 0..1.
double sceneLightOfHlg(double signal);

/// Nits that SDR shows in place of `nits`: the same up to a knee, then a smooth curve (that of BT.2390) which takes
/// kHdrPeakNits to kSdrPeakNits.
double toneMapped(double nits);

/// Tables for LightConversion. Light is in fractions of kSdrPeakNits, but the scene's own for HLG.
std::vector<float> lightTable(TransferFunction transfer);
std::vector<float> toneTable(TransferFunction transfer);

}
