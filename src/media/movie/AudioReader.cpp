// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/movie/AudioReader.h"

#include "media/movie/AudioDecoder.h"
#include "platform/Log.h"

#include <algorithm>

namespace zumeta {

AudioReader::AudioReader(MediaComposition source, MediaTime start, double length, std::stop_token interrupt)
    : m_source(std::move(source))
    , m_start(start)
    // The end is a sample's place and no frame's: the nearest sample serves.
    , m_end(start + MediaTime::nearest(length, kSampleRate))
    , m_interrupt(std::move(interrupt))
{
    const auto& segments = m_source.audio();
    while (m_segment < segments.size() && segments[m_segment].end() <= m_start)
        ++m_segment;
    openSegment(m_segment);
}

AudioReader::~AudioReader() = default;

bool AudioReader::openSegment(size_t index)
{
    m_file.reset();
    m_segment = index;
    if (index >= m_source.audio().size() || m_source.audio()[index].start >= m_end)
        return false;
    const MediaSegment& segment = m_source.audio()[index];
    const MediaTime toFile = segment.sourceStart - segment.start;
    const MediaTime from = std::max(m_start, segment.start) + toFile;
    // The last packet of a track is usually filled up: what lies behind the track's own end is no sound.
    const MediaTime to = std::min(std::min(m_end, segment.end()) + toFile, segment.asset.audio->end);
    m_file = std::make_unique<AudioDecoder>(segment.asset, from, to, m_interrupt);
    return true;
}

std::optional<AudioBuffer> AudioReader::next()
{
    while (m_file) {
        const MediaSegment& segment = m_source.audio()[m_segment];
        if (std::optional<AudioBuffer> buffer = m_file->next()) {
            buffer->presentationTime = buffer->presentationTime + (segment.start - segment.sourceStart);
            return buffer;
        }
        try {
            openSegment(m_segment + 1);
        } catch (const MovieError& error) {
            m_file.reset();
            logLine(QStringLiteral("Sound stops: ") + QString::fromUtf8(error.what()));
        }
    }
    return std::nullopt;
}

}
