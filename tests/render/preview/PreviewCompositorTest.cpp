// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/preview/PreviewCompositor.h"

#include "PreviewSources.h"
#include "support/RawPicture.h"

#include <gtest/gtest.h>

namespace zumeta::test {

namespace {

RawPicture composed(const PreviewSituation& situation)
{
    PreviewCompositor compositor(1);
    return RawPicture(compositor.compose(previewRequest(situation).value()).view());
}

/// What the export's compositor makes of the same.
RawPicture expected(const PreviewSituation& situation, const VideoPicture& below, const VideoPicture* above)
{
    const PixelSize size = situation.shownSize;
    FrameCompositor compositor(previewLayout({double(size.width), double(size.height)}, situation.values)->layout);
    const WritablePicture out = WritablePicture::allocate(size.width, size.height);
    compositor.compose(below, above, out);
    return RawPicture(out.view());
}

void expectBackdrop(uint32_t pixel)
{
    for (const int shift : {0, 8, 16})
        EXPECT_NEAR(int(pixel >> shift & 0xff), int(kPreviewBackdrop >> shift & 0xff), 1);
}

}

TEST(PreviewCompositor, SplitIsWhatTheExportComposes)
{
    PreviewSituation situation = bothSides();
    EXPECT_EQ(largestDifference(composed(situation), expected(situation, *situation.below, &*situation.above)), 0);
}

TEST(PreviewCompositor, TheBelowSideAloneFillsThePicture)
{
    PreviewSituation situation = bothSides();
    const RawPicture whole = expected(situation, *situation.below, nullptr);
    situation.mode = PreviewMode::belowOnly;
    EXPECT_EQ(largestDifference(composed(situation), whole), 0);
    situation.mode = PreviewMode::split;
    situation.isAboveHidden = true;
    EXPECT_EQ(largestDifference(composed(situation), whole), 0);
    situation.isAboveHidden = false;
    situation.above.reset();
    EXPECT_EQ(largestDifference(composed(situation), whole), 0);
}

TEST(PreviewCompositor, TheAboveSideAloneIsWholeAndZoomed)
{
    PreviewSituation situation = bothSides();
    situation.mode = PreviewMode::aboveOnly;
    PreviewSituation underWater = situation; // with the line at the bottom the above picture covers everything
    underWater.values.waterlineHeight = -100;
    EXPECT_EQ(largestDifference(composed(situation), expected(underWater, *situation.below, &*situation.above)), 0);
}

TEST(PreviewCompositor, TheBackdropShowsWhereTheAboveSideAloneDoesNotReach)
{
    PreviewSituation situation = bothSides();
    situation.mode = PreviewMode::aboveOnly;
    situation.values.aboveZoom = -50; // half the size, centred
    PreviewCompositor compositor(1);
    const ScreenPicture picture = compositor.composeForScreen(*previewRequest(situation));
    expectBackdrop(picture.row(0)[0]);
    expectBackdrop(picture.row(179)[319]);
    expectBackdrop(picture.row(90)[70]);
    const std::optional<BarCode> code = readBarCode(composed(situation), CodeStrip::upper, {80, 45, 160, 90});
    EXPECT_EQ(code, (BarCode{Side::above, 7}));
}

TEST(PreviewCompositor, WithoutABelowPictureTheMaskOpensOnTheBackdrop)
{
    PreviewSituation situation = bothSides();
    situation.isBelowHidden = true;
    PreviewCompositor compositor(1);
    const ScreenPicture picture = compositor.composeForScreen(*previewRequest(situation));
    expectBackdrop(picture.row(179)[10]);
    expectBackdrop(picture.row(96)[160]); // the band reaches 2.7 rows past the line at 90
    const RawPicture frame = composed(situation);
    const RawPicture both = composed(bothSides());
    for (int x = 0; x < 320; ++x)
        ASSERT_EQ(frame.sample(0, x, 20), both.sample(0, x, 20));
}

TEST(PreviewCompositor, GoesFromSizeToSizeAndFromSideToSide)
{
    PreviewCompositor compositor(2);
    PreviewSituation situation = bothSides();
    for (const PixelSize size : {PixelSize{320, 180}, PixelSize{160, 90}, PixelSize{320, 180}}) {
        for (const PreviewMode mode : {PreviewMode::aboveOnly, PreviewMode::belowOnly, PreviewMode::split}) {
            situation.shownSize = size;
            situation.mode = mode;
            const PreviewRequest request = *previewRequest(situation);
            EXPECT_EQ(largestDifference(RawPicture(compositor.compose(request).view()), composed(situation)), 0);
            EXPECT_EQ(compositor.composeForScreen(request).width, size.width);
        }
    }
}

}
