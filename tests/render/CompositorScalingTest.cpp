// SPDX-License-Identifier: GPL-3.0-or-later
// Proxies scaled by the compositor show what the compositor makes of their sources.
#include "render/CompositorScaling.h"
#include "media/movie/FrameReader.h"
#include "media/movie/Transcoder.h"
#include "render/FrameCompositor.h"
#include "support/FootageMaker.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zumeta::test {

namespace {

struct Colours {
    const char* name;
    const char* pixelFormat;
    ColourRange range = ColourRange::limited;
    ColourMatrix matrix = ColourMatrix::bt709;
    TransferFunction transfer = TransferFunction::sdr;
    double leastPsnr = 28; ///< the copy's few bits give no more on drawn edges and grain
};

std::ostream& operator<<(std::ostream& out, const Colours& colours)
{
    return out << colours.name;
}

class EveryProxy : public testing::TestWithParam<Colours> {};

std::vector<VideoPicture> picturesOf(const FileUrl& file)
{
    std::vector<VideoPicture> pictures;
    FrameReader reader(MediaComposition(MediaAsset::load(file)), 0, 1000);
    while (const std::optional<FrameSlot> slot = reader.next())
        pictures.push_back(slot->picture.value());
    return pictures;
}

/// As a preview of that size shows the picture.
RawPicture shown(const VideoPicture& picture, int width, int height)
{
    CompositeLayout layout;
    layout.picture = {double(width), double(height)};
    const WritablePicture out = WritablePicture::allocate(width, height);
    FrameCompositor(layout).compose(picture, nullptr, out);
    return RawPicture(out.view());
}

}

TEST_P(EveryProxy, IsShownAsItsSourceIsShown)
{
    FootageSpec spec;
    spec.width = 384;
    spec.height = 216;
    spec.frames = 4;
    spec.pixelFormat = GetParam().pixelFormat;
    spec.range = GetParam().range;
    spec.matrix = GetParam().matrix;
    spec.transfer = GetParam().transfer;
    const FileUrl source(FootageMaker::make(spec));
    const TemporaryFolder folder;
    TranscoderOptions options;
    options.width = 256;
    options.height = 144;
    options.scaling = compositorScaling();
    Transcoder::open(source, options, {})->write(folder.url("proxy.mp4"), {});
    const std::vector<VideoPicture> sources = picturesOf(source);
    const std::vector<VideoPicture> proxies = picturesOf(folder.url("proxy.mp4"));
    ASSERT_EQ(proxies.size(), sources.size());
    for (size_t i = 0; i < sources.size(); ++i) {
        EXPECT_EQ(proxies[i].format.matrix, ColourMatrix::bt709);
        EXPECT_EQ(proxies[i].format.transfer, TransferFunction::sdr);
        const RawPicture expected = shown(sources[i], 256, 144);
        const RawPicture actual = shown(proxies[i], 256, 144);
        for (int plane = 0; plane < 3; ++plane)
            EXPECT_GT(planePsnr(actual, expected, plane), GetParam().leastPsnr) << plane;
    }
}

// HDR is made smaller before it goes through light, not behind it: edges differ.
INSTANTIATE_TEST_SUITE_P(Colours, EveryProxy,
                         testing::Values(Colours{"Bt709", "yuv420p"},
                                         Colours{"Bt601InFullRange", "yuv420p", ColourRange::full, ColourMatrix::bt601},
                                         Colours{"InTenBits", "yuv422p10le"},
                                         Colours{"InPq", "yuv420p10le", ColourRange::limited, ColourMatrix::bt2020,
                                                 TransferFunction::pq, 24},
                                         Colours{"InHlg", "yuv420p10le", ColourRange::limited, ColourMatrix::bt2020,
                                                 TransferFunction::hlg, 26}),
                         [](const auto& parameter) { return parameter.param.name; });

}
