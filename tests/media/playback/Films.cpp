// SPDX-License-Identifier: GPL-3.0-or-later
#include "Films.h"

#include "support/BarCode.h"
#include "support/MovieProbe.h"

#include <map>
#include <ostream>
#include <stdexcept>

namespace zumeta::test {

namespace {

using Words = std::vector<std::string>;

Words x264(const std::string& parameters)
{
    return {"-c:v", "libx264", "-preset", "veryfast", "-crf", "14", "-x264-params", parameters};
}

FootageSpec clip(Words encoder, int frames, Rate rate = {30, 1})
{
    FootageSpec spec;
    spec.width = 192;
    spec.height = 108;
    spec.frames = frames;
    spec.rate = rate;
    spec.encoder = std::move(encoder);
    return spec;
}

FootageSpec uneven()
{
    FootageSpec spec = clip(x264("bframes=2:keyint=10"), 60);
    double time = 0;
    for (int i = 0; i < spec.frames; ++i) {
        spec.timeStamps.push_back(time);
        time += i % 7 == 0 ? 0.35 : i % 3 == 0 ? 0.0111 : 0.04;
    }
    return spec;
}

FootageSpec late()
{
    FootageSpec spec = clip(x264("bframes=2:keyint=8"), 60);
    spec.start = 0.7;
    spec.sound = SoundSpec{};
    return spec;
}

FootageSpec tenBit()
{
    FootageSpec spec = clip(x264("keyint=12:bframes=2"), 60);
    spec.pixelFormat = "yuv420p10le";
    return spec;
}

FootageSpec in4K()
{
    FootageSpec spec = clip({"-c:v", "libx264", "-preset", "ultrafast", "-crf", "20", "-g", "8"}, 20);
    spec.width = 3840;
    spec.height = 2160;
    return spec;
}

FootageSpec inMatroska()
{
    FootageSpec spec = clip(x264("bframes=3:keyint=12"), 60);
    spec.extension = "mkv";
    return spec;
}

/// Equal chapters that count on; their sound is longer than their picture by a little, as cameras write it.
std::vector<FootageSpec> chapters()
{
    std::vector<FootageSpec> specs;
    for (int i = 0; i < 3; ++i) {
        FootageSpec spec = clip(x264("bframes=2:keyint=6:open-gop=1"), 25, {25, 1});
        spec.firstNumber = 25 * i;
        spec.sound = SoundSpec{48000, 2, {"-c:a", "pcm_s16le"}, 25 / 25.0 + 0.01, 0};
        spec.extension = "mov";
        specs.push_back(spec);
    }
    return specs;
}

std::filesystem::path fileOf(const FootageSpec& spec, Words derivation)
{
    const std::filesystem::path made = FootageMaker::make(spec);
    if (derivation.empty())
        return made;
    for (std::string& argument : derivation) {
        if (argument == "?")
            argument = made.string();
    }
    return FootageMaker::derive(derivation, spec.extension);
}

Film madeFilm(const FilmKind& kind)
{
    Film film;
    MediaTime at;
    for (const FootageSpec& spec : kind.chapters) {
        const std::filesystem::path file = fileOf(spec, kind.derivation);
        for (const RawPicture& picture : MovieProbe::frames(file, pictureFormat(spec))) {
            const auto code = readBarCode(picture);
            if (!code)
                throw std::runtime_error("a frame without a bar code");
            film.numbers.push_back(code->number);
        }
        for (const double time : MovieProbe::frameTimes(file))
            film.times.push_back(at.seconds() + time);
        const MediaAsset asset = MediaAsset::load(FileUrl(file));
        film.source.insertVideo(asset, at);
        if (asset.audio)
            film.source.insertAudio(asset, at);
        at = at + asset.duration;
    }
    if (film.numbers.size() != film.times.size() || film.numbers.empty())
        throw std::runtime_error("frames and times do not agree");
    return film;
}

}

std::ostream& operator<<(std::ostream& out, const FilmKind& kind)
{
    return out << kind.name;
}

int Film::numberAt(double seconds) const
{
    size_t shown = 0;
    for (size_t i = 0; i < times.size(); ++i) {
        if (times[i] <= seconds + 1.0 / 120000)
            shown = i;
    }
    return numbers[shown];
}

Film filmOf(const FilmKind& kind)
{
    static std::map<std::string, Film> films;
    const auto made = films.find(kind.name);
    return made != films.end() ? made->second : films.emplace(kind.name, madeFilm(kind)).first->second;
}

const std::vector<FilmKind>& filmKinds()
{
    static const std::vector<FilmKind> kinds = {
        {"Rate23976", {clip(x264("bframes=2:keyint=24"), 72, {24000, 1001})}},
        {"Rate5994", {clip(x264("bframes=0:keyint=30"), 120, {60000, 1001})}},
        {"Rate120", {clip(x264("bframes=2:keyint=60"), 180, {120, 1})}},
        {"VariableRate", {uneven()}},
        {"LongGroupsWithBFrames", {clip(x264("bframes=3:b-adapt=0:b-pyramid=normal:keyint=250"), 150)}},
        {"OpenGroups", {clip(x264("open-gop=1:bframes=3:b-adapt=0:keyint=10:min-keyint=10:scenecut=0"), 80)}},
        {"IntraRefresh", {clip(x264("intra-refresh=1:keyint=12:bframes=0"), 72)}},
        {"Hevc",
         {clip({"-c:v", "libx265", "-preset", "ultrafast", "-x265-params",
                "log-level=0:open-gop=1:keyint=16:min-keyint=16:bframes=3:b-adapt=0:pools=1:frame-threads=1"},
               64)}},
        {"HevcInOrder",
         {clip({"-c:v", "libx265", "-preset", "ultrafast", "-x265-params",
                "log-level=0:keyint=30:bframes=0:pools=1:frame-threads=1"},
               64)}},
        {"KeyFramesOnly", {clip(x264("keyint=1"), 90, {60, 1})}},
        {"LateStart", {late()}},
        {"EditList", {clip(x264("bframes=2:keyint=12:scenecut=0"), 72)}, {"-ss", "0.6", "-i", "?", "-c", "copy"}},
        {"Chapters", chapters()},
        {"TenBit", {tenBit()}},
        {"In4K", {in4K()}},
        {"Matroska", {inMatroska()}},
        {"Fragmented",
         {clip(x264("bframes=2:keyint=12"), 60)},
         {"-i", "?", "-c", "copy", "-movflags", "frag_keyframe+empty_moov"}},
    };
    return kinds;
}

}
