// SPDX-License-Identifier: GPL-3.0-or-later
// The preview's picture at an export's size is the export's frame before it is encoded, bit for bit: both from files,
// one through the player, the other through the export's frame loop.
#include "../../media/playback/PlayerHarness.h"
#include "render/export/ExportLayout.h"
#include "render/export/FrameLoop.h"
#include "render/export/SourceAssembly.h"
#include "render/preview/PreviewCompositor.h"
#include "support/FootageMaker.h"
#include "support/RawPicture.h"

#include <gtest/gtest.h>
#include <random>

namespace zumeta::test {

namespace {

constexpr int kFrame = 2; ///< of the recordings: with B-frames around it
constexpr int kSettings = 20;

/// As large as the largest export, so that nothing is composed smaller than it is shown.
FootageSpec recording(Side side)
{
    FootageSpec spec;
    spec.side = side;
    spec.width = 3840;
    spec.height = 2160;
    spec.frames = 4;
    spec.encoder = {"-c:v", "libx264", "-preset", "ultrafast", "-bf", "2", "-crf", "16"};
    return spec;
}

MediaComposition sourceOf(Side side)
{
    return createAssetFromURLs({FileUrl(FootageMaker::make(recording(side)))},
                               ClipSteps::with([](const FileUrl& url) { return MediaAsset::load(url); }));
}

/// Gives one slot, for one run of the export's loop.
class OneFrame final : public FrameSource {
public:
    explicit OneFrame(FrameSlot slot)
        : m_slot(std::move(slot))
    {}
    std::optional<FrameSlot> next() override { return std::exchange(m_slot, std::nullopt); }

private:
    std::optional<FrameSlot> m_slot;
};

FrameSlot readFrame(Side side)
{
    FrameReader reader(sourceOf(side), kFrame / 30.0, 1);
    return reader.next().value();
}

VideoPicture shownFrame(Side side)
{
    PlayerHarness harness;
    harness.player.replaceCurrentItem(PlayerItem(sourceOf(side)));
    harness.seek(kFrame / 30.0);
    return harness.exactPicture().value().picture;
}

/// The frame that the export hands to its encoder.
RawPicture exportedFrame(const ExportParameters& params, const FrameSlot& below, const FrameSlot& above)
{
    const CompositeLayout layout = exportLayout(params).value();
    FrameCompositor compositor(layout, CompositorOptions{.threads = 2, .mark = {}});
    const WritablePicture frame = WritablePicture::allocate(int(layout.picture.width), int(layout.picture.height));
    int appended = 0;
    const FrameSink sink{[&] { return frame; }, [&](const WritablePicture&, MediaTime) { ++appended; }};
    OneFrame belowSource(below);
    OneFrame aboveSource(above);
    runFrameLoop({1, {1, 30}}, belowSource, aboveSource, compositor, sink, {}, [](int64_t) {});
    EXPECT_EQ(appended, 1);
    return RawPicture(frame.view());
}

ExportParameters randomSettings(std::mt19937& random)
{
    const auto within = [&](double low, double high) {
        return std::uniform_real_distribution<double>(low, high)(random);
    };
    ExportParameters params;
    params.waterlineHeight = within(40, 460);
    params.aboveZoom = within(-30, 60) + (within(0, 1) < 0.5 ? 22 : 65);
    params.aboveOffset = within(-150, 150);
    params.aboveHorizontalOffset = within(-200, 200);
    params.blendAmount = within(0, 1) < 0.2 ? 0 : within(1, 120);
    return params;
}

void setLike(const ExportParameters& params, PreviewSituation& situation)
{
    const ExportResolutionFacts& size = facts(params.resolution);
    situation.values.waterlineHeight = params.waterlineHeight;
    situation.values.aboveZoom = params.aboveZoom;
    situation.values.aboveOffset = params.aboveOffset;
    situation.values.aboveHorizontalOffset = params.aboveHorizontalOffset;
    situation.values.blendAmount = params.blendAmount;
    situation.shownSize = pictureSizeOn({size.width, size.height}, params.projectAspectRatio);
}

struct Case {
    ExportResolutionType resolution;
    AspectRatio aspect;
    const char* name;
};

/// Each size with the shape of its projects.
constexpr Case kCases[] = {
    {ExportResolutionType::hd720, {16, 9}, "720p"},  {ExportResolutionType::hd1080, {16, 9}, "1080p"},
    {ExportResolutionType::uhd4k, {16, 9}, "4K"},    {ExportResolutionType::hd960, {4, 3}, "960p"},
    {ExportResolutionType::hd1440, {4, 3}, "1440p"},
};

}

// One test, since drawing and decoding recordings of this size takes longest.
TEST(Preview, IsTheExportsFrameBeforeItIsEncodedAtEverySize)
{
    const FrameSlot readBelow = readFrame(Side::below);
    const FrameSlot readAbove = readFrame(Side::above);
    PreviewSituation situation;
    situation.below = shownFrame(Side::below);
    situation.above = shownFrame(Side::above);
    ASSERT_EQ(readBarCode(RawPicture(*situation.above)), (BarCode{Side::above, kFrame}));
    ASSERT_EQ(readBarCode(RawPicture(*situation.below)), (BarCode{Side::below, kFrame}));
    PreviewCompositor compositor(1);
    for (const Case& c : kCases) {
        std::mt19937 random(unsigned(c.resolution) + 99);
        for (int i = 0; i < kSettings; ++i) {
            ExportParameters params = randomSettings(random);
            params.resolution = c.resolution;
            params.projectAspectRatio = c.aspect;
            setLike(params, situation);
            const RawPicture preview(compositor.compose(previewRequest(situation).value()).view());
            const RawPicture exported = exportedFrame(params, readBelow, readAbove);
            ASSERT_EQ(preview.format(), exported.format()) << c.name;
            ASSERT_EQ(preview.bytes(), exported.bytes()) << c.name << ", settings " << i;
        }
    }
}

}
