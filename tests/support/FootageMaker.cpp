// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/FootageMaker.h"

#include "support/ChildProcess.h"
#include "support/Click.h"
#include "support/MovieProbe.h"
#include "support/TemporaryFolder.h"

#include <cmath>
#include <fstream>
#include <map>
#include <sstream>

namespace zumeta::test {

namespace {

using Arguments = std::vector<std::string>;

/// Everything made in this process and where it lies; goes away with the process.
struct Shelf {
    TemporaryFolder folder;
    std::map<std::string, std::filesystem::path> files;

    std::filesystem::path newFile(const std::string& extension)
    {
        return folder.file("clip" + std::to_string(files.size() + 1) + '.' + extension);
    }
};

Shelf& shelf()
{
    static Shelf instance;
    return instance;
}

void append(Arguments& to, const Arguments& more)
{
    to.insert(to.end(), more.begin(), more.end());
}

std::string keyOf(const FootageSpec& spec)
{
    std::ostringstream key;
    key.precision(17);
    const auto list = [&](const auto& items) {
        for (const auto& item : items)
            key << item << ' ';
        key << '|';
    };
    key << int(spec.side) << ' ' << spec.width << ' ' << spec.height << ' ' << spec.rate.numerator << ' '
        << spec.rate.denominator << ' ' << spec.frames << ' ' << spec.firstNumber << ' ' << int(spec.scene) << ' '
        << spec.pixelFormat << ' ' << int(spec.range) << int(spec.matrix) << int(spec.transfer) << spec.tagged << ' '
        << spec.pixelAspect << ' ' << spec.start << ' ' << spec.extension << '|';
    list(spec.encoder);
    list(spec.timeStamps);
    list(spec.clicks);
    list(spec.container);
    if (spec.sound) {
        key << spec.sound->sampleRate << ' ' << spec.sound->channels << ' ' << spec.sound->seconds << ' '
            << spec.sound->start << '|';
        list(spec.sound->encoder);
    }
    return key.str();
}

double frameTime(const FootageSpec& spec, int index)
{
    if (size_t(index) < spec.timeStamps.size())
        return spec.timeStamps[size_t(index)];
    return double(index) * double(spec.rate.denominator) / double(spec.rate.numerator);
}

bool flashes(const FootageSpec& spec, int index)
{
    // A hair before the frame's own time still counts: 1001/30000 has no exact double.
    constexpr double kHair = 1e-6;
    for (const double click : spec.clicks) {
        if (click + kHair >= frameTime(spec, index) && click + kHair < frameTime(spec, index + 1))
            return true;
    }
    return false;
}

Arguments colourTags(const FootageSpec& spec)
{
    Arguments tags = {"-color_range", spec.range == ColourRange::full ? "pc" : "tv"};
    if (!spec.tagged)
        return tags;
    const bool wide = spec.matrix == ColourMatrix::bt2020;
    append(tags, {"-colorspace", wide ? "bt2020nc" : spec.matrix == ColourMatrix::bt601 ? "smpte170m" : "bt709"});
    append(tags, {"-color_primaries", wide ? "bt2020" : spec.matrix == ColourMatrix::bt601 ? "smpte170m" : "bt709"});
    append(tags, {"-color_trc", spec.transfer == TransferFunction::pq    ? "smpte2084"
                                : spec.transfer == TransferFunction::hlg ? "arib-std-b67"
                                                                         : "bt709"});
    return tags;
}

std::string timeStampFilter(const FootageSpec& spec)
{
    if (spec.timeStamps.empty())
        return {};
    std::string expression = "settb=1/90000,setpts='0";
    for (size_t i = 0; i < spec.timeStamps.size(); ++i)
        expression += "+eq(N," + std::to_string(i) + ")*" + std::to_string(std::llround(spec.timeStamps[i] * 90000));
    return expression + "'";
}

void writeSound(const FootageSpec& spec, const std::filesystem::path& file)
{
    const SoundSpec& sound = *spec.sound;
    const double seconds = sound.seconds > 0 ? sound.seconds : frameTime(spec, spec.frames);
    const auto count = size_t(std::llround(seconds * sound.sampleRate));
    std::vector<double> wave(count);
    for (size_t i = 0; i < count; ++i)
        wave[i] = 0.01 * std::sin(2 * 3.14159265358979 * 200 * double(i) / sound.sampleRate);
    for (const double click : spec.clicks) {
        const double centre = (click - sound.start) * sound.sampleRate;
        const auto first = std::llround(centre - 0.002 * sound.sampleRate);
        const auto last = std::llround(centre + 0.002 * sound.sampleRate);
        for (auto i = std::max<long long>(first, 0); i < std::min<long long>(last, (long long)(count)); ++i)
            wave[size_t(i)] += 0.5 * clickAt((double(i) - centre) / sound.sampleRate);
    }
    std::vector<int16_t> samples;
    samples.reserve(count * size_t(sound.channels));
    for (const double value : wave)
        samples.insert(samples.end(), size_t(sound.channels), int16_t(std::lround(value * 32767)));
    std::ofstream(file, std::ios::binary)
        .write(reinterpret_cast<const char*>(samples.data()), std::streamsize(samples.size() * sizeof(int16_t)));
}

Arguments soundInput(const FootageSpec& spec, const std::filesystem::path& file)
{
    Arguments input;
    if (spec.sound->start != 0)
        append(input, {"-itsoffset", std::to_string(spec.sound->start + spec.start)});
    else if (spec.start != 0)
        append(input, {"-itsoffset", std::to_string(spec.start)});
    append(input, {"-f", "s16le", "-ar", std::to_string(spec.sound->sampleRate), "-ac",
                   std::to_string(spec.sound->channels), "-i", file.string()});
    return input;
}

Arguments encodeCommand(const FootageSpec& spec, const std::filesystem::path& sound,
                        const std::filesystem::path& output)
{
    Arguments command = {"-y", "-v", "error", "-f", "rawvideo", "-pix_fmt", spec.pixelFormat};
    append(command, colourTags(spec));
    append(command, {"-s", std::to_string(spec.width) + 'x' + std::to_string(spec.height), "-framerate",
                     std::to_string(spec.rate.numerator) + '/' + std::to_string(spec.rate.denominator)});
    if (spec.start != 0)
        append(command, {"-itsoffset", std::to_string(spec.start)});
    append(command, {"-i", "pipe:0"});
    if (spec.sound)
        append(command, soundInput(spec, sound));
    append(command, {"-map", "0:v"});
    if (spec.sound) {
        append(command, {"-map", "1:a"});
        append(command, spec.sound->encoder);
    }
    std::string filter = timeStampFilter(spec);
    if (!spec.pixelAspect.empty())
        filter += (filter.empty() ? "setsar=" : ",setsar=") + spec.pixelAspect.substr(0, spec.pixelAspect.find(':')) +
                  '/' + spec.pixelAspect.substr(spec.pixelAspect.find(':') + 1);
    if (!filter.empty())
        append(command, {"-vf", filter});
    if (spec.start != 0) // or frames would be made up for the time before
        append(command, {"-fps_mode", "passthrough"});
    if (!spec.timeStamps.empty())
        append(command, {"-fps_mode", "passthrough", "-enc_time_base", "1:90000", "-video_track_timescale", "90000"});
    append(command, spec.encoder);
    append(command, colourTags(spec));
    append(command, {"-pix_fmt", spec.pixelFormat});
    append(command, spec.container);
    command.push_back(output.string());
    return command;
}

}

PictureFormat pictureFormat(const FootageSpec& spec)
{
    PictureFormat format;
    format.width = spec.width;
    format.height = spec.height;
    format.bitDepth = spec.pixelFormat.find("p10") != std::string::npos ? 10 : 8;
    format.chromaShiftX = spec.pixelFormat.find("444") != std::string::npos ? 0 : 1;
    format.chromaShiftY = spec.pixelFormat.find("420") != std::string::npos ? 1 : 0;
    format.range = spec.range;
    format.matrix = spec.matrix;
    format.transfer = spec.transfer;
    format.primaries = spec.matrix == ColourMatrix::bt2020 ? ColourPrimaries::bt2020 : ColourPrimaries::bt709;
    if (!spec.pixelAspect.empty()) {
        const size_t colon = spec.pixelAspect.find(':');
        format.pixelAspect =
            std::stod(spec.pixelAspect.substr(0, colon)) / std::stod(spec.pixelAspect.substr(colon + 1));
    }
    return format;
}

Drawing drawingOf(const FootageSpec& spec, int index)
{
    return {{spec.side, spec.firstNumber + index}, spec.scene, flashes(spec, index)};
}

std::filesystem::path FootageMaker::make(const FootageSpec& spec)
{
    const std::string key = keyOf(spec);
    if (const auto made = shelf().files.find(key); made != shelf().files.end())
        return made->second;
    const std::filesystem::path file = shelf().newFile(spec.extension);
    const std::filesystem::path sound = shelf().folder.file("sound.raw");
    if (spec.sound)
        writeSound(spec, sound);
    int next = 0;
    const auto nextPicture = [&]() -> QByteArray {
        if (next == spec.frames)
            return {};
        const RawPicture picture = draw(drawingOf(spec, next++), pictureFormat(spec));
        return {reinterpret_cast<const char*>(picture.bytes().data()), qsizetype(picture.bytes().size())};
    };
    runOrThrow({"ffmpeg", encodeCommand(spec, sound, file), std::chrono::seconds(100), nextPicture, {}});
    shelf().files[key] = file;
    return file;
}

std::filesystem::path FootageMaker::derive(const std::vector<std::string>& arguments, const std::string& extension)
{
    std::string key = "derived." + extension;
    for (const std::string& argument : arguments)
        key += '|' + argument;
    if (const auto made = shelf().files.find(key); made != shelf().files.end())
        return made->second;
    const std::filesystem::path file = shelf().newFile(extension);
    Arguments command = {"-y", "-v", "error"};
    append(command, arguments);
    command.push_back(file.string());
    runOrThrow({"ffmpeg", command, std::chrono::seconds(100), {}, {}});
    shelf().files[key] = file;
    return file;
}

std::filesystem::path FootageMaker::withDamagedPackets(const std::filesystem::path& file,
                                                       const std::vector<int>& indexes, const std::string& stream)
{
    const std::vector<PacketFacts> packets = MovieProbe::packets(file, stream);
    const std::filesystem::path copy = shelf().newFile(file.extension().string().substr(1));
    shelf().files["copy" + copy.string()] = copy;
    std::filesystem::copy_file(file, copy);
    std::fstream bytes(copy, std::ios::binary | std::ios::in | std::ios::out);
    for (const int index : indexes) {
        const PacketFacts& packet = packets.at(size_t(index));
        bytes.seekp(packet.position);
        // All ones are a unit length past the end of the packet, and no start code of anything.
        const std::string junk(size_t(packet.size), '\xff');
        bytes.write(junk.data(), std::streamsize(junk.size()));
    }
    return copy;
}

std::filesystem::path FootageMaker::truncated(const std::filesystem::path& file, uintmax_t bytes)
{
    const std::filesystem::path copy = shelf().newFile(file.extension().string().substr(1));
    shelf().files["copy" + copy.string()] = copy;
    std::filesystem::copy_file(file, copy);
    std::filesystem::resize_file(copy, bytes);
    return copy;
}

}
