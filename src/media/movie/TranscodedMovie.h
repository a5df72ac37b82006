// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once
#include "media/movie/LibavHandles.h"
#include "media/movie/OutputFile.h"
#include "media/movie/SoundEncoder.h"
#include "media/movie/VideoPicture.h"

#include <deque>
#include <optional>
#include <span>

namespace zumeta {

struct TranscodedMovieSettings {
    PictureFormat picture;             ///< 8 bit 4:2:0; even sizes; its pixel aspect does not count
    AVRational pixelAspect{1, 1};      ///< width of a pixel over its height
    double frameRate = 30;             ///< told to the encoder; time stamps rule the timing
    int64_t timescale = 60000;         ///< of the picture's time stamps
    MediaTime length;                  ///< the last frame reaches to it
    std::optional<MediaTime> soundEnd; ///< nothing: no sound
    int encoderThreads = 1;
};

/// An MP4 file for scrubbing: H.264 of key frames only and AAC, with the index at the front. One thread.
class TranscodedMovie {
public:
    /// Makes a new file. Throws MovieError.
    TranscodedMovie(const FileUrl& file, const TranscodedMovieSettings& settings);

    /// Time stamps in the settings' timescale; one that does not lie behind the last one's is left out.
    void appendVideo(AVFrame& frame, int64_t timeStamp);
    void appendAudio(std::span<const int16_t> samples, MediaTime presentationTime);
    /// Seconds of sound taken so far.
    double soundPosition() const { return m_sound ? m_sound->position() : 0; }

    /// Closes the file, which is complete after this.
    void finish();
    /// Removes the file if it is still the one that was made here.
    void remove() noexcept { m_output.remove(); }

private:
    void start(const FileUrl& file);
    AVStream* addStream(const AVCodecContext& codec, AVRational timeBase);
    void encodeVideo(const AVFrame* frame);
    void holdVideo(AVPacket& packet);
    void writeHeld(int64_t duration);
    void writeSound(AVPacket& packet);
    void write(AVPacket& packet);

    const TranscodedMovieSettings m_settings;
    OutputFile m_output;
    OutputFormat m_format;
    AVStream* m_videoStream = nullptr;
    AVStream* m_soundStream = nullptr;
    CodecContext m_video;
    std::unique_ptr<SoundEncoder> m_sound;
    int64_t m_frames = 0;
    int64_t m_lastTimeStamp = -1;
    std::deque<int64_t> m_timeStamps; ///< of frames inside the encoder, in order
    Packet m_held;                    ///< until the next one tells how long it lasts
};

}
