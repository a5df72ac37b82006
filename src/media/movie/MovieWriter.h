// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/movie/MediaTime.h"
#include "media/movie/VideoPicture.h"
#include "platform/FileUrl.h"

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace zumeta {

enum class H264Profile { main, high };

struct MovieVideoSettings {
    int width = 0;         ///< pixels, even
    int height = 0;        ///< pixels, even
    int64_t bitRate = 0;   ///< average, bits per second
    double frameRate = 30; ///< frames per second, told to the rate control; time stamps rule the timing
    H264Profile profile = H264Profile::high;
    int maxKeyFrameInterval = 30; ///< frames
    std::string encoderPreset;    ///< of the encoder's own in place of the house's settings; for comparing only
};

struct MovieAudioSettings {
    int sampleRate = 44100;
    int channels = 2;
    int64_t bitRate = 128'000; ///< bits per second
};

struct MovieMetadataItem {
    std::string key; ///< as "com.apple.quicktime.software"
    std::string value;
};

struct MovieSettings {
    MovieVideoSettings video;
    std::optional<MovieAudioSettings> audio;
    std::vector<MovieMetadataItem> metadata;
    /// Length of the movie: the last frame reaches to it, frames and sound from there on are left out.
    MediaTime sessionEnd;
};

/// Writes one MP4 file with H.264 and AAC. Time starts at 0. Pictures come from one thread, sound from one other;
/// each waits while it is too far ahead of the other, so memory stays bounded and the file well interleaved.
/// Every failure throws MovieError with the system's or the encoder's text and leaves the writer failed.
class MovieWriter {
public:
    /// Makes a new file; one that is already there is an error.
    static std::unique_ptr<MovieWriter> create(const FileUrl& file, const MovieSettings& settings);
    /// What was not finished stays on disk as an unreadable torso: see removeFile.
    ~MovieWriter();
    MovieWriter(const MovieWriter&) = delete; // it stands for one open file
    MovieWriter& operator=(const MovieWriter&) = delete;

    /// A picture to fill and hand to appendVideo, from a pool.
    WritablePicture nextPicture();
    /// Time stamps rise from call to call.
    void appendVideo(const WritablePicture& picture, MediaTime presentationTime);
    void finishVideo();

    /// Interleaved 16-bit samples in the settings' rate and channels; the writer puts them one after the other and
    /// fills a gap before `presentationTime` with silence.
    void appendAudio(std::span<const int16_t> samples, MediaTime presentationTime);
    void finishAudio();

    /// Drains the encoders and closes the file, which is complete after this.
    void finish();

    /// Any thread, at any time before finish() returns: wakes both sides, which then throw, and gives the file up.
    void cancelWriting();

    /// Removes the file if it is still the one that this writer made. After finish() or cancelWriting().
    void removeFile() noexcept;

private:
    class Implementation;
    explicit MovieWriter(std::unique_ptr<Implementation> implementation);
    std::unique_ptr<Implementation> m_implementation;
};

}
