// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/MovieProbe.h"

#include "support/ChildProcess.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <cstring>
#include <stdexcept>

namespace zumeta::test {

namespace {

QJsonObject askFfprobe(const std::filesystem::path& file, std::vector<std::string> questions)
{
    std::vector<std::string> arguments = {"-v", "error", "-of", "json"};
    arguments.insert(arguments.end(), questions.begin(), questions.end());
    arguments.push_back("file:" + file.string()); // a name may begin with a dash
    return QJsonDocument::fromJson(runOrThrow({"ffprobe", arguments, std::chrono::seconds(60), {}, {}})).object();
}

std::optional<double> seconds(const QJsonObject& object, const char* name)
{
    const QJsonValue value = object[QLatin1String(name)];
    if (!value.isString())
        return std::nullopt;
    return value.toString().toDouble();
}

/// FFmpeg's name of the format in which raw pictures are wanted.
std::string pixelFormatName(const PictureFormat& format)
{
    const char* const sampling = format.chromaShiftX == 0 ? "444" : format.chromaShiftY == 0 ? "422" : "420";
    const bool deep = format.bitDepth > 8;
    return std::string(format.range == ColourRange::full && !deep ? "yuvj" : "yuv") + sampling +
           (deep ? "p" + std::to_string(format.bitDepth) + "le" : "p");
}

void forEachRawFrame(const std::vector<std::string>& arguments, const PictureFormat& format,
                     const std::function<void(int, const RawPicture&)>& take)
{
    const size_t size = RawPicture::byteCount(format);
    QByteArray rest;
    int index = 0;
    const auto collect = [&](const QByteArray& piece) {
        rest += piece;
        qsizetype used = 0;
        for (; size_t(rest.size() - used) >= size; used += qsizetype(size)) {
            RawPicture picture(format);
            std::memcpy(picture.bytes().data(), rest.constData() + used, size);
            take(index++, picture);
        }
        rest.remove(0, used);
    };
    runOrThrow({"ffmpeg", arguments, std::chrono::seconds(100), {}, collect});
    if (!rest.isEmpty())
        throw std::runtime_error("the decoder gave pictures of another size than expected");
}

}

std::string StreamFacts::text(const char* name) const
{
    return json[QLatin1String(name)].toVariant().toString().toStdString();
}

double StreamFacts::number(const char* name) const
{
    return json[QLatin1String(name)].toVariant().toDouble();
}

double StreamFacts::averageRate() const
{
    const QStringList parts = json[QLatin1String("avg_frame_rate")].toString().split(QLatin1Char('/'));
    if (parts.size() != 2 || parts[1].toDouble() == 0)
        return 0;
    return parts[0].toDouble() / parts[1].toDouble();
}

const StreamFacts* MovieFacts::first(const char* kind) const
{
    for (const StreamFacts& stream : streams) {
        if (stream.text("codec_type") == kind)
            return &stream;
    }
    return nullptr;
}

int MovieFacts::count(const char* kind) const
{
    int result = 0;
    for (const StreamFacts& stream : streams)
        result += stream.text("codec_type") == kind ? 1 : 0;
    return result;
}

double MovieFacts::duration() const
{
    return seconds(format, "duration").value_or(0);
}

std::string MovieFacts::tag(const char* name) const
{
    return format[QLatin1String("tags")].toObject()[QLatin1String(name)].toString().toStdString();
}

MovieFacts MovieProbe::facts(const std::filesystem::path& file)
{
    const QJsonObject answer = askFfprobe(file, {"-show_format", "-show_streams"});
    MovieFacts result;
    result.format = answer[QLatin1String("format")].toObject();
    const QJsonArray streams = answer[QLatin1String("streams")].toArray();
    for (const QJsonValue& stream : streams)
        result.streams.push_back({stream.toObject()});
    return result;
}

std::vector<PacketFacts> MovieProbe::packets(const std::filesystem::path& file, const std::string& stream)
{
    const QJsonObject answer = askFfprobe(file, {"-select_streams", stream, "-show_packets"});
    const QJsonArray packets = answer[QLatin1String("packets")].toArray();
    std::vector<PacketFacts> result;
    for (const QJsonValue& value : packets) {
        const QJsonObject packet = value.toObject();
        PacketFacts facts;
        facts.pts = seconds(packet, "pts_time");
        facts.dts = seconds(packet, "dts_time");
        facts.duration = seconds(packet, "duration_time").value_or(0);
        facts.size = packet[QLatin1String("size")].toString().toInt();
        facts.position = packet[QLatin1String("pos")].toString().toLongLong();
        facts.key = packet[QLatin1String("flags")].toString().startsWith(QLatin1Char('K'));
        result.push_back(facts);
    }
    return result;
}

std::string MovieProbe::frameKinds(const std::filesystem::path& file)
{
    const QJsonObject answer =
        askFfprobe(file, {"-select_streams", "v:0", "-show_frames", "-show_entries", "frame=pict_type"});
    const QJsonArray frames = answer[QLatin1String("frames")].toArray();
    std::string kinds;
    for (const QJsonValue& frame : frames)
        kinds += frame.toObject()[QLatin1String("pict_type")].toString().toStdString();
    return kinds;
}

std::vector<double> MovieProbe::frameTimes(const std::filesystem::path& file, const std::string& stream)
{
    const QJsonObject answer = askFfprobe(file, {"-select_streams", stream, "-show_frames", "-show_entries",
                                                 "frame=pts_time,best_effort_timestamp_time"});
    const QJsonArray frames = answer[QLatin1String("frames")].toArray();
    std::vector<double> times;
    for (const QJsonValue& value : frames) {
        const QJsonObject frame = value.toObject();
        const auto pts = seconds(frame, "pts_time");
        times.push_back(pts ? *pts : seconds(frame, "best_effort_timestamp_time").value_or(-1));
    }
    for (size_t i = times.size(); i-- > 0;)
        times[i] -= times.front();
    return times;
}

std::vector<RawPicture> MovieProbe::frames(const std::filesystem::path& file, const PictureFormat& format,
                                           const std::string& stream)
{
    std::vector<RawPicture> result;
    forEachRawFrame({"-v", "error", "-noautorotate", "-i", "file:" + file.string(), "-map", stream, "-fps_mode",
                     "passthrough", "-f", "rawvideo", "-pix_fmt", pixelFormatName(format), "pipe:1"},
                    format, [&](int, const RawPicture& picture) { result.push_back(picture); });
    return result;
}

void MovieProbe::forEachFrame(const std::filesystem::path& file, const PictureFormat& format, const std::string& filter,
                              const std::function<void(int index, const RawPicture& picture)>& take)
{
    std::vector<std::string> arguments = {"-v",   "error", "-noautorotate", "-i", "file:" + file.string(),
                                          "-map", "0:v:0"};
    if (!filter.empty())
        arguments.insert(arguments.end(), {"-vf", filter});
    arguments.insert(arguments.end(),
                     {"-fps_mode", "passthrough", "-f", "rawvideo", "-pix_fmt", pixelFormatName(format), "pipe:1"});
    forEachRawFrame(arguments, format, take);
}

std::vector<int16_t> MovieProbe::sound(const std::filesystem::path& file, int sampleRate, int channels)
{
    // first_pts pads the front; async fills gaps that the time stamps leave.
    const QByteArray bytes = runOrThrow(
        {"ffmpeg",
         {"-v", "error", "-i", "file:" + file.string(), "-map", "0:a:0", "-af", "aresample=async=1:first_pts=0", "-ar",
          std::to_string(sampleRate), "-ac", std::to_string(channels), "-f", "s16le", "pipe:1"},
         std::chrono::seconds(100),
         {},
         {}});
    std::vector<int16_t> samples(size_t(bytes.size()) / sizeof(int16_t));
    std::memcpy(samples.data(), bytes.constData(), samples.size() * sizeof(int16_t));
    return samples;
}

}
