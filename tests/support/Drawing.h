// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "support/BarCode.h"
#include "support/RawPicture.h"

namespace zumeta::test {

/// What the drawn pictures show behind their bar code.
enum class Scene {
    texture, ///< moving waves, patches of saturated colour with hard edges, fine grain
    grain,   ///< the same under strong grain in luma and colour: any shift of a part of a pixel shows; encodes badly
    plain,   ///< one grey per side: for what is measured on flat ground
};

struct Drawing {
    BarCode code;
    Scene scene = Scene::texture;
    /// The whole picture outside the code goes white: the moment of a click.
    bool flash = false;
};

/// Draws a picture in any format. The same drawing gives the same samples.
RawPicture draw(const Drawing& drawing, const PictureFormat& format);

}
