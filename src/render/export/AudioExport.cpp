// SPDX-License-Identifier: GPL-3.0-or-later
#include "render/export/AudioExport.h"

#include "media/movie/MovieError.h"
#include "media/movie/MovieWriter.h"

namespace zumeta {

void copyAudio(AudioSource& source, MediaTime aboveStart, const AudioAppender& append)
{
    while (const std::optional<AudioBuffer> buffer = source.next()) {
        const MediaTime newTime = buffer->presentationTime - aboveStart;
        if (newTime >= MediaTime{0, 1})
            append(buffer->samples, newTime);
    }
}

AudioExport::AudioExport(std::unique_ptr<AudioSource> source, MediaTime aboveStart, MovieWriter& writer)
    : m_source(std::move(source))
    , m_writer(writer)
    , m_thread([this, aboveStart] { run(aboveStart); })
{}

void AudioExport::run(MediaTime aboveStart)
{
    try {
        copyAudio(*m_source, aboveStart,
                  [this](std::span<const int16_t> samples, MediaTime time) { m_writer.appendAudio(samples, time); });
        m_writer.finishAudio();
    } catch (const MovieError& error) {
        if (error.kind() != MovieError::Kind::cancelled)
            m_failure = error.what();
        // The picture would wait for sound that never comes.
        m_writer.cancelWriting();
    } catch (const std::exception& error) {
        m_failure = error.what();
        m_writer.cancelWriting();
    }
}

std::optional<std::string> AudioExport::wait()
{
    if (m_thread.joinable())
        m_thread.join();
    return m_failure;
}

}
