// SPDX-License-Identifier: GPL-3.0-or-later
// Writes what the export composes as bare planes, 8 bit 4:2:0, before any encoding: what the encoder's loss is measured
// against. Both recordings are read from their starts, with no shift of the above picture.
#include "media/movie/FrameReader.h"
#include "render/CompositeGeometry.h"
#include "render/FrameCompositor.h"

#include <cstdio>
#include <exception>
#include <fstream>
#include <stdexcept>
#include <string>

using namespace zumeta;

namespace {

void writePlane(std::ofstream& file, const WritablePlane& plane, int width, int height)
{
    const uint8_t* row = plane.data;
    for (int y = 0; y < height; ++y, row += plane.stride)
        file.write(reinterpret_cast<const char*>(row), width);
}

FrameReader open(const char* path)
{
    const MediaComposition recording(MediaAsset::load(FileUrl(path)));
    return {recording, 0, recording.duration().seconds()};
}

void compose(char** words)
{
    const int width = std::stoi(words[2]);
    const int height = std::stoi(words[3]);
    VideoCompositionConfig config;
    config.waterlineHeight = std::stod(words[4]);
    config.aboveZoom = std::stod(words[5]);
    config.blendAmount = std::stod(words[6]);
    // The shape of the project is that of the movie: nothing else is measured.
    const auto layout = exportLayout({double(width), double(height)}, {double(width), double(height)}, config);
    if (!layout)
        throw std::runtime_error("the picture is empty");

    FrameReader above = open(words[0]);
    FrameReader below = open(words[1]);
    FrameCompositor compositor(*layout);
    const WritablePicture picture = WritablePicture::allocate(width, height);
    std::ofstream file;
    file.exceptions(std::ios::badbit | std::ios::failbit);
    file.open(words[7], std::ios::binary);
    while (const std::optional<FrameSlot> belowSlot = below.next()) {
        const std::optional<FrameSlot> aboveSlot = above.next();
        if (!belowSlot->picture)
            continue;
        compositor.compose(*belowSlot->picture, aboveSlot && aboveSlot->picture ? &*aboveSlot->picture : nullptr,
                           picture);
        writePlane(file, picture.planes[0], width, height);
        writePlane(file, picture.planes[1], width / 2, height / 2);
        writePlane(file, picture.planes[2], width / 2, height / 2);
    }
}

}

int main(int argc, char** argv)
{
    if (argc != 9) {
        std::fputs("usage: compose-lossless ABOVE BELOW WIDTH HEIGHT WATERLINE ZOOM BLEND OUTPUT\n"
                   "The zoom holds the camera's base already.\n",
                   stderr);
        return 2;
    }
    try {
        compose(argv + 1);
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "compose-lossless: %s\n", error.what());
        return 1;
    }
}
