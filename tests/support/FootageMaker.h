// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "support/Drawing.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace zumeta::test {

struct Rate {
    int64_t numerator = 30;
    int64_t denominator = 1;
    double value() const { return double(numerator) / double(denominator); }
};

struct SoundSpec {
    int sampleRate = 48000;
    int channels = 2;
    std::vector<std::string> encoder = {"-c:a", "aac", "-b:a", "160k"};
    double seconds = 0; ///< 0: as long as the picture
    double start = 0;   ///< seconds by which the sound begins after the picture's own time 0
};

/// What a made recording is. The defaults are a short 16:9 clip as a phone would write it, small and with B-frames.
struct FootageSpec {
    Side side = Side::above;
    int width = 320;
    int height = 180;
    Rate rate = {};
    int frames = 30;
    int firstNumber = 0; ///< the bar code of the first frame; chapters go on counting
    Scene scene = Scene::texture;

    std::string pixelFormat = "yuv420p"; ///< ffmpeg's name: yuv, 420 / 422 / 444, p or p10le
    ColourRange range = ColourRange::limited;
    ColourMatrix matrix = ColourMatrix::bt709;
    TransferFunction transfer = TransferFunction::sdr;
    bool tagged = true;      ///< whether the file names range, matrix and transfer
    std::string pixelAspect; ///< as "2:1"; empty says nothing
    std::vector<std::string> encoder = {"-c:v", "libx264", "-preset", "veryfast", "-crf", "12", "-g", "12"};

    std::vector<double> timeStamps; ///< seconds of each frame in order; empty: the rate rules
    double start = 0;               ///< seconds by which the picture begins after the file's time 0

    std::optional<SoundSpec> sound;
    std::vector<double> clicks; ///< seconds after the picture's own time 0; each is a click and a flash

    std::string extension = "mp4";
    std::vector<std::string> container; ///< further options of the output file
};

/// The format in which the pictures of such a recording are drawn and come back from a plain decoder.
PictureFormat pictureFormat(const FootageSpec& spec);
/// What its frame of this index shows.
Drawing drawingOf(const FootageSpec& spec, int index);

/// Makes recordings with the ffmpeg command, never with the code under test. A spec that was made before in this
/// process gives the same file again: nobody may change it; take a copy for that.
class FootageMaker {
public:
    static std::filesystem::path make(const FootageSpec& spec);

    /// A further file made by `ffmpeg <arguments> output`, kept like the others.
    static std::filesystem::path derive(const std::vector<std::string>& arguments, const std::string& extension);
    /// A copy of which the bytes of the packets with these positions in the stream are junk.
    static std::filesystem::path withDamagedPackets(const std::filesystem::path& file, const std::vector<int>& indexes,
                                                    const std::string& stream = "v:0");
    /// A copy of the first `bytes` bytes.
    static std::filesystem::path truncated(const std::filesystem::path& file, uintmax_t bytes);
};

}
