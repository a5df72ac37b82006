// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/movie/MovieWriter.h"

#include "media/movie/MovieEncoders.h"
#include "media/movie/OutputFile.h"
#include "media/movie/SoundEncoder.h"

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <mutex>

namespace zumeta {

namespace {

/// How far one side may run ahead of the other, seconds. Sound is cheap and waits early, so the file is interleaved
/// well; the picture waits late, so a slow start of the sound does not hold it up.
constexpr double kAudioLead = 0.5;
constexpr double kVideoLead = 3.0;
constexpr size_t kPooledFrames = 4;

int64_t inTimescale(MediaTime time, int64_t timescale)
{
    return av_rescale_q_rnd(time.value, {1, int(time.timescale)}, {1, int(timescale)}, AV_ROUND_NEAR_INF);
}

}

class MovieWriter::Implementation {
public:
    Implementation(const FileUrl& file, const MovieSettings& settings);

    WritablePicture nextPicture();
    void appendVideo(const WritablePicture& picture, MediaTime presentationTime);
    void finishVideo();
    void appendAudio(std::span<const int16_t> samples, MediaTime presentationTime);
    void finishAudio();
    void finish();
    void cancelWriting();
    void removeFile() noexcept { m_output.remove(); }

private:
    void start(const MovieSettings& settings);
    AVStream* addStream(const AVCodecContext& codec, AVRational timeBase);
    Frame frameOf(const WritablePicture& picture);
    void encodeHeldFrame(int64_t duration);
    void writeSound(AVPacket& packet);
    void write(AVPacket& packet, const AVStream& stream, AVRational timeBase);
    void waitFor(double position, const double& other, double lead, const bool& otherFinished);
    void advance(double& position, double to);
    void throwIfCancelled() const;

    const MovieSettings m_settings;
    OutputFile m_output;
    std::mutex m_fileMutex; ///< held while the disk is written, which may take long; never together with m_mutex
    OutputFormat m_format;
    AVStream* m_videoStream = nullptr;
    AVStream* m_audioStream = nullptr;
    std::atomic<bool> m_cancelled = false;

    // The picture's thread.
    CodecContext m_video;
    std::vector<Frame> m_pool;
    Frame m_heldFrame; ///< sent on when the next one comes: only then is it known not to be the last
    std::vector<std::pair<int64_t, int64_t>> m_durations; ///< by time stamp, of frames inside the encoder

    // The sound's thread.
    std::unique_ptr<SoundEncoder> m_audio;

