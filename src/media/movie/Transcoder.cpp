// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/movie/Transcoder.h"

#include "media/movie/FrameReadAhead.h"
#include "media/movie/FrameScaler.h"
#include "media/movie/TranscodedMovie.h"
#include "platform/Log.h"

#include <algorithm>
#include <cmath>

namespace zumeta {

namespace {

/// Decoded frames that wait for the encoder: enough that no decoder thread idles over an uneven frame.
constexpr size_t kFramesAhead = 4;
/// How far the sound stands ahead of the picture in the file, seconds.
constexpr double kSoundLead = 0.5;
/// From this reduction on, what the loop filter would have smoothed is lost in the scaling.
constexpr double kReductionThatHidesBlocks = 1.25;
/// With this many bits a pixel, errors stay small up to the next key frame. With fewer they add up to what can be seen,
/// and such files decode fast anyway.
constexpr double kBitsThatNeedNoFilter = 0.15;
/// Of a thousand frames, one may be missing at the end: headers are off by a few.
constexpr int64_t kFramesPerMissingOne = 1000;
constexpr int64_t kFramesAlwaysMissed = 2;
/// For files whose header counts no frames, seconds between the last frame and the told end.
constexpr double kLongestLastFrame = 1.0;
/// Decoder threads for which one encoder thread is enough.
constexpr int kDecodersPerEncoder = 4;

int evenAtMost(double pixels)
{
    return std::max(2, int(pixels) / 2 * 2);
}

double reductionOf(const VideoTrack& track, const TranscoderOptions& box)
{
    return std::max({1.0, track.naturalWidth / box.width, track.naturalHeight / box.height});
}

LoopFilter loopFilterFor(const MediaAsset& asset, const TranscoderOptions& options)
{
    const VideoTrack& track = *asset.video;
    std::error_code error;
    const auto bytes = double(std::filesystem::file_size(asset.url.path(), error));
    const double pixels =
        track.naturalWidth * track.naturalHeight * double(track.nominalFrameRate) * asset.duration.seconds();
    const bool hasBits = !error && bytes * 8 >= kBitsThatNeedNoFilter * pixels;
    return hasBits && reductionOf(track, options) >= kReductionThatHidesBlocks ? LoopFilter::skipped
                                                                               : LoopFilter::applied;
}

/// Frame threads wait for the rows that they refer to; one more keeps all cores at work (2.5 % less wall on two cores).
/// Alone, a thread waits for nobody.
int decoderThreads(const TranscoderOptions& options)
{
    return options.threads > 1 ? options.threads + 1 : 1;
}

/// Even sizes bend the shape by up to a pixel; the pixels' aspect puts that right.
AVRational pixelAspectFor(const VideoTrack& track, PictureSize size)
{
    constexpr int kLargestTerm = 65535; // what a stream can tell
    const double shape = track.naturalWidth / track.naturalHeight;
    return av_d2q(shape * size.height / size.width, kLargestTerm);
}

}

PictureSize fittedSize(double naturalWidth, double naturalHeight, const TranscoderOptions& box)
{
    const double scale = std::min({1.0, box.width / naturalWidth, box.height / naturalHeight});
    const auto nearestEven = [](double pixels) { return int(std::lround(pixels / 2)) * 2; };
    // Rounding to the nearest keeps the shape best, but must not end up larger than the picture or the box.
    const auto fitted = [&](double natural, int limit) {
        return std::clamp(nearestEven(natural * scale), 2, evenAtMost(std::min(natural, double(limit))));
    };
    return {fitted(naturalWidth, box.width), fitted(naturalHeight, box.height)};
}

/// One file being written.
class Transcoder::Run {
public:
    Run(Transcoder& owner, const FileUrl& output, const Progress& progress)
        : m_asset(owner.m_asset)
        , m_size(fittedSize(m_asset.video->naturalWidth, m_asset.video->naturalHeight, owner.m_options))
        , m_output(output)
        , m_progress(progress)
        , m_encoderThreads((owner.m_options.threads + kDecodersPerEncoder - 1) / kDecodersPerEncoder)
        , m_scaler(m_size.width, m_size.height,
                   owner.m_options.scaling ? owner.m_options.scaling(m_size.width, m_size.height) : PictureScaling{})
        , m_sound(std::move(owner.m_sound))
    {}

    void take(const FrameSlot& slot)
    {
        ++m_slots;
        const MediaTime time = std::max(slot.presentationTime, MediaTime{0, 1});
        m_lastTime = time;
        if (slot.picture)
            m_shown = scaled(*slot.picture);
        // A damaged frame keeps its place and shows what was there before it, and the first ones what comes first.
        m_waiting.push_back(time);
        if (!m_shown)
            return;
        for (const MediaTime place : m_waiting)
            append(place);
        m_waiting.clear();
        writeSound(time.seconds() + kSoundLead);
        if (m_progress && m_asset.duration > MediaTime{0, 1})
            m_progress(std::min(1.0, time.seconds() / m_asset.duration.seconds()));
    }

    void finish()
    {
        if (!m_movie)
            throw MovieError(MovieError::Kind::cannotDecode,
                             m_asset.url.lastPathComponent() + ": no picture could be decoded");
        throwIfCutShort();
        writeSound(INFINITY);
        m_movie->finish();
    }

