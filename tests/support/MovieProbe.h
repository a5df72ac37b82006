// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "support/RawPicture.h"

#include <QJsonObject>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace zumeta::test {

struct PacketFacts {
    std::optional<double> pts; ///< seconds, as the container's edit list puts it
    std::optional<double> dts;
    double duration = 0;
    int size = 0;
    int64_t position = 0; ///< byte in the file
    bool key = false;
};

struct StreamFacts {
    QJsonObject json; ///< all that ffprobe says

    std::string text(const char* name) const; ///< empty when absent
    double number(const char* name) const;    ///< also of numbers written as texts; 0 when absent
    double averageRate() const;               ///< frames per second, 0 when unknown
};

struct MovieFacts {
    std::vector<StreamFacts> streams;
    QJsonObject format;

    const StreamFacts* first(const char* kind) const; ///< "video" or "audio"; null when there is none
    int count(const char* kind) const;
    double duration() const;
    /// A tag of the file as a whole, empty when absent.
    std::string tag(const char* name) const;
};

/// Asks the ffprobe and ffmpeg commands about a file: what a stranger's player would find in it.
/// Throws std::runtime_error with the command's own words when it cannot.
class MovieProbe {
public:
    static MovieFacts facts(const std::filesystem::path& file);
    static std::vector<PacketFacts> packets(const std::filesystem::path& file, const std::string& stream);
    /// One letter a frame in order of showing: I, P or B.
    static std::string frameKinds(const std::filesystem::path& file);

    /// When each frame is shown, in that order, seconds from the first one shown.
    static std::vector<double> frameTimes(const std::filesystem::path& file, const std::string& stream = "v:0");

    /// Every frame of the first video track (or the one named) in its own pixel format, which must be what `format`
    /// says; stored orientation. Frames before an edit list's start are left out.
    static std::vector<RawPicture> frames(const std::filesystem::path& file, const PictureFormat& format,
                                          const std::string& stream = "0:v:0");
    /// The same one after the other, for long movies; `filter` may shrink them first to `format`.
    static void forEachFrame(const std::filesystem::path& file, const PictureFormat& format, const std::string& filter,
                             const std::function<void(int index, const RawPicture& picture)>& take);

    /// Interleaved sound from the file's time 0 on, silence in front when it starts later.
    static std::vector<int16_t> sound(const std::filesystem::path& file, int sampleRate, int channels);
};

}
