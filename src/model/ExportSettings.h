// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include <QString>
#include <cstdint>
#include <optional>
#include <vector>

namespace zumeta {

/// Width and height of a project's picture shape, 16 x 9 or 4 x 3.
struct AspectRatio {
    double width = 16;
    double height = 9;
    double ratio() const { return width / height; }
    friend bool operator==(const AspectRatio&, const AspectRatio&) = default;
};

/// The output sizes, in the order in which they are offered.
enum class ExportResolutionType { hd720, hd960, hd1080, hd1440, uhd4k };
enum class VideoCodec { h264, hevc };

/// One line of the table of output sizes.
struct ExportResolutionFacts {
    ExportResolutionType type;
    const char* rawValue; ///< persisted form, label, and part of export names
    int width;            ///< pixels
    int height;           ///< pixels
    int64_t videoBitRate; ///< bits per second
    int64_t estimateRate; ///< bits per second, video and sound, for size estimates
};
const ExportResolutionFacts& facts(ExportResolutionType type);
QString rawValue(ExportResolutionType type);
QString rawValue(VideoCodec codec);
std::optional<ExportResolutionType> exportResolutionFromRawValue(const QString& text);
std::optional<VideoCodec> videoCodecFromRawValue(const QString& text);

/// The sizes offered for a project of this shape, in order.
std::vector<ExportResolutionType> offeredResolutions(AspectRatio projectAspectRatio);

/// Carried in every project file with these values; the export reads only the session's own resolution.
struct ExportSettings {
    ExportResolutionType resolution = ExportResolutionType::hd1080;
    VideoCodec codec = VideoCodec::h264;
    double quality = 0.8;
    friend bool operator==(const ExportSettings&, const ExportSettings&) = default;
};

}
