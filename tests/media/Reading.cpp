// SPDX-License-Identifier: GPL-3.0-or-later
#include "Reading.h"

#include <cmath>

namespace zumeta::test {

FileUrl footage(const char* name)
{
    return FileUrl(std::filesystem::path(ZUMETA_FOOTAGE) / name);
}

Words x264(const char* parameters)
{
    return {"-c:v", "libx264", "-preset", "veryfast", "-crf", "14", "-x264-params", parameters};
}

FootageSpec clip(Words encoder, int frames, Rate rate)
{
    FootageSpec spec;
    spec.width = 192;
    spec.height = 108;
    spec.frames = frames;
    spec.rate = rate;
    spec.encoder = std::move(encoder);
    return spec;
}

FootageSpec in(FootageSpec spec, const char* extension, const char* pixelFormat)
{
    spec.extension = extension;
    spec.pixelFormat = pixelFormat;
    if (spec.pixelFormat.starts_with("yuvj"))
        spec.range = ColourRange::full;
    return spec;
}

MediaComposition sourceOf(const std::filesystem::path& file)
{
    return MediaComposition(MediaAsset::load(FileUrl(file)));
}

MediaComposition chaptersOf(const std::vector<std::filesystem::path>& files)
{
    MediaComposition composition;
    composition.addAudioTrack();
    MediaTime at{0, 1};
    for (const std::filesystem::path& file : files) {
        const MediaAsset asset = MediaAsset::load(FileUrl(file));
        composition.insertVideo(asset, at);
        if (asset.audio)
            composition.insertAudio(asset, at);
        at = at + asset.duration;
    }
    return composition;
}

std::vector<ReadSlot> readAll(FrameSource& source, Side side)
{
    std::vector<ReadSlot> result;
    while (const std::optional<FrameSlot> slot = source.next()) {
        ReadSlot read{slot->presentationTime.seconds(), kNoPicture};
        if (slot->picture) {
            const auto code = readBarCode(RawPicture(*slot->picture));
            read.number = code && code->side == side ? code->number : kUnreadable;
        }
        result.push_back(read);
    }
    return result;
}

std::vector<int> numbersOf(const std::vector<ReadSlot>& slots)
{
    std::vector<int> numbers;
    for (const ReadSlot& slot : slots)
        numbers.push_back(slot.number);
    return numbers;
}

std::vector<int16_t> soundFrom(AudioSource& source, double start)
{
    std::vector<int16_t> samples;
    while (const std::optional<AudioBuffer> buffer = source.next()) {
        const double place = (buffer->presentationTime.seconds() - start) * AudioSource::kSampleRate;
        const auto at = size_t(std::max(0L, std::lround(place))) * AudioSource::kChannels;
        if (samples.size() < at)
            samples.resize(at);
        samples.insert(samples.end(), buffer->samples.begin(), buffer->samples.end());
    }
    return samples;
}

}
