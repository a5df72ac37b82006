// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/movie/AudioReader.h"
#include "media/movie/FrameReader.h"
#include "support/FootageMaker.h"

#include <filesystem>
#include <vector>

namespace zumeta::test {

FileUrl footage(const char* name);

using Words = std::vector<std::string>;

/// Longer than any recording of the tests, seconds.
inline constexpr double kLong = 1000;

/// Options for an H.264 encoder with parameters of its own.
Words x264(const char* parameters);
/// A small recording in mp4; `in` puts it into another container and pixel format.
FootageSpec clip(Words encoder, int frames = 40, Rate rate = {30000, 1001});
FootageSpec in(FootageSpec spec, const char* extension, const char* pixelFormat = "yuv420p");

/// One file as a source.
MediaComposition sourceOf(const std::filesystem::path& file);
/// Files one after the other, each at its own duration.
MediaComposition chaptersOf(const std::vector<std::filesystem::path>& files);

/// What a slot showed: the number in its bar code, or one of these.
inline constexpr int kNoPicture = -1;
inline constexpr int kUnreadable = -2;

struct ReadSlot {
    double time = 0;
    int number = kUnreadable;
};
std::vector<ReadSlot> readAll(FrameSource& source, Side side = Side::above);
std::vector<int> numbersOf(const std::vector<ReadSlot>& slots);

/// All of a source's sound, gaps filled with silence, from `start` on.
std::vector<int16_t> soundFrom(AudioSource& source, double start);

}
