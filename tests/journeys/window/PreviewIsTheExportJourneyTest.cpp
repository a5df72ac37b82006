// SPDX-License-Identifier: GPL-3.0-or-later
// From the session to both: what its surface shows in a window, and what its export hands to the encoder.
#include "journeys/window/WindowJourney.h"
#include "media/movie/FrameReader.h"
#include "render/FrameCompositor.h"
#include "render/export/ExportLayout.h"
#include "render/export/SourceAssembly.h"
#include "render/preview/ScreenConversion.h"
#include "session/ExportInputs.h"
#include "support/FootageMaker.h"
#include "surfaces/preview/CompositeVideoView.h"

#include <QQuickWindow>
#include <QTest>
#include <random>

namespace zumeta {
namespace {

using namespace test;

constexpr int kFrame = 2; ///< of the recordings: with B-frames around it
constexpr int kSettings = 20;

/// A recording in two files, which are played as they are: no proxy takes their place.
std::vector<FileUrl> recording(test::Side side, QSize size)
{
    std::vector<FileUrl> files;
    for (const int chapter : {0, 1}) {
        FootageSpec spec;
        spec.side = side;
        spec.width = size.width();
        spec.height = size.height();
        spec.frames = 4;
        spec.firstNumber = 4 * chapter;
        spec.encoder = {"-c:v", "libx264", "-preset", "ultrafast", "-bf", "2", "-crf", "16"};
        files.emplace_back(FootageMaker::make(spec));
    }
    return files;
}

VideoPicture readFrame(const std::vector<FileUrl>& files)
{
    const MediaComposition source =
        createAssetFromURLs(files, ClipSteps::with([](const FileUrl& url) { return MediaAsset::load(url); }));
    FrameReader reader(source, kFrame / 30.0, 1);
    return *reader.next().value().picture;
}

struct PreviewOfTheSession : WindowJourney {
    std::vector<FileUrl> aboveFiles;
    std::vector<FileUrl> belowFiles;
    std::optional<VideoPicture> above;
    std::optional<VideoPicture> below;
    std::mt19937 random{4711};

    CompositorViewModel& session() { return app().session(); }

    /// Both recordings of this size, locked on their first frames.
    void openComposite(QSize size)
    {
        aboveFiles = recording(test::Side::above, size);
        belowFiles = recording(test::Side::below, size);
        above = readFrame(aboveFiles);
        below = readFrame(belowFiles);
        open();
        confirmCamera();
        loadFiles(zumeta::Side::above, aboveFiles);
        session().toggleAboveLock();
        session().setCurrentStep(CompositorViewModel::WorkflowStep::step2);
        loadFiles(zumeta::Side::below, belowFiles);
        session().toggleBelowLock();
    }
    double within(double low, double high) { return std::uniform_real_distribution<double>(low, high)(random); }
    void setRandomly(int i)
    {
        VideoCompositionConfig config = session().projectConfig();
        session().setSelectedCamera(i % 2 == 0 ? CameraType::gopro : CameraType::insta360);
        config.aboveZoom = within(-15, 60);
        // Both sides are seen.
        config.waterlineHeight =
            within(60, 540) / (1 + (config.aboveZoom + baseZoom(session().selectedCamera())) / 100);
        config.aboveOffset = within(-150, 150);
        config.aboveHorizontalOffset = within(-200, 200);
        config.blendAmount = i % 5 == 0 ? 0 : within(1, 120);
        session().setProjectConfig(config);
        session().setCurrentStep(CompositorViewModel::WorkflowStep(i % 3 == 0 ? 4 : 3));
        session().seek(kFrame / 30.0, true);
    }
    /// The frame that an export of this size would encode, as a screen shows it.
    QImage exported(ExportResolutionType resolution)
    {
        const std::optional<ExportParameters> params =
            exportParameters({session().projectState(),
                              session().projectConfig(),
                              {session().manualSyncTimeAbove(), session().manualSyncTimeBelow()},
                              resolution,
                              session().selectedCamera()});
        const CompositeLayout layout = exportLayout(params.value()).value();
        const WritablePicture frame = WritablePicture::allocate(int(layout.picture.width), int(layout.picture.height));
        FrameCompositor(layout, CompositorOptions{.threads = 2, .mark = {}}).compose(*below, &*above, frame);
        WorkerPool workers(1);
        ScreenPicturePool pool;
        const ScreenPicture picture = pool.take(frame.width, frame.height);
        ScreenConversion().convert(frame, picture, workers);
        return QImage(reinterpret_cast<const uchar*>(picture.row(0)), picture.width, picture.height, picture.width * 4,
                      QImage::Format_RGB32)
            .copy();
    }
    /// A window with nothing but the preview, as large as the export.
    void expectTheExportsFrame(ExportResolutionType resolution)
    {
        const ExportResolutionFacts& size = facts(resolution);
        PreviewModel model(session());
        QQuickWindow shown;
        CompositeVideoView view(shown.contentItem());
        shown.resize(size.width, size.height);
        view.setSize({double(size.width), double(size.height)});
        view.setModel(&model);
        shown.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&shown));
        for (int i = 0; i < kSettings; ++i) {
            setRandomly(i);
            const QImage expected = exported(resolution);
            ASSERT_EQ(expected.size(), QSize(size.width, size.height));
            QImage seen;
            const auto isTheExports = [&] {
                seen = shown.grabWindow().convertToFormat(QImage::Format_RGB32);
                return seen == expected;
            };
            ASSERT_TRUE(waitFor(isTheExports, 10000)) << size.width << " x " << size.height << ", settings " << i;
        }
    }
};

TEST_F(PreviewOfTheSession, IsTheExportsFrameBitForBitInEveryWideSize)
{
    openComposite({3840, 2160});
    ASSERT_EQ(session().projectState().projectAspectRatio, (AspectRatio{16, 9}));
    for (const ExportResolutionType resolution :
         {ExportResolutionType::hd720, ExportResolutionType::hd1080, ExportResolutionType::uhd4k})
        expectTheExportsFrame(resolution);
}

TEST_F(PreviewOfTheSession, IsTheExportsFrameBitForBitInEveryClassicSize)
{
    openComposite({1920, 1440});
    ASSERT_EQ(session().projectState().projectAspectRatio, (AspectRatio{4, 3}));
    for (const ExportResolutionType resolution : {ExportResolutionType::hd960, ExportResolutionType::hd1440})
        expectTheExportsFrame(resolution);
}

}
}
