// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/export/ExportRun.h"

#include "media/movie/AudioReader.h"
#include "media/movie/FrameReadAhead.h"
#include "media/movie/MovieError.h"
#include "render/export/AudioExport.h"
#include "render/export/ExportLayout.h"
#include "render/export/ExportMetadata.h"
#include "render/export/FrameLoop.h"
#include "render/export/SourceAssembly.h"

#include <algorithm>
#include <sys/stat.h>
#include <system_error>
#include <thread>
#include <unistd.h>

namespace zumeta {

namespace {

/// Decoded frames that wait on each side. Frames differ in what they cost; a few keep every stage at work, more only
/// take memory, of which there is this much for each side.
constexpr size_t kMostReadAhead = 3;
constexpr double kReadAheadBytes = 26e6;
/// The timescale of the session's end and of the sound's start.
constexpr int64_t kSessionTimescale = 600;

/// Decoders with threads of their own pay off only where the encoder leaves cores idle.
int decoderThreads()
{
    const int cores = int(std::thread::hardware_concurrency());
    return std::clamp(cores / 2, 1, 8);
}

size_t readAhead(const MediaComposition& source)
{
    const VideoTrack& track = *source.video().front().asset.video;
    constexpr double kBytesPerPixel = 1.5; // 8 bit 4:2:0, which nearly all recordings are
    const double bytes = std::max(track.naturalWidth * track.naturalHeight * kBytesPerPixel, 1.0);
    return std::clamp(size_t(kReadAheadBytes / bytes), size_t(1), kMostReadAhead);
}

int compositorThreads()
{
    const int cores = int(std::thread::hardware_concurrency());
    return std::clamp(cores / 4, 1, 4);
}

bool isSameFile(const FileUrl& a, const FileUrl& b)
{
    struct stat factsOfA {};
    struct stat factsOfB {};
    return ::stat(a.path().c_str(), &factsOfA) == 0 && ::stat(b.path().c_str(), &factsOfB) == 0 &&
           factsOfA.st_dev == factsOfB.st_dev && factsOfA.st_ino == factsOfB.st_ino;
}

ExportError passedOn(const std::exception& error)
{
    return ExportError(ExportError::Case::passedOn, QString::fromUtf8(error.what()));
}

ExportError writerFailed(const std::string& text)
{
    return ExportError(ExportError::Case::assetWriterFailed, QString::fromUtf8(text.c_str()));
}

}

ExportRun::ExportRun(ExportParameters params, FileUrl outputURL, ExportEnvironment environment, std::stop_token stop,
                     std::function<void(double)> report)
    : m_params(std::move(params))
    , m_outputURL(std::move(outputURL))
    , m_turns(m_outputURL)
    , m_environment(std::move(environment))
    , m_stop(std::move(stop))
    , m_report(std::move(report))
{}

ExportOutcome ExportRun::run()
{
    ExportOutcome outcome;
    try {
        exportMovie();
        return outcome;
    } catch (const ExportError& error) {
        outcome = error;
    } catch (const std::exception& error) {
        outcome = passedOn(error);
    } catch (...) {
        outcome = ExportError(ExportError::Case::unknown);
    }
    if (m_writer) {
        const OutputTurns::Turn turn = m_turns.take();
        m_writer->removeFile();
    }
    // Whatever breaks while everything is being given up is a consequence of that.
    if (m_stop.stop_requested())
        outcome = ExportError(ExportError::Case::exportCancelled);
    return outcome;
}

void ExportRun::exportMovie()
{
    removeOldOutput();
    openSources();
    createOutput();
    writeMovie();
    m_report(1.0);
}

void ExportRun::createOutput()
{
    const OutputTurns::Turn turn = m_turns.take();
    throwIfCancelled();
    try {
        m_writer = MovieWriter::create(m_outputURL, movieSettings());
    } catch (const MovieError& error) {
        if (error.kind() == MovieError::Kind::cannotStart)
            throw writerFailed(error.what());
        throw;
    }
}

void ExportRun::throwIfCancelled() const
{
    if (m_stop.stop_requested())
        throw ExportError(ExportError::Case::exportCancelled);
}

void ExportRun::removeOldOutput() const
{
    const OutputTurns::Turn turn = m_turns.take();
    throwIfCancelled();
    for (const auto* urls : {&m_params.aboveVideoURLs, &m_params.belowVideoURLs}) {
        // A recording must never be lost to the movie made from it.
        if (std::any_of(urls->begin(), urls->end(), [&](const FileUrl& url) { return isSameFile(url, m_outputURL); }))
            throw ExportError(ExportError::Case::outputURLAlreadyExists);
    }
    if (::unlink(m_outputURL.path().c_str()) == 0 || errno == ENOENT || errno == ENOTDIR)
        return;
    const std::string reason = std::generic_category().message(errno);
    throw MovieError(MovieError::Kind::cannotWrite, m_outputURL.lastPathComponent() + " cannot be replaced: " + reason);
}

void ExportRun::openSources()
{
    const ClipSteps steps =
        ClipSteps::with([this](const FileUrl& url) { return m_environment.loadAsset(url, m_stop); });
    m_above = createAssetFromURLs(m_params.aboveVideoURLs, steps);
    m_below = createAssetFromURLs(m_params.belowVideoURLs, steps);
    throwIfCancelled();
    if (!m_above.hasVideoTrack() || !m_below.hasVideoTrack())
        throw ExportError(ExportError::Case::missingVideoTrack);
    m_timeline = ExportTimeline::compute(m_params, m_above.duration().seconds(), m_below.duration().seconds());
    m_fps = exportFrameRate(m_below.nominalFrameRate());
}

MovieSettings ExportRun::movieSettings() const
{
    using enum ExportResolutionType;
    const ExportResolutionFacts& size = facts(m_params.resolution);
    const bool small = m_params.resolution == hd720 || m_params.resolution == hd960;
    MovieSettings settings;
    settings.video.width = size.width;
    settings.video.height = size.height;
    settings.video.bitRate = size.videoBitRate;
    settings.video.frameRate = double(m_fps);
    settings.video.encoderPreset = m_environment.encoderPreset;
    settings.video.profile = small ? H264Profile::main : H264Profile::high;
    if (m_above.hasAudioTrack())
        settings.audio = MovieAudioSettings{};
    const ProgramVersion program{m_environment.bundle.shortVersion.value_or(QString()),
                                 m_environment.bundle.buildNumber.value_or(QString())};
    settings.metadata = createExportMetadata(program, QUuid::createUuid(), m_environment.clock->now());
    settings.sessionEnd = MediaTime::nearest(m_timeline.exportDuration, kSessionTimescale);
    return settings;
}

std::unique_ptr<FrameSource> ExportRun::openReader(const MediaComposition& source, double start) const
{
    try {
        return std::make_unique<FrameReader>(source, start, m_timeline.exportDuration,
                                             FrameReaderOptions{decoderThreads(), m_stop});
    } catch (const MovieError&) {
        throwIfCancelled();
        throw writerFailed("Failed to start reading");
    }
}

void ExportRun::writeMovie()
{
    const ExportResolutionFacts& size = facts(m_params.resolution);
    FrameReadAhead above(openReader(m_above, m_timeline.aboveStart), readAhead(m_above));
    FrameReadAhead below(openReader(m_below, m_timeline.belowStart), readAhead(m_below));
    const MediaTime soundStart = MediaTime::nearest(m_timeline.aboveStart, kSessionTimescale);
    std::unique_ptr<AudioSource> sound;
    try {
        if (m_above.hasAudioTrack())
            sound = std::make_unique<AudioReader>(m_above, soundStart, m_timeline.exportDuration, m_stop);
    } catch (const MovieError&) {
        throwIfCancelled();
        throw writerFailed("Failed to start audio reading");
    }
    const std::optional<CompositeLayout> layout = exportLayout(m_params);
    if (!layout)
        throw ExportError(ExportError::Case::unknown);
    CompositorOptions options;
    options.threads = compositorThreads();
    if (m_params.showWatermark && m_environment.drawMark)
        options.mark = m_environment.drawMark(size.width, size.height);
    FrameCompositor compositor(*layout, options);

    const FrameLoopPlan plan{exportTotalFrames(m_timeline.exportDuration, m_fps), exportFrameDuration(m_fps)};
    std::optional<AudioExport> audio;
    // Wakes the loop and the sound wherever they wait.
    const std::stop_callback onStop(m_stop, [&] {
        m_writer->cancelWriting();
        above.stop();
        below.stop();
    });
    try {
        if (sound)
            audio.emplace(std::move(sound), soundStart, *m_writer);
        ProgressThrottle throttle;
        const FrameSink sink{
            [this] { return m_writer->nextPicture(); },
            [this](const WritablePicture& picture, MediaTime time) { m_writer->appendVideo(picture, time); }};
        runFrameLoop(plan, below, above, compositor, sink, m_stop, [&](int64_t frameIndex) {
            const double fraction = double(frameIndex) / double(plan.totalFrames);
            if (throttle.shouldReport(fraction))
                m_report(std::min(fraction, 1.0));
        });
        throwIfCancelled();
        // The readers' threads have nothing more to give; what they hold is wanted by the encoder's end.
        above.stop();
        below.stop();
        m_writer->finishVideo();
        if (audio) {
            if (const std::optional<std::string> failure = audio->wait())
                throw writerFailed(*failure);
        }
        throwIfCancelled();
        m_writer->finish();
    } catch (const MovieError& error) {
        m_writer->cancelWriting();
        throwIfCancelled();
        const std::optional<std::string> soundFailure = audio ? audio->wait() : std::nullopt;
        throw writerFailed(soundFailure ? *soundFailure : error.what());
    } catch (...) {
        // The sound's thread may wait for a picture that never comes.
        m_writer->cancelWriting();
        throw;
    }
}

}