    // Both threads, under the mutex.
    std::mutex m_mutex;
    std::condition_variable m_moved;
    double m_videoPosition = 0;
    double m_audioPosition = 0;
    bool m_videoFinished = false;
    bool m_audioFinished = false;
};

MovieWriter::Implementation::Implementation(const FileUrl& file, const MovieSettings& settings)
    : m_settings(settings)
    , m_output(file)
    , m_audioFinished(!settings.audio)
{
    quietLibav();
    try {
        start(settings);
    } catch (const std::exception& error) {
        m_output.remove();
        throw MovieError(MovieError::Kind::cannotStart,
                         m_output.failure().empty() ? std::string(error.what()) : m_output.failure());
    }
}

void MovieWriter::Implementation::start(const MovieSettings& settings)
{
    AVFormatContext* context = nullptr;
    constexpr auto kKind = MovieError::Kind::cannotStart;
    checkAv(avformat_alloc_output_context2(&context, nullptr, "mp4", nullptr), kKind, "starting the movie file");
    m_format.reset(context);
    context->pb = m_output.context();
    // Keeps the muxer from adding its own name to the metadata.
    context->flags |= AVFMT_FLAG_BITEXACT;
    m_video = openVideoEncoder(settings.video);
    m_videoStream = addStream(*m_video, {1, kMovieTimescale});
    m_videoStream->avg_frame_rate = m_video->framerate;
    if (settings.audio) {
        m_audio = std::make_unique<SoundEncoder>(*settings.audio, settings.sessionEnd);
        m_audioStream = addStream(m_audio->codec(), m_audio->codec().time_base);
    }
    for (const MovieMetadataItem& item : settings.metadata)
        av_dict_set(&context->metadata, item.key.c_str(), item.value.c_str(), 0);
    AVDictionary* options = nullptr;
    av_dict_set(&options, "movflags", "+use_metadata_tags", 0);
    av_dict_set_int(&options, "movie_timescale", kMovieTimescale, 0);
    const int code = avformat_write_header(context, &options);
    av_dict_free(&options);
    checkAv(code, kKind, "starting the movie file");
}

AVStream* MovieWriter::Implementation::addStream(const AVCodecContext& codec, AVRational timeBase)
{
    AVStream* const stream = checkAllocated(avformat_new_stream(m_format.get(), nullptr));
    checkAv(avcodec_parameters_from_context(stream->codecpar, &codec), MovieError::Kind::cannotWrite, "adding a track");
    stream->time_base = timeBase;
    return stream;
}

void MovieWriter::Implementation::throwIfCancelled() const
{
    if (m_cancelled)
        throw MovieError(MovieError::Kind::cancelled, "cancelled");
}

WritablePicture MovieWriter::Implementation::nextPicture()
{
    // A frame is free again when neither the encoder nor a picture holds its samples.
    Frame frame(checkAllocated(av_frame_alloc()));
    const auto free = std::find_if(m_pool.begin(), m_pool.end(),
                                   [](const Frame& pooled) { return av_frame_is_writable(pooled.get()) == 1; });
    if (free == m_pool.end()) {
        if (m_pool.size() < kPooledFrames)
            m_pool.push_back(allocateVideoFrame(m_settings.video));
        else
            m_pool.back() = allocateVideoFrame(m_settings.video);
        checkAv(av_frame_ref(frame.get(), m_pool.back().get()), MovieError::Kind::cannotEncode, "taking a frame");
    } else {
        checkAv(av_frame_ref(frame.get(), free->get()), MovieError::Kind::cannotEncode, "taking a frame");
    }
    WritablePicture picture;
    picture.width = m_settings.video.width;
    picture.height = m_settings.video.height;
    for (size_t i = 0; i < picture.planes.size(); ++i)
        picture.planes[i] = {frame->data[i], frame->linesize[i]};
    picture.owner = std::shared_ptr<AVFrame>(std::move(frame));
    return picture;
}

Frame MovieWriter::Implementation::frameOf(const WritablePicture& picture)
{
    Frame frame(checkAllocated(av_frame_alloc()));
    const auto pooled = std::find_if(m_pool.begin(), m_pool.end(), [&](const Frame& candidate) {
        return candidate->data[0] == picture.planes[0].data;
    });
    if (pooled != m_pool.end()) {
        checkAv(av_frame_ref(frame.get(), pooled->get()), MovieError::Kind::cannotEncode, "taking a frame");
        return frame;
    }
    frame = allocateVideoFrame(m_settings.video);
    const VideoPicture view = picture.view();
    for (size_t i = 0; i < view.planes.size(); ++i) {
        const int width = i == 0 ? picture.width : picture.width / 2;
        const int height = i == 0 ? picture.height : picture.height / 2;
        for (int row = 0; row < height; ++row)
            std::copy_n(view.planes[i].data + row * view.planes[i].stride, width,
                        frame->data[i] + ptrdiff_t(row) * frame->linesize[i]);
    }
    return frame;
}

void MovieWriter::Implementation::appendVideo(const WritablePicture& picture, MediaTime presentationTime)
{
    throwIfCancelled();
    if (presentationTime >= m_settings.sessionEnd)
        return;
    Frame frame = frameOf(picture);
    frame->pts = inTimescale(presentationTime, kMovieTimescale);
    if (m_heldFrame)
        encodeHeldFrame(frame->pts - m_heldFrame->pts);
    m_heldFrame = std::move(frame);
    advance(m_videoPosition, presentationTime.seconds());
    waitFor(presentationTime.seconds(), m_audioPosition, kVideoLead, m_audioFinished);
}

void MovieWriter::Implementation::encodeHeldFrame(int64_t duration)
{
    m_durations.emplace_back(m_heldFrame->pts, duration);
    const Frame frame = std::move(m_heldFrame);
    encode(*m_video, frame.get(), [this](AVPacket& packet) { write(packet, *m_videoStream, m_video->time_base); });
}

void MovieWriter::Implementation::finishVideo()
{
    throwIfCancelled();
    if (m_heldFrame) {
        // A key frame comes last in the file as well: only the last sample's length is free to reach to the end.
        m_heldFrame->pict_type = AV_PICTURE_TYPE_I;
        encodeHeldFrame(std::max<int64_t>(1, inTimescale(m_settings.sessionEnd, kMovieTimescale) - m_heldFrame->pts));
    }
    encode(*m_video, nullptr, [this](AVPacket& packet) { write(packet, *m_videoStream, m_video->time_base); });
    const std::lock_guard lock(m_mutex);
    m_videoFinished = true;
    m_moved.notify_all();
}

void MovieWriter::Implementation::appendAudio(std::span<const int16_t> samples, MediaTime presentationTime)
{
    throwIfCancelled();
    m_audio->append(samples, presentationTime, [this](AVPacket& packet) { writeSound(packet); });
    const double position = m_audio->position();
    advance(m_audioPosition, position);
    waitFor(position, m_videoPosition, kAudioLead, m_videoFinished);
}

void MovieWriter::Implementation::finishAudio()
{
    throwIfCancelled();
    if (!m_audio)
        return;
    m_audio->finish([this](AVPacket& packet) { writeSound(packet); });
    const std::lock_guard lock(m_mutex);
    m_audioFinished = true;
    m_moved.notify_all();
}

void MovieWriter::Implementation::writeSound(AVPacket& packet)
{
    write(packet, *m_audioStream, m_audio->codec().time_base);
}

void MovieWriter::Implementation::write(AVPacket& packet, const AVStream& stream, AVRational timeBase)
{
    if (&stream == m_videoStream) {
        const auto known = std::find_if(m_durations.begin(), m_durations.end(),
                                        [&](const auto& entry) { return entry.first == packet.pts; });
        if (known != m_durations.end()) {
            packet.duration = known->second;
            m_durations.erase(known);
        }
    }
    packet.stream_index = stream.index;
    av_packet_rescale_ts(&packet, timeBase, stream.time_base);
    const std::lock_guard lock(m_fileMutex);
    throwIfCancelled();
    // Picture and sound come from two threads, in an order that no two exports share. libavformat puts them into that
    // of their time stamps, so that equal exports give equal files.
    if (av_interleaved_write_frame(m_format.get(), &packet) < 0 || !m_output.failure().empty())
        throw MovieError(MovieError::Kind::cannotWrite,
                         m_output.failure().empty() ? "the movie file refused a packet" : m_output.failure());
}

void MovieWriter::Implementation::waitFor(double position, const double& other, double lead, const bool& otherFinished)
{
    std::unique_lock lock(m_mutex);
    m_moved.wait(lock, [&] { return m_cancelled || otherFinished || position <= other + lead; });
    lock.unlock();
    throwIfCancelled();
}

void MovieWriter::Implementation::advance(double& position, double to)
{
    const std::lock_guard lock(m_mutex);
    position = to;
    m_moved.notify_all();
}

void MovieWriter::Implementation::finish()
{
    throwIfCancelled();
    checkAv(av_write_trailer(m_format.get()), MovieError::Kind::cannotWrite, "finishing the movie file");
    m_output.close();
}

void MovieWriter::Implementation::cancelWriting()
{
    const std::lock_guard lock(m_mutex);
    m_cancelled = true;
    m_moved.notify_all();
}

MovieWriter::MovieWriter(std::unique_ptr<Implementation> implementation)
    : m_implementation(std::move(implementation))
{}

MovieWriter::~MovieWriter() = default;

std::unique_ptr<MovieWriter> MovieWriter::create(const FileUrl& file, const MovieSettings& settings)
{
    return std::unique_ptr<MovieWriter>(new MovieWriter(std::make_unique<Implementation>(file, settings)));
}

WritablePicture MovieWriter::nextPicture()
{
    return m_implementation->nextPicture();
}

void MovieWriter::appendVideo(const WritablePicture& picture, MediaTime presentationTime)
{
    m_implementation->appendVideo(picture, presentationTime);
}

void MovieWriter::finishVideo()
{
    m_implementation->finishVideo();
}

void MovieWriter::appendAudio(std::span<const int16_t> samples, MediaTime presentationTime)
{
    m_implementation->appendAudio(samples, presentationTime);
}

void MovieWriter::finishAudio()
{
    m_implementation->finishAudio();
}

void MovieWriter::finish()
{
    m_implementation->finish();
}

void MovieWriter::cancelWriting()
{
    m_implementation->cancelWriting();
}

void MovieWriter::removeFile() noexcept
{
    m_implementation->removeFile();
}

}
