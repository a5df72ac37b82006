// SPDX-License-Identifier: GPL-3.0-or-later
// Prints what composing one frame costs, by kind of source and size. CPU time of the whole process, so that work
// handed to other threads counts; median of several runs.
#include "render/FrameCompositor.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <string_view>
#include <vector>

using namespace zumeta;

namespace {

struct Case {
    const char* name;
    PictureFormat source;
    int width;
    int height;
    double zoom = 22; ///< percent
    AspectRatio aspect{16, 9};
};

PictureFormat formatOf(int width, int height, int depth = 8, ColourRange range = ColourRange::limited)
{
    PictureFormat format;
    format.width = width;
    format.height = height;
    format.bitDepth = depth;
    format.range = range;
    return format;
}

PictureFormat taggedAs(PictureFormat format, ColourMatrix matrix, TransferFunction transfer)
{
    format.matrix = matrix;
    format.transfer = transfer;
    if (matrix == ColourMatrix::bt2020)
        format.primaries = ColourPrimaries::bt2020;
    return format;
}

/// A picture of cheap noise with rows padded as decoders pad them.
VideoPicture makePicture(const PictureFormat& format, uint32_t seed)
{
    VideoPicture picture;
    picture.format = format;
    const size_t bytes = size_t(format.bytesPerSample());
    const size_t lumaStride = (size_t(format.width) * bytes + 63) / 64 * 64;
    const size_t chromaStride = (size_t(format.chromaWidth()) * bytes + 63) / 64 * 64;
    const size_t lumaSize = lumaStride * size_t(format.height);
    const size_t chromaSize = chromaStride * size_t(format.chromaHeight());
    const auto memory = std::make_shared<std::vector<uint16_t>>((lumaSize + 2 * chromaSize) / 2);
    const uint32_t mask = (1u << (format.bitDepth > 8 ? format.bitDepth : 16)) - 1;
    for (uint16_t& sample : *memory) {
        seed = seed * 1664525u + 1013904223u;
        sample = uint16_t((seed >> 16) & mask);
    }
    const auto* const first = reinterpret_cast<const uint8_t*>(memory->data());
    picture.planes = {PlaneView{first, ptrdiff_t(lumaStride)}, PlaneView{first + lumaSize, ptrdiff_t(chromaStride)},
                      PlaneView{first + lumaSize + chromaSize, ptrdiff_t(chromaStride)}};
    picture.owner = memory;
    return picture;
}

double cpuSeconds()
{
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return double(now.tv_sec) + double(now.tv_nsec) * 1e-9;
}

double wallSeconds()
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

void measure(const Case& c, int threads, CompositorKernels kernels)
{
    constexpr int kPictures = 4; // more than a cache holds, as in an export
    std::vector<VideoPicture> below;
    std::vector<VideoPicture> above;
    std::vector<WritablePicture> out;
    for (uint32_t i = 0; i < kPictures; ++i) {
        below.push_back(makePicture(c.source, 2 * i + 1));
        above.push_back(makePicture(c.source, 2 * i + 2));
        out.push_back(WritablePicture::allocate(c.width, c.height));
    }
    VideoCompositionConfig config;
    config.aboveZoom = c.zoom;
    config.waterlineHeight = 300 / config.scaleFactor();
    config.aboveOffset = 3.3;
    config.aboveHorizontalOffset = 2.1;
    const auto layout = exportLayout({double(c.width), double(c.height)}, c.aspect, config);
    FrameCompositor compositor(*layout, {.threads = threads, .mark = {}, .kernels = kernels});
    const auto frame = [&](size_t i) {
        compositor.compose(below[i % kPictures], &above[i % kPictures], out[i % kPictures]);
    };
    const double start = wallSeconds();
    frame(0);
    frame(1);
    const size_t frames = std::clamp(size_t(0.1 / ((wallSeconds() - start) / 2)), size_t(3), size_t(400));
    std::vector<double> cpu;
    std::vector<double> wall;
    for (int run = 0; run < 7; ++run) {
        const double cpuStart = cpuSeconds();
        const double wallStart = wallSeconds();
        for (size_t i = 0; i < frames; ++i)
            frame(i);
        cpu.push_back((cpuSeconds() - cpuStart) * 1e3 / double(frames));
        wall.push_back((wallSeconds() - wallStart) * 1e3 / double(frames));
    }
    std::printf("%-44s %8.3f %8.3f\n", c.name, median(cpu), median(wall));
}

void printHelp()
{
    std::puts("usage: compose-bench [--threads N] [--portable] [--only TEXT]\n"
              "Prints the CPU and wall milliseconds that composing one frame takes, for several kinds of sources.");
}

}

int main(int argc, char** argv)
{
    int threads = 1;
    CompositorKernels kernels = CompositorKernels::best;
    const char* only = "";
    for (int i = 1; i < argc; ++i) {
        const std::string_view argument = argv[i];
        if (argument == "--threads" && i + 1 < argc) {
            threads = std::atoi(argv[++i]);
        } else if (argument == "--portable") {
            kernels = CompositorKernels::portable;
        } else if (argument == "--only" && i + 1 < argc) {
            only = argv[++i];
        } else {
            printHelp();
            return argument == "--help" ? 0 : 2;
        }
    }
    const PictureFormat hd = formatOf(1920, 1080);
    const PictureFormat uhd = formatOf(3840, 2160);
    const PictureFormat hdTen = formatOf(1920, 1080, 10);
    const Case cases[] = {
        {"1080p to 1080p", hd, 1920, 1080},
        {"1080p to 1080p, no zoom", hd, 1920, 1080, 0},
        {"1080p to 720p", hd, 1280, 720},
        {"4K to 1080p", uhd, 1920, 1080},
        {"4K to 4K", uhd, 3840, 2160},
        {"1920x1440 to 1440x1080", formatOf(1920, 1440), 1440, 1080, 22, {4, 3}},
        {"1920x1440 to 960x720", formatOf(1920, 1440), 960, 720, 22, {4, 3}},
        {"1080p full range to 1080p", formatOf(1920, 1080, 8, ColourRange::full), 1920, 1080},
        {"1080p 10 bit to 1080p", hdTen, 1920, 1080},
        {"4K 10 bit to 1080p", formatOf(3840, 2160, 10), 1920, 1080},
        {"1080p BT.601 to 1080p", taggedAs(hd, ColourMatrix::bt601, TransferFunction::sdr), 1920, 1080},
        {"1080p 10 bit PQ to 1080p", taggedAs(hdTen, ColourMatrix::bt2020, TransferFunction::pq), 1920, 1080},
        {"1080p 10 bit HLG to 1080p", taggedAs(hdTen, ColourMatrix::bt2020, TransferFunction::hlg), 1920, 1080},
    };
    std::printf("%-44s %8s %8s   (ms per frame, %d thread%s)\n", "", "CPU", "wall", threads, threads == 1 ? "" : "s");
    for (const Case& c : cases) {
        if (std::strstr(c.name, only))
            measure(c, threads, kernels);
    }
    return 0;
}
