// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/ExportSettings.h"

#include <array>
#include <cmath>

namespace zumeta {

namespace {

constexpr std::array<ExportResolutionFacts, 5> kResolutions{{
    {ExportResolutionType::hd720, "720p", 1280, 720, 8'000'000, 8'128'000},
    {ExportResolutionType::hd960, "960p", 960, 720, 6'000'000, 6'128'000},
    {ExportResolutionType::hd1080, "1080p", 1920, 1080, 15'000'000, 15'128'000},
    {ExportResolutionType::hd1440, "1440p", 1440, 1080, 12'000'000, 12'128'000},
    {ExportResolutionType::uhd4k, "4K", 3840, 2160, 35'000'000, 35'128'000},
}};

constexpr double kFourByThree = 1.3333333333333333;
constexpr double kShapeTolerance = 0.1;

}

const ExportResolutionFacts& facts(ExportResolutionType type)
{
    return kResolutions[size_t(type)];
}

QString rawValue(ExportResolutionType type)
{
    return QString::fromLatin1(facts(type).rawValue);
}

QString rawValue(VideoCodec codec)
{
    return codec == VideoCodec::h264 ? QStringLiteral("H.264") : QStringLiteral("HEVC");
}

std::optional<ExportResolutionType> exportResolutionFromRawValue(const QString& text)
{
    for (const auto& line : kResolutions) {
        if (text == QLatin1String(line.rawValue))
            return line.type;
    }
    return std::nullopt;
}

std::optional<VideoCodec> videoCodecFromRawValue(const QString& text)
{
    for (const VideoCodec codec : {VideoCodec::h264, VideoCodec::hevc}) {
        if (text == rawValue(codec))
            return codec;
    }
    return std::nullopt;
}

std::vector<ExportResolutionType> offeredResolutions(AspectRatio projectAspectRatio)
{
    using enum ExportResolutionType;
    if (std::abs(projectAspectRatio.ratio() - kFourByThree) < kShapeTolerance)
        return {hd960, hd1440};
    return {hd720, hd1080, uhd4k};
}

}
