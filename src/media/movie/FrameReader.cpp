// SPDX-License-Identifier: GPL-3.0-or-later
#include "media/movie/FrameReader.h"

#include "media/movie/VideoDecoder.h"
#include "platform/Log.h"

namespace zumeta {

/// One file from a moment on: skips to the frame shown then.
class FrameReader::FileReader {
public:
    FileReader(const MediaAsset& asset, double start, const FrameReaderOptions& options)
        : m_decoder(asset, start, options), m_start(start)
    {
    }

    std::optional<FrameSlot> next()
    {
        if (!m_atStart)
            return skipToStart();
        if (m_behind)
            return std::exchange(m_behind, std::nullopt);
        return m_decoder.next();
    }

private:
    std::optional<FrameSlot> skipToStart()
    {
        m_atStart = true;
        std::optional<FrameSlot> shown;
        while (std::optional<FrameSlot> slot = m_decoder.next()) {
            if (!frameHasBegun(slot->presentationTime, m_start)) {
                if (!shown)
                    return slot;
                m_behind = std::move(slot);
                break;
            }
            shown = std::move(slot);
        }
        return shown;
    }

    VideoDecoder m_decoder;
    double m_start;
    bool m_atStart = false;
    std::optional<FrameSlot> m_behind; ///< the first frame that begins after the start
};

FrameReader::FrameReader(MediaComposition source, double start, double length, FrameReaderOptions options)
    : m_source(std::move(source)), m_end(start + length), m_options(std::move(options))
{
    const auto& segments = m_source.video();
    if (segments.empty())
        throw MovieError(MovieError::Kind::noVideoTrack, "no video track");
    const MediaSegment* const first = segmentAt(segments, start);
    const size_t index = first ? size_t(first - segments.data()) : 0;
    openSegment(index, start - segments[index].start.seconds());
}

FrameReader::~FrameReader() = default;

void FrameReader::openSegment(size_t index, double localStart)
{
    m_segment = index;
    const MediaSegment& segment = m_source.video()[index];
    const double fileStart = std::max(localStart, 0.0) + segment.sourceStart.seconds();
    m_file = std::make_unique<FileReader>(segment.asset, fileStart, m_options);
}

std::optional<FrameSlot> FrameReader::next()
{
    while (m_file) {
        const MediaSegment& segment = m_source.video()[m_segment];
        std::optional<FrameSlot> slot = m_file->next();
        if (slot && slot->presentationTime < segment.sourceStart + segment.length) {
            slot->presentationTime = segment.start + (slot->presentationTime - segment.sourceStart);
            // The frame shown at the start belongs to the range however early it began; one that begins at the end
            // does not, seen with the tolerance that finds a frame by its time.
            if (slot->presentationTime.seconds() < m_end - kFrameTimeTolerance)
                return slot;
            m_file.reset();
            break;
        }
        m_file.reset();
        if (m_segment + 1 == m_source.video().size() || m_options.interrupt.stop_requested())
            break;
        try {
            openSegment(m_segment + 1, 0);
        } catch (const MovieError& error) {
            logLine(QStringLiteral("Reading stops: ") + QString::fromUtf8(error.what()));
        }
    }
    return std::nullopt;
}

}