    void remove() noexcept
    {
        if (m_movie)
            m_movie->remove();
    }

private:
    Frame scaled(const VideoPicture& picture)
    {
        if (!m_movie)
            start(m_scaler.outputFormat(picture.format));
        return m_scaler.scale(picture, m_format);
    }

    void start(const PictureFormat& format)
    {
        m_format = format;
        TranscodedMovieSettings settings;
        settings.picture = format;
        settings.pixelAspect = pixelAspectFor(*m_asset.video, m_size);
        if (m_asset.video->nominalFrameRate > 0)
            settings.frameRate = double(m_asset.video->nominalFrameRate);
        // The track's own, so that every time stamp is kept to the digit.
        settings.timescale = m_timescale;
        settings.length = m_asset.video->length;
        if (m_sound)
            settings.soundEnd = m_asset.audio->end;
        settings.encoderThreads = m_encoderThreads;
        m_movie = std::make_unique<TranscodedMovie>(m_output, settings);
    }

    void append(MediaTime time)
    {
        const int64_t timeStamp =
            av_rescale_q_rnd(time.value, {1, int(time.timescale)}, {1, int(m_timescale)}, AV_ROUND_NEAR_INF);
        // A source that begins late shows its first frame from the beginning; without one there, the copy's clock
        // would begin later than the source's.
        if (!m_hasBegun && timeStamp > 0)
            m_movie->appendVideo(*m_shown, 0);
        m_hasBegun = true;
        m_movie->appendVideo(*m_shown, timeStamp);
    }

    void writeSound(double until)
    {
        while (m_sound && m_movie->soundPosition() < until) {
            const std::optional<AudioBuffer> buffer = m_sound->next();
            if (buffer)
                m_movie->appendAudio(buffer->samples, buffer->presentationTime);
            else
                m_sound.reset();
        }
    }

    /// A disk that goes away looks like the end of the file. What was copied by then must not pass for the whole.
    void throwIfCutShort() const
    {
        const int64_t told = m_asset.video->frameCount;
        const bool lacksFrames = m_slots + kFramesAlwaysMissed + told / kFramesPerMissingOne < told;
        const double lastFrame = (m_asset.video->length - m_lastTime).seconds();
        if (lacksFrames || (told == 0 && lastFrame > kLongestLastFrame))
            throw MovieError(MovieError::Kind::cannotDecode,
                             m_asset.url.lastPathComponent() + ": the recording ends before its end");
    }

    const MediaAsset& m_asset;
    const PictureSize m_size;
    const FileUrl m_output;
    const Progress& m_progress;
    const int m_encoderThreads;
    const int64_t m_timescale = m_asset.timeShift.timescale;
    FrameScaler m_scaler;
    std::unique_ptr<AudioReader> m_sound; ///< null once it has ended
    PictureFormat m_format;
    std::unique_ptr<TranscodedMovie> m_movie; ///< begun with the first picture
    Frame m_shown;                            ///< the newest one, scaled
    std::vector<MediaTime> m_waiting;         ///< places for which there is no picture yet
    int64_t m_slots = 0;
    MediaTime m_lastTime;
    bool m_hasBegun = false;
};

std::unique_ptr<Transcoder> Transcoder::open(const FileUrl& source, TranscoderOptions options, std::stop_token stop)
{
    MediaAsset asset = MediaAsset::load(source, stop);
    if (!asset.video || asset.video->naturalWidth < 1 || asset.video->naturalHeight < 1)
        throw MovieError(MovieError::Kind::noVideoTrack, source.lastPathComponent() + ": no video track");
    return std::unique_ptr<Transcoder>(new Transcoder(std::move(asset), std::move(options), std::move(stop)));
}

Transcoder::Transcoder(MediaAsset asset, TranscoderOptions options, std::stop_token stop)
    : m_asset(std::move(asset))
    , m_options(std::move(options))
    , m_stop(std::move(stop))
{
    const MediaComposition source(m_asset);
    const double length = source.duration().seconds();
    m_frames = std::make_unique<FrameReader>(source, 0, length,
                                             FrameReaderOptions{.decoderThreads = decoderThreads(m_options),
                                                                .interrupt = m_stop,
                                                                .loopFilter = loopFilterFor(m_asset, m_options)});
    if (!m_asset.audio)
        return;
    try {
        m_sound = std::make_unique<AudioReader>(source, MediaTime{0, 1}, length, m_stop);
    } catch (const MovieError& error) {
        logLine(QStringLiteral("A proxy goes without sound: ") + QString::fromUtf8(error.what()));
    }
}

Transcoder::~Transcoder() = default;

void Transcoder::write(const FileUrl& output, const Progress& progress)
{
    Run run(*this, output, progress);
    try {
        FrameReadAhead frames(std::move(m_frames), kFramesAhead);
        while (const std::optional<FrameSlot> slot = frames.next()) {
            if (m_stop.stop_requested())
                break;
            run.take(*slot);
        }
        if (m_stop.stop_requested())
            throw MovieError(MovieError::Kind::cancelled, "cancelled");
        run.finish();
    } catch (...) {
        run.remove();
        throw;
    }
}

}
