// SPDX-License-Identifier: GPL-3.0-or-later
// Measures the live preview. Without files: what one picture costs, by size and by what changes from picture to
// picture. With a file for each side: the preview in a window while both play.
#include "NotingPlayer.h"
#include "PlayingReport.h"
#include "media/playback/MoviePlayer.h"
#include "render/preview/CompositePlayerNSView.h"
#include "render/preview/PreviewCompositor.h"

#include <QGuiApplication>
#include <QQuickWindow>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <cstring>
#include <string>

using namespace zumeta;
using namespace zumeta::bench;

namespace {

constexpr PixelSize kWindow{1400, 900};

VideoPicture noise(int width, int height, uint32_t seed)
{
    const WritablePicture picture = WritablePicture::allocate(width, height);
    for (size_t plane = 0; plane < 3; ++plane) {
        const int rows = plane == 0 ? height : height / 2;
        for (ptrdiff_t i = 0; i < picture.planes[plane].stride * rows; ++i) {
            seed = seed * 1664525U + 1013904223U;
            picture.planes[plane].data[i] = uint8_t(seed >> 24);
        }
    }
    return picture.view();
}

PreviewSituation situationAt(int width, int height, PixelSize surface)
{
    PreviewSituation situation;
    situation.below = noise(width, height, 1);
    situation.above = noise(width, height, 2);
    situation.values.aboveZoom = 22;
    situation.values.waterlineHeight = 300 / 1.22;
    situation.values.aboveOffset = 3.3;
    situation.values.aboveHorizontalOffset = 2.1;
    situation.shownSize = pictureSizeOn(surface, {16, 9});
    return situation;
}

struct Cost {
    double cpu = 0; ///< ms
    double wall = 0;
};

template <class Work> Cost costOf(Work work)
{
    constexpr int kFrames = 60;
    std::vector<double> cpu;
    std::vector<double> wall;
    work(0);
    for (int run = 0; run < 7; ++run) {
        const double cpuStart = cpuSeconds();
        const double wallStart = wallSeconds();
        for (int i = 0; i < kFrames; ++i)
            work(i);
        cpu.push_back((cpuSeconds() - cpuStart) * 1e3 / kFrames);
        wall.push_back((wallSeconds() - wallStart) * 1e3 / kFrames);
    }
    return {percentile(cpu, 0.5), percentile(wall, 0.5)};
}

void printRow(const char* name, PixelSize source, PixelSize shown, Cost cost)
{
    std::printf("| %s | %dx%d | %dx%d | %.2f | %.2f |\n", name, source.width, source.height, shown.width, shown.height,
                cost.cpu, cost.wall);
}

void measurePictures()
{
    std::printf("| picture | sources | composed | CPU ms | wall ms |\n|---|---|---|---|---|\n");
    for (const PixelSize source : {PixelSize{1920, 1080}, PixelSize{1280, 720}, PixelSize{3840, 2160}}) {
        PreviewSituation situation = situationAt(source.width, source.height, kWindow);
        const PreviewRequest request = previewRequest(situation).value();
        const PixelSize composed{int(request.layout.picture.width), int(request.layout.picture.height)};
        PreviewCompositor compositor(1);
        printRow("composed alone", source, composed, costOf([&](int) { compositor.compose(request); }));
        printRow("for the screen", source, composed, costOf([&](int) { compositor.composeForScreen(request); }));
        printRow("a value dragged", source, composed, costOf([&](int i) {
                     situation.values.aboveOffset = i * 0.7;
                     compositor.composeForScreen(previewRequest(situation).value());
                 }));
        situation.mode = PreviewMode::belowOnly;
        const PreviewRequest below = previewRequest(situation).value();
        printRow("below side alone", source, composed, costOf([&](int) { compositor.composeForScreen(below); }));
    }
}

int measurePlaying(const std::vector<std::string>& files, double seconds)
{
    const MonotonicClock clock;
    EventLoopQueue queue;
    PlaybackClock playbackClock(clock, queue);
    MoviePlayer abovePlayer(playbackClock, queue, nullptr);
    MoviePlayer belowPlayer(playbackClock, queue, nullptr);
    NotingPlayer below(belowPlayer);
    QQuickWindow window;
    CompositePlayerNSView surface(window.contentItem());
    window.resize(kWindow.width, kWindow.height);
    surface.setSize(window.size());
    surface.setAboveZoom(22);
    surface.setWaterlineHeight(300 / 1.22);
    surface.setClock(clock);
    const MediaComposition belowSource{MediaAsset::load(FileUrl(files[1]))};
    abovePlayer.replaceCurrentItem(PlayerItem(FileUrl(files[0])));
    belowPlayer.replaceCurrentItem(PlayerItem(belowSource));
    surface.updatePlayers(&abovePlayer, &below);
    window.show();

    PlayingReport playing;
    const double sourceFrame = 1.0 / double(belowSource.nominalFrameRate());
    const auto begin = [&] {
        playing.begin(belowPlayer.currentTime().seconds());
        below.given = [&](const ShownPicture& picture) {
            playing.asked(surface.picturesAskedFor() + 1, picture.presentationTime.seconds());
        };
    };
    QObject::connect(&surface, &CompositePlayerNSView::pictureShown,
                     [&](quint64 number) { playing.shown(number, belowPlayer.currentTime().seconds()); });
    QTimer::singleShot(1500, [&] {
        abovePlayer.play();
        belowPlayer.play();
    });
    QTimer::singleShot(2500, begin); // decoders and caches are under way
    QTimer::singleShot(int((2.5 + seconds) * 1e3), [&] {
        playing.print(belowPlayer.currentTime().seconds(), sourceFrame);
        QCoreApplication::quit();
    });
    const int result = QCoreApplication::exec();
    surface.updatePlayers(nullptr, nullptr);
    return result;
}

int usage()
{
    std::fprintf(stderr, "usage: preview-bench [ABOVE BELOW [--seconds S]]\n");
    return 2;
}

}

int main(int argc, char** argv)
{
    std::vector<std::string> files;
    double seconds = 20;
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--seconds") == 0 && i + 1 < argc)
            seconds = std::atof(argv[++i]);
        else if (argv[i][0] == '-')
            return usage();
        else
            files.emplace_back(argv[i]);
    }
    if ((!files.empty() && files.size() != 2) || seconds <= 0)
        return usage();
    if (files.empty()) {
        measurePictures();
        return 0;
    }
    const QGuiApplication application(argc, argv);
    return measurePlaying(files, seconds);
}
