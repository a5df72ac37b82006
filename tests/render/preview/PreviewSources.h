// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "render/preview/PreviewRequest.h"
#include "support/Drawing.h"

namespace zumeta::test {

inline VideoPicture drawnPicture(Side side, int number, int width = 320, int height = 180)
{
    PictureFormat format;
    format.width = width;
    format.height = height;
    return draw({{side, number}, Scene::texture, false}, format).view();
}

/// Both sides at their own size, the water halfway up, as a GoPro's zoom shows it.
inline PreviewSituation bothSides(int number = 7)
{
    PreviewSituation situation;
    situation.below = drawnPicture(Side::below, number);
    situation.above = drawnPicture(Side::above, number);
    situation.values.aboveZoom = 22;
    situation.values.waterlineHeight = 300 / 1.22;
    situation.shownSize = {320, 180};
    return situation;
}

}
